// The utility stand-in: text, path and file name helpers on their edge texts, and
// whole-file reads.
#include "zorvane/utils.h"

#include "support/temp_dir.h"
#include "support/unprivileged.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include <sys/stat.h>

namespace {

using namespace zorvane::utils;
using Helper = std::function<std::string(std::string const&)>;

Helper Ellipsize(unsigned long long limit) {
    return [limit](std::string const& text) { return ellipsize_left(text, limit); };
}

TEST(Utils, TextPathAndFileNameHelpersOnTheirEdgeTexts) {
    Helper const lower = [](std::string const& t) { return ascii_to_lower(t); };
    Helper const name = [](std::string const& t) { return filename_from_path(t); };
    Helper const stem = [](std::string const& t) { return stem_or_filename_from_path(t, "cap"); };
    Helper const allowed = [](std::string const& t) {
        std::string marks;
        for (char c : t) {
            marks += is_allowed_filename_char(c) ? '+' : '-';
        }
        return marks;
    };
    std::string const umlauts = "\xC3\xA4\xC3\xB6\xC3\xBC\xC3\xA4\xC3\xB6";  // 5 characters
    struct Case {
        Helper helper;
        std::string text, expected;
    };
    Case const cases[] = {
        {lower, std::string("AZ\0\xC3\x84@[`{", 9), std::string("az\0\xC3\x84@[`{", 9)},
        {allowed, std::string("/\\:*?\"<>|\x01\x1F\x7F\t\n") + '\0', "---------------"},
        {allowed, "aZ09 ._-()[]~!#%&+,;=@\xC3\xA4\xE2\x82\xAC", std::string(27, '+')},
        {Ellipsize(10), "/home/user/floppies", "...loppies"},
        {Ellipsize(5), umlauts, umlauts},        // 10 bytes that fit as 5 characters
        {Ellipsize(4), umlauts, "...\xC3\xB6"},  // never half a character
        {Ellipsize(3), "abcdef", "def"},         // no room for the marker
        {Ellipsize(0), "abcdef", ""},
        {Ellipsize(2), "\x80\x80xyz", "yz"},        // stray continuation bytes
        {Ellipsize(2), "ab\xE2\x82", "b\xE2\x82"},  // a cut-off character stays with its lead
        {name, "/usr/share/fonts/a.ttf", "a.ttf"},
        {name, "C:\\Fonts\\b.ttf", "b.ttf"},
        {name, "dir/sub/", "sub"},
        {name, "///", ""},
        {stem, "a.b.PNG", "a.b"},
        {stem, "dir/x.jpg", "x"},
        {stem, ".profile", ".profile"},
        {stem, "name.", "name"},
        {stem, "\xC3\xA4.bmp", "\xC3\xA4"},
        {stem, "", "cap"},
        {stem, ".", "cap"},
        {stem, "..", "cap"},
        {stem, "/", "cap"},
    };
    for (Case const& c : cases) {
        EXPECT_EQ(c.helper(c.text), c.expected) << c.text;
    }
}

TEST(Utils, ReadTextFileIsBinarySafeAndFailsCleanly) {
    auto read = [](std::filesystem::path const& path) {
        std::string text = "stale";
        std::string error;
        bool const ok = read_text_file(path, text, error, "cannot open", "cannot read");
        return (ok ? "read " : "failed ") + text + "|" + error;
    };
    ztest::TempDir dir;
    std::string const content("line\r\n\0binary\xFF\n", 15);
    EXPECT_EQ(read(dir.Write("f.glsl", content)), "read " + content + "|");
    EXPECT_EQ(read(dir.Write("empty.glsl", "")), "read |");
    EXPECT_EQ(read(dir.path()), "failed |cannot open");
    EXPECT_EQ(read(dir.path() / "missing.glsl"), "failed |cannot open");
    auto const locked = dir.Write("locked.glsl", content);
    chmod(dir.path().c_str(), 0755);
    chmod(locked.c_str(), 0);
    ztest::ChildOutcome const child = ztest::RunAsUnprivilegedUser([&] { return read(locked); });
    ASSERT_TRUE(child.unprivileged);
    EXPECT_EQ(child.output, "failed |cannot open");
}

}  // namespace
