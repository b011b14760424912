// The two shader parameter parsers: declaration lines and preset value lines as
// people write them, and whole files, presets and unreadable paths.
#include "gui/shader_params.h"

#include "shader_params/shader_param_parsers.h"
#include "support/temp_dir.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iomanip>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace zorvane::frontend::gui;

std::string DataPath(std::string const& name) {
    char const* root = std::getenv("ZORVANE_TEST_DATA");
    return std::string(root != nullptr ? root : "tests/data") + "/shader_params/" + name;
}

// One line per record, every field, so that a table row compares in one go.
std::string Describe(std::vector<ShaderParameterSpec> const& specs) {
    std::ostringstream text;
    text << std::setprecision(9);
    for (ShaderParameterSpec const& s : specs) {
        text << s.name << " [" << s.label << "] " << s.default_value << " " << s.min_value << " "
             << s.max_value << " " << s.step << "\n";
    }
    return text.str();
}

std::string Describe(std::vector<ShaderParameterValue> const& values) {
    std::ostringstream text;
    text << std::setprecision(9);
    for (ShaderParameterValue const& v : values) {
        text << v.name << "=" << v.value << "\n";
    }
    return text.str();
}

struct DeclarationCase {
    char const* line;
    bool kept;
    ShaderParameterSpec want;
};

TEST(ShaderParameterSpecs, DeclarationLinesAsWritten) {
    ShaderParameterSpec const gamma{"GAMMA", "Gamma", 2.2f, 1.0f, 3.0f, 0.05f};
    DeclarationCase const cases[] = {
        {"#pragma parameter GAMMA \"Gamma\" 2.2 1.0 3.0 0.05", true, gamma},
        {" \t #pragma parameter GAMMA \"Gamma\" 2.2 1.0 3.0 0.05", true, gamma},
        {"#pragma parameter GAMMA \"Gamma\" 2.2 1.0 3.0 0.05\r", true, gamma},
        {"#pragma parameter\tGAMMA\t\"Gamma\"\t2.2\t1.0\t3.0\t0.05\t// wider near 2", true, gamma},
        {"#pragma parameter GAMMA \"Gamma\" 2.2 1.0 3.0", false, {}},
        {"#pragma parameter A \"B\" 0.5 1.0 0.0 0.1", true, {"A", "B", 0.5f, 0.0f, 1.0f, 0.1f}},
        {"#pragma parameter A \"B\" 0.5 0 1 -1", true, {"A", "B", 0.5f, 0.0f, 1.0f, 0.0f}},
        {"#pragma parameter A \"B\" 2.0 0.0 1.0 0.1", true, {"A", "B", 2.0f, 0.0f, 1.0f, 0.1f}},
        {"#pragma parameter A \"\" 0 0 1 0.1", false, {}},
        {"#pragma parameter A \"B 0 0 1 0.1", false, {}},
        {"#pragma parameter A 0 0 1 0.1", false, {}},
        {"#pragma parameter A", false, {}},
        {"#pragma parameter   ", false, {}},
        {"#pragma parameter A\"B\" 0 0 1 0.1", false, {}},
        {"#pragma parameter A\"B\" \"C\" 0 0 1 0.1", true, {"A\"B\"", "C", 0, 0, 1, 0.1f}},
        {"#pragma parameter A x=\"Label\" 0 0 1 0.1", true, {"A", "Label", 0, 0, 1, 0.1f}},
        {"#pragma parameter A \" Mask: 50%, (dark) -> light! \" 0 0 1 0.1",
         true,
         {"A", " Mask: 50%, (dark) -> light! ", 0, 0, 1, 0.1f}},
        {"#pragma parameter A \"B\" 0.5x 0 1 0.1", false, {}},
        {"#pragma parameter A \"B\" 0.5 0 1 0.1x 7", true, {"A", "B", 0.5f, 0, 1, 0.1f}},
        {"#pragma parameter A \"B\" -1.5e1 -2E1 +1e1 .5", true, {"A", "B", -15, -20, 10, 0.5f}},
        {"#pragma parameter A \"B\" inf 0 1 0.1", false, {}},
        {"#pragma parameter A \"B\" 0 0 0x10 0.1", false, {}},
        {"#pragma parameter A \"B\" 1e39 0 1 0.1", false, {}},
        {"#pragmaparameter A \"B\" 0 0 1 0.1", true, {"A", "B", 0, 0, 1, 0.1f}},
        {"#pragma x parameter A \"B\" 0 0 1 0.1", true, {"A", "B", 0, 0, 1, 0.1f}},
        {"#pragma parameters A \"B\" 0 0 1 0.1", true, {"s", "B", 0, 0, 1, 0.1f}},
        {"#PRAGMA parameter A \"B\" 0 0 1 0.1", false, {}},
        {"// #pragma parameter A \"B\" 0 0 1 0.1", false, {}},
        {"#pragma parameter \xC3\xA9t\xC3\xA9 \"\xC3\x89t\xC3\xA9 \xFF\" 0 0 1 0.1",
         true,
         {"\xC3\xA9t\xC3\xA9", "\xC3\x89t\xC3\xA9 \xFF", 0, 0, 1, 0.1f}},
    };
    for (DeclarationCase const& c : cases) {
        SCOPED_TRACE(c.line);
        std::vector<ShaderParameterSpec> want;
        if (c.kept) {
            want.push_back(c.want);
        }
        EXPECT_EQ(Describe(ParseShaderParameterSpecsFromText(c.line)), Describe(want));
    }
}

