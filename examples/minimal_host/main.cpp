// The smallest host: SDL's video up, a heartbeat, one message box and its answer. Its
// heartbeat presses Escape on the third beat, so it also runs unattended, as the
// consumer test runs it against an installed copy and an embedded tree.
#define SDL_MAIN_HANDLED  // main is this program's own, on Windows too
#include <gui/frame.h>
#include <gui/message_box.h>

#include <SDL.h>

#include <cstdio>

namespace gui = zorvane::frontend::gui;

int main(int /*argc*/, char* /*argv*/[]) {
    SDL_SetMainReady();
    if (SDL_Init(SDL_INIT_VIDEO) != 0) {
        return 1;
    }
    int beats = 0;
    gui::SetModalDialogHeartbeat([&beats] {
        if (++beats == 3) {
            SDL_Event escape{};
            escape.type = SDL_KEYDOWN;
            escape.key.keysym.sym = SDLK_ESCAPE;
            SDL_PushEvent(&escape);
        }
    });

    gui::SdlMessageBox::Config config;
    config.title = "Installed";
    config.message = "The host reached the dialog library through its package.";
    config.buttons = {{1, "OK", true, false, {}}, {2, "Cancel", false, true, {}}};
    int const chosen = gui::SdlMessageBox(config).Show(nullptr, 1.0f);

    gui::SetModalDialogHeartbeat({});
    gui::ShutdownSdlUiCachedFonts();
    SDL_Quit();
    std::printf("Show returned %d after %d beats\n", chosen, beats);
    return chosen == 2 && beats >= 3 ? 0 : 1;
}
