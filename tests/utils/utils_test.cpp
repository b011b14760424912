// The utility stand-in: lowering, left ellipsis by characters, file name bytes,
// path components and whole-file reads.
#include "zorvane/utils.h"

#include "support/temp_dir.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace zorvane::utils;

TEST(Utils, AsciiToLowerTouchesOnlyAToZ) {
    EXPECT_EQ(ascii_to_lower("ABC.Ttf"), "abc.ttf");
    EXPECT_EQ(ascii_to_lower("\xC3\x84Z@[`{"), "\xC3\x84z@[`{");  // Ä stays, neighbours of A-Z too
    EXPECT_EQ(ascii_to_lower(std::string("A\0B", 3)), std::string("a\0b", 3));
}

TEST(Utils, EllipsizeLeftCountsCharactersAndKeepsThemWhole) {
    struct Case {
        std::string text;
        unsigned long long limit;
        std::string expected;
    };
    std::string const umlauts = "\xC3\xA4\xC3\xB6\xC3\xBC\xC3\xA4\xC3\xB6";  // äöüäö
    Case const cases[] = {
        {"", 5, ""},
        {"short", 5, "short"},
        {"/home/user/floppies", 10, "...loppies"},
        {umlauts, 5, umlauts},        // 10 bytes, 5 characters: fits
        {umlauts, 4, "...\xC3\xB6"},  // never half a character
        {"abcdef", 3, "def"},         // no room for the marker
        {"abcdef", 0, ""},
        {"\x80\x80"
         "abc",
         2, "bc"},                       // stray continuation bytes
        {"ab\xE2\x82", 2, "b\xE2\x82"},  // truncated character stays with its lead
    };
    for (Case const& c : cases) {
        EXPECT_EQ(ellipsize_left(c.text, c.limit), c.expected) << c.text << " / " << c.limit;
    }
}

TEST(Utils, FilenameCharsRefuseControlAndReservedBytesButAdmitUtf8) {
    for (char c : std::string("/\\:*?\"<>|\x01\x1F\x7F\t\n")) {
        EXPECT_FALSE(is_allowed_filename_char(c)) << static_cast<int>(c);
    }
    EXPECT_FALSE(is_allowed_filename_char('\0'));
    for (char c : std::string("aZ09 ._-()[]~!#%&+,;=@\xC3\xA4\xE2\x82\xAC")) {
        EXPECT_TRUE(is_allowed_filename_char(c)) << static_cast<int>(c);
    }
}

TEST(Utils, PathComponentsAndStems) {
    EXPECT_EQ(filename_from_path("/usr/share/fonts/a.ttf"), "a.ttf");
    EXPECT_EQ(filename_from_path("C:\\Fonts\\b.ttf"), "b.ttf");
    EXPECT_EQ(filename_from_path("dir/sub/"), "sub");
    EXPECT_EQ(filename_from_path("plain"), "plain");
    EXPECT_EQ(filename_from_path("///"), "");

    struct Case {
        char const* path;
        char const* expected;
    };
    Case const cases[] = {
        {"shot.png", "shot"},
        {"shot", "shot"},
        {"a.b.PNG", "a.b"},
        {"", "zorvane_capture"},
        {".", "zorvane_capture"},
        {"..", "zorvane_capture"},
        {"dir/x.jpg", "x"},
        {".profile", ".profile"},
        {"name.", "name"},
        {"/", "zorvane_capture"},
        {"\xC3\xA4.bmp", "\xC3\xA4"},
    };
    for (Case const& c : cases) {
        EXPECT_EQ(stem_or_filename_from_path(c.path, "zorvane_capture"), c.expected) << c.path;
    }
}

TEST(Utils, ReadTextFileIsBinarySafeAndFailsCleanly) {
    ztest::TempDir dir;
    std::string const content("line\r\n\0binary\xFF\n", 15);
    auto const file = dir.Write("f.glsl", content);

    std::string text = "stale";
    std::string error;
    ASSERT_TRUE(read_text_file(file, text, error, "cannot open file", "cannot read file"));
    EXPECT_EQ(text, content);
    EXPECT_TRUE(error.empty());

    auto const empty = dir.Write("empty.glsl", "");
    EXPECT_TRUE(read_text_file(empty, text, error, "cannot open file", "cannot read file"));
    EXPECT_EQ(text, "");

    for (auto const& bad : {dir.path(), dir.path() / "missing.glsl"}) {
        text = "stale";
        error.clear();
        EXPECT_FALSE(read_text_file(bad, text, error, "cannot open file", "cannot read file"));
        EXPECT_EQ(text, "");
        EXPECT_EQ(error, "cannot open file");
    }
}

}  // namespace
