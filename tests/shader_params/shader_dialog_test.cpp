// The shader parameter dialog: its window-free numbers, and the dialog run for real (the
// wheel, drags, resizing, the ways to apply and leave, the frame, the boxes instead).
#include "gui/shader_params.h"
#include "shader_params/shader_dialog_model.h"
#include "support/dialog_checks.h"
#include "support/dialog_script.h"
#include "support/temp_dir.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

#include <climits>
#include <tuple>

namespace {

using namespace zorvane::frontend::gui;
using Script = ztest::DialogScript;
using Values = std::vector<ShaderParameterValue>;
using ztest::HasColor;

ShaderParameterSpec Param(float min_value, float max_value, float step, char const* name = "P") {
    return {name, "Label", 0.0f, min_value, max_value, step};
}

// The layout of `count` rows in a window of width x height scrolled by `scroll`.
ShaderDialogLayout LayoutOf(int count, int width, int height, int scroll = 0) {
    ShaderDialogGeometry const g = BuildShaderDialogGeometry(count, 1.0f);
    std::vector<ShaderParameterSpec> const params(count, Param(0, 1, 0));
    ShaderDialogSession session;
    session.specs = &params;
    session.geometry = &g;
    session.scroll_y = scroll;
    return BuildShaderDialogLayout(session, width, height);
}

TEST(ShaderDialogModel, SnapStartingValuesAndThePointersValueAndRow) {
    ShaderParameterSpec const quarter = Param(0, 1, 0.25f), free = Param(0, 1, 0);
    // clang-format off
    std::tuple<ShaderParameterSpec, float, float> const cases[] = {
        {quarter, 0.3f, 0.25f}, {quarter, 0.375f, 0.5f}, {quarter, 2.0f, 1.0f}, {quarter, -1.0f, 0.0f},
        {Param(-1, 1, 0.5f), 0.2f, 0.0f}, {Param(0, 1, 0.4f), 1.0f, 1.0f}, {free, 0.123f, 0.123f},
        {Param(0, 1, 0.3f), 1.0f, 0.3f * 3.0f}, {free, 7.0f, 1.0f}, {Param(1, 3, 0.5f), 1.25f, 1.5f}};
    // clang-format on
    for (auto const& [param, in, want] : cases) {
        EXPECT_EQ(SnapToStep(param, in), want) << in << " step " << param.step;
    }
    // Starting values: the first override of each name, clamped and snapped.
    std::vector<ShaderParameterSpec> params = {Param(0, 1, 0, "A"), Param(0, 1, 0.25f, "B"),
                                               Param(0, 10, 1, "C"), Param(0, 1, 0, "A")};
    params[2].default_value = 12.0f;
    auto const result = InitializeShaderDialogResult(
        params, {{"Z", 0.5f}, {"A", 5.0f}, {"B", 0.3f}, {"A", 0.1f}, {"a", 0.2f}});
    EXPECT_FALSE(result.accepted);
    ASSERT_EQ(result.values.size(), 4u);
    float const starts[] = {1.0f, 0.25f, 10.0f, 1.0f};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(result.values[i].name, params[i].name);
        EXPECT_EQ(result.values[i].value, starts[i]) << i;
    }
    EXPECT_TRUE(InitializeShaderDialogResult({}, {{"A", 1.0f}}).values.empty());

    // The pointer's x on a slider, and its y over the rows.
    ShaderDialogGeometry const g = BuildShaderDialogGeometry(3, 1.0f);
    int const xs[] = {-5000, 260, 360, 535, 99999};
    float const values[] = {0.0f, 0.0f, 0.25f, 1.0f, 1.0f};  // 360: 0.36 snaps down
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(ShaderDialogValueFromMouse(quarter, g, xs[i]), values[i]) << xs[i];
    }
    EXPECT_EQ(ShaderDialogValueFromMouse(Param(-2, 2, 0), g, 315), -2.0f + 4.0f * 0.2f);
    EXPECT_EQ(ShaderDialogValueFromMouse(Param(3, 3, 0.1f), g, 400), 3.0f);
    // y, scroll, the row there
    int const rows[][3] = {
        {19, 0, -1}, {20, 0, 0},  {99, 0, 0},   {100, 0, 1},   {259, 0, 2},           {260, 0, -1},
        {20, 30, 0}, {70, 30, 1}, {-10, 30, 0}, {-11, 30, -1}, {INT_MAX, INT_MAX, -1}};
    for (auto const& r : rows) {
        EXPECT_EQ(FindShaderDialogParamAtY(g, r[0], r[1], 3), r[2]) << r[0] << " at " << r[1];
    }
}

