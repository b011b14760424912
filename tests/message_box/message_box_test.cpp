// The message box run for real through the heartbeat: what it returns for each
// gesture, what its frame shows, what it asks of SDL, and how it takes bad input.
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
using ztest::HasColor;

constexpr SDL_Color kBackground{18, 21, 27, 255};
constexpr SDL_Color kOutline{52, 58, 70, 255};
constexpr SDL_Color kContent{24, 27, 34, 255};
constexpr SDL_Color kFooter{22, 25, 32, 255};
constexpr SDL_Color kTile{20, 23, 30, 255};
constexpr SDL_Color kButton{48, 54, 68, 255};
constexpr SDL_Color kButtonHover{68, 76, 92, 255};

SdlMessageBox::Config TwoButtonConfig(Type type) {
    SdlMessageBox::Config config;
    config.title = "Disk change";
    config.message = "Insert the second floppy and press Continue.\nThe machine keeps running.";
    config.type = type;
    config.width = 420;
    config.buttons = {{7, "Cancel", false, true, nullptr}, {8, "Continue", true, false, nullptr}};
    return config;
}

class MessageBox : public ztest::DialogTest {};

TEST_F(MessageBox, EachTypeDrawsItsFrameAndAnswersTheClickedButton) {
    SDL_Color const accents[] = {{86, 172, 255, 255}, {70, 148, 255, 255}, {255, 180, 0, 255},
                                 {255, 92, 92, 255},  {255, 36, 36, 255},  {92, 204, 108, 255},
                                 {86, 172, 255, 255}};
    for (int t = 0; t <= 6; ++t) {
        SCOPED_TRACE("type " + std::to_string(t));
        ztest::ResetRecorder();
        int clicks_seen = 0;
        auto config = TwoButtonConfig(static_cast<Type>(t));
        config.buttons[1].on_click = [&] { ++clicks_seen; };
        SdlMessageBox box(config);

        ztest::Frame plain;
        ztest::Frame hovered;
        int height = 0;
        ztest::DialogScript script;
        script
            .At(3,
                [&](ztest::DialogScript& s) {
                    plain = s.Capture();
                    SDL_GetWindowSize(s.Window(), nullptr, &height);
                    s.Hover(306 + 40, height - 50 + 14);
                })
            .Then([&](ztest::DialogScript& s) {
                hovered = s.Capture();
                s.Click(306 + 83, height - 50 + 27);  // the last pixel of "Continue"
            });
        EXPECT_EQ(box.Show(nullptr, 3.0f), 8);
        EXPECT_EQ(clicks_seen, 1);
        EXPECT_FALSE(script.timed_out());
        ASSERT_FALSE(plain.empty());
        ASSERT_EQ(plain.width, 420);
        ASSERT_EQ(plain.height, height);

        int const H = height;
        EXPECT_TRUE(HasColor(plain, 4, 4, kBackground));
        EXPECT_TRUE(HasColor(plain, 419, H - 1, kBackground));
        EXPECT_TRUE(HasColor(plain, 10, 10, kOutline));
        EXPECT_TRUE(HasColor(plain, 409, H - 11, kOutline));
        EXPECT_TRUE(HasColor(plain, 12, 12, kContent));
        EXPECT_TRUE(HasColor(plain, 12, H - 14, kFooter));
        EXPECT_TRUE(HasColor(plain, 12, H - 62, kOutline));  // the line over the footer
        EXPECT_TRUE(HasColor(plain, 31, 31, accents[t]));    // strip over the tile's outline
        EXPECT_TRUE(HasColor(plain, 34, 74, accents[t]));
        EXPECT_TRUE(HasColor(plain, 35, 33, kTile));
        EXPECT_TRUE(HasColor(plain, 72, 74, kOutline));
        EXPECT_TRUE(HasColor(plain, 215, H - 49, kButton));
        EXPECT_TRUE(HasColor(plain, 307, H - 49, kButton));
        EXPECT_TRUE(HasColor(plain, 214, H - 50, {84, 92, 108, 255}));
        EXPECT_TRUE(HasColor(hovered, 307, H - 49, kButtonHover));
        EXPECT_TRUE(HasColor(hovered, 215, H - 49, kButton));
    }
}

