// The preset reader of the OpenGL stand-in: which shader a preset's first pass names.
#include "zorvane/opengl.h"

#include "support/temp_dir.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

TEST(GlslpFirstPass, PresetsAsWritten) {
    ztest::TempDir dir;
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
    EXPECT_EQ(zorvane::opengl::ResolveGlslpFirstPass((dir.path() / "absent.glslp").string()), "");
    EXPECT_EQ(zorvane::opengl::ResolveGlslpFirstPass(dir.path().string()), "");
    EXPECT_EQ(zorvane::opengl::ResolveGlslpFirstPass(""), "");
}

}  // namespace
