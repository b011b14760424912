// The About dialog run for real: its size, its link rows, the build facts it shows
// and the ways it closes.
#include "gui/about.h"

#include "about/about_dialog.h"
#include "support/dialog_checks.h"
#include "support/dialog_script.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>

namespace {

using namespace zorvane::frontend::gui;
using ztest::HasColor;

constexpr SDL_Color kTile{20, 23, 30, 255};
constexpr SDL_Color kTileHovered{40, 46, 60, 255};

// Without any font every measure takes its fallback, so the geometry at the fixed
// scale of 1.2 is known by hand: a window of 860 x 597, the video row at 39, 163
// and the home row at 39, 261, both 782 x 86, the footer from y 535.
constexpr int kBareHeight = 597;
constexpr SDL_Rect kVideoRow{39, 163, 782, 86};
constexpr SDL_Rect kHomeRow{39, 261, 782, 86};

void WithoutFonts() {
    ztest::Faults().allow_font_path = [](std::string const&) { return false; };
}

std::vector<std::string> OpenedUrls() {
    std::vector<std::string> urls;
    for (ztest::SdlCall const& call : ztest::RecordedCalls("SDL_OpenURL")) {
        urls.push_back(call.text);
    }
    return urls;
}

class AboutDialog : public ztest::DialogTest {};

TEST_F(AboutDialog, WindowHeightComesFromTheContentAndScaleChangesNothing) {
    for (float const scale : {1.0f, 2.0f, -3.0f}) {
        ztest::ResetRecorder();
        WithoutFonts();
        ztest::Frame frame;
        ztest::DialogScript script;
        script.At(2, [&](ztest::DialogScript& s) {
            frame = s.Capture();
            s.Key(SDLK_ESCAPE);
        });
        ShowSimpleAboutDialog(nullptr, scale);
        auto const created = ztest::RecordedCalls("SDL_CreateWindow");
        ASSERT_EQ(created.size(), 1u);
        EXPECT_EQ(created[0].text, "About Zorvane");
        EXPECT_EQ(created[0].args, (std::vector<long long>{0x2FFF0050, 0x2FFF0050, 860, kBareHeight,
                                                           SDL_WINDOW_HIDDEN}));
        ASSERT_EQ(frame.height, kBareHeight);
        EXPECT_TRUE(HasColor(frame, kVideoRow.x + 1, kVideoRow.y + 1, kTile));
        EXPECT_TRUE(HasColor(frame, kHomeRow.x + 1, kHomeRow.y + 84, kTile));
        EXPECT_TRUE(HasColor(frame, kHomeRow.x + 1, kHomeRow.y + 86, {24, 27, 34, 255}));
        EXPECT_TRUE(HasColor(frame, 16, 536, {22, 25, 32, 255})) << "the footer";
    }
}

TEST_F(AboutDialog, LinkRowsOpenTheirPageOnThePressAndTheDialogStaysOpen) {
    for (bool const open_fails : {false, true}) {
        SCOPED_TRACE(open_fails ? "SDL_OpenURL fails" : "SDL_OpenURL succeeds");
        ztest::ResetRecorder();
        WithoutFonts();
        ztest::Faults().fail_open_url = open_fails;
        int const x = kVideoRow.x + 100;
        int const video_y = kVideoRow.y + 40;
        int const home_y = kHomeRow.y + 40;
        std::vector<std::string> before_presses;
        ztest::Frame hovered;
        ztest::Frame left;
        ztest::DialogScript script;
        script
            .At(0, [&](ztest::DialogScript& s) { s.Press(x, video_y); })  // no row drawn yet
            .Then([&](ztest::DialogScript& s) {
                s.Release(x, video_y);
                s.Press(x, home_y, SDL_BUTTON_RIGHT);
                s.Key(SDLK_RETURN);
                s.Hover(x, video_y);
            })
            .Then([&](ztest::DialogScript& s) {
                before_presses = OpenedUrls();
                hovered = s.Capture();
                s.Leave();
                s.Press(x, video_y);
                s.Press(kVideoRow.x + kVideoRow.w, video_y);  // just past the right edge
                s.Press(x, home_y);
            })
            .Then([&](ztest::DialogScript& s) { left = s.Capture(); }, 3)
            .Then([](ztest::DialogScript& s) { s.Key(SDLK_ESCAPE); });
        ShowSimpleAboutDialog(nullptr, 1.2f);
        EXPECT_FALSE(script.timed_out());
        EXPECT_TRUE(before_presses.empty());
        EXPECT_EQ(OpenedUrls(), (std::vector<std::string>{kAboutVideoUrl, kAboutHomepageUrl}));
        EXPECT_EQ(script.frame(), 6) << "the dialog stayed open after the links";
        EXPECT_TRUE(HasColor(hovered, kVideoRow.x + 2, kVideoRow.y + 2, kTileHovered));
        EXPECT_TRUE(HasColor(hovered, kHomeRow.x + 2, kHomeRow.y + 2, kTile));
        EXPECT_TRUE(HasColor(left, kVideoRow.x + 2, kVideoRow.y + 2, kTile));
    }
}

TEST_F(AboutDialog, BuildFactsAreThoseOfThisBuild) {
    EXPECT_STREQ(zorvane::frontend::kProgramVersion, "0.1.0");
    std::regex const date(
        R"([A-Z][a-z]{2} [0-3][0-9] 20[0-9]{2} [0-2][0-9]:[0-5][0-9]:[0-6][0-9])");
    EXPECT_TRUE(std::regex_match(zorvane::frontend::kProgramBuildDate, date));

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
    EXPECT_EQ(rows.platform, "Linux");
    EXPECT_EQ(rows.arch, "x86_64 (64-bit)");
#endif
    std::smatch m;
    ASSERT_TRUE(std::regex_match(
        rows.flags, m, std::regex("LTO (ON|OFF)  PGO (ON|OFF)  O2 (ON|OFF)  O3 (ON|OFF)")))
        << rows.flags;
    // The tests are compiled with the library's flags, so the optimisation agrees.
    bool const optimised = m[3] == "ON" || m[4] == "ON";
#if defined(__OPTIMIZE__) && !defined(__OPTIMIZE_SIZE__)
    EXPECT_TRUE(optimised) << rows.flags;
#elif !defined(__OPTIMIZE__)
    EXPECT_FALSE(optimised) << rows.flags;
#endif
    EXPECT_FALSE(m[3] == "ON" && m[4] == "ON") << "one optimisation level at most";
}

TEST_F(AboutDialog, ClosesByEachWayAndGivesTheFocusBack) {
    SDL_Window* parent = SDL_CreateWindow("host", 100, 100, 640, 400, SDL_WINDOW_HIDDEN);
    ztest::DialogScript::Step const gestures[] = {
        [](ztest::DialogScript& s) { s.Key(SDLK_ESCAPE, true); },
        [](ztest::DialogScript& s) { s.Quit(); },
        [](ztest::DialogScript& s) { s.CloseWindow(); },
    };
    for (auto const& gesture : gestures) {
        ztest::ResetRecorder();
        ztest::DialogScript script;
        script
            .At(1,
                [](ztest::DialogScript& s) {
                    SDL_Event other{};  // another window's close
                    other.type = SDL_WINDOWEVENT;
                    other.window.windowID = s.WindowId() + 100;
                    other.window.event = SDL_WINDOWEVENT_CLOSE;
                    ztest::PushEvent(other);
                })
            .Then(gesture, 2);
        ShowSimpleAboutDialog(parent, 1.0f);
        EXPECT_EQ(script.frame(), 3) << "closes after the frame of its turn";
        EXPECT_EQ(ztest::RecordedCalls("SDL_RaiseWindow").back().object, parent);
        auto const live = ztest::CountLiveObjects();
        EXPECT_EQ(live.renderers + live.textures + live.surfaces + live.fonts, 0);
    }
    // Without a window or a renderer it returns at once and leaves the parent alone.
    for (bool const no_window : {true, false}) {
        ztest::ResetRecorder();
        ztest::FailWindowOrRenderer(no_window);
        ShowSimpleAboutDialog(parent, 1.0f);
        EXPECT_EQ(ztest::CountCalls("SDL_RenderPresent") + ztest::CountCalls("SDL_RaiseWindow"), 0);
        EXPECT_EQ(ztest::CountLiveObjects().fonts, 0);
    }
    EXPECT_EQ(ztest::CountLiveObjects().windows, 1);
    SDL_DestroyWindow(parent);
}

}  // namespace
