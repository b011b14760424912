// The About dialog: its size, its links opening on a left press inside them, its build facts.
#include "gui/about.h"

#include "about/about_dialog.h"
#include "support/dialog_script.h"
#include "support/test_display.h"

#include <regex>

namespace {

using namespace zorvane::frontend::gui;
using Script = ztest::DialogScript;

class AboutDialog : public ztest::DialogTest {};

// Without any font every measure takes its fallback: at the fixed scale of 1.2, a window of
// 860 x 597, the video row at (39, 163) and the home row at (39, 261), both 782 x 86.
TEST_F(AboutDialog, SizedByItsContentItsLinksOpenOnALeftPressAndItShowsThisBuild) {
    using namespace ztest::gestures;
    ztest::Faults().allow_font_path = [](std::string const&) { return false; };
    Script script;
    script.At(0, Press(139, 203));  // no row drawn yet
    script.Then(Release(139, 203));
    script.Then([](Script& s) { s.Button(true, 139, 301, SDL_BUTTON_RIGHT); });
    script.Then(Press(821, 203));  // just past the video row's right edge
    script.Then(Press(139, 203));
    script.Then(Press(139, 301));
    script.Then(Key(SDLK_RETURN));
    script.Then(Key(SDLK_ESCAPE), 2);
    ShowSimpleAboutDialog(nullptr, -3.0f);  // the scale asked for changes nothing
    auto const created = ztest::RecordedCalls("SDL_CreateWindow");
    ASSERT_EQ(created.size(), 1u);
    EXPECT_EQ(created[0].args.at(2) * 1000 + created[0].args.at(3), 860597);
    auto const urls = ztest::RecordedCalls("SDL_OpenURL");
    EXPECT_EQ(urls.size() == 2 ? urls[0].text + " " + urls[1].text : "",
              std::string(kAboutVideoUrl) + " " + kAboutHomepageUrl);
    AboutDialogInfoRows const rows = BuildAboutDialogInfoRows();
    EXPECT_TRUE(std::regex_match(
        rows.build_date, std::regex(R"([A-Z][a-z]{2} [0-3]\d 20\d\d [0-2]\d:[0-5]\d:\d\d)")));
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
