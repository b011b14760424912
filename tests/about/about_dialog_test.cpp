// The About dialog run for real: its size, its link rows, the build facts it shows
// and the ways it closes.
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

constexpr SDL_Color kTile{20, 23, 30, 255};

// Without any font every measure takes its fallback, so the geometry at the fixed
// scale of 1.2 is known by hand: a window of 860 x 597, the video row at 39, 163
// and the home row at 39, 261, both 782 x 86, the footer from y 535.
constexpr SDL_Rect kVideoRow{39, 163, 782, 86};
constexpr SDL_Rect kHomeRow{39, 261, 782, 86};

std::vector<std::string> OpenedUrls() {
    std::vector<std::string> urls;
    for (ztest::SdlCall const& call : ztest::RecordedCalls("SDL_OpenURL")) {
        urls.push_back(call.text);
    }
    return urls;
}

class AboutDialog : public ztest::DialogTest {};

TEST_F(AboutDialog, SizedByItsContentLinksOpenOnThePressAndEachWayOutCloses) {
    SDL_Window* parent = SDL_CreateWindow("host", 100, 100, 640, 400, SDL_WINDOW_HIDDEN);
    struct Run {
        float scale;  // the scale asked for changes nothing
        Script::Step close;
    } const runs[] = {{1.0f, [](Script& s) { s.Key(SDLK_ESCAPE); }},
                      {2.0f, [](Script& s) { s.Key(SDLK_ESCAPE, true); }},
                      {-3.0f, [](Script& s) { s.Quit(); }},
                      {1.2f, [](Script& s) { s.CloseWindow(); }}};
    for (Run const& run : runs) {
        SCOPED_TRACE(run.scale);
        ztest::ResetRecorder();
        ztest::Faults().allow_font_path = [](std::string const&) { return false; };
        ztest::Faults().fail_open_url = run.scale == 2.0f;  // and then nothing changes either
        int const x = kVideoRow.x + 100, video_y = kVideoRow.y + 40, home_y = kHomeRow.y + 40;
        std::vector<std::string> before_presses;
        ztest::Frame hovered, left;
        Script script;
        script
            .At(0, [&](Script& s) { s.Press(x, video_y); })  // no row drawn yet
            .Then([&](Script& s) {
                s.Release(x, video_y);
                s.Press(x, home_y, SDL_BUTTON_RIGHT);
                s.Key(SDLK_RETURN);
                s.Hover(x, video_y);
                SDL_Event other{SDL_WINDOWEVENT};  // another window's close is dropped
                other.window.windowID = s.WindowId() + 100;
                other.window.event = SDL_WINDOWEVENT_CLOSE;
                ztest::PushEvent(other);
            })
            .Then([&](Script& s) {
                before_presses = OpenedUrls();
                hovered = s.Capture();
                s.Leave();
                s.Press(x, video_y);
                s.Press(kVideoRow.x + kVideoRow.w, video_y);  // just past the right edge
                s.Press(x, home_y);
            })
            .Then([&](Script& s) { left = s.Capture(); }, 3)
            .Then(run.close);
        ShowSimpleAboutDialog(parent, run.scale);
        EXPECT_EQ(script.frame(), 6) << "open after the links, closed on the frame of its turn";
        auto const created = ztest::RecordedCalls("SDL_CreateWindow");
        ASSERT_EQ(created.size(), 1u);
        EXPECT_EQ(created[0].text, "About Zorvane");
        EXPECT_EQ(created[0].args, (std::vector<long long>{180, 180, 860, 597, SDL_WINDOW_HIDDEN}));
        EXPECT_EQ(ztest::RecordedCalls("SDL_Delay").at(0).args.at(0), 12);
        EXPECT_TRUE(before_presses.empty());
        EXPECT_EQ(OpenedUrls(), (std::vector<std::string>{kAboutVideoUrl, kAboutHomepageUrl}));
        EXPECT_EQ(ztest::RecordedCalls("SDL_RaiseWindow").back().object, parent);
        auto const live = ztest::CountLiveObjects();
        EXPECT_EQ(live.windows + live.renderers + live.textures + live.surfaces + live.fonts, 1);
        ASSERT_EQ(left.height, 597);
        EXPECT_TRUE(HasColor(hovered, kVideoRow.x + 2, kVideoRow.y + 2, {40, 46, 60, 255}));
        EXPECT_TRUE(HasColor(hovered, kHomeRow.x + 2, kHomeRow.y + 2, kTile));
        EXPECT_TRUE(HasColor(left, kVideoRow.x + 2, kVideoRow.y + 2, kTile));
        EXPECT_TRUE(HasColor(left, kHomeRow.x + 1, kHomeRow.y + 84, kTile));
        EXPECT_TRUE(HasColor(left, kHomeRow.x + 1, kHomeRow.y + 86, {24, 27, 34, 255}));
        EXPECT_TRUE(HasColor(left, 16, 536, {22, 25, 32, 255})) << "the footer";
    }
    for (bool const no_window : {true, false}) {  // returns at once, the parent left alone
        ztest::ResetRecorder();
        ztest::FailWindowOrRenderer(no_window);
        ShowSimpleAboutDialog(parent, 1.0f);
        EXPECT_EQ(ztest::CountCalls("SDL_RenderPresent") + ztest::CountCalls("SDL_RaiseWindow"), 0);
        EXPECT_EQ(ztest::CountLiveObjects().fonts, 0);
    }
    EXPECT_EQ(ztest::CountLiveObjects().windows, 1);
    SDL_DestroyWindow(parent);
}

TEST_F(AboutDialog, BuildFactsAreThoseOfThisBuild) {
    EXPECT_STREQ(zorvane::frontend::kProgramVersion, "0.1.0");
    EXPECT_TRUE(std::regex_match(
        zorvane::frontend::kProgramBuildDate,
        std::regex(R"([A-Z][a-z]{2} [0-3][0-9] 20[0-9]{2} [0-2][0-9]:[0-5][0-9]:[0-6][0-9])")));

    AboutDialogInfoRows const rows = BuildAboutDialogInfoRows();
    EXPECT_EQ(rows.version, "v0.1.0");
    EXPECT_EQ(rows.build_date, zorvane::frontend::kProgramBuildDate);
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
    std::smatch m;
    ASSERT_TRUE(std::regex_match(
        rows.flags, m, std::regex("LTO (ON|OFF)  PGO (ON|OFF)  O2 (ON|OFF)  O3 (ON|OFF)")))
        << rows.flags;
    bool const optimised = m[3] == "ON" || m[4] == "ON";  // the tests share the library's flags
#if defined(__OPTIMIZE__) && !defined(__OPTIMIZE_SIZE__)
    EXPECT_TRUE(optimised) << rows.flags;
#elif !defined(__OPTIMIZE__)
    EXPECT_FALSE(optimised) << rows.flags;
#endif
    EXPECT_FALSE(m[3] == "ON" && m[4] == "ON") << "one optimisation level at most";
}

}  // namespace
