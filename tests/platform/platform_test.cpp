// The build facts that the About dialog shows follow the system and compiler of the build,
// and Windows runs the tests under a code page other than UTF-8.
#include "about/about_dialog.h"

#include <gtest/gtest.h>

#include <regex>

#ifdef _WIN32
#include <windows.h>
#endif

namespace {

using namespace zorvane::frontend::gui;

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
    EXPECT_TRUE(std::regex_match(
        rows.build_date, std::regex(R"([A-Z][a-z]{2} [0-3 ]\d 20\d\d [0-2]\d:[0-5]\d:\d\d)")));
    std::smatch m;  // the tests share the library's flags, and one optimisation level at most
    ASSERT_TRUE(std::regex_match(
        rows.flags, m, std::regex("LTO (ON|OFF)  PGO (ON|OFF)  O2 (ON|OFF)  O3 (ON|OFF)")));
#if defined(__OPTIMIZE__) && !defined(__OPTIMIZE_SIZE__)
    EXPECT_NE(m[3] == "ON", m[4] == "ON") << rows.flags;
#elif !defined(__OPTIMIZE__)
    EXPECT_EQ(m[3].str() + m[4].str(), "OFFOFF") << rows.flags;
#endif
    EXPECT_EQ(rows.version + " " + rows.arch, "v0.1.0 x86_64 (64-bit)");
}

#ifdef _WIN32
// The whole-library tests pick, show and parse names beyond ASCII; on Windows they prove
// the UTF-8 conversions only under a code page other than UTF-8.
TEST(Platform, WindowsRunsUnderACodePageOtherThanUtf8) {
    EXPECT_NE(GetACP(), static_cast<UINT>(CP_UTF8));
}
#endif

}  // namespace