TEST(ShaderDialogModel, WindowHeightScrollbarAndButtonsFollowTheListAndWindow) {
    // count, opening height, list height, max scroll, thumb height (0: thumb = track)
    int const cases[][5] = {{0, 280, 192, 0, 0},       {2, 280, 192, 0, 0},
                            {3, 330, 242, 18, 225},    {4, 410, 322, 18, 304},
                            {5, 490, 402, 18, 384},    {6, 500, 412, 88, 339},
                            {20, 500, 412, 1208, 104}, {1000, 500, 412, 79608, 20}};
    for (auto const& c : cases) {
        SCOPED_TRACE(testing::Message() << c[0] << " parameters");
        ASSERT_EQ(BuildShaderDialogGeometry(c[0], 3.0f).window_height, c[1]);  // scale unused
        ShaderDialogLayout const top = LayoutOf(c[0], 900, c[1]);
        EXPECT_EQ(top.list_height, c[2]);
        EXPECT_EQ(top.max_scroll, c[3]);
        SDL_Rect const track{882, 36, 14, c[2]}, thumb{882, 36, 14, c[4] == 0 ? c[2] : c[4]};
        EXPECT_TRUE(SDL_RectEquals(&top.scrollbar_track, &track));
        EXPECT_TRUE(SDL_RectEquals(&top.scrollbar_thumb, &thumb));
        EXPECT_EQ(LayoutOf(c[0], 900, c[1], c[3]).scrollbar_thumb.y, 36 + c[2] - thumb.h);
    }
    ShaderDialogLayout const layout = LayoutOf(6, 900, 500, 44);
    SDL_Rect const cancel{708, 461, 78, 26}, apply{802, 461, 78, 26};
    EXPECT_TRUE(SDL_RectEquals(&layout.cancel_button, &cancel));
    EXPECT_TRUE(SDL_RectEquals(&layout.apply_button, &apply));
    EXPECT_EQ(layout.scrollbar_thumb.y, 36 + 36);  // 44 / 88 of 73, truncated
    for (int height : {88, 0, -50}) {
        ShaderDialogLayout const tiny = LayoutOf(6, 10, height, 44);
        EXPECT_EQ(tiny.list_height, 1);
        EXPECT_EQ(tiny.max_scroll, 499);
        EXPECT_EQ(tiny.scrollbar_thumb.h, 20);
    }
    EXPECT_EQ(BuildShaderDialogGeometry(INT_MAX, 1.0f).window_height, 500);
}

// Six rows open a 900 x 500 window with 88 pixels to scroll. Row r's top lies at
// 20 + 80 r - scroll, its slider bar at (260, top + 34, 275, 13).
constexpr char kSixParameters[] =
    "#pragma parameter A \"Alpha\" 0.5 0 1 0.25\n"
    "#pragma parameter B \"Beta\" 0.5 0 1 0\n"
    "#pragma parameter C \"Gamma\" 2 0 10 1\n"
    "#pragma parameter D \"Delta\" 0 -1 1 0.5\n"
    "#pragma parameter E \"Epsilon\" 1 0 2 0.1\n"
    "#pragma parameter F \"Zeta\" 3 0 4 1\n";

constexpr SDL_Color kClear{18, 20, 26, 255}, kHeader{26, 28, 36, 255}, kCard{32, 36, 44, 255},
    kCardLine{58, 64, 74, 255}, kBar{52, 56, 64, 255}, kBarLine{78, 86, 96, 255},
    kFilled{106, 156, 255, 255}, kKnob{126, 176, 255, 255}, kTrack{30, 33, 40, 255},
    kThumb{72, 80, 94, 255}, kThumbLine{96, 108, 128, 255}, kFooter{26, 30, 38, 255},
    kFooterLine{60, 66, 78, 255}, kButton{48, 52, 60, 255}, kButtonLine{84, 92, 104, 255};

void ExpectColors(ztest::Frame const& f,
                  std::vector<std::tuple<int, int, SDL_Color>> const& probes) {
    for (auto const& [x, y, color] : probes) {
        EXPECT_TRUE(HasColor(f, x, y, color));
    }
}

