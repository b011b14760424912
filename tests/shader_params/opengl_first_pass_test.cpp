// The preset reader of the OpenGL stand-in: which shader a preset's first pass names.
#include "zorvane/opengl.h"

#include "support/temp_dir.h"

#include <gtest/gtest.h>

namespace {

struct PresetCase {
    char const* name;
    char const* text;
    char const* want;  // relative to the temporary folder; "" for no first pass
};

TEST(GlslpFirstPass, PresetsAsWritten) {
    PresetCase const cases[] = {
        {"unquoted relative", "shaders = 1\nshader0 = crt.glsl\n", "presets/crt.glsl"},
        {"quoted with CR LF and blanks",
         "shaders = \"2\"\r\n  shader0   =  \"sub dir/crt.glsl\" \r\n"
         "shader1 = other.glsl\r\n",
         "presets/sub dir/crt.glsl"},
        {"up one folder", "shader0=../shaders/crt.glsl", "presets/../shaders/crt.glsl"},
        {"the first shader0 counts", "shader0 = a.glsl\nshader0 = b.glsl\n", "presets/a.glsl"},
        {"comments are skipped", "# shader0 = wrong.glsl\nshader0 = right.glsl\n",
         "presets/right.glsl"},
        {"no shader0", "shaders = 1\nshader1 = crt.glsl\n", ""},
        {"empty shader0", "shaders = 1\nshader0 = \"\"\n", ""},
        {"blank shader0", "shader0 =   \n", ""},
        {"no passes declared", "shaders = 0\nshader0 = crt.glsl\n", ""},
        {"empty file", "", ""},
    };
    for (PresetCase const& c : cases) {
        SCOPED_TRACE(c.name);
        ztest::TempDir dir;
        std::string const preset = dir.Write("presets/p.glslp", c.text).string();
        std::string const want = c.want[0] == '\0' ? "" : (dir.path() / c.want).string();
        EXPECT_EQ(zorvane::opengl::ResolveGlslpFirstPass(preset), want);
    }
}

TEST(GlslpFirstPass, AbsolutePassesAndUnreadablePresets) {
    ztest::TempDir dir;
    std::string const absolute = (dir.path() / "elsewhere" / "crt.glsl").string();
    std::string const preset = dir.Write("p.glslp", "shader0 = " + absolute + "\n").string();
    EXPECT_EQ(zorvane::opengl::ResolveGlslpFirstPass(preset), absolute);
    EXPECT_EQ(zorvane::opengl::ResolveGlslpFirstPass((dir.path() / "absent.glslp").string()), "");
    EXPECT_EQ(zorvane::opengl::ResolveGlslpFirstPass(dir.path().string()), "");
    EXPECT_EQ(zorvane::opengl::ResolveGlslpFirstPass(""), "");
}

}  // namespace
