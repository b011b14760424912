// The screenshot save dialog: its window-free rules (names, extensions, option values,
// the default name's clock), the form model driven by keys and text, and the dialog
// run for real through the heartbeat with its nested folder picker, resized, closed.
#include "screenshot/screenshot_dialog.h"
#include "support/dialog_checks.h"
#include "support/dialog_script.h"
#include "support/temp_dir.h"
#include "support/test_display.h"

#include <limits>

namespace {

using namespace zorvane::frontend::gui;
using ztest::HasColor;
using Script = ztest::DialogScript;
using Format = ScreenshotSaveFormat;

constexpr auto kUnknown = static_cast<Format>(7);
constexpr int kName = kScreenshotFieldFileName;
constexpr int kJpeg = kScreenshotFieldJpegQuality;
constexpr int kPng = kScreenshotFieldPngCompression;
constexpr int kNone = kScreenshotFieldNone;
constexpr SDL_Color kHeader{32, 36, 42, 255};
constexpr SDL_Color kFieldOutline{80, 86, 96, 255};
constexpr SDL_Color kFocusOutline{160, 176, 210, 255};
constexpr SDL_Color kButtonFill{56, 64, 74, 255};

// A record as one line: "accepted" when it is, folder, name, format, values, "rle".
std::string Describe(ScreenshotSaveDialogResult const& r) {
    return (r.accepted ? "accepted " : "") + r.folder + " " + r.file_name + " " +
           std::to_string(int(r.format)) + " " + std::to_string(r.jpeg_quality) + " " +
           std::to_string(r.png_compression) + (r.bmp_rle ? " rle" : "");
}

TEST(ScreenshotNames, ExtensionsValueTextsAndTheDefaultName) {
    // clang-format off
    std::tuple<char const*, Format, char const*> const names[] = {
        {"shot.png", Format::Jpeg, "shot.jpg"}, {"shot", Format::Jpeg, "shot.jpg"},
        {"", Format::Jpeg, "zorvane_capture.jpg"}, {"shot.JPG", Format::Jpeg, "shot.jpg"},
        {"shot.PNG", Format::Png, "shot.png"}, {"a.b.bmp", Format::Png, "a.b.png"},
        {"frame.jpg", kUnknown, "frame.png"}, {"x.png", Format::Bmp, "x.bmp"},
        {"caf\xC3\xA9.png", Format::Bmp, "caf\xC3\xA9.bmp"}, {".", Format::Png, "zorvane_capture.png"}};
    std::tuple<Format, char const*, int, int> const values[] = {  // format, text, fallback, value
        {Format::Jpeg, "0", 90, 1}, {Format::Jpeg, "250", 90, 100}, {Format::Jpeg, "007", 90, 7},
        {Format::Png, "12", 2, 9}, {Format::Png, "0", 2, 0}, {Format::Png, "", 2, 2},
        {Format::Png, "7a", 2, 2}, {Format::Png, "-1", 2, 2}, {Format::Jpeg, " 50", 90, 90},
        {Format::Jpeg, "+5", 90, 90}, {Format::Jpeg, "2147483647", 90, 100},
        {Format::Jpeg, "2147483648", 90, 90}, {Format::Bmp, "5", 1, 1}, {kUnknown, "5", 3, 3}};
    // clang-format on
    for (auto const& [name, format, expected] : names) {
        EXPECT_EQ(ReplaceFilenameExtension(name, format), expected) << name;
    }
    for (auto const& [format, text, fallback, expected] : values) {
        EXPECT_EQ(ClampFormatValue(format, text, fallback), expected) << text << " " << int(format);
    }
    ScreenshotClock const previous = SetScreenshotClock([] {
        std::tm local{};
        local.tm_isdst = -1;
        strptime("2026-04-04 10:06:49", "%Y-%m-%d %H:%M:%S", &local);
        return std::mktime(&local);
    });
    EXPECT_EQ(MakeDefaultScreenshotFilename(Format::Jpeg),
              "zorvane_capture_2026_04_04_10_06_49.jpg");
    SetScreenshotClock(previous);
}

// A form with every text `start` is fed an input ('\b' Backspace, '\t' Tab, '\r' Return,
// '\x1b' Escape, the rest text): the focus, list and done flags, and the text of the field
// focused first (the name for none) after it; the others stay. Escape closes the list alone.
TEST(ScreenshotForm, KeysAndTextEditTheFocusedFieldAndMoveTheFocus) {
    std::string const x179(179, 'x');
    struct Row {
        Format format;
        int focus;
        bool list_open;
        std::string start, input, expected;
    } const rows[] = {
        // clang-format off
        {Format::Png, kName, false, "", "a/b:c*\xC3\xA9\xE2\x82\xAC", "0 abc\xC3\xA9\xE2\x82\xAC"},
        {Format::Png, kName, false, "a\xC3\xA9\xE2\x82\xAC", "\b", "0 a\xC3\xA9\xE2\x82"},
        {Format::Png, kName, false, "a\xC3\xA9", "\b\b", "0 a"},
        {Format::Png, kName, false, "a\xC3\xA9", "\b\b\b", "0 "},
        {Format::Png, kName, false, x179, "?yz", "0 " + x179 + "y"},
        {Format::Jpeg, kJpeg, false, "", "1x2-34", "1 123"}, {Format::Png, kPng, false, "", "45", "2 4"},
        {Format::Png, kPng, false, "4", "6\b6", "2 6"}, {Format::Png, kNone, false, "1", "2a\b", "3 1"},
        {Format::Jpeg, kName, true, "", "\t", "1 "}, {Format::Jpeg, kJpeg, true, "", "\t", "0 "},
        {Format::Png, kName, true, "", "\t", "2 "}, {Format::Png, kNone, true, "", "\t", "0 "},
        {Format::Bmp, kName, true, "", "\t", "0 "}, {Format::Png, kName, true, "", "\r\x1b", "0 "},
        // clang-format on
    };
    for (Row const& row : rows) {
        ScreenshotSaveDialogState state;
        state.format = row.format;
        state.focused_field = row.focus;
        state.format_list_open = row.list_open;
        state.file_name_text = state.jpeg_quality_text = state.png_compression_text = row.start;
        for (char const c : row.input) {  // SDLK_BACKSPACE, SDLK_TAB and the like are their bytes
            char const one[2] = {c, '\0'};
            c > 0 && c < ' ' ? HandleScreenshotSaveDialogKey(&state, c)
                             : HandleScreenshotSaveDialogTextInput(&state, one);
        }
        std::string texts[] = {state.file_name_text, state.jpeg_quality_text,
                               state.png_compression_text, state.file_name_text};
        EXPECT_EQ(std::to_string(state.focused_field) + (state.format_list_open ? " list" : "") +
                      (state.done ? " done" : "") + " " + texts[row.focus],
                  row.expected)
            << "'" << row.input << "' into field " << row.focus;
        texts[row.focus] = texts[3] = row.start;
        EXPECT_EQ(texts[0] + texts[1] + texts[2], row.start + row.start + row.start);
    }
    HandleScreenshotSaveDialogTextInput(nullptr, "a");
    HandleScreenshotSaveDialogKey(nullptr, SDLK_RETURN);
}

TEST(ScreenshotForm, ReturnCommitsTheTextsWhateverTheFormat) {
    ScreenshotSaveDialogState state;
    state.result.jpeg_quality = 80;
    state.result.bmp_rle = false;
    state.format = Format::Jpeg;
    state.file_name_text = "boot screen.PNG";
    state.png_compression_text = "7";
    HandleScreenshotSaveDialogKey(&state, SDLK_KP_ENTER);
    EXPECT_TRUE(state.done);
    // An empty text keeps the starting value; PNG's is taken although JPEG is chosen.
    EXPECT_EQ(Describe(state.result),
              "accepted " + std::filesystem::current_path().u8string() + " boot screen.jpg 1 80 7");
    state.folder_text = "/captures";
    state.file_name_text.clear();
    CommitScreenshotSaveDialogResult(&state);
    EXPECT_EQ(Describe(state.result), "accepted /captures zorvane_capture.jpg 1 80 7");
}

class ScreenshotDialog : public ztest::DialogTest {};

TEST_F(ScreenshotDialog, SaveReturnsWhatWasTypedChosenAndPicked) {
    ztest::TempDir dir;
    std::filesystem::create_directory(dir.path() / "sub");
    SDL_Window* dialog = nullptr;
    int stops_while_picking = -1;
    ztest::Frame first, list_open;
    Script script;
    script.At(1, [&](Script& s) {
        dialog = s.Window();
        first = s.Capture();
        for (int i = 0; i < 11; ++i) {  // "capture.jpg"
            s.Key(SDLK_BACKSPACE);
        }
        s.Text("boot/scr\xC3\xA9\x65n");
        s.Click(300, 230);  // the format field
    });
    script.At(2, [&](Script& s) {
        list_open = s.Capture();
        s.Click(300, 252 + 10);  // the PNG row
        s.Key(SDLK_BACKSPACE);
        s.Text("7");
        s.Press(300, 160);  // the folder field: a press alone opens nothing, the release the picker
    });
    script.At(3, [&](Script& s) {
        EXPECT_EQ(s.Window(), dialog);
        s.Release(300, 160);
    });
    script.At(5, [](Script& s) { s.Key(SDLK_ESCAPE); });  // the picker cancelled
    script.At(7, [](Script& s) { s.Click(790, 160); });   // "Choose"
    script.At(9, [&](Script& s) {
        stops_while_picking = ztest::CountCalls("SDL_StopTextInput");
        s.Key(SDLK_RETURN);  // row 0 is the parent entry: up to the temporary folder
    });
    script.At(11, [](Script& s) { s.Click(700, 510); });  // the picker's "Use"
    script.At(13, [&](Script& s) {
        EXPECT_EQ(ztest::RecordedCalls("SDL_SetWindowInputFocus").back().object, dialog);
        s.Click(780, 365);  // Save
    });
    ScreenshotSaveDialogResult const r = ShowScreenshotSaveDialog(
        nullptr, (dir.path() / "sub").string(), "capture.png", Format::Jpeg, 500, -1, false);
    EXPECT_FALSE(script.timed_out());
    EXPECT_EQ(Describe(r), "accepted " + r.folder + " bootscr\xC3\xA9\x65n.png 0 100 7");
    EXPECT_TRUE(std::filesystem::equivalent(r.folder, dir.path())) << r.folder;
    EXPECT_EQ(stops_while_picking, 0) << "text input stays on while the picker runs";
    auto const created = ztest::RecordedCalls("SDL_CreateWindow");
    ASSERT_EQ(created.size(), 3u);
    EXPECT_EQ(created[0].text + "/" + created[1].text + "/" + created[2].text,
              "Save Screenshot/Select Screenshot Output Folder/Select Screenshot Output Folder");
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

// Each run is resized first: only the right-hand and bottom parts move.
TEST_F(ScreenshotDialog, EveryWayOutButSaveReturnsTheStartingValues) {
    SDL_Window* parent = SDL_CreateWindow("host", 100, 100, 640, 400, SDL_WINDOW_HIDDEN);
    Script::Step const gestures[] = {
        [](Script& s) { s.Click(860, 450); },  // Cancel, where it is now
        [](Script& s) { s.Key(SDLK_ESCAPE); }, [](Script& s) { s.CloseWindow(); },
        [](Script& s) {  // a quit ends the polling before a queued Return
            s.Quit();
            s.Key(SDLK_RETURN);
        }};
    for (Script::Step const& gesture : gestures) {
        ztest::ResetRecorder();
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
        ztest::Frame wide;
        Script script;
        script.At(1, [](Script& s) { SDL_SetWindowSize(s.Window(), 1100, 500); });
        script.At(3, [&](Script& s) {
            wide = s.Capture();
            s.Text("zzz");
            s.Click(260, 296);  // the checkbox: toggled even when cancelled
        });
        script.Then(gesture);
        ScreenshotSaveDialogResult const r =
            ShowScreenshotSaveDialog(parent, "/captures", "frame.jpg", Format::Bmp, 0, 12, true);
        EXPECT_FALSE(script.timed_out());
        EXPECT_EQ(Describe(r), "/captures frame.bmp 2 1 9");
        EXPECT_EQ(ztest::CountCalls("SDL_StartTextInput"), 1);
        EXPECT_EQ(ztest::CountCalls("SDL_StopTextInput"), 1);
        EXPECT_EQ(ztest::RecordedCalls("SDL_RaiseWindow").back().object, parent);
        ASSERT_EQ(std::to_string(wide.width) + "x" + std::to_string(wide.height), "1100x500");
        EXPECT_TRUE(HasColor(wide, 1095, 5, kHeader));
        EXPECT_TRUE(HasColor(wide, 1100 - 30 - 1, 100, kFocusOutline)) << "the name's right edge";
        EXPECT_TRUE(HasColor(wide, 975, 155, kButtonFill)) << "Choose moved";
        EXPECT_TRUE(HasColor(wide, 855, 447, kButtonFill)) << "Cancel moved";
        EXPECT_TRUE(HasColor(wide, 469, 230, kFieldOutline)) << "the format field kept its place";
        EXPECT_TRUE(HasColor(wide, 470, 230, {20, 23, 27, 255}));
        EXPECT_TRUE(HasColor(wide, 257, 293, {106, 166, 255, 255})) << "BMP shows the checked box";
    }
    // No window or no renderer: the starting values at once, text input untouched; the
    // default name of a clock beyond any calendar.
    SetScreenshotClock([] { return std::numeric_limits<std::time_t>::max(); });
    for (bool const no_window : {true, false}) {
        ztest::ResetRecorder();
        ztest::FailWindowOrRenderer(no_window);
        EXPECT_EQ(Describe(ShowScreenshotSaveDialog(parent, "", "", Format::Bmp, 40, 3, true)),
                  std::filesystem::current_path().u8string() +
                      " zorvane_capture_1900_01_00_00_00_00.bmp 2 40 3 rle");
        EXPECT_EQ(ztest::CountCalls("SDL_StartTextInput") + ztest::CountCalls("SDL_RaiseWindow"),
                  0);
    }
    SetScreenshotClock(nullptr);
    EXPECT_EQ(ztest::CountLiveObjects().windows, 1);
    SDL_DestroyWindow(parent);
}

}  // namespace
