// A small host written the way an emulator front end uses the dialog library: it
// owns the main window and the "machine" (a text-mode screen with a clock, an
// emulated uptime and a frame counter), registers the heartbeat that keeps the
// machine running while a dialog is open, opens one dialog per key of the list on
// its screen and acts on every result.
//
// `demo_host --gallery DIR` (and any run without a display) renders every dialog in
// each of its states to PNG files in DIR instead, on SDL's dummy video driver.
#include <SDL.h>
#include <SDL_ttf.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

#include "gui/frame.h"

#include "forms_demo.h"
#include "gallery.h"
#include "host_machine.h"
#include "message_boxes_demo.h"
#include "pickers_demo.h"
#include "settings_demo.h"
#include "shader_params_demo.h"

namespace {

namespace gui = zorvane::frontend::gui;
using demo::Host;

// One key of the host: the dialog it opens and the line of the on-screen list it
// is shown on.
struct HostKey {
    SDL_Keycode key;
    char const* caption;
    int line;
    void (*open)(Host& host);
};

HostKey const kHostKeys[] = {
    {SDLK_1, "Info", 0, demo::AskMessageBoxOf<0>},
    {SDLK_2, "Question", 0, demo::AskMessageBoxOf<1>},
    {SDLK_3, "Warning", 0, demo::AskMessageBoxOf<2>},
    {SDLK_4, "Error", 0, demo::AskMessageBoxOf<3>},
    {SDLK_5, "Critical", 0, demo::AskMessageBoxOf<4>},
    {SDLK_6, "Success", 0, demo::AskMessageBoxOf<5>},
    {SDLK_f, "Folder", 1, demo::PickCaptureFolder},
    {SDLK_t, "Font", 1, demo::PickFont},
    {SDLK_d, "Floppy", 1, demo::PickFloppy},
    {SDLK_g, "Shader", 1, demo::PickShader},
    {SDLK_s, "Settings", 2, demo::OpenSettings},
    {SDLK_p, "Shader parameters", 2, demo::TuneShaderParameters},
    {SDLK_c, "Screenshot", 2, demo::SaveHostScreenshot},
    {SDLK_h, "Disk image", 3, demo::AskForDiskImage},
    {SDLK_a, "About", 3, demo::ShowAbout},
};

// The key list as the screen shows it, one line per group of keys.
void BuildKeyLines(Host& host) {
    host.key_lines = {"Message boxes", "Pickers      ", "Forms        ", "             "};
    for (HostKey const& key : kHostKeys) {
        host.key_lines[key.line] += std::string("  ") + SDL_GetKeyName(key.key) + " " + key.caption;
    }
    host.key_lines.push_back("Esc quits the host");
}

void OpenDialogForKey(Host& host, SDL_Keycode pressed) {
    for (HostKey const& key : kHostKeys) {
        if (key.key == pressed) {
            key.open(host);
            return;
        }
    }
}

// The host's own loop: the machine runs at its frame rate, each key of the list
// opens its dialog, and the heartbeat keeps the machine running while that dialog
// is open. Between frames the host sleeps, so an idle host takes little of a core.
void RunInteractive(Host& host) {
    gui::SetModalDialogHeartbeat([&host] { demo::RunMachine(host); });
    for (std::string const& line : host.key_lines) {
        std::printf("  %s\n", line.c_str());
    }
    demo::Tell(host, "Press a key of the list; the machine runs on while a dialog is open.");
    while (!host.quit) {
        SDL_Event event;
        while (!host.quit && SDL_PollEvent(&event) != 0) {
            if (event.type == SDL_QUIT ||
                (event.type == SDL_KEYDOWN && event.key.keysym.sym == SDLK_ESCAPE)) {
                host.quit = true;
            } else if (event.type == SDL_KEYDOWN && event.key.repeat == 0) {
                OpenDialogForKey(host, event.key.keysym.sym);
            }
        }
        demo::RunMachine(host);
        demo::SleepUntilNextFrame(host);
    }
    gui::SetModalDialogHeartbeat(nullptr);
}

bool HasDisplay() {
    char const* display = std::getenv("DISPLAY");
    char const* wayland = std::getenv("WAYLAND_DISPLAY");
    return (display != nullptr && display[0] != '\0') || (wayland != nullptr && wayland[0] != '\0');
}

struct Options {
    bool gallery = false;
    std::filesystem::path folder = "out/gallery";  // where the gallery goes
};

// --gallery DIR renders the gallery into DIR; --headless, or no display at all,
// renders it into out/gallery. Returns false on a malformed command line.
bool ParseOptions(int argc, char** argv, Options& options) {
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--gallery") == 0) {
            if (i + 1 >= argc || argv[i + 1][0] == '\0') {
                return false;
            }
            options.gallery = true;
            options.folder = argv[++i];
        } else if (std::strcmp(argv[i], "--headless") == 0) {
            options.gallery = true;
        }
    }
    options.gallery = options.gallery || !HasDisplay();
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    if (!ParseOptions(argc, argv, options)) {
        std::fprintf(stderr, "usage: %s [--gallery DIR | --headless] [SHADER.glsl|.glslp]\n",
                     argv[0]);
        return 2;
    }
    if (options.gallery) {
        // The dummy driver's windows keep their last frame in their surface, which is
        // what the gallery saves.
        SDL_SetHintWithPriority(SDL_HINT_VIDEODRIVER, "dummy", SDL_HINT_OVERRIDE);
    }
    if (SDL_Init(SDL_INIT_VIDEO) != 0 || TTF_Init() != 0) {
        std::fprintf(stderr, "cannot start SDL: %s\n", SDL_GetError());
        return 1;
    }
    Host host;
    if (!demo::OpenHost(host)) {
        std::fprintf(stderr, "cannot open the main window: %s\n", SDL_GetError());
        return 1;
    }
    host.settings.fps = 60;
    host.shader_path = demo::ShaderPathFromArguments(argc, argv);
    BuildKeyLines(host);

    int status = 0;
    if (options.gallery) {
        std::printf("rendering the gallery into %s\n", options.folder.string().c_str());
        status = demo::RunGallery(host, options.folder);
    } else {
        RunInteractive(host);
    }

    gui::ShutdownSdlUiCachedFonts();
    demo::CloseHost(host);
    TTF_Quit();
    SDL_Quit();
    return status;
}
