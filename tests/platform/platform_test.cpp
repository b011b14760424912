// The build facts that the About dialog shows follow the system and compiler of the build.
#include "about/about_dialog.h"

#include <gtest/gtest.h>

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

}  // namespace
