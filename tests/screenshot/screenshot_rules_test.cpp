// The window-free rules of the screenshot dialog: names, extensions, option values,
// the default name's clock, and the form model driven by keys and text.
#include "gui/screenshot.h"

#include "screenshot/screenshot_dialog.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

namespace {

using namespace zorvane::frontend::gui;
using Format = ScreenshotSaveFormat;

constexpr auto kUnknown = static_cast<Format>(7);
constexpr int kName = kScreenshotFieldFileName;
constexpr int kJpeg = kScreenshotFieldJpegQuality;
constexpr int kPng = kScreenshotFieldPngCompression;
constexpr int kNone = kScreenshotFieldNone;

std::time_t FixedLocalTime() {
    std::tm local{};
    local.tm_year = 2026 - 1900;
    local.tm_mon = 3;
    local.tm_mday = 4;
    local.tm_hour = 10;
    local.tm_min = 6;
    local.tm_sec = 49;
    local.tm_isdst = -1;
    return std::mktime(&local);
}

std::time_t BeyondAnyCalendar() {
    return std::numeric_limits<std::time_t>::max();
}

TEST(ScreenshotNames, ReplacingTheExtensionKeepsOnlyTheStem) {
    struct Row {
        char const* name;
        Format format;
        char const* expected;
    } const rows[] = {
        // clang-format off
        {"shot.png", Format::Jpeg, "shot.jpg"}, {"shot", Format::Jpeg, "shot.jpg"},
        {"", Format::Jpeg, "zorvane_capture.jpg"}, {"shot.JPG", Format::Jpeg, "shot.jpg"},
        {"shot.PNG", Format::Png, "shot.png"}, {"a.b.bmp", Format::Png, "a.b.png"},
        {"frame.jpg", kUnknown, "frame.png"}, {"x.png", Format::Bmp, "x.bmp"}, {"caf\xC3\xA9.png", Format::Bmp, "caf\xC3\xA9.bmp"},
        {".", Format::Png, "zorvane_capture.png"},
        // clang-format on
    };
    for (Row const& row : rows) {
        EXPECT_EQ(ReplaceFilenameExtension(row.name, row.format), row.expected) << row.name;
    }
}

TEST(ScreenshotNames, ValueTextsBecomeLimitedNumbersOrTheFallback) {
    struct Row {
        Format format;
        char const* text;
        int fallback, expected;
    } const rows[] = {
        // clang-format off
        {Format::Jpeg, "0", 90, 1}, {Format::Jpeg, "250", 90, 100}, {Format::Jpeg, "007", 90, 7},
        {Format::Png, "12", 2, 9}, {Format::Png, "0", 2, 0}, {Format::Png, "", 2, 2},
        {Format::Png, "7a", 2, 2}, {Format::Png, "-1", 2, 2}, {Format::Jpeg, " 50", 90, 90},
        {Format::Jpeg, "+5", 90, 90}, {Format::Jpeg, "2147483647", 90, 100},
        {Format::Jpeg, "2147483648", 90, 90}, {Format::Bmp, "5", 1, 1}, {kUnknown, "5", 3, 3},
        // clang-format on
    };
    for (Row const& row : rows) {
        EXPECT_EQ(ClampFormatValue(row.format, row.text, row.fallback), row.expected)
            << "'" << row.text << "' format " << int(row.format);
    }
}

TEST(ScreenshotNames, DefaultNameCarriesTheLocalTimeAndTheExtension) {
    ScreenshotClock const previous = SetScreenshotClock(&FixedLocalTime);
    EXPECT_EQ(MakeDefaultScreenshotFilename(Format::Jpeg),
              "zorvane_capture_2026_04_04_10_06_49.jpg");
    SetScreenshotClock(&BeyondAnyCalendar);
    EXPECT_EQ(MakeDefaultScreenshotFilename(Format::Bmp),
              "zorvane_capture_1900_01_00_00_00_00.bmp");
    SetScreenshotClock(previous);
}

// Types `input` into the field `focus`; a '\b' in it stands for Backspace.
std::string Edit(Format format, int focus, std::string start, char const* input) {
    ScreenshotSaveDialogState state;
    state.format = format;
    state.focused_field = focus;
    state.file_name_text = state.jpeg_quality_text = state.png_compression_text = start;
    for (char const* p = input; *p != '\0'; ++p) {
        char const one[2] = {*p, '\0'};
        if (*p == '\b') {
            HandleScreenshotSaveDialogKey(&state, SDLK_BACKSPACE);
        } else {
            HandleScreenshotSaveDialogTextInput(&state, one);
        }
    }
    if (focus == kNone) {
        EXPECT_EQ(state.file_name_text + state.jpeg_quality_text, start + start);
    }
    return focus == kJpeg  ? state.jpeg_quality_text
           : focus == kPng ? state.png_compression_text
                           : state.file_name_text;
}

TEST(ScreenshotForm, TypingKeepsWhatEachFieldAccepts) {
    std::string const x179(179, 'x');
    struct Row {
        Format format;
        int focus;
        std::string start;
        char const *input, *expected;
    } const rows[] = {
        // clang-format off
        {Format::Png, kName, "", "a/b:c*\xC3\xA9\xE2\x82\xAC", "abc\xC3\xA9\xE2\x82\xAC"},
        {Format::Png, kName, "a\xC3\xA9\xE2\x82\xAC", "\b", "a\xC3\xA9\xE2\x82"},
        {Format::Png, kName, "a\xC3\xA9", "\b\b", "a"},
        {Format::Png, kName, "a\xC3\xA9", "\b\b\b", ""}, {Format::Png, kName, x179, "?yz", nullptr},
        {Format::Jpeg, kJpeg, "", "1x2-34", "123"}, {Format::Png, kPng, "", "45", "4"},
        {Format::Png, kPng, "4", "6\b6", "6"}, {Format::Png, kNone, "1", "2a\b", "1"},
        // clang-format on
    };
    for (Row const& row : rows) {
        std::string const expected = row.expected != nullptr ? row.expected : x179 + "y";
        EXPECT_EQ(Edit(row.format, row.focus, row.start, row.input), expected)
            << "typing '" << row.input << "' into field " << row.focus;
    }
    HandleScreenshotSaveDialogTextInput(nullptr, "a");
    HandleScreenshotSaveDialogKey(nullptr, SDLK_RETURN);
}

TEST(ScreenshotForm, TabMovesBetweenTheNameAndTheFormatsValue) {
    struct Row {
        Format format;
        int from, to;
    } const rows[] = {
        // clang-format off
        {Format::Jpeg, kName, kJpeg}, {Format::Jpeg, kJpeg, kName}, {Format::Png, kName, kPng},
        {Format::Png, kNone, kName}, {Format::Bmp, kName, kName},
        // clang-format on
    };
    for (Row const& row : rows) {
        ScreenshotSaveDialogState state;
        state.format = row.format;
        state.focused_field = row.from;
        state.format_list_open = true;
        HandleScreenshotSaveDialogKey(&state, SDLK_TAB);
        EXPECT_EQ(state.focused_field, row.to) << int(row.format) << " from " << row.from;
        EXPECT_FALSE(state.format_list_open);
    }
}

TEST(ScreenshotForm, ReturnCommitsTheTextsUnlessTheFormatListIsOpen) {
    ScreenshotSaveDialogState state;
    state.format_list_open = true;
    HandleScreenshotSaveDialogKey(&state, SDLK_RETURN);
    HandleScreenshotSaveDialogKey(&state, SDLK_ESCAPE);
    EXPECT_FALSE(state.done || state.format_list_open) << "Escape closed the list alone";
    state.result.jpeg_quality = 80;
    state.result.bmp_rle = false;
    state.format = Format::Jpeg;
    state.file_name_text = "boot screen.PNG";
    state.png_compression_text = "7";
    HandleScreenshotSaveDialogKey(&state, SDLK_KP_ENTER);
    ScreenshotSaveDialogResult const& r = state.result;
    EXPECT_TRUE(r.accepted && state.done);
    EXPECT_EQ(r.folder, std::filesystem::current_path().u8string());
    EXPECT_EQ(r.file_name, "boot screen.jpg");
    EXPECT_EQ(r.jpeg_quality, 80) << "an empty text keeps the starting value";
    EXPECT_EQ(r.png_compression, 7) << "taken whatever the format";
    EXPECT_FALSE(r.bmp_rle);

    state.folder_text = "/captures";
    state.file_name_text.clear();
    CommitScreenshotSaveDialogResult(&state);
    EXPECT_EQ(r.folder, "/captures");
    EXPECT_EQ(r.file_name, "zorvane_capture.jpg");
}

}  // namespace
