// Real windows under an X server: a message box over a host window opens at its
// offset from the parent, lights a button under the real pointer, and hands the
// keyboard focus back to the parent when it closes.
#include "gui/message_box.h"

#include "support/dialog_script.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

namespace {

using namespace zorvane::frontend::gui;

class RealWindow : public ztest::DialogTest {};

// Pumps SDL until `done` holds or about a second has passed.
template <typename Predicate>
bool PumpUntil(Predicate done) {
    for (int i = 0; i < 100; ++i) {
        SDL_PumpEvents();
        if (done()) {
            return true;
        }
        SDL_Delay(10);
    }
    return false;
}

TEST_F(RealWindow, MessageBoxOverAHostWindow) {
    ASSERT_EQ(ztest::VideoDriver(), "x11");
    SDL_Window* host = SDL_CreateWindow("host", 100, 120, 640, 400, SDL_WINDOW_SHOWN);
    ASSERT_NE(host, nullptr);
    SDL_RaiseWindow(host);
    SDL_SetWindowInputFocus(host);
    PumpUntil([&] { return SDL_GetKeyboardFocus() == host; });
    int host_x = 0;
    int host_y = 0;
    SDL_GetWindowPosition(host, &host_x, &host_y);

    SdlMessageBox::Config config;
    config.title = "Real";
    config.message = "Under a real pointer.";
    config.width = 400;
    config.buttons = {{1, "Left", false, true, nullptr}, {2, "Right", false, false, nullptr}};
    SdlMessageBox box(config);

    int box_x = 0;
    int box_y = 0;
    int h = 0;
    ztest::Frame hovered;
    SDL_Window* dialog = nullptr;
    bool focus_on_dialog = false;
    ztest::DialogScript script;
    script
        .At(3,
            [&](ztest::DialogScript& s) {
                dialog = s.Window();
                SDL_GetWindowPosition(dialog, &box_x, &box_y);
                SDL_GetWindowSize(dialog, nullptr, &h);
                // A real pointer move: X reports it, SDL gives the dialog the mouse focus.
                SDL_WarpMouseInWindow(dialog, 400 - 30 - 40, h - 50 + 10);
            })
        .Then([&](ztest::DialogScript& s) { focus_on_dialog = SDL_GetMouseFocus() == s.Window(); },
              10)
        .Then([&](ztest::DialogScript& s) {
            hovered = s.Capture();
            s.Key(SDLK_ESCAPE);
        });
    EXPECT_EQ(box.Show(host, 1.0f), 1);
    EXPECT_EQ(box_x, host_x + 80);
    EXPECT_EQ(box_y, host_y + 80);
    EXPECT_TRUE(focus_on_dialog);
    ASSERT_FALSE(hovered.empty());
    SDL_Color const right_button = hovered.At(400 - 30 - 84 + 2, h - 50 + 2);
    SDL_Color const left_button = hovered.At(400 - 30 - 176 + 2, h - 50 + 2);
    EXPECT_EQ(right_button.r, 68);
    EXPECT_EQ(right_button.g, 76);
    EXPECT_EQ(left_button.r, 48);
    EXPECT_TRUE(PumpUntil([&] { return SDL_GetKeyboardFocus() == host; }))
        << "the keyboard focus goes back to the host window";
    SDL_DestroyWindow(host);
}

}  // namespace
