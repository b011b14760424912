// The settings dialog under a real X server: the polled pointer lights a row, real
// button presses navigate, drag a slider and click Apply after a press elsewhere,
// and the keyboard focus comes back from the nested font picker.
#include "settings/settings_internal.h"
#include "settings_canvas.h"
#include "support/dialog_script.h"
#include "support/x11_pointer.h"

#include <gtest/gtest.h>

namespace {

using namespace zset;
using Script = ztest::DialogScript;

constexpr int kSettle = 8;  // frames for the X server's events to reach SDL

class SettingsUnderX : public ztest::DialogTest {
protected:
    void SetUp() override {
        DialogTest::SetUp();
        ASSERT_EQ(ztest::VideoDriver(), "x11");
        host_ = SDL_CreateWindow("host", 100, 120, 640, 400, SDL_WINDOW_SHOWN);
        ASSERT_NE(host_, nullptr);
        SDL_RaiseWindow(host_);
        SDL_SetWindowInputFocus(host_);
        ztest::PumpEventsUntil([&] { return SDL_GetKeyboardFocus() == host_; });
    }
    void TearDown() override {
        ztest::SetRealPointerButton(false);
        SDL_DestroyWindow(host_);
        DialogTest::TearDown();
    }
    SDL_Window* host_ = nullptr;
    int const y0 = PanelTop(true);
};

TEST_F(SettingsUnderX, RealPointerHoversNavigatesDragsAndApplies) {
    SettingsDialogValues start;
    start.hdd_sounds_volume = 0.9;
    std::vector<SettingsDialogValues> applied;
    ztest::Frame hovered;
    ztest::Frame navigated;
    bool pressed = false;
    Script script;
    script.At(3, [](Script& s) { s.Hover(100, 10 + 30 * 12 + 15); })
        .Then(
            [&](Script& s) {
                hovered = s.Capture();
                pressed = ztest::SetRealPointerButton(true);
            },
            kSettle)
        .Then([](Script&) { ztest::SetRealPointerButton(false); }, 2)
        .Then(
            [&](Script& s) {
                navigated = s.Capture();
                s.Hover(247 + 140, y0 + 68);  // the volume slider's middle
            },
            kSettle)
        .Then([](Script&) { ztest::SetRealPointerButton(true); }, kSettle)
        .Then([&](Script& s) { s.Hover(247 + 70, y0 + 68); }, kSettle)  // dragged to a quarter
        .Then([](Script&) { ztest::SetRealPointerButton(false); }, kSettle)
        .Then([](Script& s) { s.Hover(400, 470); }, 2)
        .Then([](Script&) { ztest::SetRealPointerButton(true); }, kSettle)
        .Then([](Script& s) { s.Hover(763, 464); }, 2)
        .Then([](Script&) { ztest::SetRealPointerButton(false); }, kSettle)
        .Then([](Script& s) { s.Key(SDLK_ESCAPE); }, kSettle);
    ShowSettingsDialog(host_, 1.0f, start,
                       [&](SettingsDialogValues const& v) { applied.push_back(v); });
    ASSERT_TRUE(pressed) << "XTest is available";
    EXPECT_FALSE(script.timed_out());
    EXPECT_TRUE(HasColor(hovered, 200, 10 + 30 * 12 + 1, kHover));
    EXPECT_TRUE(HasColor(navigated, 200, 10 + 30 * 12 + 1, kNavActive));
    EXPECT_TRUE(HasColor(navigated, 1, 10 + 30 * 12 + 1, kAccent));
    ASSERT_EQ(applied.size(), 1u) << "a press in the bar released on Apply is a click";
    EXPECT_DOUBLE_EQ(applied[0].hdd_sounds_volume, 0.25);
    EXPECT_TRUE(ztest::PumpEventsUntil([&] { return SDL_GetKeyboardFocus() == host_; }));
}

TEST_F(SettingsUnderX, HoverFollowsThePolledPointerAndLeavesWithIt) {
    ztest::Frame over_row;
    ztest::Frame over_apply;
    Script script;
    script.At(3, [](Script& s) { s.Hover(100, 10 + 30 * 8 + 15); })
        .Then(
            [&](Script& s) {
                over_row = s.Capture();
                s.Hover(763, 464);
            },
            kSettle)
        .Then(
            [&](Script& s) {
                over_apply = s.Capture();
                s.Key(SDLK_ESCAPE);
            },
            kSettle);
    ShowSettingsDialog(host_, 1.0f, SettingsDialogValues{}, {});
    EXPECT_TRUE(HasColor(over_row, 200, 10 + 30 * 8 + 1, kHover));
    EXPECT_TRUE(HasColor(over_row, 720, 451, kButton));
    EXPECT_TRUE(HasColor(over_apply, 200, 10 + 30 * 8 + 1, kNavBg));
    EXPECT_TRUE(HasColor(over_apply, 720, 451, kButtonHover));
}

TEST_F(SettingsUnderX, FocusComesBackFromTheNestedFontPicker) {
    SettingsDialogValues start;
    start.font_mode = "ttf-custom";
    SDL_Window* settings = nullptr;
    SDL_Window* picker = nullptr;
    bool focus_back = false;
    int const browse_y = y0 + 136 + 8 + 10;
    Script script;
    script
        .At(3,
            [&](Script& s) {
                settings = s.Window();
                s.Hover(720, browse_y);
            })
        .Then([](Script&) { ztest::SetRealPointerButton(true); }, kSettle)
        .Then([](Script&) { ztest::SetRealPointerButton(false); }, 2)
        .Then(
            [&](Script& s) {
                picker = s.Window();
                s.Key(SDLK_ESCAPE);
            },
            2 * kSettle)
        .Then([&](Script&) { focus_back = SDL_GetKeyboardFocus() == settings; }, 3 * kSettle)
        .Then([](Script& s) { s.Key(SDLK_ESCAPE); });
    ShowSettingsDialog(host_, 1.0f, start, {});
    EXPECT_FALSE(script.timed_out());
    ASSERT_NE(picker, nullptr);
    EXPECT_NE(picker, settings);
    EXPECT_TRUE(focus_back);
}

}  // namespace
