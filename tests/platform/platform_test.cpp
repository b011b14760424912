// The build facts that the About dialog shows follow the system and compiler of the build,
// and Windows runs the tests under a code page other than UTF-8.
#include "about/about_dialog.h"

#include <gtest/gtest.h>

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
}

#ifdef _WIN32
// The whole-library tests pick, show and parse names beyond ASCII; on Windows they prove
// the UTF-8 conversions only under a code page other than UTF-8.
TEST(Platform, WindowsRunsUnderACodePageOtherThanUtf8) {
    EXPECT_NE(GetACP(), static_cast<UINT>(CP_UTF8));
}
#endif

}  // namespace
