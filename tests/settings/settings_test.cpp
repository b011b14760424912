// The settings panels' gestures each changing exactly their field, and the dialog run for
// real: navigation, the nested font picker, Apply, and the box when no font loads.
#include "gui/settings.h"
#include "frame/ui_fonts.h"
#include "settings/settings_internal.h"
#include "support/dialog_script.h"
#include "support/temp_dir.h"
#include "support/test_display.h"

#include <map>
#include <sstream>

namespace {

using namespace zorvane::frontend::gui;
using Script = ztest::DialogScript;
using Edit = std::function<void(SettingsDialogValues&)>;

std::string Rgb(SDL_Color c) {
    return std::to_string(c.r) + "," + std::to_string(c.g) + "," + std::to_string(c.b);
}

char const kAccent[] = "106,166,255", kTrack[] = "52,58,70", kNavBg[] = "24,27,34",
           kNavActive[] = "44,74,128";

std::string Describe(SettingsDialogValues const& v) {
    std::ostringstream out;
    out << v.fps << " " << v.font_mode << " " << v.renderer_mode << " " << v.cpu_mhz << " "
        << v.mouse_capture_gain << " " << v.allow_mouse_capture_in_text_mode << v.hdd_sounds_enabled
        << " " << v.hdd_sounds_volume << " '" << v.custom_font_path << "' "
        << v.screenshot_capture_with_opengl_shaders << v.screenshot_capture_size_mode;
    return out.str();
}

Edit const same = [](auto&) {};
Edit const custom = [](auto& v) { v.font_mode = "ttf-custom"; };
Edit const shaders = [](auto& v) { v.screenshot_capture_with_opengl_shaders = true; };
auto const fps = [](int n) -> Edit { return [n](auto& v) { v.fps = n; }; };
auto const volume = [](double q) -> Edit { return [q](auto& v) { v.hdd_sounds_volume = q; }; };
auto const gain = [](double g) -> Edit { return [g](auto& v) { v.mouse_capture_gain = g; }; };
auto const sounds = [](bool on) -> Edit { return [on](auto& v) { v.hdd_sounds_enabled = on; }; };

class SettingsDialog : public ztest::DialogTest {
protected:
    std::function<void(SettingsDialogValues const&)> Record() {
        ztest::Faults().skip_delays = true;
        return [this](SettingsDialogValues const& v) { applied.push_back(v); };
    }
    std::vector<SettingsDialogValues> applied;
    SdlUiFontHandle const title = OpenSdlUiFontHandle(15, true, kSemiBold);
    SdlUiFontHandle const body = OpenSdlUiFontHandle(15, false, kSemiBold);
    // The y at which a panel's content starts, below its title and subtitle.
    int const y0 = 20 + TTF_FontHeight(title.get()) + 6 + TTF_FontHeight(body.get()) + 20;
};

TEST_F(SettingsDialog, EachPanelGestureChangesExactlyTheFieldItNames) {
    SDL_Window* window = SDL_CreateWindow("canvas", 0, 0, 820, 492, SDL_WINDOW_HIDDEN);
    SDL_Renderer* renderer = SDL_CreateRenderer(window, -1, SDL_RENDERER_SOFTWARE);
    int const y1 = y0 + 136;  // below the font mode group
    auto row = [&](int i) { return y0 + 34 * i + 17; };
    enum Gesture { kHover, kClick, kHold };
    struct Case {
        int panel, x, y;
        Gesture gesture;
        Edit expect, start = same;
        bool browse = false;
    } const cases[] = {
        // Browse's last pixel, no Browse in pixel mode; the last row of "Hardware"; nothing on "CPU
        // Speed"; a checkbox row starts 4 left; the volume band reaches 8 beyond the bar.
        // clang-format off
        {0, 300, row(2), kClick, [](auto& v) { v.font_mode = "ttf-hires"; }},
        {0, 300, row(2), kHover, same}, {0, 807, y1 + 35, kClick, custom, custom, true},
        {0, 720, y1 + 20, kClick, same}, {1, 300, row(0), kClick, fps(25), fps(40)},
        {1, 807, row(3), kClick, fps(60)}, {1, 246, row(3), kClick, same},
        {3, 300, y0 + 10, kClick, same},
        {2, 400, y0 + 34, kClick, [](auto& v) { v.renderer_mode = "software"; }},
        {7, 243, y0 + 81, kClick, shaders}, {7, 242, y0 + 81, kClick, same},
        {7, 300, y0 + 163, kClick, [](auto& v) { v.screenshot_capture_size_mode = 0; }},
        {5, 300, y0 + 3, kClick, sounds(false), sounds(true)},
        {5, 317, y0 + 68, kHold, volume(0.25)},
        {5, 317, y0 + 68, kClick, volume(1.7), volume(1.7)}, {5, 239, y0 + 58, kHold, volume(0)},
        {5, 238, y0 + 68, kHold, same}, {6, 534, y0 + 30, kHold, gain(3.0)},
        {6, 300, y0 + 78, kClick, [](auto& v) { v.allow_mouse_capture_in_text_mode = true; }},
        // clang-format on
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(testing::Message() << "panel " << c.panel << " at " << c.x << "," << c.y);
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

Script::Step ClickAt(int x, int y) {
    return [x, y](Script& s) {
        s.Hover(x, y);
        s.Click(x, y);
    };
}

Script::Step const kApply = ClickAt(763, 464);

// Opened on "Font Mode" with "ttf-custom": Browse picks a font, each nav row is shown, and
// each Apply hands over the state of its moment; Cancel closes without another.
TEST_F(SettingsDialog, NavigationTheNestedFontPickerAndApply) {
    ztest::TempDir dir;
    std::string const chosen = dir.Write("fonts/pick.ttf", "font bytes").string();
    SettingsDialogValues start;
    start.font_mode = "ttf-custom";
    start.custom_font_path = (dir.path() / "fonts" / "old.ttf").string();
    start.screenshot_capture_with_opengl_shaders = true;
    std::map<int, ztest::Frame> shown;
    Script script;
    script.At(2, [&](Script& s) { shown[0] = s.Capture(); }).Then(ClickAt(720, y0 + 136 + 18));
    script.At(6, [](Script& s) {  // the font picker, opened by "Browse..."
        s.Key(SDLK_DOWN);
        s.Key(SDLK_RETURN);
    });
    script.At(8, [](Script& s) {  // the focus is back on the settings window
        EXPECT_EQ(ztest::RecordedCalls("SDL_SetWindowInputFocus").back().object, s.Window());
    });
    int const rows[] = {4, 12, 11, 1, 2};  // 11 is a heading: nothing changes
    for (int row : rows) {
        script.Then(ClickAt(100, 10 + 30 * row + 15))
            .Then([&shown, row](Script& s) { shown[row] = s.Capture(); }, 2);
    }
    script
        .Then(ClickAt(300, y0 + 34 * 2 + 17))  // 50 frames per second
        .Then(kApply)
        .Then([&](Script& s) {
            ClickAt(300, y0 + 34 * 3 + 17)(s);     // 60; the rest must change nothing
            Uint32 const id = s.WindowId() + 100;  // another window's
            SDL_Event e{};
            e.button = {SDL_MOUSEBUTTONUP, 0, id, 0, SDL_BUTTON_LEFT, SDL_RELEASED, 1, 0, 763, 464};
            ztest::PushEvent(e);
            s.Release(763, 464, SDL_BUTTON_RIGHT);
        })
        .Then([](Script& s) {
            s.Press(400, 470);  // pressed in the bar, released on Apply: a click
            s.Hover(763, 464);
            s.Release(763, 464);
        })
        .Then(ClickAt(300, y0 + 17))  // 25, never applied
        .Then(ClickAt(663, 464));     // Cancel
    ShowSettingsDialog(nullptr, 2.0f, start, Record());
    EXPECT_FALSE(script.timed_out());
    auto const created = ztest::RecordedCalls("SDL_CreateWindow");
    EXPECT_EQ(created.at(0).text + " " + created.at(1).text, "Settings Select TTF Font");
    start.custom_font_path = chosen;
    ASSERT_EQ(applied.size(), 2u);
    EXPECT_EQ(Describe(applied[0]), Describe(start).replace(0, 2, "50"));
    EXPECT_EQ(Describe(applied[1]), Describe(start).replace(0, 2, "60"));

    // The first frame: the active row's accent, a divider, the selected ring, Browse.
    std::pair<SDL_Point, char const*> const pixels[] = {{{1, 41}, kAccent},
                                                        {{224, 435}, kTrack},
                                                        {{255, y0 + 119}, kAccent},
                                                        {{713, y0 + 145}, "48,54,68"}};
    for (auto const& [p, color] : pixels) {
        EXPECT_EQ(Rgb(shown[0].At(p.x, p.y)), color) << p.x << "," << p.y;
    }
    for (int row : rows) {
        int const active = row == 11 ? 12 : row;
        EXPECT_EQ(Rgb(shown[row].At(200, 10 + 30 * active + 1)), kNavActive) << row;
        EXPECT_EQ(Rgb(shown[row].At(200, 41)), row == 1 ? kNavActive : kNavBg) << row;
    }
    EXPECT_EQ(Rgb(shown[4].At(252, y0 + 91)), kAccent) << "a checked checkbox";
    EXPECT_EQ(Rgb(shown[12].At(247 + 50, y0 + 66)), kAccent) << "volume filled to 50%";
    EXPECT_EQ(Rgb(shown[12].At(247 + 250, y0 + 66)), kTrack);
}

TEST_F(SettingsDialog, NoFontShowsFailedToLoadFontOverTheParent) {
    SDL_Window* parent = SDL_CreateWindow("host", 0, 0, 320, 200, SDL_WINDOW_HIDDEN);
    ztest::Faults().allow_font_path = [](std::string const&) { return false; };
    ShowSettingsDialog(parent, 1.0f, SettingsDialogValues{}, Record());
    EXPECT_TRUE(applied.empty());
    auto const boxes = ztest::RecordedCalls("SDL_ShowSimpleMessageBox");
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].text + " " + std::to_string(boxes[0].args[0]),
              "Settings\nFailed to load font. " + std::to_string(SDL_MESSAGEBOX_ERROR));
    EXPECT_EQ(boxes[0].object, parent);
    SDL_DestroyWindow(parent);
}

}  // namespace