TEST_F(MessageBox, DefaultsAGrowingWindowAndEscapeOnTheOkButtonTwice) {
    SdlMessageBox box(SdlMessageBox::Config{});
    ASSERT_EQ(box.config().buttons.size(), 1u);
    EXPECT_EQ(box.config().title, "Message");
    EXPECT_EQ(box.config().buttons[0].label, "OK");
    EXPECT_EQ(box.config().buttons[0].id, 1);
    EXPECT_EQ(box.config().width, 320);
    EXPECT_EQ(box.config().height, 140);

    for (int run = 0; run < 2; ++run) {  // Show leaves the box as it was: it runs again
        ztest::ResetRecorder();
        ztest::DialogScript script;
        script.At(4, [](ztest::DialogScript& s) { s.Key(SDLK_ESCAPE); });
        EXPECT_EQ(box.Show(nullptr, 1.0f), 1);
    }
    auto const created = ztest::RecordedCalls("SDL_CreateWindow");
    ASSERT_EQ(created.size(), 1u);
    EXPECT_EQ(created[0].text, "Message");
    EXPECT_EQ(created[0].args,
              (std::vector<long long>{0x2FFF0050, 0x2FFF0050, 320, 180, SDL_WINDOW_HIDDEN}));
    // One resize in the first turn, to the content's height (or 160), the width kept.
    auto const resized = ztest::RecordedCalls("SDL_SetWindowSize");
    ASSERT_EQ(resized.size(), 1u);
    EXPECT_EQ(resized[0].args[0], 320);
    EXPECT_GE(resized[0].args[1], 160);
    EXPECT_EQ(ztest::CountLiveObjects().windows, 0);
}

TEST_F(MessageBox, CallOrderFromOpeningToClosing) {
    SDL_Window* parent = SDL_CreateWindow("host", 100, 100, 640, 400, SDL_WINDOW_HIDDEN);
    ztest::ResetRecorder();
    SdlMessageBox box(TwoButtonConfig(Type::Info));
    ztest::DialogScript script;
    script.At(0, [](ztest::DialogScript& s) { s.Quit(); });
    EXPECT_EQ(box.Show(parent, 1.0f), -1);

    std::vector<std::string> names;
    for (auto const& call : ztest::RecordedCalls()) {
        if (call.name != "TTF_OpenFont" && call.name != "TTF_WasInit" && call.name != "TTF_Init") {
            names.push_back(call.name);
        }
    }
    std::vector<std::string> const expected = {
        "SDL_GetWindowPosition", "SDL_CreateWindow", "SDL_SetWindowModalFor",
        "SDL_CreateRenderer",  // the dummy driver may add a
    };
    ASSERT_GE(names.size(), expected.size());
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), names.begin()));
    // The closing turn still draws and shows the window once.
    auto const tail_begin = std::find(names.begin(), names.end(), "SDL_RenderPresent");
    ASSERT_NE(tail_begin, names.end());
    std::vector<std::string> const tail(tail_begin, names.end());
    EXPECT_EQ(tail,
              (std::vector<std::string>{"SDL_RenderPresent", "SDL_ShowWindow", "SDL_RaiseWindow",
                                        "SDL_SetWindowInputFocus", "SDL_Delay", "SDL_RaiseWindow",
                                        "SDL_SetWindowInputFocus", "TTF_CloseFont", "TTF_CloseFont",
                                        "TTF_CloseFont", "TTF_CloseFont", "SDL_DestroyRenderer",
                                        "SDL_DestroyWindow"}));
    EXPECT_EQ(ztest::RecordedCalls("SDL_Delay")[0].args[0], 12);
    EXPECT_EQ(ztest::RecordedCalls("SDL_RaiseWindow").back().object, parent);
    auto const created = ztest::RecordedCalls("SDL_CreateWindow");
    EXPECT_EQ(created[0].args[0], 180);
    EXPECT_EQ(created[0].args[1], 180);
    auto const live = ztest::CountLiveObjects();
    EXPECT_EQ(live.windows, 1);  // the parent alone
    EXPECT_EQ(live.renderers + live.textures + live.surfaces + live.fonts, 0);
    SDL_DestroyWindow(parent);
}

