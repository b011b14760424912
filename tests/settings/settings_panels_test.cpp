// Every gesture on every panel, at and around the edges of each control, applied to
// the settings record: each row is one gesture and the whole record it leaves
// behind. Then hits that no panel makes, and the slider labels.
#include "settings/settings_internal.h"
#include "settings_canvas.h"

#include <functional>
#include <stdexcept>

namespace {

using namespace zset;
using Edit = std::function<void(SettingsDialogValues&)>;

class SettingsPanels : public ztest::DialogTest {};

TEST_F(SettingsPanels, EachGestureChangesExactlyTheFieldItNames) {
    SDL_Window* window = SDL_CreateWindow("canvas", 0, 0, 820, 492, SDL_WINDOW_HIDDEN);
    SDL_Renderer* renderer = SDL_CreateRenderer(window, -1, SDL_RENDERER_SOFTWARE);
    SdlUiFontHandle const title = OpenSdlUiFontHandle(15, true, kSemiBold);
    SdlUiFontHandle const body = OpenSdlUiFontHandle(15, false, kSemiBold);
    int const y0 = PanelTop(true);
    int const y1 = y0 + 136;                                       // below the font mode group
    int const rh = std::max(TTF_FontHeight(body.get()), 16) + 10;  // a checkbox row
    auto row = [&](int i) { return y0 + 34 * i + 17; };
    Edit const same = [](auto&) {};
    Edit const custom = [](auto& v) { v.font_mode = "ttf-custom"; };
    Edit const shaders = [](auto& v) { v.screenshot_capture_with_opengl_shaders = true; };
    enum Gesture { kHover, kClick, kHold };
    struct Case {
        int panel;
        Edit start;
        int x, y;
        Gesture gesture;
        Edit expect;
        bool browse = false;
    } const cases[] = {
        {0, same, 300, row(2), kClick, [](auto& v) { v.font_mode = "ttf-hires"; }},
        {0, same, 300, row(3), kClick, custom},
        {0, same, 300, row(2), kHover, same},
        {0, custom, 807, y1 + 35, kClick, custom, true},  // the Browse button's last pixel
        {0, same, 720, y1 + 20, kClick, same},            // no Browse button in pixel mode
        {1, [](auto& v) { v.fps = 40; }, 300, row(0), kClick, [](auto& v) { v.fps = 25; }},
        {1, same, 807, row(3), kClick, [](auto& v) { v.fps = 60; }},
        {1, same, 808, row(3), kClick, same},
        {1, same, 246, row(3), kClick, same},
        {1, same, 247, row(0), kClick, [](auto& v) { v.fps = 25; }},
        {2, same, 400, y0 + 34, kClick, [](auto& v) { v.renderer_mode = "software"; }},
        {2, custom, 400, y0 + 33, kClick, custom},  // the last row of "Hardware"
        {7, same, 243, y0 + 81, kClick, shaders},   // a checkbox row starts 4 left, 5 above
        {7, same, 300, y0 + 80 + rh, kClick, shaders},
        {7, same, 242, y0 + 81, kClick, same},
        {7, same, 300, y0 + 80, kClick, same},
        {7, same, 300, y0 + 81 + rh, kClick, same},
        {7, same, 300, y0 + 163, kClick, [](auto& v) { v.screenshot_capture_size_mode = 0; }},
        {3, same, 300, y0 + 10, kClick, same},  // no control on "CPU Speed"
        {5, [](auto& v) { v.hdd_sounds_enabled = true; }, 300, y0 + 3, kClick,
         [](auto& v) { v.hdd_sounds_enabled = false; }},
        {5, same, 300, y0 + 3, kClick, [](auto& v) { v.hdd_sounds_enabled = true; }},
        {5, same, 247 + 70, y0 + 68, kHold, [](auto& v) { v.hdd_sounds_volume = 0.25; }},
        {5, [](auto& v) { v.hdd_sounds_volume = 1.7; }, 247 + 70, y0 + 68, kClick,
         [](auto& v) { v.hdd_sounds_volume = 1.7; }},
        {5, same, 239, y0 + 58, kHold, [](auto& v) { v.hdd_sounds_volume = 0; }},
        {5, same, 534, y0 + 77, kHold, [](auto& v) { v.hdd_sounds_volume = 1; }},
        {5, same, 238, y0 + 68, kHold, same},  // the band: 8 beyond each end, 2 above
        {5, same, 535, y0 + 68, kHold, same},
        {5, same, 300, y0 + 57, kHold, same},
        {5, same, 300, y0 + 78, kHold, same},
        {6, same, 240, y0 + 30, kHold, [](auto& v) { v.mouse_capture_gain = 0.25; }},
        {6, same, 534, y0 + 30, kHold, [](auto& v) { v.mouse_capture_gain = 3.0; }},
        {6, same, 300, y0 + 78, kClick, [](auto& v) { v.allow_mouse_capture_in_text_mode = true; }},
        {8, same, 300, row(0), kClick, same},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE("panel " + std::to_string(c.panel) + " at " + std::to_string(c.x) + "," +
                     std::to_string(c.y));
        SettingsDialogValues values;
        c.start(values);
        SettingsDialogValues expected = values;
        c.expect(expected);
        RightPanelContext const context{
            renderer, title.get(),         body.get(),         c.panel, c.x,
            c.y,      c.gesture == kClick, c.gesture == kHold, &values};
        RightPanelHitResult const hit = DrawRightPanel(context);
        EXPECT_EQ(hit.browse_font, c.browse);
        ApplySettingsHit(&values, hit);
        EXPECT_EQ(Describe(values), Describe(expected));
        RightPanelContext outside = context;  // the pointer outside the window hits nothing
        outside.mouse_x = outside.mouse_y = -1;
        EXPECT_FALSE(DrawRightPanel(outside).changed);
    }
    SDL_DestroyRenderer(renderer);
    SDL_DestroyWindow(window);
}

TEST(SettingsHits, ApplyTakesTextsAndNumbersAsTheyCome) {
    auto hit = [](char const* key, char const* value, double number = 0, bool checked = false) {
        return RightPanelHitResult{true, key, value, number, checked, false};
    };
    struct Case {
        RightPanelHitResult hit;
        Edit expect;
    } const cases[] = {
        {{false, "fps", "25", 0, false, false}, [](auto&) {}},
        {hit("", "25"), [](auto&) {}},
        {hit("fps ", "25"), [](auto&) {}},
        {hit("cpu_mhz", "9", 9), [](auto&) {}},
        {hit("hdd_sounds_enabled", "11"), [](auto&) {}},
        {hit("fps", "12abc"), [](auto& v) { v.fps = 12; }},
        {hit("screenshot_capture_size_mode", "5"),
         [](auto& v) { v.screenshot_capture_size_mode = 5; }},
        {hit("mouse_capture_gain", "", 7.5), [](auto& v) { v.mouse_capture_gain = 7.5; }},
    };
    for (Case const& c : cases) {
        SettingsDialogValues values;
        SettingsDialogValues expected;
        c.expect(expected);
        ApplySettingsHit(&values, c.hit);
        EXPECT_EQ(Describe(values), Describe(expected)) << "key '" << c.hit.key << "'";
    }
    SettingsDialogValues values;
    EXPECT_THROW(ApplySettingsHit(&values, hit("fps", "abc")), std::invalid_argument);
    ApplySettingsHit(nullptr, hit("fps", "25"));
}

TEST(SettingsSliders, LabelsRoundAndClamp) {
    EXPECT_EQ(FormatSliderPercent(1.5) + FormatSliderPercent(-0.2) + FormatSliderPercent(0.005) +
                  FormatSliderPercent(-0.004),
              "150%-20%1%0%");
    EXPECT_EQ(FormatRangeSliderValue(5.0, 3.0, 0.25, "x") +
                  FormatRangeSliderValue(0.1, 0.25, 3.0, "x") +
                  FormatRangeSliderValue(7.0, 2.0, 2.0, nullptr),
              "3.00x0.25x2.00");
}

}  // namespace
