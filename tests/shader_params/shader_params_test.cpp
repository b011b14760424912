// Shader parameters: the parsers' line rules, presets and first passes, the dialog's model,
// and the dialog run for real: wheel, scrolling, drags, Apply and key pixels.
#include "gui/shader_params.h"
#include "shader_params/shader_dialog_model.h"
#include "shader_params/shader_param_parsers.h"
#include "support/dialog_checks.h"
#include "support/dialog_script.h"
#include "support/temp_dir.h"
#include "support/test_display.h"
#include "zorvane/opengl.h"

#include <gtest/gtest.h>

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
        {"#pragma parameter A \"B\" 0.5x 0 1 0.1", ""},
        {"#pragma parameter A \"B\" -1.5e1 -2E1 +1e1 .5", "A [B] -15 -20 10 0.5;"},
        {"#pragmaparameter A \"B\" 0 0 1 0", "A [B] 0 0 1 0;"},
        {"#PRAGMA parameter A \"B\" 0 0 1 0.1", ""}};
    std::pair<char const*, char const*> const presets[] = {
        {"parameters = \"A;B\"\nA = 0.5\nB = \"1.5\"\nC = 2.0\n", "A=0.5;B=1.5;"},
        {"B = 1\nA = 2\nparameters = \"A;B\"\n", "B=1;A=2;"},  // value lines in front
        {"parameters = \"A;B\r\nA = 1\r\nB = 2\r\n", "B=2;"},  // no closing quote: "A
        {"A = 1\nB = 2\n", ""}, {"parameters_extra = A\nparameters = B\nA = 1\nB = 2\n", "A=1;"},
        {"parameters = \"A;B;C\"\nA = abc\nB = 1.5abc\nC = \"1.5\" # note\n", "B=1.5;"},
        {"parameters = A\na = 1\n\t A \t= 4\n", "A=4;"}};
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
    std::string const upper = dir.Write("X.GLSLP", "shader0 = x.glsl\n");
    dir.Write("x.glsl", "parameters = A\nA = 1\n#pragma parameter A \"B\" 0 0 1 0.1\n");
    EXPECT_EQ(Describe(ParseShaderParameterSpecs(upper)), "A [B] 0 0 1 0.1;");
    EXPECT_TRUE(ParseGlslpParameterOverrides(at("x.glsl")).empty());  // a shader is no preset
    for (std::string const& path :
         {std::string(), dir.path().string(), at("absent.glsl"), DataPath("missing_pass.glslp")}) {
        EXPECT_TRUE(ParseShaderParameterSpecs(path).empty()) << path;
    }
    EXPECT_EQ(ResolveShaderGlslPath(at("absent.glslp")) + ResolveGlslpFirstPass(at("absent.glslp")),
              "");

    // The OpenGL stand-in: the first pass's path relative to the temporary folder ("" for none).
    // clang-format off
    std::pair<std::string, std::string> const cases[] = {
        {"shaders = \"2\"\r\n  shader0   =  \"sub dir/crt.glsl\" \r\n", "presets/sub dir/crt.glsl"},
        {"# shader0 = wrong.glsl\nshader0 = ../a.glsl\nshader0 = b.glsl\n", "presets/../a.glsl"},
        {"shaders = 0\nshader0 = crt.glsl\n", ""}};
    // clang-format on
    for (auto const& [text, want] : cases) {
        std::string const preset = dir.Write("presets/p.glslp", text).string();
        EXPECT_EQ(ResolveGlslpFirstPass(preset), want.empty() ? want : at(want)) << text;
    }
}

ShaderParameterSpec Param(float min, float max, float step, char const* name = "P", float def = 0) {
    return {name, "Label", def, min, max, step};
}