// Whether anything but `background` was drawn inside the rectangle, as text would be.
bool HasInk(ztest::Frame const& f, SDL_Rect const& r, SDL_Color background) {
    for (int i = 0; i < r.w * r.h; ++i) {
        if (!HasColor(f, r.x + i % r.w, r.y + i / r.w, background)) {
            return true;
        }
    }
    return false;
}

// The step of a wheel turn with the pointer at (x, y), and of a resize to 900 x height.
Script::Step WheelAt(int x, int y, int notches) {
    return [=](Script& s) { s.Hover(x, y), s.Wheel(notches); };
}
Script::Step Resize(int height) {
    return [=](Script& s) {
        SDL_SetWindowSize(s.Window(), 900, height);
        s.WindowEvent(SDL_WINDOWEVENT_RESIZED, 900, height);
    };
}

class ShaderDialog : public ztest::DialogTest {
protected:
    // Runs the dialog on the six rows with the script's steps one frame apart.
    ShaderDialogResult Run(std::vector<Script::Step> const& steps, Values const& overrides = {}) {
        ztest::Faults().skip_delays = true;
        Script script;
        for (std::size_t i = 0; i < steps.size(); ++i) {
            script.At(2 + static_cast<int>(i), steps[i]);
        }
        ShaderDialogResult result = ShowShaderParameterDialog(
            nullptr, shader_, 1.0f, [this](Values const& values) { applied_.push_back(values); },
            overrides);
        EXPECT_FALSE(script.timed_out());
        return result;
    }
    ztest::TempDir dir_;
    std::string const shader_ = dir_.Write("six.glsl", kSixParameters).string();
    std::vector<Values> applied_;
};

TEST_F(ShaderDialog, FrameAndWheelThatScrollsAndStepsTheRowUnderThePointer) {
    ztest::Frame f, scrolled;
    ShaderDialogResult const result = Run({
        [&](Script& s) { f = s.Capture(), WheelAt(300, 140, 1)(s); },  // B (step 0) up 2 %
        WheelAt(300, 140, -1),  // scroll 40; now over row 2, C down one step
        WheelAt(300, 140, 3),   // scroll 0; B up again, one step for three notches
        WheelAt(300, 30, -1),   // header: nothing
        WheelAt(300, 460, -1),  // footer: nothing
        [](Script& s) { s.Leave(), s.Wheel(-1); },  // the pointer over another window: nothing
        WheelAt(300, 430, -5),                      // scroll 88; no row under the pointer
        [&](Script& s) { scrolled = s.Capture(), s.Key(SDLK_RETURN); },
        WheelAt(300, 430, 1),  // scroll 48; row 5, F up one step
        [](Script& s) { s.Key(SDLK_ESCAPE); },
    });
    EXPECT_FALSE(result.accepted);
    ASSERT_EQ(applied_.size(), 1u);
    std::vector<float> const at_apply = {0.5f, 0.5f + 0.02f + 0.02f, 1.0f, 0.0f, 1.0f, 3.0f};
    for (std::size_t i = 0; i < at_apply.size(); ++i) {
        EXPECT_FLOAT_EQ(applied_[0][i].value, at_apply[i]) << applied_[0][i].name;
        EXPECT_FLOAT_EQ(result.values[i].value, i == 5 ? 4.0f : at_apply[i]);
    }
    // At the end of the list the thumb starts at 36 + 73 and row 5's card ends at 405.
    ExpectColors(
        scrolled,
        {{888, 100, kTrack}, {888, 120, kThumb}, {200, 405, kCardLine}, {200, 420, kClear}});

    // The first frame, 900 x 500: the header over row 0's clipped card; row 1 (Beta at 0.5):
    // card (12, 100, 858, 74), bar filled to 138 with the knob from 392; row 2 (Gamma, 2 of
    // 10) filled to 55; the track (882, 36, 14, 412) with a thumb 339 high; the footer from
    // 448 with Cancel at (708, 461) and Apply at (802, 461).
    ASSERT_EQ(f.width, 900);
    ASSERT_EQ(f.height, 500);
    auto const created = ztest::RecordedCalls("SDL_CreateWindow");
    ASSERT_EQ(created.size(), 1u);
    EXPECT_EQ(created[0].text, "Shader Parameters");
    EXPECT_EQ(created[0].args.back(), SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE);
    EXPECT_EQ(ztest::RecordedCalls("SDL_CreateRenderer").at(0).args.at(1), SDL_RENDERER_SOFTWARE);
    EXPECT_EQ(ztest::RecordedCalls("SDL_Delay").at(0).args.at(0), 12);
    // clang-format off
    ExpectColors(f, {{880, 10, kHeader}, {100, 30, kHeader}, {100, 96, kClear}, {875, 120, kClear},
                     {12, 120, kCardLine}, {869, 120, kCardLine}, {200, 173, kCardLine}, {200, 160, kCard},
                     {270, 140, kFilled}, {391, 140, kFilled}, {392, 131, kKnob}, {403, 150, kKnob},
                     {404, 140, kBar}, {534, 140, kBarLine}, {450, 134, kBarLine}, {300, 220, kFilled},
                     {320, 220, kKnob}, {321, 220, kBar}, {882, 100, kThumbLine}, {888, 100, kThumb},
                     {888, 374, kThumbLine}, {888, 400, kTrack}, {10, 448, kFooterLine},
                     {10, 480, kFooter}, {708, 470, kButtonLine}, {711, 484, kButton},
                     {879, 486, kButtonLine}, {805, 484, kButton}});
    // clang-format on
    EXPECT_TRUE(HasInk(f, {12, 4, 120, 14}, kHeader));
    EXPECT_TRUE(HasInk(f, {14, 105, 60, 16}, kCard));    // label
    EXPECT_TRUE(HasInk(f, {545, 104, 60, 14}, kCard));   // value
    EXPECT_TRUE(HasInk(f, {545, 119, 200, 14}, kCard));  // range
    EXPECT_FALSE(HasInk(f, {545, 145, 300, 25}, kCard));
    EXPECT_TRUE(HasInk(f, {718, 467, 50, 16}, kButton));
}

