// The utility stand-in: left ellipsis by UTF-8 character, file name bytes, whole-file reads.
#include "zorvane/utils.h"

#include "support/temp_dir.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {
using namespace zorvane::utils;

TEST(Utils, EllipsisCountsCharactersAndFileNamesRefuseControlAndReservedBytes) {
    auto const allowed = [](std::string text) {
        for (char& c : text) {
            c = is_allowed_filename_char(c) ? '+' : '-';
        }
        return text;
    };
    std::string const umlauts = "\xC3\xA4\xC3\xB6\xC3\xBC\xC3\xA4\xC3\xB6";  // 5 characters
    std::tuple<std::string, unsigned long long, std::string> const cases[] = {
        {"/home/user/floppies", 10, "...loppies"},
        {umlauts, 5, umlauts},        // 10 bytes that fit as 5 characters
        {umlauts, 4, "...\xC3\xB6"},  // never half a character
        {"abcdef", 3, "def"},         // no room for the marker
        {std::string("/\\:*?\"<>|\x01\x1F\x7F\t\n") + '\0', 0, "---------------"},
        {"aZ09 ._-()[]~!#%&+,;=@\xC3\xA4\xE2\x82\xAC", 0, std::string(27, '+')},
    };
    for (auto const& [text, limit, expected] : cases) {
        EXPECT_EQ(limit ? ellipsize_left(text, limit) : allowed(text), expected) << text;
    }
    EXPECT_EQ(filename_from_path("fonts/Mono Retro.ttf") + "|" + filename_from_path("C:\\f\\a/") +
                  "|" + stem_or_filename_from_path("a/b.c.png", "fallback"),
              "Mono Retro.ttf|a|b.c");
}

TEST(Utils, ReadTextFileIsBinarySafeAndFailsCleanly) {
    auto read = [](std::filesystem::path const& path) {
        std::string text = "stale", error;
        bool const ok = read_text_file(path, text, error, "cannot open", "cannot read");
        return (ok ? "read " : "failed ") + text + "|" + error;
    };
    ztest::TempDir dir;
    std::string const content("line\r\n\0binary\xFF\n", 15);
    auto const file = dir.Write("f.glsl", content);
    EXPECT_EQ(read(file), "read " + content + "|");
    EXPECT_EQ(read(dir.path()), "failed |cannot open");
#ifdef __linux__
    EXPECT_EQ(read("/proc/self/mem"), "failed |cannot read");  // opens, but fails to read
#else
    GTEST_SKIP() << "a file that opens but cannot be read is Linux's /proc/self/mem";
#endif
}
}  // namespace
