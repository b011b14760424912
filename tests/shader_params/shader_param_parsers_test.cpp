// The two shader parameter parsers: declaration lines and preset value lines as
// people write them, and whole files, presets and unreadable paths.
#include "gui/shader_params.h"

#include "shader_params/shader_param_parsers.h"
#include "support/temp_dir.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace zorvane::frontend::gui;

std::string DataPath(std::string const& name) {
    char const* root = std::getenv("ZORVANE_TEST_DATA");
    return std::string(root != nullptr ? root : "tests/data") + "/shader_params/" + name;
}

// Every field of every record on one line, so that a table row compares in one go.
std::string Describe(std::vector<ShaderParameterSpec> const& specs) {
    std::ostringstream text;
    for (ShaderParameterSpec const& s : specs) {
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

TEST(ShaderParameterSpecs, DeclarationLinesAsWritten) {
    std::pair<char const*, char const*> const cases[] = {
        {"#pragma parameter GAMMA \"Gamma\" 2.2 1.0 3.0 0.05", "GAMMA [Gamma] 2.2 1 3 0.05;"},
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
}

TEST(ShaderParameterSpecs, ShaderFileAndItsPreset) {
    // Tabs, CR LF, trailing comments, a line without a step and one behind "//" left
    // out, one inside a block comment kept, and a last line without a line feed.
    char const* const want =
        "CURVATURE [Screen curvature] 0.08 0 0.25 0.01;"
        "SCANLINE_WEIGHT [Scanline weight (dark -> bright)] 6 0.5 12 0.5;"
        "MASK_DARK [Mask: dark, 0 = off] 0.5 0 1 0.05;"
        "IN_BLOCK [Inside a block comment] 1 0 2 0.1;"
        "GAMMA_OUT [Output gamma] 2.2 1 3 0;";
    for (char const* name : {"crt_soft.glsl", "crt_soft.glslp"}) {
        EXPECT_EQ(Describe(ParseShaderParameterSpecs(DataPath(name))), want) << name;
    }
}

TEST(ShaderParameterSpecs, UnreadablePathsGiveNothing) {
    ztest::TempDir dir;
    dir.Write("upper/SHOUT.GLSLP", "shader0 = ../real.glsl\n");
    dir.Write("real.glsl", "#pragma parameter A \"B\" 0 0 1 0.1\n");
    dir.Write("preset_as_shader.glslp", "#pragma parameter A \"B\" 0 0 1 0.1\n");
    EXPECT_EQ(ParseShaderParameterSpecs((dir.path() / "upper/SHOUT.GLSLP").string()).size(), 1u);
    EXPECT_EQ(ParseShaderParameterSpecs((dir.path() / "real.glsl").string()).size(), 1u);
    EXPECT_TRUE(ParseShaderParameterSpecs("").empty());
    EXPECT_TRUE(ParseShaderParameterSpecs(dir.path().string()).empty());
    EXPECT_TRUE(ParseShaderParameterSpecs((dir.path() / "absent.glsl").string()).empty());
    EXPECT_TRUE(ParseShaderParameterSpecs(DataPath("missing_pass.glslp")).empty());
    // A preset is never read as a shader itself, even when it declares parameters.
    EXPECT_TRUE(
        ParseShaderParameterSpecs((dir.path() / "preset_as_shader.glslp").string()).empty());
}

TEST(GlslpParameterOverrides, PresetTextsAsWritten) {
    std::pair<char const*, char const*> const cases[] = {
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
    for (auto const& [text, want] : cases) {
        EXPECT_EQ(Describe(ParseGlslpParameterOverridesFromText(text)), want) << text;
    }
}

TEST(GlslpParameterOverrides, PresetFilesAndPathResolution) {
    EXPECT_EQ(Describe(ParseGlslpParameterOverrides(DataPath("crt_soft.glslp"))),
              "CURVATURE=0.12;SCANLINE_WEIGHT=8.5;MASK_DARK=0.35;CURVATURE=0.2;");
    ztest::TempDir dir;
    std::string const upper =
        dir.Write("X.GLSLP", "shader0 = x.glsl\nparameters = A\nA = 1\n").string();
    std::string const plain = dir.Write("x.glsl", "parameters = A\nA = 1\n").string();
    EXPECT_EQ(Describe(ParseGlslpParameterOverrides(upper)), "A=1;");
    EXPECT_TRUE(ParseGlslpParameterOverrides(plain).empty());
    EXPECT_TRUE(ParseGlslpParameterOverrides((dir.path() / "absent.glslp").string()).empty());
    EXPECT_TRUE(ParseGlslpParameterOverrides("").empty());

    EXPECT_EQ(ResolveShaderGlslPath(upper), (dir.path() / "x.glsl").string());
    EXPECT_EQ(ResolveShaderGlslPath(DataPath("crt_soft.glslp")), DataPath("crt_soft.glsl"));
    EXPECT_EQ(ResolveShaderGlslPath("no/such/dir/shader.glsl"), "no/such/dir/shader.glsl");
    EXPECT_EQ(ResolveShaderGlslPath((dir.path() / "absent.glslp").string()), "");
    EXPECT_EQ(ResolveShaderGlslPath(""), "");
}

}  // namespace
