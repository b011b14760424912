// Shader parameters: the parsers' line rules, presets and first passes, and the dialog's
// model.
#include "shader_params/shader_dialog_model.h"
#include "shader_params/shader_param_parsers.h"
#include "support/records.h"
#include "support/temp_dir.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

namespace {

using namespace zorvane::frontend::gui;

using ztest::Describe;

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
        (std::filesystem::path(__FILE__).parent_path() / "../data/shader_params").string();
    // Tabs, CR LF, comments, a line without a step, a last line without a line feed.
    EXPECT_EQ(Describe(ParseShaderParameterSpecs(data + "/crt_soft.glslp")),
              "CURVATURE [Screen curvature] 0.08 0 0.25 0.01;"
              "SCANLINE_WEIGHT [Scanline weight (dark -> bright)] 6 0.5 12 0.5;"
              "MASK_DARK [Mask: dark, 0 = off] 0.5 0 1 0.05;IN_BLOCK [Inside a block comment] "
              "1 0 2 0.1;GAMMA_OUT [Output gamma] 2.2 1 3 0;");
    EXPECT_EQ(Describe(ParseGlslpParameterOverrides(data + "/crt_soft.glslp")),
              "CURVATURE=0.12;SCANLINE_WEIGHT=8.5;MASK_DARK=0.35;CURVATURE=0.2;");
    ztest::TempDir dir;
    auto const at = [&](std::string const& name) { return (dir.path() / name).generic_string(); };
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

}  // namespace
