// The screenshot save dialog run for real through the heartbeat: what it returns for
// each gesture, the nested folder picker, text input, resizing and its pixels.
#include "gui/screenshot.h"

#include "screenshot/screenshot_dialog.h"
#include "support/dialog_checks.h"
#include "support/dialog_script.h"
#include "support/temp_dir.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using namespace zorvane::frontend::gui;
using Format = ScreenshotSaveFormat;
using Step = ztest::DialogScript::Step;

constexpr SDL_Color kHeader{32, 36, 42, 255};
constexpr SDL_Color kFieldOutline{80, 86, 96, 255};
constexpr SDL_Color kFocusOutline{160, 176, 210, 255};
constexpr SDL_Color kButtonFill{56, 64, 74, 255};

// Points inside the form of a 900 x 410 window.
constexpr int kFormatX = 300, kFormatY = 230;
constexpr int kChooseX = 790, kChooseY = 160;
constexpr int kCancelX = 660, kSaveX = 780, kButtonsY = 365;

using ztest::HasColor;

class ScreenshotDialog : public ztest::DialogTest {};

TEST_F(ScreenshotDialog, SaveReturnsWhatWasTypedChosenAndPicked) {
    ztest::TempDir dir;
    std::filesystem::create_directory(dir.path() / "sub");
    SDL_Window* dialog = nullptr;
    int picker_windows_seen = 0;
    int stops_while_picking = -1;
    ztest::Frame first;
    ztest::Frame list_open;
    ztest::DialogScript script;
    script
        .At(1,
            [&](ztest::DialogScript& s) {
                dialog = s.Window();
                first = s.Capture();
                for (int i = 0; i < 11; ++i) {  // "capture.jpg"
                    s.Key(SDLK_BACKSPACE);
                }
                s.Text("boot/scr\xC3\xA9\x65n");
                s.Click(kFormatX, kFormatY);
            })
        .Then([&](ztest::DialogScript& s) {
            list_open = s.Capture();
            s.Click(kFormatX, 252 + 10);  // the PNG row
            s.Key(SDLK_BACKSPACE);
            s.Text("7");
            s.Press(300, 160);  // the folder field: a press alone opens nothing
        })
        .Then([&](ztest::DialogScript& s) {
            EXPECT_EQ(s.Window(), dialog);
            s.Release(300, 160);
        })
        .Then(
            [&](ztest::DialogScript& s) {
                picker_windows_seen += s.Window() != dialog;
                s.Key(SDLK_ESCAPE);  // cancel the picker
            },
            2)
        .Then([](ztest::DialogScript& s) { s.Click(kChooseX, kChooseY); }, 2)
        .Then(
            [&](ztest::DialogScript& s) {
                picker_windows_seen += s.Window() != dialog;
                stops_while_picking = ztest::CountCalls("SDL_StopTextInput");
                s.Key(SDLK_RETURN);  // row 0 is the parent entry: up to the temporary folder
            },
            2)
        .Then([](ztest::DialogScript& s) { s.Click(700, 510); }, 2)  // the picker's "Use"
        .Then(
            [&](ztest::DialogScript& s) {
                EXPECT_EQ(ztest::RecordedCalls("SDL_SetWindowInputFocus").back().object, dialog);
                s.Click(kSaveX, kButtonsY);
            },
            2);
    ScreenshotSaveDialogResult const r = ShowScreenshotSaveDialog(
        nullptr, (dir.path() / "sub").string(), "capture.png", Format::Jpeg, 500, -1, false);
    EXPECT_FALSE(script.timed_out());
    EXPECT_TRUE(r.accepted);
    EXPECT_TRUE(std::filesystem::equivalent(r.folder, dir.path())) << r.folder;
    EXPECT_EQ(picker_windows_seen, 2);
    EXPECT_EQ(stops_while_picking, 0) << "text input stays on while the picker runs";
    EXPECT_EQ(r.file_name, "bootscr\xC3\xA9\x65n.png");
    EXPECT_EQ(r.format, Format::Png);
    EXPECT_EQ(r.jpeg_quality, 100);
    EXPECT_EQ(r.png_compression, 7);
    EXPECT_FALSE(r.bmp_rle);

    auto const created = ztest::RecordedCalls("SDL_CreateWindow");
    ASSERT_EQ(created.size(), 3u);
    EXPECT_EQ(created[0].text, "Save Screenshot");
    EXPECT_EQ(created[1].text, "Select Screenshot Output Folder");
    EXPECT_EQ(created[0].args, (std::vector<long long>{0x2FFF0050, 0x2FFF0050, 900, 410,
                                                       SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE}));
    EXPECT_EQ(ztest::RecordedCalls("SDL_Delay").at(0).args.at(0), 8);

    ASSERT_EQ(first.width, 900);
    EXPECT_TRUE(HasColor(first, 5, 5, kHeader));
    EXPECT_TRUE(HasColor(first, 250, 82, kFocusOutline)) << "the name has the focus at first";
    EXPECT_TRUE(HasColor(first, 250, 148, kFieldOutline));
    EXPECT_TRUE(HasColor(first, 405, 315, {46, 52, 60, 255})) << "the JPEG value field";
    EXPECT_TRUE(HasColor(first, 775, 357, kButtonFill));
    EXPECT_TRUE(HasColor(list_open, 255, 252 + 34 + 2, {52, 66, 90, 255})) << "JPEG is selected";
    EXPECT_TRUE(HasColor(list_open, 250, 82, kFieldOutline)) << "the list took the focus";
}

