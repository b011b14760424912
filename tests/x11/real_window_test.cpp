// Under real X the message box stands off its host and lights the button under the pointer.
#include "gui/message_box.h"

#include "support/dialog_script.h"

#include <gtest/gtest.h>

namespace {
TEST(RealWindow, MessageBoxStandsOffTheHostAndFollowsThePolledPointer) {
    SDL_Window* host = SDL_CreateWindow("host", 100, 120, 640, 400, SDL_WINDOW_SHOWN);
    int host_x = 0, host_y = 0, x = 0, y = 0, h = 0;
    SDL_GetWindowPosition(host, &host_x, &host_y);
    ztest::DialogScript script;
    script.At(3, [&](ztest::DialogScript& s) {
        SDL_GetWindowPosition(s.Window(), &x, &y);
        EXPECT_EQ(std::vector<int>({x, y}), std::vector<int>({host_x + 80, host_y + 80}));
        SDL_GetWindowSize(s.Window(), nullptr, &h);
        SDL_WarpMouseInWindow(s.Window(), 346, h - 36);  // a real move over OK, told by X
    });
    script.At(13, [&](ztest::DialogScript& s) {
        EXPECT_EQ(SDL_GetMouseFocus(), s.Window());
        EXPECT_EQ(s.Capture().ColorAt(307, h - 49), "68,76,92");  // OK, lit
        s.Key(SDLK_ESCAPE);
    });
    EXPECT_EQ(zorvane::frontend::gui::SdlMessageBox({"", "", {}, {}, 420}).Show(host, 1.0f), 1);
    SDL_DestroyWindow(host);
}
}  // namespace
