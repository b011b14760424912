// The panels' gestures at the edges of each control applied to the record, hits no panel
// makes, slider labels; the dialog run for real on a scripted pointer.
#include "settings/settings_internal.h"
#include "settings_canvas.h"
#include "support/temp_dir.h"

#include <map>
#include <stdexcept>

namespace {

using namespace zset;
using Script = ztest::DialogScript;

using Edit = std::function<void(SettingsDialogValues&)>;

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
    int const y0 = PanelTop(true);
};

TEST_F(SettingsDialog, EachPanelGestureChangesExactlyTheFieldItNames) {
    SDL_Window* window = SDL_CreateWindow("canvas", 0, 0, 820, 492, SDL_WINDOW_HIDDEN);
    SDL_Renderer* renderer = SDL_CreateRenderer(window, -1, SDL_RENDERER_SOFTWARE);
    SdlUiFontHandle const title = OpenSdlUiFontHandle(15, true, kSemiBold);
    SdlUiFontHandle const body = OpenSdlUiFontHandle(15, false, kSemiBold);
    int const y1 = y0 + 136;                                       // below the font mode group
    int const rh = std::max(TTF_FontHeight(body.get()), 16) + 10;  // a checkbox row
    auto row = [&](int i) { return y0 + 34 * i + 17; };
    enum Gesture { kHover, kClick, kHold };
    struct Case {
        int panel, x, y;
        Gesture gesture;
        Edit expect, start = same;
        bool browse = false;
    } const cases[] = {
        // Browse's last pixel, no Browse in pixel mode; the last row of "Hardware"; nothing on "CPU
        // Speed"; a checkbox row starts 4 left, 5 above; the volume band: 8 beyond, 2 above/below.
        // clang-format off
        {0, 300, row(2), kClick, [](auto& v) { v.font_mode = "ttf-hires"; }},
        {0, 300, row(3), kClick, custom}, {0, 300, row(2), kHover, same},
        {0, 807, y1 + 35, kClick, custom, custom, true}, {0, 720, y1 + 20, kClick, same},
        {1, 300, row(0), kClick, fps(25), fps(40)}, {1, 807, row(3), kClick, fps(60)},
        {1, 808, row(3), kClick, same}, {1, 246, row(3), kClick, same},
        {1, 247, row(0), kClick, fps(25)}, {3, 300, y0 + 10, kClick, same},
        {2, 400, y0 + 34, kClick, [](auto& v) { v.renderer_mode = "software"; }},
        {2, 400, y0 + 33, kClick, custom, custom}, {7, 243, y0 + 81, kClick, shaders},
        {7, 300, y0 + 80 + rh, kClick, shaders}, {7, 242, y0 + 81, kClick, same},
        {7, 300, y0 + 80, kClick, same}, {7, 300, y0 + 81 + rh, kClick, same},
        {7, 300, y0 + 163, kClick, [](auto& v) { v.screenshot_capture_size_mode = 0; }},
        {5, 300, y0 + 3, kClick, sounds(false), sounds(true)}, {5, 317, y0 + 68, kHold, volume(0.25)},
        {5, 300, y0 + 3, kClick, sounds(true)}, {5, 317, y0 + 68, kClick, volume(1.7), volume(1.7)},
        {5, 239, y0 + 58, kHold, volume(0)}, {5, 534, y0 + 77, kHold, volume(1)},
        {5, 238, y0 + 68, kHold, same}, {5, 535, y0 + 68, kHold, same},
        {5, 300, y0 + 57, kHold, same}, {5, 300, y0 + 78, kHold, same},
        {6, 240, y0 + 30, kHold, gain(0.25)}, {6, 534, y0 + 30, kHold, gain(3.0)},
        {6, 300, y0 + 78, kClick, [](auto& v) { v.allow_mouse_capture_in_text_mode = true; }},
        {8, 300, row(0), kClick, same},
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

// Hits no panel makes are applied as they come; slider labels round and clamp.
TEST(SettingsHits, ApplyTakesTextsAndNumbersAsTheyComeAndLabelsRoundAndClamp) {
    auto hit = [](char const* key, char const* value, double number = 0) {
        return RightPanelHitResult{true, key, value, number, false, false};
    };
    std::pair<RightPanelHitResult, Edit> const cases[] = {
        // clang-format off
        {{false, "fps", "25", 0, false, false}, same}, {hit("", "25"), same},
        {hit("fps ", "25"), same}, {hit("cpu_mhz", "9", 9), same}, {hit("fps", "12abc"), fps(12)},
        {hit("hdd_sounds_enabled", "11"), same}, {hit("mouse_capture_gain", "", 7.5), gain(7.5)},
        {hit("screenshot_capture_size_mode", "5"), [](auto& v) { v.screenshot_capture_size_mode = 5; }},
        // clang-format on
    };
    for (auto const& [h, expect] : cases) {
        SettingsDialogValues values, expected;
        expect(expected);
        ApplySettingsHit(&values, h);
        EXPECT_EQ(Describe(values), Describe(expected)) << "key '" << h.key << "'";
    }
    SettingsDialogValues values;
    EXPECT_THROW(ApplySettingsHit(&values, hit("fps", "abc")), std::invalid_argument);
    ApplySettingsHit(nullptr, hit("fps", "25"));
    EXPECT_EQ(FormatSliderPercent(1.5) + FormatSliderPercent(-0.2) + FormatSliderPercent(0.005) +
                  FormatSliderPercent(-0.004) + FormatRangeSliderValue(5.0, 3.0, 0.25, "x") +
                  FormatRangeSliderValue(0.1, 0.25, 3.0, "x") +
                  FormatRangeSliderValue(7.0, 2.0, 2.0, nullptr),
              "150%-20%1%0%3.00x0.25x2.00");
}

Script::Step ClickAt(int x, int y) {
    return [x, y](Script& s) {
        s.Hover(x, y);
        s.Click(x, y);
    };
}

Script::Step const kApply = ClickAt(763, 464);

TEST_F(SettingsDialog, FrameNavigationAndTheNestedFontPicker) {
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
    int const rows[] = {2, 3, 4, 6, 8, 10, 12, 11, 1};  // 11 is a heading: nothing changes
    for (int row : rows) {
        script.Then(ClickAt(100, 10 + 30 * row + 15))
            .Then([&shown, row](Script& s) { shown[row] = s.Capture(); }, 2);
    }
    script.Then(kApply).Then([](Script& s) { s.Key(SDLK_ESCAPE); });
    ShowSettingsDialog(nullptr, 2.0f, start, Record());
    EXPECT_FALSE(script.timed_out());
    auto const created = ztest::RecordedCalls("SDL_CreateWindow");
    long long const centred = SDL_WINDOWPOS_CENTERED;
    EXPECT_EQ(created.at(0).text + " " + created.at(1).text, "Settings Select TTF Font");
    EXPECT_EQ(created.at(0).args,
              (std::vector<long long>{centred + 60, centred + 50, 820, 492, SDL_WINDOW_HIDDEN}));
    EXPECT_EQ(ztest::RecordedCalls("SDL_CreateRenderer").at(0).args.at(1), SDL_RENDERER_SOFTWARE);
    EXPECT_EQ(ztest::RecordedCalls("SDL_Delay").back().args[0], 12);
    ASSERT_EQ(applied.size(), 1u);
    EXPECT_EQ(applied[0].custom_font_path, chosen);

    // Opened on "Font Mode" with "ttf-custom" selected: the frame's fixed parts, the Browse
    // button's corner and a point of an unselected ring among them.
    // clang-format off
    std::pair<SDL_Point, char const*> const pixels[] = {
        {{0, 0}, kNavBg},       {{200, 11}, "20,23,30"},    {{200, 41}, kNavActive},
        {{1, 41}, kAccent},     {{224, 0}, kTrack},         {{224, 435}, kTrack},
        {{225, 0}, "18,21,27"}, {{255, y0 + 119}, kAccent}, {{0, 436}, kTrack},
        {{5, 480}, "22,25,32"}, {{720, 451}, "48,54,68"},   {{713, y0 + 145}, "48,54,68"},
        {{712, y0 + 144}, "84,92,108"}, {{263, y0 + 17}, "100,108,122"}};
    // clang-format on
    for (auto const& [p, color] : pixels) {
        EXPECT_EQ(Rgb(shown[0].At(p.x, p.y)), color) << p.x << "," << p.y;
    }
    std::string nav;
    for (NavItem const& item : BuildSettingsNavItems()) {
        nav += item.label + (item.kind == 0 ? "|" : ":" + std::to_string(item.panel_id) + "|");
    }
    EXPECT_EQ(nav,
              "Display|Font Mode:0|Target FPS:1|Renderer:2|Screenshots:7|Input|Mouse Capture:6|"
              "Performance|CPU Speed:3|Verbosity|Logger Options:4|Audio|HDD Sounds:5|");
    for (int row : rows) {
        int const active = row == 11 ? 12 : row;
        EXPECT_EQ(Rgb(shown[row].At(200, 10 + 30 * active + 1)), kNavActive) << row;
        EXPECT_EQ(Rgb(shown[row].At(200, 41)), row == 1 ? kNavActive : kNavBg) << row;
    }
    EXPECT_EQ(Rgb(shown[4].At(252, y0 + 91)), kAccent) << "a checked checkbox";
    EXPECT_EQ(Rgb(shown[12].At(247 + 50, y0 + 66)), kAccent) << "volume filled to 50%";
    EXPECT_EQ(Rgb(shown[12].At(247 + 250, y0 + 66)), kTrack);
}

TEST_F(SettingsDialog, ApplyHandsOverEachStateAndClosingHandsOverNothing) {
    SDL_Window* parent = SDL_CreateWindow("host", 0, 0, 320, 200, SDL_WINDOW_HIDDEN);
    Script::Step const closers[] = {ClickAt(663, 464), [](Script& s) { s.Key(SDLK_ESCAPE); },
                                    [](Script& s) { s.CloseWindow(); },
                                    [](Script& s) { s.Quit(); }};
    for (int i = 0; i < 4; ++i) {  // the run closed by Escape has no on_apply: Apply stays open
        ztest::ResetRecorder();
        applied.clear();
        SettingsDialogValues start;
        start.cpu_mhz = 4.77;
        Script script;
        script
            .At(2, ClickAt(100, 85))               // "Target FPS"
            .Then(ClickAt(300, y0 + 34 * 2 + 17))  // 50
            .Then(kApply)
            .Then([&](Script& s) {
                ClickAt(300, y0 + 34 * 3 + 17)(s);     // 60; the rest must change nothing
                Uint32 const id = s.WindowId() + 100;  // another window's
                SDL_Event e{};
                e.button = {SDL_MOUSEBUTTONUP, 0, id, 0,   SDL_BUTTON_LEFT,
                            SDL_RELEASED,      1, 0,  763, 464};
                ztest::PushEvent(e);
                e.window = {SDL_WINDOWEVENT, 0, id, SDL_WINDOWEVENT_CLOSE, 0, 0, 0, 0, 0};
                ztest::PushEvent(e);
                s.Release(763, 464, SDL_BUTTON_RIGHT);
            })
            .Then([](Script& s) {
                s.Press(400, 470);  // pressed in the bar, released on Apply: a click
                s.Hover(763, 464);
                s.Release(763, 464);
            })
            .Then(ClickAt(300, y0 + 17))  // 25, never applied
            .Then(closers[i]);
        ShowSettingsDialog(parent, 1.0f, start, i == 1 ? nullptr : Record());
        EXPECT_EQ(script.frame(), 8) << "closed by the last gesture alone";
        EXPECT_EQ(SDL_PeepEvents(nullptr, 0, SDL_PEEKEVENT, SDL_QUIT, SDL_QUIT), 0);
        EXPECT_EQ(ztest::RecordedCalls("SDL_SetWindowInputFocus").back().object, parent);
        ASSERT_EQ(applied.size(), i == 1 ? 0u : 2u);
        for (std::size_t k = 0; k < applied.size(); ++k) {
            EXPECT_EQ(Describe(applied[k]), Describe(start).replace(0, 2, k == 0 ? "50" : "60"));
        }
    }
    SDL_DestroyWindow(parent);
}

TEST_F(SettingsDialog, FailuresReturnAtOnceWithoutCallback) {
    SDL_Window* parent = SDL_CreateWindow("host", 0, 0, 320, 200, SDL_WINDOW_HIDDEN);
    void (*const faults[])() = {
        [] { ztest::Faults().fail_window_creation = true; },
        [] { ztest::Faults().fail_software_renderer = true; },
        [] { ztest::Faults().allow_font_path = [](std::string const&) { return false; }; }};
    for (auto fault : faults) {
        ztest::ResetRecorder();
        fault();
        Script script;
        script.At(3, [](Script& s) { s.Key(SDLK_ESCAPE); });
        ShowSettingsDialog(parent, 1.0f, SettingsDialogValues{}, Record());
        EXPECT_EQ(script.frame(), -1) << "no turn ran";
        EXPECT_EQ(ztest::CountLiveObjects().windows + ztest::CountLiveObjects().renderers, 1);
    }
    EXPECT_TRUE(applied.empty());
    auto const boxes = ztest::RecordedCalls("SDL_ShowSimpleMessageBox");  // the font fault's
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].text + std::to_string(boxes[0].args[0]),
              "Settings\nFailed to load font." + std::to_string(SDL_MESSAGEBOX_ERROR));
    EXPECT_EQ(boxes[0].object, parent);
    SDL_DestroyWindow(parent);
}

}  // namespace