TEST_F(ScreenshotDialog, EveryWayOutButSaveReturnsTheStartingValues) {
    SDL_Window* parent = SDL_CreateWindow("host", 100, 100, 640, 400, SDL_WINDOW_HIDDEN);
    Step const gestures[] = {
        [](ztest::DialogScript& s) { s.Click(kCancelX, kButtonsY); },
        [](ztest::DialogScript& s) { s.Key(SDLK_ESCAPE); },
        [](ztest::DialogScript& s) { s.CloseWindow(); },
        [](ztest::DialogScript& s) {  // a quit ends the polling before a queued Return
            s.Quit();
            s.Key(SDLK_RETURN);
        },
    };
    for (Step const& gesture : gestures) {
        ztest::ResetRecorder();
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
        ztest::DialogScript script;
        script
            .At(1,
                [](ztest::DialogScript& s) {
                    s.Text("zzz");
                    s.Click(260, 296);  // the checkbox: toggled even when cancelled
                })
            .Then(gesture);
        ScreenshotSaveDialogResult const r =
            ShowScreenshotSaveDialog(parent, "/captures", "frame.jpg", Format::Bmp, 0, 12, true);
        EXPECT_FALSE(script.timed_out());
        EXPECT_FALSE(r.accepted);
        EXPECT_EQ(r.folder, "/captures");
        EXPECT_EQ(r.file_name, "frame.bmp");
        EXPECT_EQ(r.jpeg_quality, 1);
        EXPECT_EQ(r.png_compression, 9);
        EXPECT_FALSE(r.bmp_rle);
        EXPECT_EQ(ztest::CountCalls("SDL_StartTextInput"), 1);
        EXPECT_EQ(ztest::CountCalls("SDL_StopTextInput"), 1);
        EXPECT_EQ(ztest::RecordedCalls("SDL_RaiseWindow").back().object, parent);
    }

    // No window or no renderer: the starting values at once, text input untouched.
    for (bool const no_window : {true, false}) {
        ztest::ResetRecorder();
        ztest::FailWindowOrRenderer(no_window);
        ScreenshotSaveDialogResult const r =
            ShowScreenshotSaveDialog(parent, "", "", Format::Jpeg, 40, 3, true);
        EXPECT_FALSE(r.accepted);
        EXPECT_EQ(r.folder, std::filesystem::current_path().u8string());
        EXPECT_EQ(r.file_name.rfind("zorvane_capture_2", 0), 0u) << r.file_name;
        EXPECT_EQ(r.file_name.substr(r.file_name.size() - 4), ".jpg");
        EXPECT_EQ(r.jpeg_quality, 40);
        EXPECT_EQ(ztest::CountCalls("SDL_StartTextInput") + ztest::CountCalls("SDL_RaiseWindow"),
                  0);
    }
    EXPECT_EQ(ztest::CountLiveObjects().windows, 1);
    SDL_DestroyWindow(parent);
}

TEST_F(ScreenshotDialog, ResizingMovesOnlyTheRightHandAndBottomParts) {
    ztest::Frame wide;
    ztest::DialogScript script;
    script.At(1, [](ztest::DialogScript& s) { SDL_SetWindowSize(s.Window(), 1100, 500); })
        .Then(
            [&](ztest::DialogScript& s) {
                wide = s.Capture();
                s.Click(1100 - 130 + 5, 500 - 58 + 5);  // Save where it is now
            },
            2);
    ScreenshotSaveDialogResult const r =
        ShowScreenshotSaveDialog(nullptr, "/captures", "a.bmp", Format::Bmp, 90, 2, true);
    EXPECT_TRUE(r.accepted);
    EXPECT_EQ(r.file_name, "a.bmp");
    ASSERT_EQ(wide.width, 1100);
    ASSERT_EQ(wide.height, 500);
    EXPECT_TRUE(HasColor(wide, 1095, 5, kHeader));
    EXPECT_TRUE(HasColor(wide, 1100 - 30 - 1, 100, kFocusOutline)) << "the name field's right edge";
    EXPECT_TRUE(HasColor(wide, 975, 155, kButtonFill)) << "Choose moved";
    EXPECT_TRUE(HasColor(wide, 855, 447, kButtonFill)) << "Cancel moved";
    EXPECT_TRUE(HasColor(wide, 469, 230, kFieldOutline)) << "the format field kept its place";
    EXPECT_TRUE(HasColor(wide, 470, 230, {20, 23, 27, 255}));
    EXPECT_TRUE(HasColor(wide, 257, 293, {106, 166, 255, 255})) << "BMP shows the checked box";
}

}  // namespace
