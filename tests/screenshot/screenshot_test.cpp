// The screenshot save dialog: names, extensions and value texts, the form model driven by
// keys and text, and one Save run for real with its nested folder picker.
#include "screenshot/screenshot_dialog.h"
#include "support/dialog_checks.h"
#include "support/dialog_script.h"
#include "support/temp_dir.h"
#include "support/test_display.h"

namespace {

using namespace zorvane::frontend::gui;
using ztest::HasColor;
using Script = ztest::DialogScript;
using Format = ScreenshotSaveFormat;

constexpr int kName = kScreenshotFieldFileName, kJpeg = kScreenshotFieldJpegQuality,
              kPng = kScreenshotFieldPngCompression, kNone = kScreenshotFieldNone;

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
        {"", Format::Jpeg, "zorvane_capture.jpg"}, {"shot.PNG", Format::Png, "shot.png"},
        {"a.b.bmp", Format::Png, "a.b.png"}, {"frame.jpg", static_cast<Format>(7), "frame.png"},
        {".", Format::Png, "zorvane_capture.png"}};
    std::tuple<Format, char const*, int, int> const values[] = {  // format, text, fallback, value
        {Format::Jpeg, "0", 90, 1}, {Format::Jpeg, "250", 90, 100}, {Format::Jpeg, "007", 90, 7},
        {Format::Png, "12", 2, 9}, {Format::Png, "0", 2, 0}, {Format::Png, "", 2, 2},
        {Format::Png, "7a", 2, 2}, {Format::Jpeg, "+5", 90, 90}, {Format::Bmp, "5", 1, 1}};
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
TEST(ScreenshotForm, KeysAndTextEditTheFocusedFieldMoveTheFocusAndCommit) {
    std::string const x179(179, 'x');
    Format const P = Format::Png, J = Format::Jpeg, B = Format::Bmp;
    struct Row {
        Format format;
        int focus;
        bool list_open;
        std::string start, input, expected;
    } const rows[] = {
        // clang-format off
        {P, kName, false, "", "a/b:c*\xC3\xA9\xE2\x82\xAC", "0 abc\xC3\xA9\xE2\x82\xAC"},
        {P, kName, false, "a\xC3\xA9", "\b\b", "0 a"}, {J, kJpeg, false, "", "1x2-34", "1 123"},
        {P, kName, false, x179, "yz", "0 " + x179 + "y"}, {P, kPng, false, "4", "6\b6", "2 6"},
        {P, kNone, false, "1", "2a\b", "3 1"}, {J, kName, true, "", "\t", "1 "},
        {J, kJpeg, true, "", "\t", "0 "}, {P, kName, true, "", "\t", "2 "},
        {B, kName, true, "", "\t", "0 "}, {P, kName, true, "", "\r\x1b", "0 "},
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
    // Return commits: an empty text keeps the starting value; PNG's is taken under JPEG.
    ScreenshotSaveDialogState state;
    state.result.jpeg_quality = 80;
    state.result.bmp_rle = false;
    state.format = Format::Jpeg;
    state.folder_text = "/captures";
    state.png_compression_text = "7";
    HandleScreenshotSaveDialogKey(&state, SDLK_KP_ENTER);
    EXPECT_TRUE(state.done);
    EXPECT_EQ(Describe(state.result), "accepted /captures zorvane_capture.jpg 1 80 7");
}

class ScreenshotDialog : public ztest::DialogTest {};

TEST_F(ScreenshotDialog, SaveReturnsWhatWasTypedChosenAndPicked) {
    ztest::TempDir dir;
    std::filesystem::create_directory(dir.path() / "sub");
    SDL_Window* dialog = nullptr;
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
        s.Click(790, 160);  // "Choose"
    });
    script.At(4, [](Script& s) { s.Key(SDLK_RETURN); });  // row 0: up to the temporary folder
    script.At(6, [](Script& s) { s.Click(700, 510); });   // the picker's "Use"
    script.At(8, [&](Script& s) {
        EXPECT_EQ(ztest::RecordedCalls("SDL_SetWindowInputFocus").back().object, dialog);
        s.Click(780, 365);  // Save
    });
    ScreenshotSaveDialogResult const r = ShowScreenshotSaveDialog(
        nullptr, (dir.path() / "sub").string(), "capture.png", Format::Jpeg, 500, -1, false);
    EXPECT_FALSE(script.timed_out());
    EXPECT_EQ(Describe(r), "accepted " + r.folder + " bootscr\xC3\xA9\x65n.png 0 100 7");
    EXPECT_TRUE(std::filesystem::equivalent(r.folder, dir.path())) << r.folder;
    auto const created = ztest::RecordedCalls("SDL_CreateWindow");
    ASSERT_EQ(created.size(), 2u);
    EXPECT_EQ(created[0].text + "/" + created[1].text,
              "Save Screenshot/Select Screenshot Output Folder");
    EXPECT_EQ(created[0].args, (std::vector<long long>{0x2FFF0050, 0x2FFF0050, 900, 410,
                                                       SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE}));
    constexpr SDL_Color kFieldOutline{80, 86, 96, 255}, kFocusOutline{160, 176, 210, 255};
    EXPECT_TRUE(HasColor(first, 250, 82, kFocusOutline)) << "the name has the focus at first";
    EXPECT_TRUE(HasColor(first, 250, 148, kFieldOutline));
    EXPECT_TRUE(HasColor(first, 775, 357, {56, 64, 74, 255})) << "Save";
    EXPECT_TRUE(HasColor(list_open, 255, 252 + 34 + 2, {52, 66, 90, 255})) << "JPEG is selected";
    EXPECT_TRUE(HasColor(list_open, 250, 82, kFieldOutline)) << "the list took the focus";
}

}  // namespace
