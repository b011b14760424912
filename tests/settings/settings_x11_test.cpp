// The settings dialog under a real X pointer: the polled pointer lights a row, real presses
// navigate and drag a slider, and a press dragged onto Apply hands the value over.
#include "frame/ui_fonts.h"
#include "gui/settings.h"
#include "support/dialog_script.h"
#include "support/test_display.h"
#include "support/x11_pointer.h"

namespace {

using namespace zorvane::frontend::gui;
using Script = ztest::DialogScript;

class SettingsUnderX : public ztest::DialogTest {};

TEST_F(SettingsUnderX, RealPointerHoversNavigatesDragsAndApplies) {
    ASSERT_EQ(ztest::VideoDriver(), "x11");
    int const y0 = 20 + TTF_FontHeight(OpenSdlUiFontHandle(15, true, kSemiBold).get()) + 6 +
                   TTF_FontHeight(OpenSdlUiFontHandle(15, false, kSemiBold).get()) + 20;
    int const settle = 8;  // frames for the X server's events to reach SDL
    auto button = [](bool down) { return [down](Script&) { ztest::SetRealPointerButton(down); }; };
    auto move = [](int x, int y) { return [x, y](Script& s) { s.Hover(x, y); }; };
    std::vector<double> applied;
    ztest::Frame hovered;
    Script script;
    script
        .At(3, move(100, 10 + 30 * 12 + 15))  // the HDD Sounds row
        .Then([&](Script& s) { hovered = s.Capture(); }, settle)
        .Then(button(true))
        .Then(button(false), 2)
        .Then(move(247 + 140, y0 + 68), settle)  // the volume slider's middle
        .Then(button(true), settle)
        .Then(move(247 + 70, y0 + 68), settle)  // dragged to a quarter
        .Then(move(763, 464), settle)           // and on, held, to Apply
        .Then(button(false), settle)
        .Then([](Script& s) { s.Key(SDLK_ESCAPE); }, settle);
    ShowSettingsDialog(nullptr, 1.0f, {}, [&](SettingsDialogValues const& v) {
        applied.push_back(v.hdd_sounds_volume);
    });
    ztest::SetRealPointerButton(false);
    EXPECT_FALSE(script.timed_out());
    EXPECT_EQ(hovered.ColorAt(200, 10 + 30 * 12 + 1), "40,46,60");
    EXPECT_EQ(applied, std::vector<double>{0.25});
}

}  // namespace
