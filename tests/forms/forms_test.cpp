// The two forms' rules: the screenshot's names, value texts and form model under keys and
// text; the disk image's size texts and target paths.
#include "hdd_image/hdd_create_dialog.h"
#include "screenshot/screenshot_dialog.h"
#include "support/test_display.h"

namespace {

using namespace zorvane::frontend::gui;
using Format = ScreenshotSaveFormat;
Format const P = Format::Png, J = Format::Jpeg, B = Format::Bmp;

TEST(ScreenshotNames, ExtensionsValueTextsAndTheDefaultName) {
    // clang-format off
    std::tuple<char const*, Format, char const*> const names[] = {
        {"a.png", J, "a.jpg"}, {"", J, "zorvane_capture.jpg"}, {"a.b.BMP", P, "a.b.png"}};
    std::tuple<Format, char const*, int> const values[] = {
        {J, "0", 1}, {J, "250", 100}, {P, "12", 9}, {P, "", 5}, {P, "7a", 5}, {B, "3", 5}};
    // clang-format on
    for (auto const& [name, format, expected] : names) {
        EXPECT_EQ(ReplaceFilenameExtension(name, format), expected) << name;
    }
    for (auto const& [format, text, expected] : values) {
        EXPECT_EQ(ClampFormatValue(format, text, 5), expected) << text << " " << int(format);
    }
    ScreenshotClock const previous = SetScreenshotClock([] {
        std::tm t{};  // 2026-04-04 10:06:49, local time
        t.tm_year = 2026 - 1900;
        t.tm_mon = 3;
        t.tm_mday = 4;
        t.tm_hour = 10;
        t.tm_min = 6;
        t.tm_sec = 49;
        t.tm_isdst = -1;
        return std::mktime(&t);
    });
    EXPECT_EQ(MakeDefaultScreenshotFilename(J), "zorvane_capture_2026_04_04_10_06_49.jpg");
    SetScreenshotClock(previous);
}

// Keys ('\b', '\t', '\r', '\x1b') and text into forms with "x" in each text: the focus (0 the
// name, 1 JPEG quality, 2 PNG compression, 3 none), list and done flags, then the texts.
TEST(ScreenshotForm, KeysAndTextEditOnlyTheFocusedFieldAndMoveTheFocus) {
    std::string const x179(179, 'x');
    // clang-format off
    std::tuple<Format, int, bool, std::string, std::string> const rows[] = {
        {P, 0, false, "a/b:c*\xC3\xA9", "0 xabc\xC3\xA9 x x"}, {P, 0, false, "\b\b", "0  x x"},
        {P, 0, false, x179 + "yz", "0 x" + x179 + " x x"}, {J, 1, false, "1x2-34", "1 x x12 x"},
        {J, 0, true, "\t", "1 x x x"}, {B, 0, false, "\t", "0 x x x"},
        {P, 0, true, "\r\x1b", "0 x x x"}, {P, 2, false, "\r", "2 done x x x"}};
    // clang-format on
    for (auto const& [format, focus, list_open, input, expected] : rows) {
        ScreenshotSaveDialogState state;
        state.format = format;
        state.focused_field = focus;
        state.format_list_open = list_open;
        state.file_name_text = state.jpeg_quality_text = state.png_compression_text = "x";
        for (char const c : input) {  // SDLK_BACKSPACE, SDLK_TAB and the like are their bytes
            if (c > 0 && c < ' ') {
                HandleScreenshotSaveDialogKey(&state, c);
            } else {
                HandleScreenshotSaveDialogTextInput(&state, std::string(1, c).c_str());
            }
        }
        EXPECT_EQ(std::to_string(state.focused_field) + (state.format_list_open ? " list" : "") +
                      (state.done ? " done " : " ") + state.file_name_text + " " +
                      state.jpeg_quality_text + " " + state.png_compression_text,
                  expected);
    }
}

TEST(HddCreateRules, SizeTextsAndTargetPaths) {
    std::pair<char const*, unsigned int> const sizes[] = {{"", 10},
                                                          {"0", 1},
                                                          {"007", 7},
                                                          {"9999999999", 4294967295u},
                                                          {"12a", 10},
                                                          {"-5", 10},
                                                          {"123456789012345678901", 10}};
    for (auto const& [text, mb] : sizes) {
        EXPECT_EQ(ParseHddCreateSizeMbOrDefault(text, 10), mb) << text;
    }
    EXPECT_EQ(BuildHddCreateTargetPath("", ""), "./disk.img");
    EXPECT_EQ(BuildHddCreateTargetPath("/srv/images/", "c.img"), "/srv/images/c.img");
    EXPECT_EQ(BuildHddCreateTargetPath("/srv", "/abs/d.img"), "/abs/d.img");
}

}  // namespace