TEST_F(MessageBox, CloseGesturesAndTheirResults) {
    struct Case {
        char const* name;
        bool close_on_escape;
        bool with_cancel;
        std::function<void(ztest::DialogScript&)> gesture;
        int expected;
    };
    Case const cases[] = {
        {"escape picks the cancel button", true, true,
         [](ztest::DialogScript& s) { s.Key(SDLK_ESCAPE, true); }, 7},
        {"escape without a cancel button", true, false,
         [](ztest::DialogScript& s) { s.Key(SDLK_ESCAPE); }, -1},
        {"quit", true, true, [](ztest::DialogScript& s) { s.Quit(); }, -1},
        {"window close", true, true, [](ztest::DialogScript& s) { s.CloseWindow(); }, -1},
        {"click then quit in one turn keeps the click", true, true,
         [](ztest::DialogScript& s) {
             int h = 0;
             SDL_GetWindowSize(s.Window(), nullptr, &h);
             s.Click(220, h - 40);
             s.Quit();
         },
         7},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(c.name);
        auto config = TwoButtonConfig(Type::Warning);
        config.close_on_escape = c.close_on_escape;
        config.buttons[0].is_cancel = c.with_cancel;
        SdlMessageBox box(config);
        ztest::DialogScript script;
        script.At(2, c.gesture);
        EXPECT_EQ(box.Show(nullptr, 1.0f), c.expected);
        EXPECT_FALSE(script.timed_out());
    }
}

TEST_F(MessageBox, IgnoredInputLeavesTheBoxOpen) {
    auto config = TwoButtonConfig(Type::Question);
    config.close_on_escape = false;
    SdlMessageBox box(config);
    int h = 0;
    ztest::DialogScript script;
    script
        .At(2,
            [&](ztest::DialogScript& s) {
                SDL_GetWindowSize(s.Window(), nullptr, &h);
                s.Key(SDLK_ESCAPE);
                s.Key(SDLK_RETURN);
                s.Key(SDLK_KP_ENTER, true);
                s.Press(220, h - 40);                      // a press alone
                s.Release(220, h - 40, SDL_BUTTON_RIGHT);  // the right button
                s.Release(5, 5);                           // outside all buttons
                s.Release(306 + 84, h - 40);               // just right of the last
                SDL_Event other{};
                other.type = SDL_WINDOWEVENT;
                other.window.windowID = s.WindowId() + 100;  // another window's close
                other.window.event = SDL_WINDOWEVENT_CLOSE;
                ztest::PushEvent(other);
            })
        .Then([&](ztest::DialogScript& s) { s.Release(306 + 1, h - 50); }, 3);
    EXPECT_EQ(box.Show(nullptr, 1.0f), 8);
    EXPECT_GE(script.frame(), 5);
}

TEST_F(MessageBox, LaterQueuedClickWinsAndBothCallbacksRun) {
    std::vector<int> order;
    auto config = TwoButtonConfig(Type::Error);
    config.buttons[0].on_click = [&] { order.push_back(7); };
    config.buttons[1].on_click = [&] { order.push_back(8); };
    SdlMessageBox box(config);
    ztest::DialogScript script;
    script.At(2, [](ztest::DialogScript& s) {
        int h = 0;
        SDL_GetWindowSize(s.Window(), nullptr, &h);
        s.Press(310, h - 40);    // pressed on one button...
        s.Release(220, h - 40);  // ...released on the other: the other is chosen
        s.Click(310, h - 40);
    });
    EXPECT_EQ(box.Show(nullptr, 1.0f), 8);
    EXPECT_EQ(order, (std::vector<int>{7, 8}));
}

