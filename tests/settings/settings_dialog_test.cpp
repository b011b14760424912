// The settings dialog run for real through the heartbeat on a scripted pointer: its
// frame, navigation, the nested font picker, Apply, closing, and early failures.
#include "settings_canvas.h"
#include "support/temp_dir.h"

#include <map>

namespace {

using namespace zset;
using Script = ztest::DialogScript;

Script::Step ClickAt(int x, int y) {
    return [x, y](Script& s) {
        s.Hover(x, y);
        s.Click(x, y);
    };
}

Script::Step const kApply = ClickAt(763, 464);

class SettingsDialog : public ztest::DialogTest {
protected:
    std::function<void(SettingsDialogValues const&)> Record() {
        ztest::Faults().skip_delays = true;
        return [this](SettingsDialogValues const& v) { applied.push_back(v); };
    }
    std::vector<SettingsDialogValues> applied;
    int const y0 = PanelTop(true);
};

TEST_F(SettingsDialog, FrameNavigationAndTheNestedFontPicker) {
    ztest::TempDir dir;
    std::string const chosen = dir.Write("fonts/pick.ttf", "font bytes").string();
    SettingsDialogValues start;
    start.font_mode = "ttf-custom";
    start.custom_font_path = (dir.path() / "fonts" / "old.ttf").string();
    start.screenshot_capture_with_opengl_shaders = true;
    std::map<int, ztest::Frame> shown;
    std::string picker_title;
    bool focus_back = false;
    Script script;
    script.At(2, [&](Script& s) { shown[0] = s.Capture(); })
        .Then(ClickAt(720, y0 + 136 + 18))  // "Browse..."
        .Then(
            [&](Script& s) {
                picker_title = SDL_GetWindowTitle(s.Window());
                s.Key(SDLK_DOWN);
                s.Key(SDLK_RETURN);
            },
            3)
        .Then(
            [&](Script& s) {
                focus_back =
                    ztest::RecordedCalls("SDL_SetWindowInputFocus").back().object == s.Window();
            },
            2);
    int const rows[] = {2, 3, 4, 6, 8, 10, 12, 11, 1};  // 11 is a heading: nothing changes
    for (int row : rows) {
        script.Then(ClickAt(100, 10 + 30 * row + 15))
            .Then([&shown, row](Script& s) { shown[row] = s.Capture(); }, 2);
    }
    script.Then(kApply).Then([](Script& s) { s.Key(SDLK_ESCAPE); });
    ShowSettingsDialog(nullptr, 2.0f, start, Record());
    EXPECT_FALSE(script.timed_out());
    EXPECT_EQ(picker_title, "Select TTF Font");
    EXPECT_TRUE(focus_back) << "the picker gives the focus back to the settings window";
    ASSERT_EQ(applied.size(), 1u);
    EXPECT_EQ(applied[0].custom_font_path, chosen);

    // Opened on "Font Mode" with "ttf-custom" selected: the frame's fixed parts.
    std::pair<SDL_Point, char const*> const pixels[] = {
        {{0, 0}, kNavBg},       {{200, 11}, "20,23,30"},    {{200, 41}, kNavActive},
        {{1, 41}, kAccent},     {{224, 0}, kTrack},         {{224, 435}, kTrack},
        {{225, 0}, "18,21,27"}, {{255, y0 + 119}, kAccent}, {{0, 436}, kTrack},
        {{5, 480}, "22,25,32"}, {{720, 451}, "48,54,68"},   {{713, y0 + 145}, "48,54,68"}};
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

TEST_F(SettingsDialog, ApplyHandsOverEachStateAndClosingHandsOverNothing) {
    SDL_Window* parent = SDL_CreateWindow("host", 0, 0, 320, 200, SDL_WINDOW_HIDDEN);
    Script::Step const closers[] = {ClickAt(663, 464), [](Script& s) { s.Key(SDLK_ESCAPE); },
                                    [](Script& s) { s.CloseWindow(); },
                                    [](Script& s) { s.Quit(); }};
    for (Script::Step const& close : closers) {
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
                ClickAt(300, y0 + 34 * 3 + 17)(s);  // 60; the rest must change nothing
                SDL_Event other{};
                other.button = {SDL_MOUSEBUTTONUP,
                                0,
                                s.WindowId() + 100,
                                0,
                                SDL_BUTTON_LEFT,
                                SDL_RELEASED,
                                1,
                                0,
                                763,
                                464};
                ztest::PushEvent(other);
                other.window = {
                    SDL_WINDOWEVENT, 0, s.WindowId() + 100, SDL_WINDOWEVENT_CLOSE, 0, 0, 0, 0, 0};
                ztest::PushEvent(other);
                s.Release(763, 464, SDL_BUTTON_RIGHT);
            })
            .Then([](Script& s) {
                s.Press(400, 470);  // pressed in the bar, released on Apply: a click
                s.Hover(763, 464);
                s.Release(763, 464);
            })
            .Then(ClickAt(300, y0 + 17))  // 25, never applied
            .Then(close);
        ShowSettingsDialog(parent, 1.0f, start, Record());
        EXPECT_FALSE(script.timed_out());
        ASSERT_EQ(applied.size(), 2u);
        EXPECT_EQ(Describe(applied[0]), Describe(start).replace(0, 2, "50"));
        EXPECT_EQ(Describe(applied[1]), Describe(start).replace(0, 2, "60"));
        EXPECT_EQ(SDL_PeepEvents(nullptr, 0, SDL_PEEKEVENT, SDL_QUIT, SDL_QUIT), 0);
        EXPECT_EQ(ztest::RecordedCalls("SDL_SetWindowInputFocus").back().object, parent);
    }
    SDL_DestroyWindow(parent);
}

TEST_F(SettingsDialog, ApplyWithoutCallbackKeepsTheDialogOpen) {
    ztest::Faults().skip_delays = true;
    Script script;
    script.At(2, kApply).Then(kApply).Then([](Script& s) { s.Key(SDLK_ESCAPE); }, 3);
    ShowSettingsDialog(nullptr, 1.0f, SettingsDialogValues{}, {});
    EXPECT_EQ(script.frame(), 6) << "closed by the Escape alone";
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