TEST(ShaderParameterSpecs, ShaderFileAndItsPreset) {
    std::vector<ShaderParameterSpec> const want = {
        {"CURVATURE", "Screen curvature", 0.08f, 0.0f, 0.25f, 0.01f},
        {"SCANLINE_WEIGHT", "Scanline weight (dark -> bright)", 6.0f, 0.5f, 12.0f, 0.5f},
        {"MASK_DARK", "Mask: dark, 0 = off", 0.5f, 0.0f, 1.0f, 0.05f},
        {"IN_BLOCK", "Inside a block comment", 1.0f, 0.0f, 2.0f, 0.1f},
        {"GAMMA_OUT", "Output gamma", 2.2f, 1.0f, 3.0f, 0.0f},
    };
    for (char const* name : {"crt_soft.glsl", "crt_soft.glslp"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(Describe(ParseShaderParameterSpecs(DataPath(name))), Describe(want));
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

struct PresetCase {
    char const* name;
    char const* text;
    std::vector<ShaderParameterValue> want;
};

TEST(GlslpParameterOverrides, PresetTextsAsWritten) {
    PresetCase const cases[] = {
        {"quoted list, quoted and unquoted values",
         "parameters = \"A;B\"\nA = 0.5\nB = \"1.5\"\nC = 2.0\n",
         {{"A", 0.5f}, {"B", 1.5f}}},
        {"value lines before the list keep their order",
         "B = 1\nA = 2\nparameters = \"A;B\"\n",
         {{"B", 1.0f}, {"A", 2.0f}}},
        {"unquoted list with blanks and a trailing separator",
         "parameters = A ; B ;\nA=1\nB=2",
         {{"A", 1.0f}, {"B", 2.0f}}},
        {"list without a closing quote", "parameters = \"A;B\nA = 1\nB = 2\n", {{"B", 2.0f}}},
        {"empty quoted list", "parameters = \"\"\nA = 1\n", {}},
        {"list of separators only", "parameters = ; ;;\nA = 1\n", {}},
        {"no list line", "A = 1\nB = 2\n", {}},
        {"bare word and a line without = are passed over",
         "parameters\nparameters extra\nparameters = A\nA = 3\n",
         {{"A", 3.0f}}},
        {"only the first list line counts",
         "parameters_extra = A\nparameters = B\nA = 1\nB = 2\n",
         {{"A", 1.0f}}},
        {"values that do not convert",
         "parameters = \"A;B;C;D;E;F\"\nA = abc\nB = \"\"\nC = 1.5abc\nD = 1e999\n"
         "E = \"1.5\" # note\nF = \"",
         {{"C", 1.5f}}},
        {"stof's own forms",
         "parameters = A;B;C\nA = 0x10\nB = -inf\nC =   \" 2.5\"",
         {{"A", 16.0f}, {"B", -std::numeric_limits<float>::infinity()}, {"C", 2.5f}}},
        {"case and blanks in keys", "parameters = A\na = 1\n\t A \t= 4\n=5\n", {{"A", 4.0f}}},
        {"a key twice gives two records",
         "parameters = A\nA = 1\nA = 2\n",
         {{"A", 1.0f}, {"A", 2.0f}}},
        {"blanks and commas inside a name stay",
         "parameters = \"A B, C\"\nA B, C = 7\nA = 1\n",
         {{"A B, C", 7.0f}}},
        {"CR LF line ends",
         "parameters = \"A;B\"\r\nA = 0.5\r\nB = \"1.5\"\r\n",
         {{"A", 0.5f}, {"B", 1.5f}}},
        {"the list line is a value line too", "parameters = 2;parameters\n", {{"parameters", 2}}},
    };
    for (PresetCase const& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(Describe(ParseGlslpParameterOverridesFromText(c.text)), Describe(c.want));
    }
}

TEST(GlslpParameterOverrides, PresetFilesAndPathResolution) {
    std::vector<ShaderParameterValue> const want = {
        {"CURVATURE", 0.12f}, {"SCANLINE_WEIGHT", 8.5f}, {"MASK_DARK", 0.35f}, {"CURVATURE", 0.2f}};
    EXPECT_EQ(Describe(ParseGlslpParameterOverrides(DataPath("crt_soft.glslp"))), Describe(want));
    ztest::TempDir dir;
    std::string const upper =
        dir.Write("X.GLSLP", "shader0 = x.glsl\nparameters = A\nA = 1\n").string();
    std::string const plain = dir.Write("x.glsl", "parameters = A\nA = 1\n").string();
    EXPECT_EQ(Describe(ParseGlslpParameterOverrides(upper)), "A=1\n");
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
