// The settings dialog under a real X server: the polled pointer lights a row, real
// presses navigate and drag a slider, a press in the bar released on Apply is a
// click, and the keyboard focus goes back to the host window at the end.
#include "settings_canvas.h"
#include "support/x11_pointer.h"

namespace {

using namespace zset;
using Script = ztest::DialogScript;

constexpr int kSettle = 8;  // frames for the X server's events to reach SDL

class SettingsUnderX : public ztest::DialogTest {};

// Whether `window` has the keyboard focus within about a second.
bool GetsKeyboardFocus(SDL_Window* window) {
    for (int i = 0; i < 100 && SDL_GetKeyboardFocus() != window; ++i) {
        SDL_Delay(10);
        SDL_PumpEvents();
    }
    return SDL_GetKeyboardFocus() == window;
}

TEST_F(SettingsUnderX, RealPointerHoversNavigatesDragsAndApplies) {
    ASSERT_EQ(ztest::VideoDriver(), "x11");
    SDL_Window* host = SDL_CreateWindow("host", 100, 120, 640, 400, SDL_WINDOW_SHOWN);
    SDL_SetWindowInputFocus(host);
    GetsKeyboardFocus(host);
    int const y0 = PanelTop(true);
    int const hdd_row_y = 10 + 30 * 12;
    SettingsDialogValues start;
    start.hdd_sounds_volume = 0.9;
    std::vector<SettingsDialogValues> applied;
    ztest::Frame hovered, navigated;
    auto button = [](bool down) { return [down](Script&) { ztest::SetRealPointerButton(down); }; };
    auto move = [](int x, int y) { return [x, y](Script& s) { s.Hover(x, y); }; };
    Script script;
    script.At(3, move(100, hdd_row_y + 15))
        .Then([&](Script& s) { hovered = s.Capture(); }, kSettle)
        .Then(button(true))
        .Then(button(false), 2)
        .Then([&](Script& s) { navigated = s.Capture(); }, kSettle)
        .Then(move(247 + 140, y0 + 68))  // the volume slider's middle
        .Then(button(true), kSettle)
        .Then(move(247 + 70, y0 + 68), kSettle)  // dragged to a quarter
        .Then(button(false), kSettle)
        .Then(move(400, 470), 2)
        .Then(button(true), kSettle)
        .Then(move(763, 464), 2)
        .Then(button(false), kSettle)
        .Then([](Script& s) { s.Key(SDLK_ESCAPE); }, kSettle);
    ShowSettingsDialog(host, 1.0f, start,
                       [&](SettingsDialogValues const& v) { applied.push_back(v); });
    ztest::SetRealPointerButton(false);
    EXPECT_FALSE(script.timed_out());
    EXPECT_EQ(Rgb(hovered.At(200, hdd_row_y + 1)), kHover);
    EXPECT_EQ(Rgb(navigated.At(200, hdd_row_y + 1)), kNavActive);
    ASSERT_EQ(applied.size(), 1u);
    EXPECT_DOUBLE_EQ(applied[0].hdd_sounds_volume, 0.25);
    EXPECT_TRUE(GetsKeyboardFocus(host));
    SDL_DestroyWindow(host);
}

}  // namespace