TEST_F(MessageBox, FailuresReturnMinusOneAndReleaseEverything) {
    SDL_Window* parent = SDL_CreateWindow("host", 0, 0, 64, 64, SDL_WINDOW_HIDDEN);
    struct Case {
        char const* name;
        void (*inject)();
    };
    Case const cases[] = {
        {"no window", [] { ztest::FailWindowOrRenderer(true); }},
        {"no renderer", [] { ztest::FailWindowOrRenderer(false); }},
        {"no font",
         [] { ztest::Faults().allow_font_path = [](std::string const&) { return false; }; }},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(c.name);
        ShutdownSdlUiCachedFonts();
        ztest::ResetRecorder();
        c.inject();
        SdlMessageBox box(TwoButtonConfig(Type::Critical));
        EXPECT_EQ(box.Show(parent, 1.0f), -1);
        EXPECT_EQ(ztest::CountCalls("SDL_RaiseWindow"), 0);
        EXPECT_EQ(ztest::CountCalls("SDL_RenderPresent"), 0);
        auto const live = ztest::CountLiveObjects();
        EXPECT_EQ(live.windows, 1);
        EXPECT_EQ(live.renderers + live.fonts, 0);
    }
    SDL_DestroyWindow(parent);
}

TEST_F(MessageBox, BadInputIsDrawnAndAnsweredWithoutHarm) {
    std::string huge;
    while (huge.size() < (1u << 20)) {
        huge += "emulated machine keeps running\n";
    }
    std::string const invalid = "bad \xFF\xFE utf8 \xC3 end \xE2\x82";

    struct Case {
        char const* name;
        SdlMessageBox::Config config;
        int expected;
    };
    SdlMessageBox::Config many;
    for (int i = 0; i < 1000; ++i) {
        many.buttons.push_back({i, invalid, false, i == 999, nullptr});
    }
    SdlMessageBox::Config megabyte;
    megabyte.message = huge;
    SdlMessageBox::Config broken;
    broken.title = invalid;
    broken.message = invalid + "\n" + invalid;
    broken.type = static_cast<Type>(250);
    broken.width = -50;
    broken.height = -7;
    broken.buttons = {{3, invalid, false, true, nullptr}};
    Case const cases[] = {{"1000 buttons", many, 999},
                          {"one megabyte", megabyte, 1},
                          {"invalid utf-8 and sizes", broken, 3}};
    for (Case const& c : cases) {
        SCOPED_TRACE(c.name);
        ztest::ResetRecorder();
        SdlMessageBox box(c.config);
        ztest::DialogScript script;
        script.At(2, [](ztest::DialogScript& s) { s.Key(SDLK_ESCAPE); });
        EXPECT_EQ(box.Show(nullptr, 1.0f), c.expected);
        auto const live = ztest::CountLiveObjects();
        EXPECT_EQ(live.windows + live.renderers + live.textures + live.surfaces + live.fonts, 0);
    }
}

TEST_F(MessageBox, LayoutOfANarrowWindowWithFourButtons) {
    SdlMessageBox::Config config;
    config.buttons.resize(4);
    config.message = "x";
    SdlMessageBoxLayout const l =
        BuildSdlMessageBoxLayout(config, 1.0f, 320, 200, nullptr, nullptr);
    EXPECT_EQ(l.buttons_x, 30);  // held at margin + padding; the row runs past the edge
    EXPECT_EQ(l.buttons_y, 200 - 10 - 52 + 12);
    EXPECT_EQ(l.text_x, 10 + 1 + 20 + 42 + 12);
    EXPECT_EQ(l.text_width, 320 - 10 - 1 - 20 - l.text_x);
    EXPECT_EQ(l.title_height, 16);
    EXPECT_EQ(l.line_height, 14);
    EXPECT_TRUE(l.lines.empty()) << "no message font, no lines";
    EXPECT_EQ(l.message_rect.y, 31 + 44 + 12);
    EXPECT_EQ(l.message_rect.h, 40);  // 200 leaves less than 40 above the padding
    EXPECT_EQ(l.min_height, 160);

    // Scaled measures round first and are then raised to their lower limits.
    SdlMessageBoxLayout const big =
        BuildSdlMessageBoxLayout(config, 1.5f, 900, 400, nullptr, nullptr);
    SdlMessageBoxLayout const small =
        BuildSdlMessageBoxLayout(config, 0.5f, 900, 400, nullptr, nullptr);
    EXPECT_EQ(std::vector<int>({big.margin, big.footer_height, big.min_height, small.margin,
                                small.button_width, small.min_height}),
              std::vector<int>({15, 78, 240, 6, 84, 160}));
}

}  // namespace
