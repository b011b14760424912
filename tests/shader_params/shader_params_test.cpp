// Shader parameters: the parsers' line rules, presets and first passes, the dialog's model,
// and the dialog run for real: wheel, drags, Apply, the ways out and key pixels.
#include "shader_params/shader_dialog_model.h"
#include "shader_params/shader_param_parsers.h"
#include "support/dialog_checks.h"
#include "support/dialog_script.h"
#include "support/temp_dir.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

#include <sstream>
#include <type_traits>

namespace {

using namespace zorvane::frontend::gui;
using Script = ztest::DialogScript;

// Specs as "name [label] default min max step;", values as "name=value;".
template <typename Record>
std::string Describe(std::vector<Record> const& records) {
    std::ostringstream text;
    for (Record const& r : records) {
        if constexpr (std::is_same_v<Record, ShaderParameterSpec>) {
            text << r.name << " [" << r.label << "] " << r.default_value << " " << r.min_value
                 << " " << r.max_value << " " << r.step << ";";
        } else {
            text << r.name << "=" << r.value << ";";
        }
    }
    return text.str();
}

TEST(ShaderParameterParsers, DeclarationAndPresetLinesAsWritten) {
    // clang-format off
    std::pair<char const*, char const*> const cases[] = {
        {"#pragma parameter\tG\t\"G\"\t2\t1\t3\t0.5\t// wider near 2", "G [G] 2 1 3 0.5;"},
        {"#pragma parameter A \"B\" 2 0 1 -1", "A [B] 2 0 1 0;"},
        {"#pragma parameter A \"\" 0 0 1 0", ""}, {"#pragma parameter A \"B 0 0 1 0", ""},
        {"#pragma parameter A \"B\" 0.5x 0 1 0", ""}, {"#PRAGMA parameter A \"B\" 0 0 1 0", ""},
        {"#pragma parameter A x=\"L\" 0 0 1 0", "A [L] 0 0 1 0;"},
        {"#pragma parameter A \"B\" -1.5e1 -2E1 +1e1 .5", "A [B] -15 -20 10 0.5;"},
        {"#pragmaparameter A \"B\" 0 0 1 0", "A [B] 0 0 1 0;"}};
    std::pair<char const*, char const*> const presets[] = {
        {"B = 1\nA = 0.5\nparameters = \"A;B\"\nB = \"1.5\"\nC = 2.0\n", "B=1;A=0.5;B=1.5;"},
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

TEST(ShaderParameterParsers, PresetsStandForTheirFirstPassAndUnreadablePathsGiveNothing) {
    std::string const data =
        std::filesystem::path(__FILE__).parent_path() / "../data/shader_params";
    // Tabs, CR LF, comments, a line without a step, a last line without a line feed.
    EXPECT_EQ(Describe(ParseShaderParameterSpecs(data + "/crt_soft.glslp")),
              "CURVATURE [Screen curvature] 0.08 0 0.25 0.01;"
              "SCANLINE_WEIGHT [Scanline weight (dark -> bright)] 6 0.5 12 0.5;"
              "MASK_DARK [Mask: dark, 0 = off] 0.5 0 1 0.05;IN_BLOCK [Inside a block comment] "
              "1 0 2 0.1;GAMMA_OUT [Output gamma] 2.2 1 3 0;");
    EXPECT_EQ(Describe(ParseGlslpParameterOverrides(data + "/crt_soft.glslp")),
              "CURVATURE=0.12;SCANLINE_WEIGHT=8.5;MASK_DARK=0.35;CURVATURE=0.2;");
    ztest::TempDir dir;
    auto const at = [&](std::string const& name) { return (dir.path() / name).string(); };
    // clang-format off
    std::pair<std::string, std::string> const passes[] = {  // relative to the folder; "": none
        {"shaders = \"2\"\r\n  shader0   =  \"sub dir/crt.glsl\" \r\n", "presets/sub dir/crt.glsl"},
        {"# shader0 = wrong.glsl\nshader0 = ../a.glsl\nshader0 = b.glsl\n", "presets/../a.glsl"},
        {"shaders = 0\nshader0 = crt.glsl\n", ""}};
    // clang-format on
    for (auto const& [text, want] : passes) {  // no pass is there: no parameters either
        std::string const preset = dir.Write("presets/p.glslp", text).string();
        EXPECT_EQ(ResolveShaderGlslPath(preset) + Describe(ParseShaderParameterSpecs(preset)),
                  want.empty() ? want : at(want));
    }
    for (std::string const& path :
         {std::string(), dir.path().string(), at("absent.glsl"), at("absent.glslp")}) {
        EXPECT_EQ(Describe(ParseShaderParameterSpecs(path)), "") << path;
    }
}

TEST(ShaderDialogModel, SnappingPointerMappingRowsAndGeometry) {
    auto const Param = [](float min, float max, float step) {
        return ShaderParameterSpec{"P", "Label", 0, min, max, step};
    };
    ShaderDialogGeometry const g = BuildShaderDialogGeometry(3, 1.0f);
    // clang-format off
    // Min, max, step, a value and its snapped value; then the pointer's x on a slider and
    // its value (360: 0.36 snaps down); the pointer's y, the scroll, and the row there.
    float const snaps[][5] = {{0, 1, .25f, .3f, .25f}, {0, 1, .25f, .375f, .5f},
                              {0, 1, .25f, -1, 0}, {0, 1, 0, .123f, .123f},
                              {0, 1, .3f, 1, .3f * 3}, {1, 3, .5f, 1.25f, 1.5f}};
    float const xs[][5] = {{0, 1, .25f, -5000, 0}, {0, 1, .25f, 360, .25f},
                           {-2, 2, 0, 315, -2 + 4 * .2f}, {3, 3, .1f, 400, 3}};
    int const rows[][3] = {{19, 0, -1}, {20, 0, 0}, {100, 0, 1}, {260, 0, -1}, {-10, 30, 0}};
    // Rows, opening height, list height, max scroll, thumb height.
    std::vector<int> const sizes[] = {{2, 280, 192, 0, 192}, {3, 330, 242, 18, 225},
                                      {1000, 500, 412, 79608, 20}};
    // clang-format on
    for (auto const& c : snaps) {
        EXPECT_EQ(SnapToStep(Param(c[0], c[1], c[2]), c[3]), c[4]) << c[3] << " step " << c[2];
    }
    for (auto const& c : xs) {
        EXPECT_EQ(ShaderDialogValueFromMouse(Param(c[0], c[1], c[2]), g, int(c[3])), c[4]) << c[3];
    }
    for (auto const& r : rows) {
        EXPECT_EQ(FindShaderDialogParamAtY(g, r[0], r[1], 3), r[2]) << r[0] << " at " << r[1];
    }
    for (auto const& c : sizes) {
        ShaderDialogGeometry const geo = BuildShaderDialogGeometry(c[0], 1.0f);
        std::vector<ShaderParameterSpec> const params(c[0], Param(0, 1, 0.25f));
        ShaderDialogSession const session{nullptr, nullptr, nullptr, nullptr,
                                          nullptr, &params, &geo};
        ShaderDialogLayout const t = BuildShaderDialogLayout(session, 900, c[1]);
        EXPECT_EQ((std::vector<int>{c[0], geo.window_height, t.list_height, t.max_scroll,
                                    t.scrollbar_thumb.h}),
                  c);
    }
}

class ShaderDialog : public ztest::DialogTest {};

// Six rows open a 900 x 500 window with 88 pixels to scroll. Row r's top lies at
// 20 + 80 r - scroll, its slider bar at (260, top + 34, 275, 13); a wheel notch scrolls 40.
TEST_F(ShaderDialog, WheelAndDragsSetValuesApplyHandsThemOverAndOnlyCancelOrEscapeWithdrawIt) {
    ztest::TempDir dir;
    std::string text;
    for (std::string d : {"A 0.5 0 1 0.25", "B 0.5 0 1 0", "C 2 0 10 1", "D 0 -1 1 0.5",
                          "E 1 0 2 0.1", "F 3 0 4 1"}) {
        text += "#pragma parameter " + d.replace(1, 0, " \"" + d.substr(0, 1) + "\"") + "\n";
    }
    // Closing the window and a quit keep the Apply; Cancel and Escape withdraw it.
    Script::Step const ends[] = {[](Script& s) { s.CloseWindow(); }, [](Script& s) { s.Quit(); },
                                 [](Script& s) { s.Click(710, 470); },
                                 [](Script& s) { s.Key(SDLK_ESCAPE); }};
    for (int end = 0; end < 4; ++end) {
        ztest::ResetRecorder();
        ztest::Faults().skip_delays = true;
        std::vector<std::vector<ShaderParameterValue>> applied;
        ztest::Frame f;
        Script script;
        script
            .At(2, [&](Script& s) { f = s.Capture(), s.Hover(300, 60), s.Wheel(1); })  // A +0.25
            .Then([](Script& s) { s.Hover(300, 140), s.Wheel(-1); })  // scrolled 40: C (row 2) -1
            .Then([](Script& s) { s.Press(889, 300), s.Motion(889, 0), s.Release(889, 0); })
            .Then([](Script& s) { s.Press(397, 140), s.Motion(329, 9999), s.Release(329, 9999); })
            .Then([](Script& s) { s.Press(100, 470), s.Release(840, 474); })  // Apply on release
            .Then([](Script& s) { s.Hover(300, 140), s.Wheel(1); })           // B +2 %, not applied
            .Then(ends[end]);
        ShaderDialogResult const result = ShowShaderParameterDialog(
            nullptr, dir.Write("six.glsl", text).string(), 1.0f,
            [&](auto const& values) { applied.push_back(values); },
            {{"Z", 1}, {"F", 9}, {"E", 0.33f}, {"F", 1}});  // the first of each, clamped, snapped
        EXPECT_FALSE(script.timed_out());
        ASSERT_EQ(applied.size(), 1u);
        EXPECT_EQ(Describe(applied[0]), "A=0.75;B=0.250909;C=1;D=0;E=0.3;F=4;");
        EXPECT_EQ(Describe(result.values), "A=0.75;B=0.270909;C=1;D=0;E=0.3;F=4;");
        EXPECT_EQ(result.accepted, end < 2);
        // Beta at 0.5 fills its bar to 391, the rest is bare; the thumb is 339 high.
        ASSERT_EQ(std::tie(f.width, f.height), std::make_tuple(900, 500));
        EXPECT_TRUE(ztest::HasColor(f, 391, 140, {106, 156, 255, 255}));
        EXPECT_TRUE(ztest::HasColor(f, 404, 140, {52, 56, 64, 255}));
        EXPECT_TRUE(ztest::HasColor(f, 888, 400, {30, 33, 40, 255}));
    }
    ztest::ResetRecorder();  // a shader without parameters: a box and no window
    ShowShaderParameterDialog(nullptr, dir.Write("plain", "void main() {}\n").string(), 1, {}, {});
    EXPECT_EQ(ztest::CountCalls("SDL_ShowSimpleMessageBox"), 1);
    EXPECT_EQ(ztest::CountCalls("SDL_CreateWindow"), 0);
}

}  // namespace
