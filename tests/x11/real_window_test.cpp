// Under a real X server: the message box opens at its offset from the host, lights the
// button under the polled pointer, and the keyboard focus returns to the host.
#include "gui/message_box.h"

#include "support/dialog_checks.h"
#include "support/dialog_script.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

namespace {

using namespace zorvane::frontend::gui;
using Script = ztest::DialogScript;

// Pumps SDL until `done` holds or about a second has passed.
template <typename Predicate>
bool PumpUntil(Predicate done) {
    for (int i = 0; i < 100 && !done(); ++i) {
        SDL_PumpEvents();
        SDL_Delay(10);
    }
    return done();
}

class RealWindow : public ztest::DialogTest {};

TEST_F(RealWindow, MessageBoxOverAHostWindow) {
    ASSERT_EQ(ztest::VideoDriver(), "x11");
    SDL_Window* host = SDL_CreateWindow("host", 100, 120, 640, 400, SDL_WINDOW_SHOWN);
    ASSERT_NE(host, nullptr);
    SDL_RaiseWindow(host);
    SDL_SetWindowInputFocus(host);
    PumpUntil([&] { return SDL_GetKeyboardFocus() == host; });
    int host_x = 0, host_y = 0, box_x = 0, box_y = 0, h = 0;
    SDL_GetWindowPosition(host, &host_x, &host_y);

    SdlMessageBox::Config config;
    config.message = "Under a real pointer.";
    config.width = 400;
    config.buttons = {{1, "Left", false, true, nullptr}, {2, "Right", false, false, nullptr}};
    ztest::Frame hovered;
    bool pointer_on_box = false;
    Script script;
    script
        .At(3,
            [&](Script& s) {
                SDL_GetWindowPosition(s.Window(), &box_x, &box_y);
                SDL_GetWindowSize(s.Window(), nullptr, &h);
                SDL_WarpMouseInWindow(s.Window(), 330, h - 40);  // a real move, told by X
            })
        .Then([&](Script& s) { pointer_on_box = SDL_GetMouseFocus() == s.Window(); }, 10)
        .Then([&](Script& s) {
            hovered = s.Capture();
            s.Key(SDLK_ESCAPE);
        });
    EXPECT_EQ(SdlMessageBox(config).Show(host, 1.0f), 1);
    EXPECT_EQ(box_x, host_x + 80);
    EXPECT_EQ(box_y, host_y + 80);
    EXPECT_TRUE(pointer_on_box);
    ASSERT_FALSE(hovered.empty());
    EXPECT_TRUE(ztest::HasColor(hovered, 288, h - 48, {68, 76, 92, 255}));  // Right, lit
    EXPECT_TRUE(ztest::HasColor(hovered, 196, h - 48, {48, 54, 68, 255}));  // Left
    EXPECT_TRUE(PumpUntil([&] { return SDL_GetKeyboardFocus() == host; }))
        << "the keyboard focus goes back to the host window";
    SDL_DestroyWindow(host);
}

}  // namespace
