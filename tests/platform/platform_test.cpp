// What follows the system the library runs on: the build facts the About dialog shows,
// and names of files and folders beyond ASCII, which must stay UTF-8 on their way
// through the pickers, the shader parsers and the font lookup.
#include "about/about_dialog.h"
#include "frame/ui_fonts.h"
#include "gui/frame.h"
#include "gui/pickers.h"
#include "gui/shader_params.h"
#include "pickers/picker_entries.h"
#include "support/dialog_script.h"
#include "support/temp_dir.h"
#include "support/test_display.h"
#include "zorvane/utils.h"

#include <gtest/gtest.h>

#include <fstream>

#ifdef _WIN32
#include <windows.h>
#endif

namespace {

using namespace zorvane::frontend::gui;
using zorvane::utils::path_from_utf8;
using zorvane::utils::utf8_from_path;

TEST(Platform, AboutNamesTheSystemAndTheCompilerOfThisBuild) {
    AboutDialogInfoRows const rows = BuildAboutDialogInfoRows();
#if defined(_WIN32)
    EXPECT_EQ(rows.platform, "Windows");
#elif defined(__APPLE__)
    EXPECT_EQ(rows.platform, "Darwin");
#elif defined(__linux__)
    EXPECT_EQ(rows.platform, "Linux");
#endif
    auto const version = [](int major, int minor, int patch) {
        return std::to_string(major) + "." + std::to_string(minor) + "." + std::to_string(patch);
    };
#if defined(__clang__) && !defined(__apple_build_version__)
    EXPECT_EQ(rows.compiler,
              "Clang " + version(__clang_major__, __clang_minor__, __clang_patchlevel__));
#elif defined(__GNUC__) && !defined(__clang__)
    EXPECT_EQ(rows.compiler, "GNU " + version(__GNUC__, __GNUC_MINOR__, __GNUC_PATCHLEVEL__));
#endif
}

class NonAsciiNames : public ztest::DialogTest {
protected:
    ztest::TempDir dir_;
    std::string const root_ = utf8_from_path(dir_.path());
    std::string const cafe_ = "caf\xC3\xA9";                // café
    std::string const nihon_ = "\xE6\x97\xA5\xE6\x9C\xAC";  // 日本
};

TEST_F(NonAsciiNames, PickersListSortShowAndReturnThemParsersAndFontsOpenFilesBelowThem) {
#ifdef _WIN32
    EXPECT_NE(GetACP(), static_cast<UINT>(CP_UTF8))
        << "the proof needs a code page other than UTF-8";
#endif
    std::string const folder = root_ + "/" + nihon_;
    for (std::string const& name :
         {cafe_ + "/keep", cafe_ + ".img", std::string("Zed.img"), std::string("abc.img")}) {
        dir_.Write(nihon_ + "/" + name, "");
    }
    std::string names;
    for (PickerEntry const& entry :
         ReadFilteredPickerEntries(path_from_utf8(folder), IsAllowedImagePickerEntry)) {
        names += entry.name + (entry.is_directory ? "/|" : "|");
    }
    EXPECT_EQ(names, "../|" + cafe_ + "/|abc.img|" + cafe_ + ".img|Zed.img|");

    // The file picker shows its folder and rows and returns the third file; the folder
    // picker returns the folder it shows.
    ztest::Faults().skip_delays = true;
    ztest::DialogScript script;
    script.At(2, [](ztest::DialogScript& s) {
        s.Key(SDLK_DOWN), s.Key(SDLK_DOWN), s.Key(SDLK_DOWN), s.Key(SDLK_RETURN);
    });
    EXPECT_EQ(ShowSimpleFloppyFilePicker(nullptr, folder), folder + "/" + cafe_ + ".img");
    std::string shown;
    for (ztest::SdlCall const& call : ztest::RecordedCalls("TTF_RenderUTF8_Blended")) {
        shown += call.text + "|";
    }
    EXPECT_NE(shown.find("|" + folder + "|"), std::string::npos) << shown;
    EXPECT_NE(shown.find("[IMG] " + cafe_ + ".img|"), std::string::npos) << shown;
    script.At(script.frame() + 3, ztest::gestures::Click(719, 515));  // Select
    std::string const inner = folder + "/" + cafe_;
    EXPECT_EQ(ShowSimpleFolderPicker(nullptr, {"", "", "", "", inner}), inner);

    // A preset, its shader and its values in café/日本.
    dir_.Write(cafe_ + "/" + nihon_ + "/p.glslp",
               "shaders = 1\nshader0 = " + nihon_ + ".glsl\nparameters = A\nA = 0.5\n");
    dir_.Write(cafe_ + "/" + nihon_ + "/" + nihon_ + ".glsl",
               "#pragma parameter A \"a\" 0.1 0 1 0.1\n");
    std::string const preset = root_ + "/" + cafe_ + "/" + nihon_ + "/p.glslp";
    EXPECT_EQ(ResolveShaderGlslPath(preset),
              root_ + "/" + cafe_ + "/" + nihon_ + "/" + nihon_ + ".glsl");
    EXPECT_EQ(ParseShaderParameterSpecs(preset).size(), 1u);
    ASSERT_EQ(ParseGlslpParameterOverrides(preset).size(), 1u);

    // The UI font below a working directory named 日本/café.
    std::ifstream font("data/ttf/IBMPlexSans-SemiBold.ttf", std::ios::binary);
    if (!font) {
        GTEST_SKIP() << "data/ttf/IBMPlexSans-SemiBold.ttf is missing (scripts/fetch_fonts.sh)";
    }
    dir_.Write(nihon_ + "/" + cafe_ + "/data/ttf/IBMPlexSans-SemiBold.ttf",
               std::string(std::istreambuf_iterator<char>(font), {}));
    ztest::ScopedWorkingDirectory const cwd(path_from_utf8(folder + "/" + cafe_));
    ShutdownSdlUiCachedFonts();
    ztest::ResetRecorder();
    EXPECT_NE(GetCachedSdlUiFont(12, false, kSemiBold), nullptr);
    auto const opened = ztest::RecordedCalls("TTF_OpenFont");
    ASSERT_FALSE(opened.empty());
    EXPECT_EQ(opened[0].text + " " + std::to_string(opened[0].args.at(1)),
              std::string(kSemiBoldFontPaths[0]) + " 1");
    ShutdownSdlUiCachedFonts();
}

}  // namespace
