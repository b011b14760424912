// The message box under bad input, run twice, and its text wrapping.
#include "gui/message_box.h"

#include "message_box/message_box_internal.h"
#include "support/dialog_script.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace {
using namespace zorvane::frontend::gui;
using Type = SdlMessageBox::Type;
using Script = ztest::DialogScript;

class MessageBox : public ztest::DialogTest {};

TEST_F(MessageBox, BadInputRunsWithoutHarmAndShowRunsAgain) {
    std::string const invalid = "bad \xFF\xFE utf8 \xC3 end \xE2\x82";
    std::string huge;
    while (huge.size() < (1u << 20)) {
        huge += "emulated machine keeps running\n";
    }
    std::vector<SdlMessageBox::Button> const many(1000, {9, invalid, false, true, {}});
    std::tuple<char const*, SdlMessageBox::Config, int> const cases[] = {
        {"empty title and message, no buttons, size 0", {"", "", {}, {}, 0, 0}, 1},
        {"negative size, type 250, 1 MB message", {"T", huge, Type(250), {many[0]}, -50, -7}, 9},
        {"invalid UTF-8 everywhere, 1000 buttons", {invalid, invalid, {}, many}, 9},
    };
    for (auto const& [name, config, expected] : cases) {
        SCOPED_TRACE(name);
        SdlMessageBox box(config);
        for (int run = 0; run < 2; ++run) {  // Show leaves the box as it was
            Script script;
            script.At(2, [](Script& s) { s.Key(SDLK_ESCAPE); });
            EXPECT_EQ(box.Show(nullptr, 1.0f), expected);
        }
        EXPECT_EQ(ztest::CountLiveObjects().textures + ztest::CountLiveObjects().surfaces, 0);
    }
}

TEST(WrapText, BreaksAtLineFeedsCollapsesBlanksAndKeepsLongWordsWhole) {
    TTF_Font* font = GetCachedSdlUiFont(14, false, kSemiBold);
    ASSERT_NE(font, nullptr);
    int first_line = 0;  // the width of the first line of the long text below
    TTF_SizeUTF8(font, "The emulated machine keeps", &first_line, nullptr);
    std::string const word(80, 'W');
    std::tuple<std::string, int, std::vector<std::string>> const cases[] = {
        {"a\n\nb\n", 1000, {"a", "", "b"}},
        {"  lead\t\t and   runs  ", 1000, {"lead and runs"}},
        {"ab " + word + " cd", 100, {"ab", word, "cd"}},
        {"i i", -5, {"i i"}},  // never narrower than 40 pixels
        {"The emulated machine keeps running while this dialog is open.",
         first_line,
         {"The emulated machine keeps", "running while this dialog is", "open."}}};
    for (auto const& [text, limit, lines] : cases) {
        EXPECT_EQ(WrapText(font, text, limit), lines) << text;
    }
    ShutdownSdlUiCachedFonts();
}
}  // namespace
