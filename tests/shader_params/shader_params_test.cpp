// Shader parameters: the parsers, the OpenGL stand-in, the dialog's numbers and the dialog run.
#include "gui/shader_params.h"
#include "shader_params/shader_dialog_model.h"
#include "shader_params/shader_param_parsers.h"
#include "support/dialog_checks.h"
#include "support/dialog_script.h"
#include "support/temp_dir.h"
#include "support/test_display.h"
#include "zorvane/opengl.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <sstream>
#include <tuple>

namespace {

using namespace zorvane::frontend::gui;
using zorvane::opengl::ResolveGlslpFirstPass;
using Script = ztest::DialogScript;
using Values = std::vector<ShaderParameterValue>;
using ztest::HasColor;

std::string DataPath(std::string const& name) {
    char const* root = std::getenv("ZORVANE_TEST_DATA");
    return std::string(root != nullptr ? root : "tests/data") + "/shader_params/" + name;
}

std::ostream& operator<<(std::ostream& out, ShaderParameterSpec const& s) {
    return out << s.name << " [" << s.label << "] " << s.default_value << " " << s.min_value << " "
               << s.max_value << " " << s.step << ";";
}
std::ostream& operator<<(std::ostream& out, ShaderParameterValue const& v) {
    return out << v.name << "=" << v.value << ";";
}
template <typename Record>
std::string Describe(std::vector<Record> const& records) {
    std::ostringstream text;
    for (Record const& record : records) {
        text << record;
    }
    return text.str();
}

TEST(ShaderParameterParsers, DeclarationAndPresetLinesAsWritten) {
    // clang-format off
    std::pair<char const*, char const*> const cases[] = {
        {"#pragma parameter\tG\t\"G\"\t2\t1\t3\t0.5\t// wider near 2", "G [G] 2 1 3 0.5;"},
        {"#pragma parameter A \"B\" 0.5 0 1 -1", "A [B] 0.5 0 1 0;"},
        {"#pragma parameter A \"B\" 2.0 0.0 1.0 0.1", "A [B] 2 0 1 0.1;"},
        {"#pragma parameter A \"\" 0 0 1 0.1", ""}, {"#pragma parameter A \"B 0 0 1 0.1", ""},
        {"#pragma parameter A 0 0 1 0.1", ""}, {"#pragma parameter A\"B\" 0 0 1 0.1", ""},
        {"#pragma parameter A x=\"L\" 0 0 1 0.1", "A [L] 0 0 1 0.1;"},
        {"#pragma parameter A \" Mask: 50%, (dark)! \" 0 0 1 0",
         "A [ Mask: 50%, (dark)! ] 0 0 1 0;"},
        {"#pragma parameter A \"B\" 0.5x 0 1 0.1", ""},
        {"#pragma parameter A \"B\" -1.5e1 -2E1 +1e1 .5", "A [B] -15 -20 10 0.5;"},
        {"#pragma parameter A \"B\" inf 0 1 0.1", ""}, {"#pragma parameter A \"B\" 1e39 0 1 0.1", ""},
        {"#pragmaparameter A \"B\" 0 0 1 0", "A [B] 0 0 1 0;"},
        {"#pragma parameters A \"B\" 0 0 1 0", "s [B] 0 0 1 0;"},
        {"#PRAGMA parameter A \"B\" 0 0 1 0.1", ""},
        {"#pragma parameter \xC3\xA9 \"\xC3\x89 \xFF\" 0 0 1 0", "\xC3\xA9 [\xC3\x89 \xFF] 0 0 1 0;"},
    };
    std::pair<char const*, char const*> const presets[] = {
        {"parameters = \"A;B\"\nA = 0.5\nB = \"1.5\"\nC = 2.0\n", "A=0.5;B=1.5;"},
        {"B = 1\nA = 2\nparameters = \"A;B\"\n", "B=1;A=2;"},  // value lines in front
        {"parameters = A ; B ;\nA=1\nB=2", "A=1;B=2;"},
        {"parameters = \"A;B\r\nA = 1\r\nB = 2\r\n", "B=2;"},  // no closing quote: "A
        {"parameters = ; ;;\nA = 1\n", ""}, {"A = 1\nB = 2\n", ""},
        {"parameters\nparameters extra\nparameters = A\nA = 3\n", "A=3;"},
        {"parameters_extra = A\nparameters = B\nA = 1\nB = 2\n", "A=1;"},
        {"parameters = \"A;B;C;D;E;F\"\nA = abc\nB = \"\"\nC = 1.5abc\nD = 1e999\n"
         "E = \"1.5\" # note\nF = \"", "C=1.5;"},
        {"parameters = A;B;C\nA = 0x10\nB = -inf\nC =   \" 2.5\"", "A=16;B=-inf;C=2.5;"},
        {"parameters = A\na = 1\n\t A \t= 4\n=5\nA = 4\n", "A=4;A=4;"},
        {"parameters = \"A B, C\"\nA B, C = 7\nA = 1\n", "A B, C=7;"},
        {"parameters = 2;parameters\n", "parameters=2;"},
    };
    // clang-format on
    for (auto const& [line, want] : cases) {
        EXPECT_EQ(Describe(ParseShaderParameterSpecsFromText(line)), want) << line;
    }
    for (auto const& [text, want] : presets) {
        EXPECT_EQ(Describe(ParseGlslpParameterOverridesFromText(text)), want) << text;
    }
}

TEST(ShaderParameterParsers, FilesPresetsFirstPassesAndUnreadablePaths) {
    // Tabs, CR LF, trailing comments, a line without a step and one behind "//" left
    // out, one inside a block comment kept, and a last line without a line feed.
    for (char const* name : {"crt_soft.glsl", "crt_soft.glslp"}) {
        EXPECT_EQ(Describe(ParseShaderParameterSpecs(DataPath(name))),
                  "CURVATURE [Screen curvature] 0.08 0 0.25 0.01;"
                  "SCANLINE_WEIGHT [Scanline weight (dark -> bright)] 6 0.5 12 0.5;"
                  "MASK_DARK [Mask: dark, 0 = off] 0.5 0 1 0.05;IN_BLOCK [Inside a block comment] "
                  "1 0 2 0.1;GAMMA_OUT [Output gamma] 2.2 1 3 0;")
            << name;
    }
    EXPECT_EQ(Describe(ParseGlslpParameterOverrides(DataPath("crt_soft.glslp"))),
              "CURVATURE=0.12;SCANLINE_WEIGHT=8.5;MASK_DARK=0.35;CURVATURE=0.2;");
    EXPECT_EQ(ResolveShaderGlslPath(DataPath("crt_soft.glslp")), DataPath("crt_soft.glsl"));
    ztest::TempDir dir;
    auto const at = [&](std::string const& name) { return (dir.path() / name).string(); };
    char const* const param = "#pragma parameter A \"B\" 0 0 1 0.1\n";
    std::string const upper = dir.Write("X.GLSLP", "shader0 = x.glsl\nparameters = A\nA = 1\n");
    dir.Write("x.glsl", std::string("parameters = A\nA = 1\n") + param);
    dir.Write("preset_as_shader.glslp", param);  // a preset is never read as a shader
    EXPECT_EQ(Describe(ParseGlslpParameterOverrides(upper)), "A=1;");
    EXPECT_EQ(Describe(ParseShaderParameterSpecs(upper)), "A [B] 0 0 1 0.1;");
    EXPECT_EQ(ResolveShaderGlslPath(upper), at("x.glsl"));
    EXPECT_EQ(ResolveShaderGlslPath("no/such/dir/shader.glsl"), "no/such/dir/shader.glsl");
    EXPECT_TRUE(ParseGlslpParameterOverrides(at("x.glsl")).empty());
    for (std::string const& path : {std::string(), dir.path().string(), at("absent.glsl"),
                                    DataPath("missing_pass.glslp"), at("preset_as_shader.glslp")}) {
        EXPECT_TRUE(ParseShaderParameterSpecs(path).empty()) << path;
    }

    // The OpenGL stand-in: the first pass's path relative to the temporary folder ("" for none).
    // clang-format off
    std::pair<std::string, std::string> const cases[] = {
        {"shaders = 1\nshader0 = crt.glsl\n", "presets/crt.glsl"},
        {"shaders = \"2\"\r\n  shader0   =  \"sub dir/crt.glsl\" \r\nshader1 = b.glsl\r\n",
         "presets/sub dir/crt.glsl"},
        {"# shader0 = wrong.glsl\nshader0 = ../a.glsl\nshader0 = b.glsl\n", "presets/../a.glsl"},
        {"shader0 = " + at("elsewhere/crt.glsl"), "elsewhere/crt.glsl"}, {"shaders = 1\nshader1 = crt.glsl\n", ""},
        {"shaders = 1\nshader0 = \"\"\n", ""}, {"shaders = 0\nshader0 = crt.glsl\n", ""}, {"", ""}};
    // clang-format on
    for (auto const& [text, want] : cases) {
        std::string const preset = dir.Write("presets/p.glslp", text).string();
        EXPECT_EQ(ResolveGlslpFirstPass(preset), want.empty() ? want : at(want)) << text;
    }
    EXPECT_EQ(ResolveGlslpFirstPass(dir.path().string()), "");
    EXPECT_TRUE(ParseGlslpParameterOverrides(at("absent.glslp")).empty());  // nothing to read
    EXPECT_EQ(ResolveShaderGlslPath(at("absent.glslp")), "");
    EXPECT_EQ(ResolveGlslpFirstPass(at("absent.glslp")), "");
}

ShaderParameterSpec Param(float min, float max, float step, char const* name = "P", float def = 0) {
    return {name, "Label", def, min, max, step};
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
    ShaderDialogGeometry const g = BuildShaderDialogGeometry(3, 1.0f);
    // clang-format off
    std::tuple<ShaderParameterSpec, float, float> const cases[] = {
        {quarter, 0.3f, 0.25f}, {quarter, 0.375f, 0.5f}, {quarter, 2.0f, 1.0f}, {quarter, -1.0f, 0.0f},
        {Param(-1, 1, 0.5f), 0.2f, 0.0f}, {Param(0, 1, 0.4f), 1.0f, 1.0f}, {free, 0.123f, 0.123f},
        {Param(0, 1, 0.3f), 1.0f, 0.3f * 3.0f}, {free, 7.0f, 1.0f}, {Param(1, 3, 0.5f), 1.25f, 1.5f}};
    // Starting values: the first override of each name, clamped and snapped.
    auto const result = InitializeShaderDialogResult(
        {Param(0, 1, 0, "A"), Param(0, 1, 0.25f, "B"), Param(0, 10, 1, "C", 12), Param(0, 1, 0, "A")},
        {{"Z", 0.5f}, {"A", 5.0f}, {"B", 0.3f}, {"A", 0.1f}, {"a", 0.2f}});
    std::tuple<std::string, float> const starts[] = {{"A", 1.0f}, {"B", 0.25f}, {"C", 10.0f}, {"A", 1.0f}};
    // The pointer's x on a slider (360: 0.36 snaps down); its y and the scroll, and the row there.
    std::tuple<ShaderParameterSpec, int, float> const xs[] = {
        {quarter, -5000, 0.0f}, {quarter, 360, 0.25f}, {quarter, 535, 1.0f}, {quarter, 99999, 1.0f},
        {Param(-2, 2, 0), 315, -2.0f + 4.0f * 0.2f}, {Param(3, 3, 0.1f), 400, 3.0f}};
    int const rows[][3] = {{19, 0, -1}, {20, 0, 0}, {99, 0, 0}, {100, 0, 1}, {259, 0, 2}, {260, 0, -1},
                           {20, 30, 0}, {70, 30, 1}, {-10, 30, 0}, {-11, 30, -1}, {INT_MAX, INT_MAX, -1}};
    // clang-format on
    for (auto const& [param, in, want] : cases) {
        EXPECT_EQ(SnapToStep(param, in), want) << in << " step " << param.step;
    }
    EXPECT_FALSE(result.accepted);
    ASSERT_EQ(result.values.size(), 4u);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(std::tie(result.values[i].name, result.values[i].value), starts[i]) << i;
    }
    for (auto const& [param, x, want] : xs) {
        EXPECT_EQ(ShaderDialogValueFromMouse(param, g, x), want) << x;
    }
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
        EXPECT_EQ(std::tie(top.list_height, top.max_scroll), std::tie(c[2], c[3]));
        SDL_Rect const track{882, 36, 14, c[2]}, thumb{882, 36, 14, c[4] == 0 ? c[2] : c[4]};
        EXPECT_TRUE(SDL_RectEquals(&top.scrollbar_track, &track));
        EXPECT_TRUE(SDL_RectEquals(&top.scrollbar_thumb, &thumb));
        EXPECT_EQ(LayoutOf(c[0], 900, c[1], c[3]).scrollbar_thumb.y, 36 + c[2] - thumb.h);
    }
    ShaderDialogLayout const layout = LayoutOf(6, 900, 500, 44);
    SDL_Rect const cancel{708, 461, 78, 26}, apply{802, 461, 78, 26};
    EXPECT_TRUE(SDL_RectEquals(&layout.cancel_button, &cancel));
    EXPECT_TRUE(SDL_RectEquals(&layout.apply_button, &apply));
    EXPECT_EQ(layout.scrollbar_thumb.y, 36 + 36);            // 44 / 88 of 73, truncated
    ShaderDialogLayout const tiny = LayoutOf(6, 10, 0, 44);  // a list at least 1 high
    EXPECT_EQ(std::make_tuple(tiny.list_height, tiny.max_scroll, tiny.scrollbar_thumb.h),
              std::make_tuple(1, 499, 20));
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