TEST(ShaderDialogModel, SnappingStartValuesPointerMappingAndGeometry) {
    ShaderParameterSpec const quarter = Param(0, 1, 0.25f);
    ShaderDialogGeometry const g = BuildShaderDialogGeometry(3, 1.0f);
    // clang-format off
    std::tuple<ShaderParameterSpec, float, float> const snaps[] = {
        {quarter, 0.3f, 0.25f}, {quarter, 0.375f, 0.5f}, {quarter, 2.0f, 1.0f},
        {quarter, -1.0f, 0.0f}, {Param(0, 1, 0.4f), 1.0f, 1.0f}, {Param(0, 1, 0), 0.123f, 0.123f},
        {Param(0, 1, 0.3f), 1.0f, 0.3f * 3}, {Param(1, 3, 0.5f), 1.25f, 1.5f}};
    // The pointer's x on a slider (360: 0.36 snaps down); its y and the scroll, and the row there.
    std::tuple<ShaderParameterSpec, int, float> const xs[] = {
        {quarter, -5000, 0.0f}, {quarter, 360, 0.25f}, {Param(-2, 2, 0), 315, -2.0f + 4.0f * 0.2f},
        {Param(3, 3, 0.1f), 400, 3.0f}};
    int const rows[][3] = {{19, 0, -1}, {20, 0, 0}, {99, 0, 0}, {100, 0, 1}, {260, 0, -1},
                           {-10, 30, 0}};
    // Rows, opening height, list height, max scroll, thumb height (0: thumb = track).
    int const sizes[][5] = {{2, 280, 192, 0, 0}, {3, 330, 242, 18, 225},
                            {1000, 500, 412, 79608, 20}};
    // clang-format on
    for (auto const& [param, in, want] : snaps) {
        EXPECT_EQ(SnapToStep(param, in), want) << in << " step " << param.step;
    }
    // Starting values: the first override of each name, clamped and snapped.
    EXPECT_EQ(Describe(InitializeShaderDialogResult(
                           {Param(0, 1, 0, "A"), Param(0, 1, 0.25f, "B"), Param(0, 10, 1, "C", 12)},
                           {{"Z", 0.5f}, {"A", 5.0f}, {"B", 0.3f}, {"A", 0.1f}, {"a", 0.2f}})
                           .values),
              "A=1;B=0.25;C=10;");
    for (auto const& [param, x, want] : xs) {
        EXPECT_EQ(ShaderDialogValueFromMouse(param, g, x), want) << x;
    }
    for (auto const& r : rows) {
        EXPECT_EQ(FindShaderDialogParamAtY(g, r[0], r[1], 3), r[2]) << r[0] << " at " << r[1];
    }
    for (auto const& c : sizes) {
        ShaderDialogGeometry const geometry = BuildShaderDialogGeometry(c[0], 1.0f);
        std::vector<ShaderParameterSpec> const params(c[0], quarter);
        ShaderDialogSession session;
        session.specs = &params;
        session.geometry = &geometry;
        ShaderDialogLayout const top = BuildShaderDialogLayout(session, 900, c[1]);
        EXPECT_EQ(std::make_tuple(geometry.window_height, top.list_height, top.max_scroll,
                                  top.scrollbar_thumb.h),
                  std::make_tuple(c[1], c[2], c[3], c[4] == 0 ? c[2] : c[4]))
            << c[0] << " parameters";
    }
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

constexpr SDL_Color kClear{18, 20, 26, 255}, kCardLine{58, 64, 74, 255}, kBar{52, 56, 64, 255},
    kFilled{106, 156, 255, 255}, kKnob{126, 176, 255, 255}, kTrack{30, 33, 40, 255},
    kThumb{72, 80, 94, 255}, kThumbLine{96, 108, 128, 255}, kFooterLine{60, 66, 78, 255};

void ExpectColors(ztest::Frame const& f, std::vector<std::tuple<int, int, SDL_Color>> const& p) {
    for (auto const& [x, y, color] : p) {
        EXPECT_TRUE(HasColor(f, x, y, color));
    }
}

// The step of a wheel turn with the pointer at (x, y).
Script::Step WheelAt(int x, int y, int notches) {
    return [=](Script& s) { s.Hover(x, y), s.Wheel(notches); };
}

class ShaderDialog : public ztest::DialogTest {
protected:
    // Runs the dialog on the six rows with the script's steps one frame apart.
    ShaderDialogResult Run(std::vector<Script::Step> const& steps) {
        ztest::Faults().skip_delays = true;
        applied_.clear();
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

TEST_F(ShaderDialog, WheelScrollsOrStepsTheRowUnderThePointerAndDragsHoldOutsideTheirRow) {
    ztest::Frame f;
    ShaderDialogResult const result = Run({
        [&](Script& s) { f = s.Capture(), WheelAt(300, 140, 1)(s); },  // B (stepless) up 2 %
        WheelAt(300, 140, -1),  // scroll 40; now over row 2, C down one step
        WheelAt(300, 140, 3),   // scroll 0; B up again, one step for three notches
        WheelAt(300, 30, -1),   // header: nothing
        [](Script& s) { s.Leave(), s.Wheel(-1); },  // the pointer over another window: nothing
        WheelAt(300, 430, -5),                      // scroll 88; no row under the pointer
        [](Script& s) { s.Key(SDLK_RETURN); },
        WheelAt(300, 430, 1),  // scroll 48; row 5, F up one step
        [](Script& s) { s.Key(SDLK_ESCAPE); },
    });
    ASSERT_EQ(applied_.size(), 1u);
    EXPECT_EQ(Describe(applied_[0]), "A=0.5;B=0.54;C=1;D=0;E=1;F=3;");
    EXPECT_EQ(Describe(result.values), "A=0.5;B=0.54;C=1;D=0;E=1;F=4;");
    // The first frame: row 1 (Beta at 0.5) has its card from (12, 100), its bar filled to
    // 138 and its knob from 392; a thumb 339 high; the footer from 448.
    ASSERT_EQ(std::tie(f.width, f.height), std::make_tuple(900, 500));
    // clang-format off
    ExpectColors(f, {{100, 96, kClear}, {12, 120, kCardLine}, {391, 140, kFilled},
        {392, 131, kKnob}, {404, 140, kBar}, {882, 100, kThumbLine}, {888, 374, kThumbLine},
        {888, 400, kTrack}, {10, 448, kFooterLine}});
    // clang-format on

    // Drags of the thumb and of a slider hold outside their row and end on the left release.
    ztest::Frame dragged;
    ShaderDialogResult const dropped =
        Run({[](Script& s) { s.Press(889, 300), s.Motion(889, 336); },  // no jump; 36 / 73 of 88
             [&](Script& s) {
                 dragged = s.Capture();
                 s.Motion(889, 2000), s.Motion(889, 0);  // to the top
                 s.Release(889, 0), s.Motion(889, 420);
             },
             [](Script& s) {  // scrolled to the top again: row 1 from 100
                 s.Press(397, 140), s.Motion(700, 400);   // B at 137 / 275, out of its row
                 s.Release(700, 400, SDL_BUTTON_MIDDLE);  // no end of the drag
                 s.Motion(100, 30), s.Motion(329, 9999);  // B at 69 / 275
                 s.Release(329, 9999), s.Motion(535, 140);
             },
             [](Script& s) { s.Press(534, 220); },  // C at 274 / 275 of 10, snapped
             [](Script& s) { s.Release(710, 470); }});
    EXPECT_FALSE(dropped.accepted);  // released over Cancel
    EXPECT_TRUE(applied_.empty());
    EXPECT_EQ(Describe(dropped.values), "A=0.5;B=0.250909;C=10;D=0;E=1;F=3;");
    // Scrolled by 43: row 1's card from 57, the thumb from 36 + 35.
    ExpectColors(dragged, {{200, 57, kCardLine}, {888, 70, kTrack}, {888, 71, kThumbLine}});
}

TEST_F(ShaderDialog, ApplyHandsOverTheValuesAndOnlyCancelWithdrawsIt) {
    auto set_b = [](int x) { return [x](Script& s) { s.Click(x, 140); }; };
    auto key = [](SDL_Keycode sym) { return [sym](Script& s) { s.Key(sym); }; };
    // The buttons answer the release alone.
    Script::Step const apply = [](Script& s) { s.Press(100, 470), s.Release(840, 474); };
    Script::Step const cancel = [](Script& s) { s.Click(710, 470); };
    Script::Step const close = [](Script& s) { s.CloseWindow(); };
    Script::Step const quit = [](Script& s) { s.Quit(); };
    // Steps, and "accepted" when it is, B at each Apply, "/" and B at the end: a close or a
    // quit keeps an Apply, Cancel and Escape not.
    std::pair<std::vector<Script::Step>, char const*> const cases[] = {
        {{set_b(534), apply, close}, "accepted 0.996364 / 0.996364"},
        {{key(SDLK_KP_ENTER), set_b(260), key(SDLK_RETURN), quit}, "accepted 0.5 0 / 0"},
        {{apply, cancel}, "0.5 / 0.5"},
        {{apply, set_b(260), key(SDLK_ESCAPE)}, "0.5 / 0"}};
    for (auto const& [steps, want] : cases) {
        ShaderDialogResult const result = Run(steps);
        std::ostringstream got;
        got << (result.accepted ? "accepted " : "");
        for (Values const& values : applied_) {
            got << values.at(1).value << " ";
        }
        got << "/ " << result.values.at(1).value;
        EXPECT_EQ(got.str(), want);
    }
}

TEST_F(ShaderDialog, AShaderWithoutParametersShowsABoxInstead) {
    ShowShaderParameterDialog(nullptr, dir_.Write("plain", "void main() {}\n").string(), 1, {}, {});
    auto const boxes = ztest::RecordedCalls("SDL_ShowSimpleMessageBox");
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].args.at(0), SDL_MESSAGEBOX_INFORMATION);
    EXPECT_EQ(boxes[0].text,
              "Shader Parameters\nNo #pragma parameter lines were found in the "
              "selected shader file.");
    EXPECT_EQ(ztest::CountCalls("SDL_CreateWindow"), 0);
}

}  // namespace
