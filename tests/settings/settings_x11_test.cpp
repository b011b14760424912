// The settings dialog under a real X pointer: the polled pointer lights a row, real presses
// navigate and drag a slider, and a press in the bar released on Apply is a click.
#include "frame/ui_fonts.h"
#include "gui/settings.h"
#include "support/dialog_checks.h"
#include "support/dialog_script.h"
#include "support/test_display.h"
#include "support/x11_pointer.h"

namespace {

using namespace zorvane::frontend::gui;
using Script = ztest::DialogScript;

constexpr int kSettle = 8;  // frames for the X server's events to reach SDL

class SettingsUnderX : public ztest::DialogTest {};

TEST_F(SettingsUnderX, RealPointerHoversNavigatesDragsAndApplies) {
    ASSERT_EQ(ztest::VideoDriver(), "x11");
    int const y0 = 20 + TTF_FontHeight(OpenSdlUiFontHandle(15, true, kSemiBold).get()) + 6 +
                   TTF_FontHeight(OpenSdlUiFontHandle(15, false, kSemiBold).get()) + 20;
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
    ShowSettingsDialog(nullptr, 1.0f, start,
                       [&](SettingsDialogValues const& v) { applied.push_back(v); });
    ztest::SetRealPointerButton(false);
    EXPECT_FALSE(script.timed_out());
    EXPECT_TRUE(ztest::HasColor(hovered, 200, hdd_row_y + 1, {40, 46, 60, 255}));
    EXPECT_TRUE(ztest::HasColor(navigated, 200, hdd_row_y + 1, {44, 74, 128, 255}));
    ASSERT_EQ(applied.size(), 1u);
    EXPECT_DOUBLE_EQ(applied[0].hdd_sounds_volume, 0.25);
}

}  // namespace
