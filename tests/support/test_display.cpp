// SDL start-up and shut-down for the tests, and the fixture of a dialog test.
#include "support/test_display.h"

#include "gui/frame.h"
#include "support/sdl_recorder.h"

#include <SDL.h>
#include <SDL_ttf.h>

#include <cstdio>
#include <cstdlib>

namespace ztest {

std::string VideoDriver() {
    char const* driver = SDL_GetCurrentVideoDriver();
    return driver != nullptr ? driver : "";
}

void StartTestDisplay() {
    char const* requested = std::getenv("SDL_VIDEODRIVER");
    std::string driver = requested != nullptr && requested[0] != '\0' ? requested : "dummy";
#ifdef _WIN32
    driver = driver == "x11" ? "dummy" : driver;
#endif
    SDL_SetHintWithPriority(SDL_HINT_VIDEODRIVER, driver.c_str(), SDL_HINT_OVERRIDE);
    if (SDL_Init(SDL_INIT_VIDEO) != 0) {
        std::fprintf(stderr, "cannot start the %s video driver: %s\n", driver.c_str(),
                     SDL_GetError());
        std::exit(1);
    }
}

void StopTestDisplay() {
    zorvane::frontend::gui::ShutdownSdlUiCachedFonts();
    if (TTF_WasInit() != 0) {
        TTF_Quit();
    }
    // SDL's X11 driver unloads libX11 on quit, which leaves the leak checker with
    // allocations of an unknown module; under X the process simply ends instead.
    if (VideoDriver() != "x11") {
        SDL_Quit();
    }
}

void DialogTest::SetUp() {
    ResetRecorder();
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
}

void DialogTest::TearDown() {
    zorvane::frontend::gui::SetModalDialogHeartbeat(nullptr);
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
}

}  // namespace ztest
