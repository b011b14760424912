// The settings dialog run for real: navigation across its topics, a gesture in each panel
// changing its one field, the nested font picker, Apply; and the box when no font loads.
#include "gui/settings.h"
#include "frame/ui_fonts.h"
#include "support/dialog_checks.h"
#include "support/dialog_script.h"
#include "support/temp_dir.h"
#include "support/test_display.h"

#include <sstream>

namespace {

using namespace zorvane::frontend::gui;
using Script = ztest::DialogScript;

std::string Describe(SettingsDialogValues const& v) {
    std::ostringstream out;
    out << v.fps << " " << v.font_mode << " " << v.renderer_mode << " " << v.cpu_mhz << " "
        << v.mouse_capture_gain << " " << v.allow_mouse_capture_in_text_mode << v.hdd_sounds_enabled
        << " " << v.hdd_sounds_volume << " '" << v.custom_font_path << "' "
        << v.screenshot_capture_with_opengl_shaders << v.screenshot_capture_size_mode;
    return out.str();
}

// The pointer over (x, y), the left button held or not, and a click there unless held.
Script::Step At(int x, int y, bool hold = false) {
    return [=](Script& s) {
        s.Hover(x, y);
        ztest::Pointer().buttons = hold ? SDL_BUTTON_LMASK : 0;
        if (!hold) {
            s.Click(x, y);
        }
    };
}

class SettingsDialog : public ztest::DialogTest {};

TEST_F(SettingsDialog, AGestureInEachPanelSetsItsFieldThePickedFontIsTakenAndApplyHandsThemOver) {
    ztest::Faults().skip_delays = true;
    // A panel's content starts below its title and subtitle.
    int const y0 = 20 + TTF_FontHeight(OpenSdlUiFontHandle(15, true, kSemiBold).get()) + 6 +
                   TTF_FontHeight(OpenSdlUiFontHandle(15, false, kSemiBold).get()) + 20;
    ztest::TempDir dir;
    std::string const chosen = dir.Write("fonts/pick.ttf", "font bytes").string();
    SettingsDialogValues start;
    start.font_mode = "ttf-custom";
    start.custom_font_path = (dir.path() / "fonts" / "old.ttf").string();
    std::vector<SettingsDialogValues> applied;
    ztest::Frame first, hdd;
    auto const topic = [](int row) { return At(100, 10 + 30 * row + 15); };
    Script script;
    script.At(2, [&](Script& s) { first = s.Capture(), At(720, y0 + 154)(s); });  // Browse...
    script.At(6, [](Script& s) { s.Key(SDLK_DOWN), s.Key(SDLK_RETURN); });        // in the picker
    script
        .At(8, topic(2))  // Target FPS: 50
        .Then(At(300, y0 + 34 * 2 + 17))
        .Then(topic(3))  // Renderer: software
        .Then(At(400, y0 + 34))
        .Then(topic(4))  // Screenshots: with the shaders
        .Then(At(243, y0 + 81))
        .Then(topic(6))  // Mouse Capture: the gain dragged past its end, text mode allowed
        .Then(At(534, y0 + 30, true))
        .Then(At(300, y0 + 78))
        .Then(topic(12))  // HDD Sounds: on, the volume held at a quarter
        .Then(At(300, y0 + 3))
        .Then(At(317, y0 + 68, true))
        .Then([&](Script& s) { hdd = s.Capture(), At(763, 464)(s); }, 2)  // Apply
        .Then(At(300, y0 + 3))                                            // off, never applied
        .Then(At(663, 464));                                              // Cancel
    ShowSettingsDialog(nullptr, 1.0f, start,
                       [&](SettingsDialogValues const& v) { applied.push_back(v); });
    EXPECT_FALSE(script.timed_out());
    ASSERT_EQ(applied.size(), 1u);  // fps, modes, MHz, gain, two flags, volume, font, shots
    EXPECT_EQ(Describe(applied[0]), "50 ttf-custom software 30 3 11 0.25 '" + chosen + "' 11");
    // The first frame: Font Mode's row in the accent; then the HDD Sounds row active and its
    // volume filled to a quarter alone.
    EXPECT_TRUE(ztest::HasColor(first, 1, 41, {106, 166, 255, 255}));
    EXPECT_TRUE(ztest::HasColor(hdd, 200, 10 + 30 * 12 + 1, {44, 74, 128, 255}));
    EXPECT_TRUE(ztest::HasColor(hdd, 247 + 40, y0 + 66, {106, 166, 255, 255}));
    EXPECT_TRUE(ztest::HasColor(hdd, 247 + 140, y0 + 66, {52, 58, 70, 255}));
}

TEST_F(SettingsDialog, NoFontShowsFailedToLoadFontOverTheParent) {
    SDL_Window* parent = SDL_CreateWindow("host", 0, 0, 320, 200, SDL_WINDOW_HIDDEN);
    ztest::Faults().allow_font_path = [](std::string const&) { return false; };
    ShowSettingsDialog(parent, 1.0f, {}, [](SettingsDialogValues const&) { ADD_FAILURE(); });
    auto const boxes = ztest::RecordedCalls("SDL_ShowSimpleMessageBox");
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].text, "Settings\nFailed to load font.");
    EXPECT_EQ(boxes[0].object, parent);
    SDL_DestroyWindow(parent);
}

}  // namespace
