// The two shader parameter parsers and the OpenGL stand-in's preset reader: lines as
// people write them, whole files, presets, first passes and unreadable paths.
#include "shader_params/shader_param_parsers.h"
#include "gui/shader_params.h"
#include "support/temp_dir.h"
#include "zorvane/opengl.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

namespace {

using namespace zorvane::frontend::gui;

std::string DataPath(std::string const& name) {
    char const* root = std::getenv("ZORVANE_TEST_DATA");
    return std::string(root != nullptr ? root : "tests/data") + "/shader_params/" + name;
}

// Every field of every record on one line, so that a table row compares in one go.
std::string Describe(std::vector<ShaderParameterSpec> const& records) {
    std::ostringstream text;
    for (ShaderParameterSpec const& s : records) {
        text << s.name << " [" << s.label << "] " << s.default_value << " " << s.min_value << " "
             << s.max_value << " " << s.step << ";";
    }
    return text.str();
}

std::string Describe(std::vector<ShaderParameterValue> const& values) {
    std::ostringstream text;
    for (ShaderParameterValue const& v : values) {
        text << v.name << "=" << v.value << ";";
    }
    return text.str();
}

TEST(ShaderParameterParsers, DeclarationAndPresetLinesAsWritten) {
    std::pair<char const*, char const*> const cases[] = {
        {" \t #pragma parameter GAMMA \"Gamma\" 2.2 1.0 3.0 0.05\r", "GAMMA [Gamma] 2.2 1 3 0.05;"},
        {"#pragma parameter\tG\t\"G\"\t2\t1\t3\t0.5\t// wider near 2", "G [G] 2 1 3 0.5;"},
        {"#pragma parameter GAMMA \"Gamma\" 2.2 1.0 3.0", ""},
        {"#pragma parameter A \"B\" 0.5 1.0 0.0 0.1", "A [B] 0.5 0 1 0.1;"},
        {"#pragma parameter A \"B\" 0.5 0 1 -1", "A [B] 0.5 0 1 0;"},
        {"#pragma parameter A \"B\" 2.0 0.0 1.0 0.1", "A [B] 2 0 1 0.1;"},
        {"#pragma parameter A \"\" 0 0 1 0.1", ""},
        {"#pragma parameter A \"B 0 0 1 0.1", ""},
        {"#pragma parameter A 0 0 1 0.1", ""},
        {"#pragma parameter A", ""},
        {"#pragma parameter   ", ""},
        {"#pragma parameter A\"B\" 0 0 1 0.1", ""},
        {"#pragma parameter A\"B\" \"C\" 0 0 1 0.1", "A\"B\" [C] 0 0 1 0.1;"},
        {"#pragma parameter A x=\"L\" 0 0 1 0.1", "A [L] 0 0 1 0.1;"},
        {"#pragma parameter A \" Mask: 50%, (dark)! \" 0 0 1 0",
         "A [ Mask: 50%, (dark)! ] 0 0 1 0;"},
        {"#pragma parameter A \"B\" 0.5x 0 1 0.1", ""},
        {"#pragma parameter A \"B\" 0.5 0 1 0.1x 7", "A [B] 0.5 0 1 0.1;"},
        {"#pragma parameter A \"B\" -1.5e1 -2E1 +1e1 .5", "A [B] -15 -20 10 0.5;"},
        {"#pragma parameter A \"B\" inf 0 1 0.1", ""},
        {"#pragma parameter A \"B\" 0 0 0x10 0.1", ""},
        {"#pragma parameter A \"B\" 1e39 0 1 0.1", ""},
        {"#pragmaparameter A \"B\" 0 0 1 0", "A [B] 0 0 1 0;"},
        {"#pragma x parameter A \"B\" 0 0 1 0", "A [B] 0 0 1 0;"},
        {"#pragma parameters A \"B\" 0 0 1 0", "s [B] 0 0 1 0;"},
        {"#PRAGMA parameter A \"B\" 0 0 1 0.1", ""},
        {"// #pragma parameter A \"B\" 0 0 1 0.1", ""},
        {"#pragma parameter \xC3\xA9 \"\xC3\x89 \xFF\" 0 0 1 0",
         "\xC3\xA9 [\xC3\x89 \xFF] 0 0 1 0;"},
    };
    for (auto const& [line, want] : cases) {
        EXPECT_EQ(Describe(ParseShaderParameterSpecsFromText(line)), want) << line;
    }
    std::pair<char const*, char const*> const presets[] = {
        {"parameters = \"A;B\"\nA = 0.5\nB = \"1.5\"\nC = 2.0\n", "A=0.5;B=1.5;"},
        {"B = 1\nA = 2\nparameters = \"A;B\"\n", "B=1;A=2;"},  // value lines in front
        {"parameters = A ; B ;\nA=1\nB=2", "A=1;B=2;"},
        {"parameters = \"A;B\r\nA = 1\r\nB = 2\r\n", "B=2;"},  // no closing quote: "A
        {"parameters = \"\"\nA = 1\n", ""},
        {"parameters = ; ;;\nA = 1\n", ""},
        {"A = 1\nB = 2\n", ""},
        {"parameters\nparameters extra\nparameters = A\nA = 3\n", "A=3;"},
        {"parameters_extra = A\nparameters = B\nA = 1\nB = 2\n", "A=1;"},
        {"parameters = \"A;B;C;D;E;F\"\nA = abc\nB = \"\"\nC = 1.5abc\nD = 1e999\n"
         "E = \"1.5\" # note\nF = \"",
         "C=1.5;"},
        {"parameters = A;B;C\nA = 0x10\nB = -inf\nC =   \" 2.5\"", "A=16;B=-inf;C=2.5;"},
        {"parameters = A\na = 1\n\t A \t= 4\n=5\nA = 4\n", "A=4;A=4;"},
        {"parameters = \"A B, C\"\nA B, C = 7\nA = 1\n", "A B, C=7;"},
        {"parameters = 2;parameters\n", "parameters=2;"},
    };
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
    auto const at = [&](char const* name) { return (dir.path() / name).string(); };
    char const* const param = "#pragma parameter A \"B\" 0 0 1 0.1\n";
    std::string const upper = dir.Write("X.GLSLP", "shader0 = x.glsl\nparameters = A\nA = 1\n");
    dir.Write("x.glsl", std::string("parameters = A\nA = 1\n") + param);
    dir.Write("preset_as_shader.glslp", param);  // a preset is never read as a shader
    EXPECT_EQ(Describe(ParseGlslpParameterOverrides(upper)), "A=1;");
    EXPECT_EQ(Describe(ParseShaderParameterSpecs(upper)), "A [B] 0 0 1 0.1;");
    EXPECT_EQ(Describe(ParseShaderParameterSpecs(at("x.glsl"))), "A [B] 0 0 1 0.1;");
    EXPECT_EQ(ResolveShaderGlslPath(upper), at("x.glsl"));
    EXPECT_EQ(ResolveShaderGlslPath("no/such/dir/shader.glsl"), "no/such/dir/shader.glsl");
    EXPECT_TRUE(ParseGlslpParameterOverrides(at("x.glsl")).empty());
    for (std::string const& path : {std::string(), dir.path().string(), at("absent.glsl"),
                                    DataPath("missing_pass.glslp"), at("preset_as_shader.glslp")}) {
        EXPECT_TRUE(ParseShaderParameterSpecs(path).empty()) << path;
    }

    // The OpenGL stand-in: which shader a preset's first pass names.
    std::string const absolute = (dir.path() / "elsewhere" / "crt.glsl").string();
    // Preset text, and the first pass's path relative to the temporary folder ("" for none).
    std::pair<std::string, std::string> const cases[] = {
        {"shaders = 1\nshader0 = crt.glsl\n", "presets/crt.glsl"},
        {"shaders = \"2\"\r\n  shader0   =  \"sub dir/crt.glsl\" \r\nshader1 = b.glsl\r\n",
         "presets/sub dir/crt.glsl"},
        {"shader0=../shaders/crt.glsl", "presets/../shaders/crt.glsl"},
        {"# shader0 = wrong.glsl\nshader0 = a.glsl\nshader0 = b.glsl\n", "presets/a.glsl"},
        {"shader0 = " + absolute, "elsewhere/crt.glsl"},
        {"shaders = 1\nshader1 = crt.glsl\n", ""},
        {"shaders = 1\nshader0 = \"\"\n", ""},
        {"shader0 =   \n", ""},
        {"shaders = 0\nshader0 = crt.glsl\n", ""},
        {"", ""},
    };
    for (auto const& [text, want] : cases) {
        std::string const preset = dir.Write("presets/p.glslp", text).string();
        EXPECT_EQ(zorvane::opengl::ResolveGlslpFirstPass(preset),
                  want.empty() ? "" : (dir.path() / want).string())
            << text;
    }
    EXPECT_EQ(zorvane::opengl::ResolveGlslpFirstPass(dir.path().string()), "");
    for (std::string const& path : {at("absent.glslp"), std::string()}) {  // nothing to read
        EXPECT_TRUE(ParseGlslpParameterOverrides(path).empty()) << path;
        EXPECT_EQ(ResolveShaderGlslPath(path), "") << path;
        EXPECT_EQ(zorvane::opengl::ResolveGlslpFirstPass(path), "") << path;
    }
}

}  // namespace
