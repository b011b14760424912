// Wrapping and measuring on a real font: line feeds, collapsed blanks, long words.
#include "message_box/message_box_internal.h"

#include <gtest/gtest.h>

namespace {

using namespace zorvane::frontend::gui;
using Lines = std::vector<std::string>;

class WrapTextOnRealFont : public ::testing::Test {
protected:
    void SetUp() override {
        font_ = GetCachedSdlUiFont(14, false, kSemiBold);
        ASSERT_NE(font_, nullptr);
    }
    int Width(std::string const& text) const {
        int w = 0;
        TTF_SizeUTF8(font_, text.c_str(), &w, nullptr);
        return w;
    }
    TTF_Font* font_ = nullptr;
};

TEST_F(WrapTextOnRealFont, LineFeedsBlanksAndTabs) {
    struct Case {
        std::string text;
        Lines expected;
    };
    Case const cases[] = {
        {"a\n\nb", {"a", "", "b"}},
        {"a\n", {"a"}},
        {"   ", {""}},
        {"", {""}},
        {"\n", {""}},
        {"  lead\t\t and   runs  ", {"lead and runs"}},
        {"cr\r\nkept", {"cr\r", "kept"}},
    };
    for (Case const& c : cases) {
        EXPECT_EQ(WrapText(font_, c.text, 1000), c.expected) << c.text;
    }
}

TEST_F(WrapTextOnRealFont, WrapsAtTheWidthAndLetsLongWordsStandAlone) {
    std::string const text =
        "The emulated machine keeps running while this dialog is open, frame after frame.";
    int const limit = Width("The emulated machine keeps");
    Lines const lines = WrapText(font_, text, limit);
    ASSERT_GE(lines.size(), 3u);
    EXPECT_EQ(lines[0], "The emulated machine keeps");
    std::string joined;
    for (std::string const& line : lines) {
        EXPECT_LE(Width(line), limit) << line;
        joined += (joined.empty() ? "" : " ") + line;
    }
    EXPECT_EQ(joined, text);

    std::string const word(80, 'W');
    EXPECT_EQ(WrapText(font_, "ab " + word + " cd", 100), (Lines{"ab", word, "cd"}));
    // The limit never goes below 40 pixels.
    EXPECT_EQ(WrapText(font_, "i i", -5), WrapText(font_, "i i", 40));
}

}  // namespace
