// The panels and the hits they report, applied to the settings record: each row of
// the table is one gesture on one panel and the whole record that it leaves behind.
#include "settings/settings_internal.h"
#include "settings_canvas.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

namespace {

using namespace zset;

using Edit = std::function<void(SettingsDialogValues&)>;

class SettingsPanels : public Canvas {
protected:
    // Draws `panel` once with the pointer at (x, y) and applies what it reports.
    RightPanelHitResult Frame(SettingsDialogValues* values, int panel, int x, int y, bool clicked,
                              bool down) {
        RightPanelContext context;
        context.renderer = renderer_;
        context.title_font = title_font_.get();
        context.body_font = body_font_.get();
        context.active_panel = panel;
        context.mouse_x = x;
        context.mouse_y = y;
        context.clicked = clicked;
        context.mouse_down = down;
        context.values = values;
        RightPanelHitResult const hit = DrawRightPanel(context);
        ApplySettingsHit(values, hit);
        return hit;
    }
};

TEST_F(SettingsPanels, EachGestureChangesExactlyTheFieldItNames) {
    int const y0 = PanelTop(true);
    int const y1 = y0 + 136;  // below the font mode group
    auto const row = [&](int i) { return y0 + 34 * i + 17; };
    Edit const none = [](SettingsDialogValues&) {};
    auto const custom_font = [](SettingsDialogValues& v) { v.font_mode = "ttf-custom"; };
    enum Gesture { kHover, kClick, kHold };
    struct Case {
        char const* name;
        int panel;
        Edit start;
        int x, y;
        Gesture gesture;
        Edit expect;
        bool browse = false;
    };
    Case const cases[] = {
        {"font mode hires", 0, none, 300, row(2), kClick,
         [](auto& v) { v.font_mode = "ttf-hires"; }},
        {"font mode custom", 0, none, 300, row(3), kClick,
         [](auto& v) { v.font_mode = "ttf-custom"; }},
        {"font mode hovered only", 0, none, 300, row(2), kHover, none},
        {"font mode reselected", 0, none, 300, row(0), kClick, none},
        {"browse in custom mode", 0, custom_font, 712, y1 + 8, kClick, custom_font, true},
        {"browse's last pixel", 0, custom_font, 807, y1 + 35, kClick, custom_font, true},
        {"browse absent in pixel mode", 0, none, 720, y1 + 20, kClick, none},
        {"fps from an unknown value", 1, [](auto& v) { v.fps = 40; }, 300, row(0), kClick,
         [](auto& v) { v.fps = 25; }},
        {"fps 60", 1, none, 800, row(3), kClick, [](auto& v) { v.fps = 60; }},
        {"fps right of column 807", 1, none, 808, row(3), kClick, none},
        {"fps left of the group", 1, none, 246, row(3), kClick, none},
        {"renderer software", 2, none, 400, row(1), kClick,
         [](auto& v) { v.renderer_mode = "software"; }},
        {"renderer below the group", 2, none, 400, y0 + 68, kClick, none},
        {"screenshot shaders on", 7, none, 300, y0 + 86, kClick,
         [](auto& v) { v.screenshot_capture_with_opengl_shaders = true; }},
        {"screenshot shaders off", 7,
         [](auto& v) { v.screenshot_capture_with_opengl_shaders = true; }, 244, y0 + 81, kClick,
         [](auto& v) { v.screenshot_capture_with_opengl_shaders = false; }},
        {"screenshot size original", 7, none, 300, y0 + 146 + 17, kClick,
         [](auto& v) { v.screenshot_capture_size_mode = 0; }},
        {"cpu speed has no control", 3, [](auto& v) { v.cpu_mhz = 4.77; }, 300, y0 + 10, kClick,
         [](auto& v) { v.cpu_mhz = 4.77; }},
        {"logger has no control", 4, none, 300, PanelTop(false) + 5, kClick, none},
        {"hdd sounds on", 5, none, 300, y0 + 3, kClick,
         [](auto& v) { v.hdd_sounds_enabled = true; }},
        {"hdd sounds off", 5, [](auto& v) { v.hdd_sounds_enabled = true; }, 300, y0 + 3, kClick,
         [](auto& v) { v.hdd_sounds_enabled = false; }},
        {"hdd checkbox hovered only", 5, none, 300, y0 + 3, kHover, none},
        {"volume held at a quarter", 5, none, 247 + 70, y0 + 68, kHold,
         [](auto& v) { v.hdd_sounds_volume = 0.25; }},
        {"volume out of range kept without the button", 5,
         [](auto& v) { v.hdd_sounds_volume = 1.7; }, 247 + 70, y0 + 68, kClick,
         [](auto& v) { v.hdd_sounds_volume = 1.7; }},
        {"volume held below its band", 5, none, 300, y0 + 78, kHold, none},
        {"gain at the left end", 6, none, 240, y0 + 30, kHold,
         [](auto& v) { v.mouse_capture_gain = 0.25; }},
        {"gain at the right end", 6, [](auto& v) { v.mouse_capture_gain = 9.0; }, 534, y0 + 30,
         kHold, [](auto& v) { v.mouse_capture_gain = 3.0; }},
        {"text mode capture on", 6, none, 300, y0 + 78, kClick,
         [](auto& v) { v.allow_mouse_capture_in_text_mode = true; }},
        {"unknown panel", 8, none, 300, row(0), kClick, none},
        {"no panel", -1, none, 300, row(0), kClick, none},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(c.name);
        SettingsDialogValues values;
        c.start(values);
        SettingsDialogValues expected = values;
        c.expect(expected);
        RightPanelHitResult const hit =
            Frame(&values, c.panel, c.x, c.y, c.gesture == kClick, c.gesture == kHold);
        EXPECT_EQ(Describe(values), Describe(expected));
        EXPECT_EQ(hit.browse_font, c.browse);
        EXPECT_FALSE(hit.browse_font && hit.changed);
        // The pointer outside the window can hit nothing on any panel.
        SettingsDialogValues untouched;
        c.start(untouched);
        EXPECT_FALSE(Frame(&untouched, c.panel, -1, -1, true, true).changed);
    }
}

TEST_F(SettingsPanels, HitsCarryTheirValueInTheDocumentedField) {
    int const y0 = PanelTop(true);
    SettingsDialogValues values;
    values.hdd_sounds_enabled = true;
    RightPanelHitResult hit = Frame(&values, 5, 300, y0 + 3, true, false);
    EXPECT_EQ(hit.key, "hdd_sounds_enabled");
    EXPECT_EQ(hit.value, "0");
    hit = Frame(&values, 1, 300, y0 + 17, true, false);
    EXPECT_EQ(hit.key, "fps");
    EXPECT_EQ(hit.value, "25");
    hit = Frame(&values, 6, 247 + 140, y0 + 30, false, true);
    EXPECT_EQ(hit.key, "mouse_capture_gain");
    EXPECT_DOUBLE_EQ(hit.number, 1.625);
    EXPECT_FALSE(DrawSettingsDisplayPanel(RightPanelContext{}, &hit));
    EXPECT_FALSE(DrawSettingsRuntimePanel(RightPanelContext{}, nullptr));
}

TEST(SettingsHits, ApplyTakesTextsAndNumbersAsTheyCome) {
    struct Case {
        char const* name;
        RightPanelHitResult hit;
        Edit expect;
    };
    auto hit = [](char const* key, char const* value, double number = 0, bool checked = false) {
        return RightPanelHitResult{true, key, value, number, checked, false};
    };
    Case const cases[] = {
        {"not changed", {false, "fps", "25", 0, false, false}, [](auto&) {}},
        {"empty key", hit("", "25"), [](auto&) {}},
        {"unknown key", hit("cpu_mhz", "9", 9), [](auto&) {}},
        {"key must match whole", hit("fps ", "25"), [](auto&) {}},
        {"hdd on", hit("hdd_sounds_enabled", "1"), [](auto& v) { v.hdd_sounds_enabled = true; }},
        {"hdd 11 is off", hit("hdd_sounds_enabled", "11"), [](auto&) {}},
        {"fps stops at the first non-digit", hit("fps", "12abc"), [](auto& v) { v.fps = 12; }},
        {"size mode unchecked", hit("screenshot_capture_size_mode", "5"),
         [](auto& v) { v.screenshot_capture_size_mode = 5; }},
        {"gain unclamped", hit("mouse_capture_gain", "", 7.5),
         [](auto& v) { v.mouse_capture_gain = 7.5; }},
        {"volume unclamped", hit("hdd_sounds_volume", "", -1),
         [](auto& v) { v.hdd_sounds_volume = -1; }},
        {"renderer text as is", hit("renderer_mode", "vulkan"),
         [](auto& v) { v.renderer_mode = "vulkan"; }},
        {"flag", hit("allow_mouse_capture_in_text_mode", "", 0, true),
         [](auto& v) { v.allow_mouse_capture_in_text_mode = true; }},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(c.name);
        SettingsDialogValues values;
        values.hdd_sounds_enabled = false;
        SettingsDialogValues expected = values;
        c.expect(expected);
        ApplySettingsHit(&values, c.hit);
        EXPECT_EQ(Describe(values), Describe(expected));
    }
    SettingsDialogValues values;
    int const windows_before = ztest::CountCalls("SDL_CreateWindow");
    EXPECT_THROW(ApplySettingsHit(&values, hit("fps", "abc")), std::invalid_argument);
    EXPECT_THROW(ApplySettingsHit(&values, hit("fps", "99999999999")), std::out_of_range);
    ApplySettingsHit(nullptr, hit("fps", "25"));
    HandleSettingsFontPickerHit(nullptr, nullptr,
                                RightPanelHitResult{false, "", "", 0, false, true});
    HandleSettingsFontPickerHit(&values, nullptr, hit("font_mode", "ttf"));
    EXPECT_EQ(ztest::CountCalls("SDL_CreateWindow"), windows_before)
        << "no picker without a browse hit";
}

}  // namespace
