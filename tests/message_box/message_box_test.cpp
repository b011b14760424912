// The message box run for real: its frame and answer per type, bad input shown
// twice, and the wrapping of its text on a real font.
#include "gui/message_box.h"

#include "message_box/message_box_internal.h"
#include "support/dialog_checks.h"
#include "support/dialog_script.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace zorvane::frontend::gui;
using Type = SdlMessageBox::Type;
using Script = ztest::DialogScript;
using ztest::HasColor;

int LiveObjects() {
    ztest::LiveObjects const o = ztest::CountLiveObjects();
    return o.windows + o.renderers + o.textures + o.surfaces + o.fonts;
}

class MessageBox : public ztest::DialogTest {};

TEST_F(MessageBox, EachTypeDrawsItsFrameAndTheLastQueuedClickAnswers) {
    SDL_Color const accents[] = {{86, 172, 255, 255}, {70, 148, 255, 255}, {255, 180, 0, 255},
                                 {255, 92, 92, 255},  {255, 36, 36, 255},  {92, 204, 108, 255},
                                 {86, 172, 255, 255}};  // above 5: like Info
    for (int t = 0; t <= 6; ++t) {
        SCOPED_TRACE("type " + std::to_string(t));
        std::vector<int> clicked;
        SdlMessageBox::Config config;
        config.message = "Insert the second floppy and press Continue.\nThe machine keeps running.";
        config.type = static_cast<Type>(t);
        config.width = 420;
        config.buttons = {{7, "Cancel", false, true, [&] { clicked.push_back(7); }},
                          {8, "Continue", true, false, [&] { clicked.push_back(8); }}};
        ztest::Frame frame;
        int H = 0;
        Script script;
        script
            .At(3,
                [&](Script& s) {
                    SDL_GetWindowSize(s.Window(), nullptr, &H);
                    s.Hover(346, H - 36);  // over Continue
                })
            .Then([&](Script& s) {
                frame = s.Capture();
                s.Click(220, H - 40);  // Cancel, then the last pixel of Continue, then a quit
                s.Click(389, H - 23);
                s.Quit();
            });
        EXPECT_EQ(SdlMessageBox(config).Show(nullptr, 3.0f), 8);
        EXPECT_EQ(clicked, (std::vector<int>{7, 8}));
        ASSERT_EQ(frame.width, 420);
        EXPECT_TRUE(HasColor(frame, 4, 4, {18, 21, 27, 255}));  // outside the outline
        EXPECT_TRUE(HasColor(frame, 419, H - 1, {18, 21, 27, 255}));
        EXPECT_TRUE(HasColor(frame, 10, 10, {52, 58, 70, 255}));  // the outline at the margin
        EXPECT_TRUE(HasColor(frame, 409, H - 11, {52, 58, 70, 255}));
        EXPECT_TRUE(HasColor(frame, 12, H - 14, {22, 25, 32, 255}));   // footer
        EXPECT_TRUE(HasColor(frame, 31, 31, accents[t]));              // the icon's accent strip
        EXPECT_TRUE(HasColor(frame, 215, H - 49, {48, 54, 68, 255}));  // Cancel
        EXPECT_TRUE(HasColor(frame, 307, H - 49, {68, 76, 92, 255}));  // Continue, hovered
    }
}

TEST_F(MessageBox, BadInputRunsWithoutHarmAndShowRunsAgain) {
    std::string const invalid = "bad \xFF\xFE utf8 \xC3 end \xE2\x82";
    std::string huge;
    while (huge.size() < (1u << 20)) {
        huge += "emulated machine keeps running\n";
    }
    std::vector<SdlMessageBox::Button> many;
    for (int i = 0; i < 1000; ++i) {
        many.push_back({i, invalid, false, i == 999, nullptr});
    }
    struct Case {
        char const* name;
        std::function<void(SdlMessageBox::Config&)> change;
        int expected;
    };
    Case const cases[] = {
        {"empty title", [](auto& c) { c.title.clear(); }, 4},
        {"no buttons", [](auto& c) { c.buttons.clear(); }, 1},
        {"zero size", [](auto& c) { c.width = c.height = 0; }, 4},
        {"negative size", [](auto& c) { c.width = -50, c.height = -7; }, 4},
        {"1 MB message", [&](auto& c) { c.message = huge; }, 4},
        {"invalid UTF-8", [&](auto& c) { c.title = c.message = c.buttons[0].label = invalid; }, 4},
        {"1000 buttons", [&](auto& c) { c.buttons = many; }, 999},
        {"type 6", [](auto& c) { c.type = static_cast<Type>(6); }, 4},
        {"type 250", [](auto& c) { c.type = static_cast<Type>(250); }, 4},
    };
    int const live_before = LiveObjects();
    for (Case const& c : cases) {
        SCOPED_TRACE(c.name);
        SdlMessageBox::Config config;
        config.title = "Title";
        config.message = "Message";
        config.buttons = {{4, "Go", false, true, nullptr}};
        c.change(config);
        SdlMessageBox box(config);
        for (int run = 0; run < 2; ++run) {  // Show leaves the box as it was
            Script script;
            script.At(2, [](Script& s) { s.Key(SDLK_ESCAPE); });
            EXPECT_EQ(box.Show(nullptr, 1.0f), c.expected);
            EXPECT_FALSE(script.timed_out());
        }
        EXPECT_EQ(LiveObjects(), live_before);
    }
}

TEST(WrapText, BreaksAtLineFeedsCollapsesBlanksAndKeepsLongWordsWhole) {
    TTF_Font* font = GetCachedSdlUiFont(14, false, kSemiBold);
    ASSERT_NE(font, nullptr);
    int first_line = 0;  // the width of the first line of the long text below
    TTF_SizeUTF8(font, "The emulated machine keeps", &first_line, nullptr);
    using Lines = std::vector<std::string>;
    std::string const word(80, 'W');
    struct Case {
        std::string text;
        int limit;
        Lines expected;
    };
    Case const cases[] = {
        {"a\n\nb", 1000, {"a", "", "b"}},
        {"a\n", 1000, {"a"}},
        {"   ", 1000, {""}},
        {"", 1000, {""}},
        {"\n", 1000, {""}},
        {"  lead\t\t and   runs  ", 1000, {"lead and runs"}},
        {"cr\r\nkept", 1000, {"cr\r", "kept"}},
        {"ab " + word + " cd", 100, {"ab", word, "cd"}},
        {"i i", -5, {"i i"}},  // never narrower than 40 pixels
        {"The emulated machine keeps running while this dialog is open.",
         first_line,
         {"The emulated machine keeps", "running while this dialog is", "open."}}};
    for (Case const& c : cases) {
        EXPECT_EQ(WrapText(font, c.text, c.limit), c.expected) << c.text;
    }
    ShutdownSdlUiCachedFonts();
}

}  // namespace
