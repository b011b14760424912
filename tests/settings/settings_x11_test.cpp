// The settings dialog under a real X pointer: the polled pointer lights a row, real presses
// navigate and drag a slider, and a press dragged onto Apply hands the value over.
#include "gui/settings.h"
#include "support/dialog_script.h"
#include "support/test_display.h"
#include "support/x11_pointer.h"

namespace {

using namespace zorvane::frontend::gui;
using Script = ztest::DialogScript;

class SettingsUnderX : public ztest::DialogTest {};

TEST_F(SettingsUnderX, RealPointerHoversNavigatesDragsAndApplies) {
#ifdef _WIN32
    GTEST_SKIP() << "needs an X server and XTest for a real pointer";
#else
    using namespace ztest::gestures;
    ASSERT_EQ(ztest::VideoDriver(), "x11");
    int const settle = 8;  // frames for the X server's events to reach SDL
    auto const button = [](bool down) {
        return [down](Script&) { ztest::SetRealPointerButton(down); };
    };
    std::vector<double> applied;
    ztest::Frame hovered;
    Script script;
    script.At(3, Hover(100, 10 + 30 * 12 + 15));  // the HDD Sounds row
    script.Then([&](Script& s) { hovered = s.Capture(); }, settle);
    script.Then(button(true));
    script.Then(button(false), 2);
    script.Then(Hover(247 + 140, 86 + 68), settle);  // the volume slider's middle
    script.Then(button(true), settle);
    script.Then(Hover(247 + 70, 86 + 68), settle);  // dragged to a quarter
    script.Then(Hover(763, 464), settle);           // and on, held, to Apply
    script.Then(button(false), settle);
    script.Then(Key(SDLK_ESCAPE), settle);
    ShowSettingsDialog(nullptr, 1.0f, {}, [&](SettingsDialogValues const& v) {
        applied.push_back(v.hdd_sounds_volume);
    });
    ztest::SetRealPointerButton(false);
    EXPECT_FALSE(script.timed_out());
    EXPECT_EQ(hovered.ColorAt(200, 10 + 30 * 12 + 1), "40,46,60");
    EXPECT_EQ(applied, std::vector<double>{0.25});
#endif
}

}  // namespace