void ExpectColors(ztest::Frame const& f, std::vector<std::tuple<int, int, SDL_Color>> const& p) {
    for (auto const& [x, y, color] : p) {
        EXPECT_TRUE(HasColor(f, x, y, color));
    }
}

// Whether anything but `background` was drawn inside the rectangle, as text would be.
bool HasInk(ztest::Frame const& f, SDL_Rect const& r, SDL_Color background) {
    int i = 0;
    while (i < r.w * r.h && HasColor(f, r.x + i % r.w, r.y + i / r.w, background)) {
        ++i;
    }
    return i < r.w * r.h;
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
    ShaderDialogResult Run(std::vector<Script::Step> const& steps) {
        ztest::Faults().skip_delays = true;
        Script script;
        for (std::size_t i = 0; i < steps.size(); ++i) {
            script.At(2 + static_cast<int>(i), steps[i]);
        }
        ShaderDialogResult result = ShowShaderParameterDialog(
            nullptr, shader_, 1.0f, [this](Values const& values) { applied_.push_back(values); },
            {});
        EXPECT_FALSE(script.timed_out());
        return result;
    }
    ztest::TempDir dir_;
    std::string const shader_ = dir_.Write("six.glsl", kSixParameters).string();
    std::vector<Values> applied_;
};

TEST_F(ShaderDialog, FrameAndWheelThatScrollsAndStepsTheRowUnderThePointer) {
    ztest::Frame f;
    ShaderDialogResult const result = Run({
        [&](Script& s) { f = s.Capture(), WheelAt(300, 140, 1)(s); },  // B (step 0) up 2 %
        WheelAt(300, 140, -1),  // scroll 40; now over row 2, C down one step
        WheelAt(300, 140, 3),   // scroll 0; B up again, one step for three notches
        WheelAt(300, 30, -1),   // header: nothing
        WheelAt(300, 460, -1),  // footer: nothing
        [](Script& s) { s.Leave(), s.Wheel(-1); },  // the pointer over another window: nothing
        WheelAt(300, 430, -5),                      // scroll 88; no row under the pointer
        [](Script& s) { s.Key(SDLK_RETURN); },
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
    // The first frame, 900 x 500: the header over row 0's clipped card; row 1 (Beta at 0.5): card
    // (12, 100, 858, 74), bar filled to 138, knob from 392; a thumb 339 high; the footer from 448.
    ASSERT_EQ(std::tie(f.width, f.height), std::make_tuple(900, 500));
    EXPECT_EQ(ztest::RecordedCalls("SDL_CreateRenderer").at(0).args.at(1), SDL_RENDERER_SOFTWARE);
    // clang-format off
    ExpectColors(f, {{880, 10, kHeader}, {100, 30, kHeader}, {100, 96, kClear}, {875, 120, kClear},
        {12, 120, kCardLine}, {869, 120, kCardLine}, {200, 173, kCardLine}, {200, 160, kCard},
        {391, 140, kFilled}, {392, 131, kKnob}, {403, 150, kKnob}, {404, 140, kBar}, {534, 140, kBarLine},
        {450, 134, kBarLine}, {882, 100, kThumbLine}, {888, 100, kThumb}, {888, 374, kThumbLine},
        {888, 400, kTrack}, {10, 448, kFooterLine}, {10, 480, kFooter}, {708, 470, kButtonLine},
        {805, 484, kButton}});
    // clang-format on
    EXPECT_TRUE(HasInk(f, {545, 104, 60, 14}, kCard));   // value
    EXPECT_TRUE(HasInk(f, {545, 119, 200, 14}, kCard));  // range
    EXPECT_FALSE(HasInk(f, {545, 145, 300, 25}, kCard));
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
                 s.Press(397, 140), s.Motion(700, 400);   // B at 137 / 275, out of its row
                 s.Release(700, 400, SDL_BUTTON_MIDDLE);  // no end of the drag
                 s.Motion(100, 30), s.Motion(329, 9999);  // B at 69 / 275
                 s.Release(329, 9999), s.Motion(535, 140);
             },
             [](Script& s) { s.Press(534, 220); },  // C at 274 / 275 of 10, snapped
             [](Script& s) { s.Release(710, 670); }});
    EXPECT_FALSE(result.accepted);  // released over Cancel
    EXPECT_TRUE(applied_.empty());
    EXPECT_FLOAT_EQ(result.values[0].value, 0.5f);
    EXPECT_FLOAT_EQ(result.values[1].value, 69.0f / 275.0f);
    EXPECT_FLOAT_EQ(result.values[2].value, 10.0f);
    // Scrolled by 43: row 1's card from 57, the thumb from 36 + 35.
    ExpectColors(dragged, {{200, 57, kCardLine}, {888, 70, kTrack}, {888, 71, kThumbLine}});
    ASSERT_EQ(std::tie(shorter.height, fits.height), std::make_tuple(560, 700));
    ExpectColors(
        shorter,
        {{200, 72, kCardLine}, {888, 62, kTrack}, {888, 63, kThumbLine}, {10, 508, kFooterLine}});
    ExpectColors(fits, {{200, 100, kCardLine}, {888, 300, kClear}});
}

