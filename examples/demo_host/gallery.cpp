// The gallery's scripts and their player: what to click, press and save at which
// heartbeat of each dialog, and the sample folder of floppy images it opens.
#include "gallery.h"

#include <stdlib.h>

#ifdef _WIN32
#include <io.h>
#endif

#include <cstdio>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include <SDL_image.h>

#include "forms_demo.h"
#include "gui/frame.h"
#include "message_boxes_demo.h"
#include "pickers_demo.h"
#include "settings_demo.h"
#include "shader_params_demo.h"

namespace demo {

namespace {

// One gesture of a script, at the given heartbeat of the open dialog (counted from
// the first beat at which its window is shown).
struct Step {
    int beat = 0;
    std::string picture;             // save the dialog's picture under this name
    SDL_Keycode key = SDLK_UNKNOWN;  // or press this key
    SDL_Point click{-1, -1};         // or click the left button here
};

Step Picture(int beat, std::string name) {
    return {beat, std::move(name), SDLK_UNKNOWN, {-1, -1}};
}
Step Key(int beat, SDL_Keycode key) {
    return {beat, "", key, {-1, -1}};
}
Step Click(int beat, int x, int y) {
    return {beat, "", SDLK_UNKNOWN, {x, y}};
}

// A picture, then Escape: for every dialog that has one state worth seeing.
std::vector<Step> PictureThenEscape(std::string name) {
    return {Picture(3, std::move(name)), Key(4, SDLK_ESCAPE)};
}

// A picker with the selection moved two rows down, past the parent entry.
std::vector<Step> PickerSelection(std::string name) {
    return {Key(2, SDLK_DOWN), Key(2, SDLK_DOWN), Picture(4, std::move(name)), Key(5, SDLK_ESCAPE)};
}

// Each topic on the left is clicked and its panel saved two beats later; then Apply
// (which hands the host its unchanged record) and Escape. Panels take their hits from
// the polled pointer, which the dummy driver never places over the window, so no
// setting changes on the way.
std::vector<Step> SettingsTour() {
    struct Topic {
        int row;
        char const* name;
    };
    static Topic const kTopics[] = {{1, "font_mode"},       {2, "target_fps"},    {3, "renderer"},
                                    {4, "screenshots"},     {6, "mouse_capture"}, {8, "cpu_speed"},
                                    {10, "logger_options"}, {12, "hdd_sounds"}};
    std::vector<Step> steps;
    int beat = 4;
    for (Topic const& topic : kTopics) {
        steps.push_back(Click(beat, 100, 10 + 30 * topic.row + 15));
        steps.push_back(Picture(beat + 2, std::string("settings_") + topic.name));
        beat += 4;
    }
    steps.push_back(Click(beat, 763, 464));  // Apply
    steps.push_back(Key(beat + 2, SDLK_ESCAPE));
    return steps;
}

// The form in PNG, the format list open, then JPEG and BMP chosen from that list,
// which also switches the value row; Escape leaves without saving.
std::vector<Step> ScreenshotFormats() {
    SDL_Point const format_field{360, 233};
    auto const row_y = [](int row) { return 252 + 34 * row + 17; };
    return {Picture(3, "screenshot_png"),
            Click(4, format_field.x, format_field.y),
            Picture(6, "screenshot_format_list"),
            Click(7, format_field.x, row_y(1)),
            Picture(9, "screenshot_jpeg"),
            Click(10, format_field.x, format_field.y),
            Click(12, format_field.x, row_y(2)),
            Picture(14, "screenshot_bmp"),
            Key(15, SDLK_ESCAPE)};
}

// The newest shown window other than the host's: the dialog that is open.
SDL_Window* FindDialogWindow(SDL_Window* host_window) {
    SDL_Window* found = nullptr;
    for (Uint32 id = 1; id < 1024; ++id) {
        SDL_Window* window = SDL_GetWindowFromID(id);
        if (window != nullptr && window != host_window &&
            (SDL_GetWindowFlags(window) & SDL_WINDOW_SHOWN) != 0) {
            found = window;
        }
    }
    return found;
}

void PushKey(SDL_Window* dialog, SDL_Keycode key) {
    SDL_Event event{};
    event.type = SDL_KEYDOWN;
    event.key.windowID = SDL_GetWindowID(dialog);
    event.key.state = SDL_PRESSED;
    event.key.keysym.sym = key;
    SDL_PushEvent(&event);
}

void PushClick(SDL_Window* dialog, SDL_Point at) {
    for (Uint32 type : {SDL_MOUSEBUTTONDOWN, SDL_MOUSEBUTTONUP}) {
        SDL_Event event{};
        event.type = type;
        event.button.windowID = SDL_GetWindowID(dialog);
        event.button.button = SDL_BUTTON_LEFT;
        event.button.state = type == SDL_MOUSEBUTTONDOWN ? SDL_PRESSED : SDL_RELEASED;
        event.button.clicks = 1;
        event.button.x = at.x;
        event.button.y = at.y;
        SDL_PushEvent(&event);
    }
}

// Plays one script against whatever dialog is open, one heartbeat at a time.
struct Player {
    SDL_Window* host_window = nullptr;
    std::filesystem::path folder;
    std::vector<Step> script;
    std::size_t next = 0;
    int beats = 0;
    int saved = 0;
    int failures = 0;

