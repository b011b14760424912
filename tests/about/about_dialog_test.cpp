// The About dialog: its size, its link rows opening their address on a left press, and
// the build facts it shows.
#include "gui/about.h"

#include "about/about_dialog.h"
#include "support/dialog_checks.h"
#include "support/dialog_script.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

#include <regex>

namespace {

using namespace zorvane::frontend::gui;
using ztest::HasColor;
using Script = ztest::DialogScript;

// Without any font every measure takes its fallback, so the geometry at the fixed scale
// of 1.2 is known by hand: a window of 860 x 597, the video row at 39, 163 and the home
// row at 39, 261, both 782 x 86.
constexpr SDL_Rect kVideoRow{39, 163, 782, 86}, kHomeRow{39, 261, 782, 86};
constexpr SDL_Color kTile{20, 23, 30, 255};

class AboutDialog : public ztest::DialogTest {};

TEST_F(AboutDialog, SizedByItsContentAndItsLinksOpenOnALeftPressInsideThem) {
    ztest::Faults().allow_font_path = [](std::string const&) { return false; };
    int const x = kVideoRow.x + 100, video_y = kVideoRow.y + 40, home_y = kHomeRow.y + 40;
    int opened_before = -1;
    ztest::Frame hovered;
    Script script;
    script
        .At(0, [&](Script& s) { s.Press(x, video_y); })  // no row drawn yet
        .Then([&](Script& s) {
            s.Release(x, video_y);
            s.Press(x, home_y, SDL_BUTTON_RIGHT);
            s.Key(SDLK_RETURN);
            s.Hover(x, video_y);
        })
        .Then([&](Script& s) {
            opened_before = ztest::CountCalls("SDL_OpenURL");
            hovered = s.Capture();
            s.Press(kVideoRow.x + kVideoRow.w, video_y);  // just past the right edge
            s.Press(x, video_y);
            s.Press(x, home_y);
        })
        .Then([](Script& s) { s.Key(SDLK_ESCAPE); }, 2);
    ShowSimpleAboutDialog(nullptr, -3.0f);  // the scale asked for changes nothing
    auto const created = ztest::RecordedCalls("SDL_CreateWindow");
    ASSERT_EQ(created.size(), 1u);
    EXPECT_EQ(created[0].text, "About Zorvane");
    EXPECT_EQ(created[0].args.at(2) * 1000 + created[0].args.at(3), 860597);
    EXPECT_EQ(opened_before, 0);
    std::vector<std::string> urls;
    for (ztest::SdlCall const& call : ztest::RecordedCalls("SDL_OpenURL")) {
        urls.push_back(call.text);
    }
    EXPECT_EQ(urls, (std::vector<std::string>{kAboutVideoUrl, kAboutHomepageUrl}));
    EXPECT_TRUE(HasColor(hovered, kVideoRow.x + 2, kVideoRow.y + 2, {40, 46, 60, 255}));
    EXPECT_TRUE(HasColor(hovered, kHomeRow.x + 2, kHomeRow.y + 2, kTile));
    EXPECT_TRUE(HasColor(hovered, kHomeRow.x + 1, kHomeRow.y + 86, {24, 27, 34, 255}));
}

TEST(AboutFacts, VersionDateCompilerPlatformAndFlagsAreThoseOfThisBuild) {
    AboutDialogInfoRows const rows = BuildAboutDialogInfoRows();
    EXPECT_EQ(rows.version, "v0.1.0");
    EXPECT_TRUE(std::regex_match(
        rows.build_date,
        std::regex(R"([A-Z][a-z]{2} [0-3][0-9] 20[0-9]{2} [0-2][0-9]:[0-5][0-9]:[0-6][0-9])")));
    auto const dotted = [](int a, int b, int c) {
        return std::to_string(a) + "." + std::to_string(b) + "." + std::to_string(c);
    };
#if defined(__clang__)
    EXPECT_EQ(rows.compiler,
              "Clang " + dotted(__clang_major__, __clang_minor__, __clang_patchlevel__));
#elif defined(__GNUC__)
    EXPECT_EQ(rows.compiler, "GNU " + dotted(__GNUC__, __GNUC_MINOR__, __GNUC_PATCHLEVEL__));
#endif
#if defined(__linux__) && defined(__x86_64__)
    EXPECT_EQ(rows.platform + " " + rows.arch, "Linux x86_64 (64-bit)");
#endif
    std::smatch m;  // the tests share the library's flags, and one optimisation level at most
    ASSERT_TRUE(std::regex_match(
        rows.flags, m, std::regex("LTO (ON|OFF)  PGO (ON|OFF)  O2 (ON|OFF)  O3 (ON|OFF)")));
#if defined(__OPTIMIZE__) && !defined(__OPTIMIZE_SIZE__)
    EXPECT_NE(m[3] == "ON", m[4] == "ON") << rows.flags;
#elif !defined(__OPTIMIZE__)
    EXPECT_EQ(m[3].str() + m[4].str(), "OFFOFF") << rows.flags;
#endif
}

}  // namespace
