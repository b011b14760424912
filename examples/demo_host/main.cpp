// A small host written the way an emulator front end would use the dialog library:
// it owns the main window and the "machine" (a text-mode screen with a running frame
// counter), registers the heartbeat that keeps that machine running while a dialog
// is open, and opens a message box of each type in turn, printing each answer. Then
// its own loop runs: S opens the settings dialog over the host's settings record,
// and every Apply is taken over, printed and shown on the screen; C saves a
// screenshot of the host's frame where the user chooses, H asks for a disk image
// and prints what it would create, A shows the About dialog; F, T, D and G open the
// folder, font, floppy and shader pickers and print the path picked; P tunes the
// parameters of the shader or preset named on the command line (or of the sample in
// examples/shaders) and prints each Apply.
//
// Without a display (or with --headless) it runs on SDL's dummy video driver, answers
// each dialog by itself and saves a PNG of every dialog into a folder it prints.
#include <SDL.h>
#include <SDL_image.h>
#include <SDL_ttf.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "gui/frame.h"
#include "gui/message_box.h"
#include "gui/settings.h"

#include "forms_demo.h"
#include "pickers_demo.h"
#include "shader_params_demo.h"

namespace {

namespace gui = zorvane::frontend::gui;

// The emulated machine as far as this demo is concerned: a screen and a clock.
struct Host {
    SDL_Window* window = nullptr;
    SDL_Renderer* renderer = nullptr;
    TTF_Font* font = nullptr;
    unsigned long long frames = 0;
    gui::SettingsDialogValues settings;  // the host's own settings record
    int settings_applies = 0;
    std::string shader_path;                               // the shader or preset to tune
    std::vector<gui::ShaderParameterValue> shader_values;  // its parameters as last applied
};

// Answers dialogs by itself when nobody is there to click: a few frames after a
// dialog opened it saves the dialog's picture, then presses Escape.
struct Autopilot {
    bool enabled = false;
    std::filesystem::path folder;
    std::string next_name;
    int beats = 0;
    bool settings_tour = false;        // walk every settings topic instead of closing at once
    SDL_Keycode answer = SDLK_ESCAPE;  // the key that ends an ordinary dialog
};

TTF_Font* OpenHostFont() {
    char const* const candidates[] = {"data/ttf/IBMPlexSans-Regular.ttf",
                                      "/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf",
                                      "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"};
    for (char const* path : candidates) {
        if (TTF_Font* font = TTF_OpenFont(path, 16)) {
            return font;
        }
    }
    return nullptr;
}

void DrawLine(Host& host, std::string const& text, int row, SDL_Color color) {
    if (host.font == nullptr) {
        return;
    }
    SDL_Surface* surface = TTF_RenderUTF8_Blended(host.font, text.c_str(), color);
    if (surface == nullptr) {
        return;
    }
    if (SDL_Texture* texture = SDL_CreateTextureFromSurface(host.renderer, surface)) {
        SDL_Rect const rect{16, 16 + row * 22, surface->w, surface->h};
        SDL_RenderCopy(host.renderer, texture, nullptr, &rect);
        SDL_DestroyTexture(texture);
    }
    SDL_FreeSurface(surface);
}

// One slice of emulation: the frame counter advances and the screen is redrawn.
void RunMachineSlice(Host& host) {
    ++host.frames;
    SDL_SetRenderDrawColor(host.renderer, 0, 0, 170, 255);
    SDL_RenderClear(host.renderer);
    SDL_Color const grey{170, 170, 170, 255};
    SDL_Color const white{255, 255, 255, 255};
    DrawLine(host, "Zorvane demo host", 0, white);
    DrawLine(host, "Machine frame " + std::to_string(host.frames), 1, grey);
    DrawLine(host, "C:\\>_", 3, grey);
    DrawLine(host, "S: settings   C: screenshot   H: disk image   A: about   Esc: quit", 5, white);
    DrawLine(host,
             "fps " + std::to_string(host.settings.fps) + ", font " + host.settings.font_mode +
                 ", renderer " + host.settings.renderer_mode + ", applied " +
                 std::to_string(host.settings_applies) + " time(s)",
             6, grey);
    DrawLine(host, "F: folder   T: font   D: floppy image   G: shader", 7, white);
    DrawLine(host, "P: parameters of " + host.shader_path, 8, white);
    SDL_RenderPresent(host.renderer);
}

// The newest shown window other than the host's: the dialog that is open.
SDL_Window* FindDialogWindow(Host const& host) {
    SDL_Window* found = nullptr;
    for (Uint32 id = 1; id < 1024; ++id) {
        SDL_Window* window = SDL_GetWindowFromID(id);
        if (window != nullptr && window != host.window &&
            (SDL_GetWindowFlags(window) & SDL_WINDOW_SHOWN) != 0) {
            found = window;
        }
    }
    return found;
}

// On the dummy driver the dialog draws with the software renderer straight into
// its window surface, so that surface holds the frame presented last.
void SaveDialogPicture(SDL_Window* dialog, std::filesystem::path const& folder,
                       std::string const& name) {
    if (SDL_Surface* surface = SDL_GetWindowSurface(dialog)) {
        std::filesystem::path const file = folder / (name + ".png");
        if (IMG_SavePNG(surface, file.string().c_str()) == 0) {
            std::printf("  saved %s\n", file.string().c_str());
        }
    }
}

void PushKey(SDL_Window* dialog, SDL_Keycode key) {
    SDL_Event event{};
    event.type = SDL_KEYDOWN;
    event.key.windowID = SDL_GetWindowID(dialog);
    event.key.keysym.sym = key;
    SDL_PushEvent(&event);
}

void PushLeftClick(SDL_Window* dialog, int x, int y) {
    SDL_Event release{};
    release.type = SDL_MOUSEBUTTONUP;
    release.button.windowID = SDL_GetWindowID(dialog);
    release.button.button = SDL_BUTTON_LEFT;
    release.button.state = SDL_RELEASED;
    release.button.x = x;
    release.button.y = y;
    SDL_PushEvent(&release);
}

// Every four beats the settings tour clicks the next topic on the left and saves
// its picture two beats later; then it clicks Apply and closes the dialog. Panels
// take their hits from the polled pointer, which a driver without a real pointer
// never places over the window, so the tour changes no setting.
void StepSettingsTour(Autopilot& pilot, SDL_Window* dialog) {
    struct Topic {
        int row;
        char const* name;
    };
    static Topic const kTopics[] = {{1, "font_mode"},       {2, "target_fps"},    {3, "renderer"},
                                    {4, "screenshots"},     {6, "mouse_capture"}, {8, "cpu_speed"},
                                    {10, "logger_options"}, {12, "hdd_sounds"}};
    int const count = static_cast<int>(sizeof(kTopics) / sizeof(kTopics[0]));
    int const step = pilot.beats / 4 - 1;
    int const phase = pilot.beats % 4;
    if (phase != 0 && !(phase == 2 && step < count)) {
        return;
    }
    if (step >= 0 && step < count) {
        if (phase == 0) {
            PushLeftClick(dialog, 100, 10 + 30 * kTopics[step].row + 15);
        } else {
            SaveDialogPicture(dialog, pilot.folder, std::string("settings_") + kTopics[step].name);
        }
    } else if (step == count) {
        PushLeftClick(dialog, 763, 464);  // "Apply"
    } else if (step == count + 1) {
        PushKey(dialog, SDLK_ESCAPE);
    }
}

void StepAutopilot(Host const& host, Autopilot& pilot) {
    if (!pilot.enabled) {
        return;
    }
    ++pilot.beats;
    SDL_Window* dialog = FindDialogWindow(host);
    if (dialog == nullptr) {
        return;
    }
    if (pilot.settings_tour) {
        StepSettingsTour(pilot, dialog);
        return;
    }
    if (pilot.beats == 6) {
        SaveDialogPicture(dialog, pilot.folder, pilot.next_name);
        PushKey(dialog, pilot.answer);
    }
}

struct Demo {
    gui::SdlMessageBox::Type type;
    char const* name;
    char const* title;
    char const* message;
};

void RunMessageBoxes(Host& host, Autopilot& pilot) {
    using Type = gui::SdlMessageBox::Type;
    Demo const demos[] = {
        {Type::Info, "info", "Machine started",
         "The emulated PC booted from drive A:. The machine keeps running while this box "
         "is open: watch the frame counter in the main window."},
        {Type::Question, "question", "Eject floppy?", "Drive A: holds DOS622_1.IMG. Eject it now?"},
        {Type::Warning, "warning", "Low speed",
         "The host cannot keep up with 30 MHz.\nThe guest clock will run slow."},
        {Type::Error, "error", "Disk image unreadable",
         "C:\\GAMES\\DISK.IMG could not be read. The drive stays empty."},
        {Type::Critical, "critical", "CPU halted",
         "The guest executed HLT with interrupts disabled. Reset the machine?"},
        {Type::Success, "success", "Screenshot saved", "zorvane_capture_2026_04_14_10_06_49.png"},
    };
    for (Demo const& demo : demos) {
        gui::SdlMessageBox::Config config;
        config.title = demo.title;
        config.message = demo.message;
        config.type = demo.type;
        config.width = 460;
        config.buttons = {{0, "Cancel", false, true, nullptr}, {1, "OK", true, false, nullptr}};
        pilot.next_name = std::string("message_box_") + demo.name;
        pilot.beats = 0;
        int const id = gui::SdlMessageBox(config).Show(host.window, 1.0f);
        std::printf("message box %-8s -> id %d (machine at frame %llu)\n", demo.name, id,
                    host.frames);
    }
}

void PrintSettings(gui::SettingsDialogValues const& v) {
    std::printf(
        "  fps %d, font %s (%s), renderer %s, cpu %.2f MHz, mouse gain %.2f, text-mode "
        "capture %s, hdd sounds %s at %.0f%%, shader capture %s, capture size %d\n",
        v.fps, v.font_mode.c_str(),
        v.custom_font_path.empty() ? "no file" : v.custom_font_path.c_str(),
        v.renderer_mode.c_str(), v.cpu_mhz, v.mouse_capture_gain,
        v.allow_mouse_capture_in_text_mode ? "on" : "off", v.hdd_sounds_enabled ? "on" : "off",
        v.hdd_sounds_volume * 100.0, v.screenshot_capture_with_opengl_shaders ? "on" : "off",
        v.screenshot_capture_size_mode);
}

// The settings dialog over the host's own record: every Apply replaces the record,
// as a host would before acting on it; closing the dialog keeps what was applied.
void OpenSettings(Host& host, Autopilot& pilot) {
    pilot.beats = 0;
    pilot.settings_tour = pilot.enabled;
    gui::ShowSettingsDialog(
        host.window, 1.0f, host.settings, [&host](gui::SettingsDialogValues const& values) {
            host.settings = values;
            ++host.settings_applies;
            std::printf("settings applied (machine at frame %llu):\n", host.frames);
            PrintSettings(values);
        });
    pilot.settings_tour = false;
    std::printf("settings closed after %d apply(s) in all\n", host.settings_applies);
}

// Without a display: the screenshot is saved with Return into the pictures' folder,
// the disk image and About dialogs are closed with Escape.
void TourFormDialogs(Host& host, Autopilot& pilot) {
    pilot.next_name = "screenshot";
    pilot.beats = 0;
    pilot.answer = SDLK_RETURN;
    demo::SaveHostScreenshot(host.window, host.renderer, pilot.folder.string());
    pilot.answer = SDLK_ESCAPE;
    pilot.next_name = "hdd_image";
    pilot.beats = 0;
    demo::AskForDiskImage(host.window);
    pilot.next_name = "about";
    pilot.beats = 0;
    demo::ShowAbout(host.window);
}

// Without a display: each picker opens on its own start folder and is cancelled.
void TourPickers(Host& host, Autopilot& pilot) {
    void (*const pickers[])(SDL_Window*) = {demo::PickCaptureFolder, demo::PickFont,
                                            demo::PickFloppy, demo::PickShader};
    char const* const names[] = {"picker_folder", "picker_font", "picker_floppy", "picker_shader"};
    for (int i = 0; i < 4; ++i) {
        pilot.next_name = names[i];
        pilot.beats = 0;
        pickers[i](host.window);
    }
}

// The host's own loop: S, C, H, A, F, T, D and G open their dialogs, Escape or closing the window
// quits. Without a display each dialog is toured once instead.
void RunHostLoop(Host& host, Autopilot& pilot) {
    if (pilot.enabled) {
        OpenSettings(host, pilot);
        TourFormDialogs(host, pilot);
        TourPickers(host, pilot);
        pilot.next_name = "shader_params";
        pilot.beats = 0;
        demo::TuneShaderParameters(host.window, host.shader_path, host.shader_values);
        return;
    }
    while (true) {
        SDL_Event event;
        while (SDL_PollEvent(&event) != 0) {
            if (event.type == SDL_QUIT ||
                (event.type == SDL_KEYDOWN && event.key.keysym.sym == SDLK_ESCAPE)) {
                return;
            }
            SDL_Keycode const key = event.type == SDL_KEYDOWN ? event.key.keysym.sym : SDLK_UNKNOWN;
            if (key == SDLK_s) {
                OpenSettings(host, pilot);
            } else if (key == SDLK_c) {
                demo::SaveHostScreenshot(host.window, host.renderer, "");
            } else if (key == SDLK_h) {
                demo::AskForDiskImage(host.window);
            } else if (key == SDLK_a) {
                demo::ShowAbout(host.window);
            } else if (key == SDLK_f) {
                demo::PickCaptureFolder(host.window);
            } else if (key == SDLK_t) {
                demo::PickFont(host.window);
            } else if (key == SDLK_d) {
                demo::PickFloppy(host.window);
            } else if (key == SDLK_g) {
                demo::PickShader(host.window);
            } else if (key == SDLK_p) {
                demo::TuneShaderParameters(host.window, host.shader_path, host.shader_values);
            }
        }
        RunMachineSlice(host);
        SDL_Delay(16);
    }
}

bool WantsHeadless(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--headless") == 0) {
            return true;
        }
    }
    char const* display = std::getenv("DISPLAY");
    char const* wayland = std::getenv("WAYLAND_DISPLAY");
    return (display == nullptr || display[0] == '\0') && (wayland == nullptr || wayland[0] == '\0');
}

}  // namespace