TEST_F(ShaderDialog, ApplyAndLeaveGesturesAndTheirResults) {
    auto set_b = [](int x) { return [x](Script& s) { s.Click(x, 140); }; };
    auto key = [](SDL_Keycode sym) { return [sym](Script& s) { s.Key(sym); }; };
    // The buttons answer the release alone.
    Script::Step const apply = [](Script& s) { s.Press(100, 470), s.Release(840, 474); };
    Script::Step const cancel = [](Script& s) { s.Click(710, 470); };
    Script::Step const close = [](Script& s) { s.CloseWindow(); };
    Script::Step const quit = [](Script& s) { s.Quit(); };
    Script::Step const other_close = [](Script& s) {
        SDL_Event e{SDL_WINDOWEVENT};
        e.window.windowID = s.WindowId() + 1000, e.window.event = SDL_WINDOWEVENT_CLOSE;
        ztest::PushEvent(e);
    };
    // Steps, accepted, B at each Apply, B at the end.
    std::tuple<std::vector<Script::Step>, bool, std::vector<float>, float> const cases[] = {
        {{set_b(534), apply, close}, true, {274.0f / 275.0f}, 274.0f / 275.0f},
        {{key(SDLK_KP_ENTER), set_b(260), key(SDLK_RETURN), quit}, true, {0.5f, 0.0f}, 0.0f},
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
    // A file without parameters, then no font: the path, the box's flags and its text.
    std::tuple<std::string, long long, char const*> const cases[] = {
        {plain, SDL_MESSAGEBOX_INFORMATION,
         "No #pragma parameter lines were found in the selected shader file."},
        {shader_, SDL_MESSAGEBOX_ERROR, "Unable to load a font via SDL_ttf."}};
    for (auto const& [path, flags, text] : cases) {
        ztest::ResetRecorder();
        ztest::Faults().allow_font_path = [](std::string const&) { return false; };
        ShaderDialogResult const r =
            ShowShaderParameterDialog(parent, path, 1, nullptr, {{"C", 7}});
        EXPECT_FALSE(r.accepted);
        EXPECT_EQ(r.values.empty() ? -1.0f : r.values.at(2).value, path == shader_ ? 7.0f : -1.0f);
        auto const boxes = ztest::RecordedCalls("SDL_ShowSimpleMessageBox");
        ASSERT_EQ(boxes.size(), 1u) << path;
        EXPECT_EQ(std::tie(boxes[0].args[0], boxes[0].text, boxes[0].object),
                  std::make_tuple(flags, std::string("Shader Parameters\n") + text, parent));
        EXPECT_EQ(ztest::CountCalls("SDL_ShowWindow") + ztest::CountCalls("SDL_RaiseWindow"), 0);
        EXPECT_TRUE(path == shader_ || ztest::CountCalls("SDL_CreateWindow") == 0);
        EXPECT_EQ(ztest::CountLiveObjects().windows, 1);
    }
    SDL_DestroyWindow(parent);
}

}  // namespace