TEST_F(ShaderDialog, ThumbDragResizeAndSliderDragOutOfItsRow) {
    ztest::Frame dragged, shorter, fits;
    ShaderDialogResult const result =
        Run({[](Script& s) { s.Press(889, 300), s.Motion(889, 336); },  // no jump; 36 / 73 of 88
             [&](Script& s) {
                 dragged = s.Capture();
                 s.Motion(889, 2000), s.Motion(889, -500), s.Motion(889, 336);
                 s.Release(889, 336), s.Motion(889, 420);
             },
             Resize(560),  // 28 pixels left to scroll
             [&](Script& s) { shorter = s.Capture(), Resize(700)(s); },
             [&](Script& s) {  // all rows fit: row 1 from 100 again
                 fits = s.Capture();
                 s.Press(200, 140), s.Press(400, 131);  // left of the slider, above the bar
                 s.Press(300, 140, SDL_BUTTON_RIGHT), s.Motion(500, 140);
             },
             [](Script& s) {
                 s.Press(397, 140), s.Motion(700, 400);   // B at 137 / 275, out of its row
                 s.Release(700, 400, SDL_BUTTON_MIDDLE);  // no end of the drag
                 s.Motion(100, 30), s.Motion(329, 9999);  // B at 69 / 275
                 s.Release(329, 9999), s.Motion(535, 140);
             },
             [](Script& s) { s.Press(534, 220); },  // C at 274 / 275 of 10, snapped
             [](Script& s) { s.Release(710, 670); }},
            {{"C", 4.0f}});
    EXPECT_FALSE(result.accepted);  // released over Cancel
    EXPECT_TRUE(applied_.empty());
    EXPECT_FLOAT_EQ(result.values[0].value, 0.5f);
    EXPECT_FLOAT_EQ(result.values[1].value, 69.0f / 275.0f);
    EXPECT_FLOAT_EQ(result.values[2].value, 10.0f);
    // Scrolled by 43: row 1's card from 57, the thumb from 36 + 35.
    ExpectColors(dragged, {{200, 57, kCardLine}, {888, 70, kTrack}, {888, 71, kThumbLine}});
    ASSERT_EQ(shorter.height, 560);
    ExpectColors(
        shorter,
        {{200, 72, kCardLine}, {888, 62, kTrack}, {888, 63, kThumbLine}, {10, 508, kFooterLine}});
    ASSERT_EQ(fits.height, 700);
    ExpectColors(fits, {{200, 100, kCardLine}, {888, 300, kClear}});
}