int main(int argc, char** argv) {
    Autopilot pilot;
    pilot.enabled = WantsHeadless(argc, argv);
    if (pilot.enabled) {
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        pilot.folder = std::filesystem::absolute("out/demo_host");
        std::filesystem::create_directories(pilot.folder);
        std::printf("no display: answering dialogs automatically, pictures go to %s\n",
                    pilot.folder.string().c_str());
    }
    if (SDL_Init(SDL_INIT_VIDEO) != 0 || TTF_Init() != 0) {
        std::fprintf(stderr, "cannot start SDL: %s\n", SDL_GetError());
        return 1;
    }

    Host host;
    host.window = SDL_CreateWindow("Zorvane demo host", SDL_WINDOWPOS_CENTERED,
                                   SDL_WINDOWPOS_CENTERED, 720, 400, SDL_WINDOW_SHOWN);
    host.renderer = host.window != nullptr
                        ? SDL_CreateRenderer(host.window, -1, SDL_RENDERER_SOFTWARE)
                        : nullptr;
    if (host.renderer == nullptr) {
        std::fprintf(stderr, "cannot open the main window: %s\n", SDL_GetError());
        return 1;
    }
    host.font = OpenHostFont();
    host.settings.fps = 60;
    host.shader_path = demo::ShaderPathFromArguments(argc, argv);

    gui::SetModalDialogHeartbeat([&host, &pilot] {
        RunMachineSlice(host);
        StepAutopilot(host, pilot);
    });
    RunMessageBoxes(host, pilot);
    RunHostLoop(host, pilot);
    gui::SetModalDialogHeartbeat(nullptr);

    gui::ShutdownSdlUiCachedFonts();
    if (host.font != nullptr) {
        TTF_CloseFont(host.font);
    }
    SDL_DestroyRenderer(host.renderer);
    SDL_DestroyWindow(host.window);
    TTF_Quit();
    SDL_Quit();
    return 0;
}
