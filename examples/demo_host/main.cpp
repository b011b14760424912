// A small host written the way an emulator front end would use the dialog library:
// it owns the main window and the "machine" (a text-mode screen with a running frame
// counter), registers the heartbeat that keeps that machine running while a dialog
// is open, and opens a message box of each type in turn, printing each answer.
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

#include "gui/frame.h"
#include "gui/message_box.h"

namespace {

namespace gui = zorvane::frontend::gui;

// The emulated machine as far as this demo is concerned: a screen and a clock.
struct Host {
    SDL_Window* window = nullptr;
    SDL_Renderer* renderer = nullptr;
    TTF_Font* font = nullptr;
    unsigned long long frames = 0;
};

// Answers dialogs by itself when nobody is there to click: a few frames after a
// dialog opened it saves the dialog's picture, then presses Escape.
struct Autopilot {
    bool enabled = false;
    std::filesystem::path folder;
    std::string next_name;
    int beats = 0;
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

void StepAutopilot(Host const& host, Autopilot& pilot) {
    if (!pilot.enabled || ++pilot.beats != 6) {
        return;
    }
    SDL_Window* dialog = FindDialogWindow(host);
    if (dialog == nullptr) {
        return;
    }
    // On the dummy driver the dialog draws with the software renderer straight into
    // its window surface, so that surface holds the frame presented last.
    if (SDL_Surface* surface = SDL_GetWindowSurface(dialog)) {
        std::filesystem::path const file = pilot.folder / (pilot.next_name + ".png");
        if (IMG_SavePNG(surface, file.string().c_str()) == 0) {
            std::printf("  saved %s\n", file.string().c_str());
        }
    }
    SDL_Event escape{};
    escape.type = SDL_KEYDOWN;
    escape.key.windowID = SDL_GetWindowID(dialog);
    escape.key.keysym.sym = SDLK_ESCAPE;
    SDL_PushEvent(&escape);
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

    gui::SetModalDialogHeartbeat([&host, &pilot] {
        RunMachineSlice(host);
        StepAutopilot(host, pilot);
    });
    RunMessageBoxes(host, pilot);
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
