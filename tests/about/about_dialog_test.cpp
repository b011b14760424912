// The About dialog run for real: its size, its link rows, the build facts it shows
// and the ways it closes.
#include "gui/about.h"

#include "about/about_dialog.h"
#include "support/dialog_script.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>

namespace {

using namespace zorvane::frontend::gui;

constexpr SDL_Color kTile{20, 23, 30, 255};
constexpr SDL_Color kTileHovered{40, 46, 60, 255};
constexpr SDL_Color kContent{24, 27, 34, 255};
constexpr SDL_Color kFooter{22, 25, 32, 255};

// Without any font every measure takes its fallback, so the geometry at the fixed
// scale of 1.2 is known by hand: a window of 860 x 597, the video row at 39, 163
// and the home row at 39, 261, both 782 x 86, the footer from y 535.
constexpr int kBareHeight = 597;
constexpr SDL_Rect kBareVideoRow{39, 163, 782, 86};
constexpr SDL_Rect kBareHomeRow{39, 261, 782, 86};

void WithoutFonts() {
    ztest::Faults().allow_font_path = [](std::string const&) { return false; };
}

testing::AssertionResult HasColor(ztest::Frame const& frame, int x, int y, SDL_Color want) {
    SDL_Color const got = frame.At(x, y);
    if (got.r == want.r && got.g == want.g && got.b == want.b) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "at " << x << "," << y << ": got " << int(got.r) << ","
                                       << int(got.g) << "," << int(got.b);
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
        EXPECT_EQ(ztest::CountCalls("SDL_SetWindowSize"), 0);
        ASSERT_EQ(frame.height, kBareHeight);
        EXPECT_TRUE(HasColor(frame, kBareVideoRow.x + 1, kBareVideoRow.y + 1, kTile));
        EXPECT_TRUE(HasColor(frame, kBareHomeRow.x + 1, kBareHomeRow.y + 84, kTile));
        EXPECT_TRUE(HasColor(frame, kBareHomeRow.x + 1, kBareHomeRow.y + 86, kContent));
        EXPECT_TRUE(HasColor(frame, 16, 536, kFooter));
    }

    // With fonts the rows follow the real font heights, and so does the window.
    ztest::ResetRecorder();
    AboutDialogFonts const fonts = OpenAboutDialogFonts(kAboutDialogScale);
    ASSERT_NE(fonts.title, nullptr);
    int const expected = AboutDialogWindowHeight(BuildAboutDialogMetrics(fonts, 1.2f));
    EXPECT_NE(expected, kBareHeight);
    ztest::DialogScript script;
    script.At(1, [](ztest::DialogScript& s) { s.Key(SDLK_ESCAPE); });
    ShowSimpleAboutDialog(nullptr, 1.0f);
    EXPECT_EQ(ztest::RecordedCalls("SDL_CreateWindow").at(0).args.at(3), expected);
}

TEST_F(AboutDialog, LinkRowsOpenTheirPageOnThePressAndTheDialogStaysOpen) {
    for (bool const open_fails : {false, true}) {
        SCOPED_TRACE(open_fails ? "SDL_OpenURL fails" : "SDL_OpenURL succeeds");
        ztest::ResetRecorder();
        WithoutFonts();
        ztest::Faults().fail_open_url = open_fails;
        int const video_x = kBareVideoRow.x + 100;
        int const video_y = kBareVideoRow.y + 40;
        int const home_y = kBareHomeRow.y + 40;
        std::vector<std::string> after_releases;
        ztest::Frame hovered;
        ztest::Frame left;
        ztest::DialogScript script;
        script
            .At(0, [&](ztest::DialogScript& s) { s.Press(video_x, video_y); })  // no row yet
            .Then([&](ztest::DialogScript& s) {
                s.Release(video_x, video_y);
                s.Release(video_x, home_y);
                s.Press(video_x, home_y, SDL_BUTTON_RIGHT);
                s.Key(SDLK_RETURN);
                s.Hover(video_x, video_y);
            })
            .Then([&](ztest::DialogScript& s) {
                after_releases = OpenedUrls();
                hovered = s.Capture();
                s.Leave();
                s.Press(video_x, video_y);
                s.Press(kBareVideoRow.x + kBareVideoRow.w, video_y);  // just past the right edge
                s.Press(video_x, home_y);
            })
            .Then([&](ztest::DialogScript& s) { left = s.Capture(); }, 3)
            .Then([](ztest::DialogScript& s) { s.Key(SDLK_ESCAPE); });
        ShowSimpleAboutDialog(nullptr, 1.2f);
        EXPECT_FALSE(script.timed_out());
        EXPECT_TRUE(after_releases.empty());
        EXPECT_EQ(OpenedUrls(), (std::vector<std::string>{kAboutVideoUrl, kAboutHomepageUrl}));
        EXPECT_GE(script.frame(), 6) << "the dialog stayed open after the links";
        EXPECT_TRUE(HasColor(hovered, kBareVideoRow.x + 2, kBareVideoRow.y + 2, kTileHovered));
        EXPECT_TRUE(HasColor(hovered, kBareHomeRow.x + 2, kBareHomeRow.y + 2, kTile));
        EXPECT_TRUE(HasColor(left, kBareVideoRow.x + 2, kBareVideoRow.y + 2, kTile));
    }
}

