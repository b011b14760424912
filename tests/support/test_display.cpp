// The entry point of every test executable: SDL video up before the tests, down after,
// and the fixture of a dialog test. This main is the program's own, not SDL_main.
#define SDL_MAIN_HANDLED
#include "support/test_display.h"

#include "gui/frame.h"
#include "support/sdl_recorder.h"

#include <SDL.h>
#include <SDL_ttf.h>

#include <cstdio>
#include <cstdlib>

namespace ztest {

void DialogTest::SetUp() {
    ResetRecorder();
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
}

void DialogTest::TearDown() {
    zorvane::frontend::gui::SetModalDialogHeartbeat(nullptr);
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
}

}  // namespace ztest

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (::testing::GTEST_FLAG(list_tests)) {
        return RUN_ALL_TESTS();
    }
    SDL_SetMainReady();
    char const* driver = std::getenv("SDL_VIDEODRIVER");
    SDL_SetHint(SDL_HINT_VIDEODRIVER, driver != nullptr && driver[0] != '\0' ? driver : "dummy");
    if (SDL_Init(SDL_INIT_VIDEO) != 0) {
        std::fprintf(stderr, "cannot start SDL's video for the tests: %s\n", SDL_GetError());
        return 1;
    }
    int const result = RUN_ALL_TESTS();
    zorvane::frontend::gui::ShutdownSdlUiCachedFonts();
    if (TTF_WasInit() != 0) {
        TTF_Quit();
    }
    SDL_Quit();
    return result;
}