    // On the dummy driver a window keeps the frame presented last in its surface.
    void Save(SDL_Window* window, std::string const& name) {
        std::filesystem::path const file = folder / (name + ".png");
        SDL_Surface* surface = SDL_GetWindowSurface(window);
        if (surface != nullptr && IMG_SavePNG(surface, file.string().c_str()) == 0) {
            std::printf("%s\n", file.string().c_str());
            ++saved;
        } else {
            std::printf("cannot save %s: %s\n", file.string().c_str(), SDL_GetError());
            ++failures;
        }
    }

    void Beat() {
        SDL_Window* dialog = FindDialogWindow(host_window);
        if (dialog == nullptr) {
            return;
        }
        ++beats;
        for (; next < script.size() && script[next].beat <= beats; ++next) {
            Step const& step = script[next];
            if (!step.picture.empty()) {
                Save(dialog, step.picture);
            } else if (step.key != SDLK_UNKNOWN) {
                PushKey(dialog, step.key);
            } else {
                PushClick(dialog, step.click);
            }
        }
        // A dialog that outlives its script by far is asked to quit, which closes it alone.
        if (beats > 400 && beats % 50 == 0) {
            SDL_Event quit{};
            quit.type = SDL_QUIT;
            SDL_PushEvent(&quit);
        }
    }

    void Play(Host& host, std::vector<Step> steps, void (*open)(Host&)) {
        script = std::move(steps);
        next = 0;
        beats = 0;
        open(host);
        if (next != script.size()) {
            std::printf("a dialog closed before its script ended (step %zu of %zu)\n", next,
                        script.size());
            ++failures;
        }
    }
};

// Sample floppy images (empty files) in a fresh folder under the system's temporary
// folder, removed again when the gallery ends.
struct SampleFloppies {
    std::filesystem::path root;
    std::filesystem::path folder;

    SampleFloppies() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "zorvane_gallery_XXXXXX").string();
#ifdef _WIN32
        if (_mktemp_s(pattern.data(), pattern.size() + 1) != 0 ||
            !std::filesystem::create_directory(pattern)) {
            return;
        }
#else
        if (mkdtemp(pattern.data()) == nullptr) {
            return;
        }
#endif
        root = pattern;
        folder = root / "floppies";
        std::error_code error;
        std::filesystem::create_directories(folder / "drivers", error);
        for (char const* name : {"DOS622_1.IMA", "DOS622_2.IMA", "DOS622_3.IMA", "GAMES.IMG",
                                 "WIN311_1.IMA", "readme.txt"}) {
            std::ofstream(folder / name).put('\0');
        }
    }
    ~SampleFloppies() {
        std::error_code ignored;
        std::filesystem::remove_all(root, ignored);
    }
    SampleFloppies(SampleFloppies const&) = delete;
    SampleFloppies& operator=(SampleFloppies const&) = delete;
};

void PlayMessageBoxes(Player& player, Host& host) {
    void (*const open[kMessageBoxKinds])(Host&) = {AskMessageBoxOf<0>, AskMessageBoxOf<1>,
                                                   AskMessageBoxOf<2>, AskMessageBoxOf<3>,
                                                   AskMessageBoxOf<4>, AskMessageBoxOf<5>};
    for (int kind = 0; kind < kMessageBoxKinds; ++kind) {
        player.Play(host, PictureThenEscape(std::string("message_box_") + MessageBoxKindName(kind)),
                    open[kind]);
    }
}

// Each picker opens on a real folder with matching files: the repository's examples
// and its shaders, the folder of the screen's font, and the sample floppies.
void PlayPickers(Player& player, Host& host, SampleFloppies const& floppies) {
    host.capture_folder = "examples";
    player.Play(host, PickerSelection("picker_folder"), PickCaptureFolder);
    player.Play(host, PickerSelection("picker_font"), PickFont);
    host.drive_a = (floppies.folder / "DOS622_1.IMA").string();
    player.Play(host, PickerSelection("picker_floppy"), PickFloppy);
    host.shader_path = "examples/shaders/crt_soft.glslp";
    player.Play(host, PickerSelection("picker_shader"), PickShader);
}

void PlayForms(Player& player, Host& host) {
    player.Play(host, SettingsTour(), OpenSettings);
    player.Play(host, PictureThenEscape("shader_params"), TuneShaderParameters);
    host.capture_folder = player.folder.string();  // were anything saved, it would land here
    player.Play(host, ScreenshotFormats(), SaveHostScreenshot);
    player.Play(host, PictureThenEscape("hdd_image"), AskForDiskImage);
    player.Play(host, PictureThenEscape("about"), ShowAbout);
}

}  // namespace

int RunGallery(Host& host, std::filesystem::path const& folder) {
    std::filesystem::create_directories(folder);
    Player player;
    player.host_window = host.window;
    player.folder = folder;
    SampleFloppies const floppies;
    gui::SetModalDialogHeartbeat([&host, &player] {
        RunMachine(host);
        player.Beat();
    });
    PlayMessageBoxes(player, host);
    PlayPickers(player, host, floppies);
    PlayForms(player, host);
    gui::SetModalDialogHeartbeat(nullptr);

    RunMachine(host);
    player.Save(host.window, "host_window");
    std::printf("%d picture(s) in %s, %d failure(s)\n", player.saved, folder.string().c_str(),
                player.failures);
    return player.failures == 0 ? 0 : 1;
}

}  // namespace demo