TEST_F(AboutDialog, BuildFactsAreThoseOfThisBuild) {
    EXPECT_STREQ(zorvane::frontend::kProgramVersion, "0.1.0");
    EXPECT_TRUE(std::regex_match(
        zorvane::frontend::kProgramBuildDate,
        std::regex(R"([A-Z][a-z]{2} [0-3][0-9] 20[0-9]{2} [0-2][0-9]:[0-5][0-9]:[0-6][0-9])")))
        << zorvane::frontend::kProgramBuildDate;

    AboutDialogInfoRows const rows = BuildAboutDialogInfoRows();
    EXPECT_EQ(rows.version, "v0.1.0");
    EXPECT_EQ(rows.build_date, zorvane::frontend::kProgramBuildDate);
#if defined(__clang__)
    std::string const compiler = "Clang " + std::to_string(__clang_major__) + "." +
                                 std::to_string(__clang_minor__) + "." +
                                 std::to_string(__clang_patchlevel__);
#elif defined(__GNUC__)
    std::string const compiler = "GNU " + std::to_string(__GNUC__) + "." +
                                 std::to_string(__GNUC_MINOR__) + "." +
                                 std::to_string(__GNUC_PATCHLEVEL__);
#else
    std::string const compiler = rows.compiler;
#endif
    EXPECT_EQ(rows.compiler, compiler);
#if defined(__linux__)
    EXPECT_EQ(rows.platform, "Linux");
#endif
#if defined(__x86_64__)
    EXPECT_EQ(rows.arch, "x86_64 (64-bit)");
#endif
    EXPECT_NE(rows.arch.find("(" + std::to_string(sizeof(void*) * 8) + "-bit)"), std::string::npos);

    std::smatch m;
    ASSERT_TRUE(std::regex_match(
        rows.flags, m, std::regex("LTO (ON|OFF)  PGO (ON|OFF)  O2 (ON|OFF)  O3 (ON|OFF)")))
        << rows.flags;
    // The tests are compiled with the library's own flags, so optimisation shows in both.
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
    struct Case {
        char const* name;
        void (*gesture)(ztest::DialogScript&);
    };
    Case const cases[] = {
        {"escape", [](ztest::DialogScript& s) { s.Key(SDLK_ESCAPE); }},
        {"escape held", [](ztest::DialogScript& s) { s.Key(SDLK_ESCAPE, true); }},
        {"quit", [](ztest::DialogScript& s) { s.Quit(); }},
        {"window close", [](ztest::DialogScript& s) { s.CloseWindow(); }},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(c.name);
        ztest::ResetRecorder();
        ztest::DialogScript script;
        script
            .At(1,
                [](ztest::DialogScript& s) {
                    SDL_Event other{};
                    other.type = SDL_WINDOWEVENT;
                    other.window.windowID = s.WindowId() + 100;
                    other.window.event = SDL_WINDOWEVENT_CLOSE;
                    ztest::PushEvent(other);
                })
            .Then(c.gesture, 2);
        ShowSimpleAboutDialog(parent, 1.0f);
        EXPECT_FALSE(script.timed_out());
        EXPECT_EQ(script.frame(), 3) << "closes after the frame of its turn, not before";
        auto const raised = ztest::RecordedCalls("SDL_RaiseWindow");
        ASSERT_EQ(raised.size(), 2u);
        EXPECT_EQ(raised.back().object, parent);
        auto const live = ztest::CountLiveObjects();
        EXPECT_EQ(live.windows, 1);
        EXPECT_EQ(live.renderers + live.textures + live.surfaces + live.fonts, 0);
    }

    // Without a window or a renderer it returns at once and leaves the parent alone.
    for (bool const no_window : {true, false}) {
        ztest::ResetRecorder();
        ztest::Faults().fail_window_creation = no_window;
        ztest::Faults().fail_accelerated_renderer = true;
        ztest::Faults().fail_software_renderer = true;
        ShowSimpleAboutDialog(parent, 1.0f);
        EXPECT_EQ(ztest::CountCalls("SDL_RenderPresent") + ztest::CountCalls("SDL_RaiseWindow"), 0);
        EXPECT_EQ(ztest::CountLiveObjects().windows, 1);
        EXPECT_EQ(ztest::CountLiveObjects().fonts, 0);
    }
    SDL_DestroyWindow(parent);
}

}  // namespace