TEST_F(ShaderDialog, ApplyAndLeaveGesturesAndTheirResults) {
    auto set_b = [](int x) { return [x](Script& s) { s.Click(x, 140); }; };
    auto key = [](SDL_Keycode sym) { return [sym](Script& s) { s.Key(sym); }; };
    Script::Step const apply = [](Script& s) {  // the buttons answer the release alone
        s.Press(100, 470), s.Release(840, 474);
    };
    Script::Step const cancel = [](Script& s) { s.Click(710, 470); };
    Script::Step const close = [](Script& s) { s.CloseWindow(); };
    Script::Step const quit = [](Script& s) { s.Quit(); };
    Script::Step const other_close = [](Script& s) {
        SDL_Event event{};
        event.type = SDL_WINDOWEVENT;
        event.window.windowID = s.WindowId() + 1000;
        event.window.event = SDL_WINDOWEVENT_CLOSE;
        ztest::PushEvent(event);
    };
    float const high = 274.0f / 275.0f;
    // Steps, accepted, B at each Apply, B at the end.
    std::tuple<std::vector<Script::Step>, bool, std::vector<float>, float> const cases[] = {
        {{set_b(534), apply, close}, true, {high}, high},
        {{key(SDLK_RETURN), set_b(260), key(SDLK_RETURN), quit}, true, {0.5f, 0.0f}, 0.0f},
        {{key(SDLK_KP_ENTER), set_b(534), key(SDLK_ESCAPE)}, false, {0.5f}, high},
        {{apply, cancel}, false, {0.5f}, 0.5f},
        {{other_close, set_b(260), key(SDLK_SPACE), quit}, false, {}, 0.0f},
    };
    for (auto const& [steps, accepted, b_at_applies, b_at_end] : cases) {
        applied_.clear();
        ShaderDialogResult const result = Run(steps);
        EXPECT_EQ(result.accepted, accepted);
        ASSERT_EQ(applied_.size(), b_at_applies.size());
        for (std::size_t i = 0; i < applied_.size(); ++i) {
            EXPECT_FLOAT_EQ(applied_[i].at(1).value, b_at_applies[i]);
        }
        EXPECT_FLOAT_EQ(result.values.at(1).value, b_at_end);
    }
}

TEST_F(ShaderDialog, BoxesInsteadOfAWindow) {
    std::string const plain = dir_.Write("plain", "void main() {}\n").string();
    SDL_Window* parent = SDL_CreateWindow("host", 100, 100, 640, 400, SDL_WINDOW_HIDDEN);
    long long const info = SDL_MESSAGEBOX_INFORMATION;
    char const* const none = "No #pragma parameter lines were found in the selected shader file.";
    // Path, no font, no window, the box's flags and text: no parameters (a plain file, no
    // path, an absent preset), then no font, then no window (and no box).
    // clang-format off
    std::tuple<std::string, bool, bool, long long, char const*> const cases[] = {
        {plain, false, false, info, none}, {"", false, false, info, none},
        {(dir_.path() / "absent.glslp").string(), false, false, info, none},
        {shader_, true, false, SDL_MESSAGEBOX_ERROR, "Unable to load a font via SDL_ttf."},
        {shader_, false, true, 0, nullptr}};
    // clang-format on
    for (auto const& [path, no_font, no_window, flags, text] : cases) {
        ztest::ResetRecorder();
        ztest::Faults().allow_font_path = [no = no_font](std::string const&) { return !no; };
        ztest::Faults().fail_window_creation = no_window;
        ShaderDialogResult const r =
            ShowShaderParameterDialog(parent, path, 1, nullptr, {{"C", 7}});
        EXPECT_FALSE(r.accepted);
        EXPECT_EQ(r.values.empty() ? -1.0f : r.values.at(2).value, path == shader_ ? 7.0f : -1.0f);
        auto const boxes = ztest::RecordedCalls("SDL_ShowSimpleMessageBox");
        ASSERT_EQ(boxes.size(), text ? 1u : 0u) << path;
        if (text) {
            EXPECT_EQ(boxes[0].args[0], flags);
            EXPECT_EQ(boxes[0].text, std::string("Shader Parameters\n") + text);
            EXPECT_EQ(boxes[0].object, parent);
        }
        EXPECT_EQ(ztest::CountCalls("SDL_ShowWindow") + ztest::CountCalls("SDL_RaiseWindow"), 0);
        EXPECT_TRUE(path == shader_ || ztest::CountCalls("SDL_CreateWindow") == 0);
        EXPECT_EQ(ztest::CountLiveObjects().windows, 1);
    }
    SDL_DestroyWindow(parent);
}

}  // namespace
