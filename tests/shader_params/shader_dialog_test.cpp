// The shader parameter dialog run for real: the wheel, slider and scrollbar drags,
// resizing, the ways to apply and to leave, what a frame shows, and the boxes it
// shows instead of a window.
#include "gui/shader_params.h"

#include "support/dialog_script.h"
#include "support/temp_dir.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace zorvane::frontend::gui;
using Values = std::vector<ShaderParameterValue>;

// Six rows: the window opens at 900 x 500 with 88 pixels to scroll. Row r's top is
// at 20 + 80 r - scroll, its slider bar at top + 34, x 260 to 534.
constexpr char kSixParameters[] =
    "#pragma parameter A \"Alpha\" 0.5 0 1 0.25\n"
    "#pragma parameter B \"Beta\" 0.5 0 1 0\n"
    "#pragma parameter C \"Gamma\" 2 0 10 1\n"
    "#pragma parameter D \"Delta\" 0 -1 1 0.5\n"
    "#pragma parameter E \"Epsilon\" 1 0 2 0.1\n"
    "#pragma parameter F \"Zeta\" 3 0 4 1\n";

testing::AssertionResult HasColor(ztest::Frame const& frame, int x, int y, SDL_Color want) {
    SDL_Color const got = frame.At(x, y);
    if (got.r == want.r && got.g == want.g && got.b == want.b) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << "at " << x << "," << y << ": got " << int(got.r) << "," << int(got.g) << ","
           << int(got.b) << " want " << int(want.r) << "," << int(want.g) << "," << int(want.b);
}

// Whether anything but `background` was drawn inside the rectangle, as text would be.
bool HasInk(ztest::Frame const& frame, SDL_Rect const& area, SDL_Color background) {
    for (int y = area.y; y < area.y + area.h; ++y) {
        for (int x = area.x; x < area.x + area.w; ++x) {
            if (!HasColor(frame, x, y, background)) {
                return true;
            }
        }
    }
    return false;
}

float ValueOf(Values const& values, char const* name) {
    for (ShaderParameterValue const& entry : values) {
        if (entry.name == name) {
            return entry.value;
        }
    }
    ADD_FAILURE() << "no value named " << name;
    return -999.0f;
}

class ShaderDialog : public ztest::DialogTest {
protected:
    void SetUp() override {
        ztest::DialogTest::SetUp();
        ztest::Faults().skip_delays = true;
        shader_ = dir_.Write("six.glsl", kSixParameters).string();
    }

    ShaderDialogResult Run(Values const& overrides = {}) {
        return ShowShaderParameterDialog(
            nullptr, shader_, 1.0f, [this](Values const& values) { applied_.push_back(values); },
            overrides);
    }

    ztest::TempDir dir_;
    std::string shader_;
    std::vector<Values> applied_;
};

constexpr SDL_Color kClear{18, 20, 26, 255};
constexpr SDL_Color kHeader{26, 28, 36, 255};
constexpr SDL_Color kCard{32, 36, 44, 255};
constexpr SDL_Color kCardOutline{58, 64, 74, 255};
constexpr SDL_Color kBar{52, 56, 64, 255};
constexpr SDL_Color kBarOutline{78, 86, 96, 255};
constexpr SDL_Color kFilled{106, 156, 255, 255};
constexpr SDL_Color kKnob{126, 176, 255, 255};
constexpr SDL_Color kTrack{30, 33, 40, 255};
constexpr SDL_Color kThumb{72, 80, 94, 255};
constexpr SDL_Color kThumbOutline{96, 108, 128, 255};
constexpr SDL_Color kFooter{26, 30, 38, 255};
constexpr SDL_Color kFooterLine{60, 66, 78, 255};
constexpr SDL_Color kButton{48, 52, 60, 255};
constexpr SDL_Color kButtonOutline{84, 92, 104, 255};

TEST_F(ShaderDialog, FrameShowsHeaderCardsSlidersScrollbarAndFooter) {
    ztest::Frame frame;
    ztest::DialogScript script;
    script.At(3, [&](ztest::DialogScript& s) {
        frame = s.Capture();
        s.Key(SDLK_ESCAPE);
    });
    ShaderDialogResult const result = Run();
    EXPECT_FALSE(result.accepted);
    ASSERT_EQ(frame.width, 900);
    ASSERT_EQ(frame.height, 500);

    EXPECT_TRUE(HasColor(frame, 880, 10, kHeader));
    EXPECT_TRUE(HasColor(frame, 100, 30, kHeader));  // row 0's card is clipped under the header
    EXPECT_TRUE(HasInk(frame, {12, 4, 120, 14}, kHeader));
    EXPECT_TRUE(HasColor(frame, 100, 96, kClear));   // between two cards
    EXPECT_TRUE(HasColor(frame, 875, 120, kClear));  // between the cards and the scrollbar
    // Row 1 (Beta at 0.5): card (12, 100, 858, 74), bar (260, 134, 275, 13) half filled.
    EXPECT_TRUE(HasColor(frame, 12, 120, kCardOutline));
    EXPECT_TRUE(HasColor(frame, 869, 120, kCardOutline));
    EXPECT_TRUE(HasColor(frame, 200, 173, kCardOutline));
    EXPECT_TRUE(HasColor(frame, 200, 160, kCard));
    EXPECT_TRUE(HasColor(frame, 270, 140, kFilled));
    EXPECT_TRUE(HasColor(frame, 391, 140, kFilled));
    EXPECT_TRUE(HasColor(frame, 392, 131, kKnob));  // 260 + 138 - 6, above the bar
    EXPECT_TRUE(HasColor(frame, 403, 150, kKnob));
    EXPECT_TRUE(HasColor(frame, 404, 140, kBar));
    EXPECT_TRUE(HasColor(frame, 534, 140, kBarOutline));
    EXPECT_TRUE(HasColor(frame, 450, 134, kBarOutline));
    EXPECT_TRUE(HasInk(frame, {14, 105, 60, 16}, kCard));    // label
    EXPECT_TRUE(HasInk(frame, {545, 104, 60, 14}, kCard));   // value
    EXPECT_TRUE(HasInk(frame, {545, 119, 200, 14}, kCard));  // range
    EXPECT_FALSE(HasInk(frame, {545, 145, 300, 25}, kCard));
    // Row 0 (Alpha at 0.5 of 0..1) is filled to the same width, row 2 (Gamma, 2 of 10) less.
    EXPECT_TRUE(HasColor(frame, 391, 60, kFilled));
    EXPECT_TRUE(HasColor(frame, 300, 220, kFilled));
    EXPECT_TRUE(HasColor(frame, 320, 220, kKnob));  // 260 + 55 - 6 up to 320
    EXPECT_TRUE(HasColor(frame, 321, 220, kBar));
    // Scrollbar of six rows: track (882, 36, 14, 412), thumb 339 high at the top.
    EXPECT_TRUE(HasColor(frame, 882, 100, kThumbOutline));
    EXPECT_TRUE(HasColor(frame, 888, 100, kThumb));
    EXPECT_TRUE(HasColor(frame, 888, 374, kThumbOutline));
    EXPECT_TRUE(HasColor(frame, 888, 400, kTrack));
    // Footer band from y 448, buttons at (708, 461) and (802, 461), 78 x 26.
    EXPECT_TRUE(HasColor(frame, 10, 448, kFooterLine));
    EXPECT_TRUE(HasColor(frame, 10, 480, kFooter));
    EXPECT_TRUE(HasColor(frame, 708, 470, kButtonOutline));
    EXPECT_TRUE(HasColor(frame, 711, 484, kButton));
    EXPECT_TRUE(HasColor(frame, 879, 486, kButtonOutline));
    EXPECT_TRUE(HasColor(frame, 805, 484, kButton));
    EXPECT_TRUE(HasInk(frame, {718, 467, 50, 16}, kButton));
    EXPECT_TRUE(HasInk(frame, {812, 467, 50, 16}, kButton));
}

TEST_F(ShaderDialog, WheelScrollsAndStepsTheRowUnderThePointer) {
    ztest::Frame scrolled;
    ztest::DialogScript script;
    script.At(2, [](ztest::DialogScript& s) { s.Hover(300, 140); })
        .Then([](ztest::DialogScript& s) { s.Wheel(1); })   // nothing to scroll; B up
        .Then([](ztest::DialogScript& s) { s.Wheel(-1); })  // scroll 40; row 2, C down
        .Then([](ztest::DialogScript& s) { s.Wheel(3); })   // scroll 0; B up one step
        .Then([](ztest::DialogScript& s) {
            s.Hover(300, 30);  // over the header
            s.Wheel(-1);
        })
        .Then([](ztest::DialogScript& s) {
            s.Hover(300, 460);  // over the footer
            s.Wheel(-1);
        })
        .Then([](ztest::DialogScript& s) {
            s.Hover(300, 140);
            s.Leave();  // the pointer is in another window
            s.Wheel(-1);
        })
        .Then([](ztest::DialogScript& s) {
            s.Hover(300, 430);  // below the last row once scrolled to the end
            s.Wheel(-5);
        })
        .Then([&](ztest::DialogScript& s) {
            scrolled = s.Capture();
            s.Key(SDLK_RETURN);
        })
        .Then([](ztest::DialogScript& s) { s.Wheel(1); })  // scroll 48; row 5, F up
        .Then([](ztest::DialogScript& s) { s.Key(SDLK_ESCAPE); });
    ShaderDialogResult const result = Run();
    EXPECT_FALSE(script.timed_out());
    EXPECT_FALSE(result.accepted);

    ASSERT_EQ(applied_.size(), 1u);
    Values const& at_apply = applied_[0];
    EXPECT_FLOAT_EQ(ValueOf(at_apply, "B"), 0.5f + 0.02f + 0.02f);
    EXPECT_FLOAT_EQ(ValueOf(at_apply, "C"), 1.0f);
    for (char const* unchanged : {"A", "D", "E"}) {
        EXPECT_EQ(ValueOf(at_apply, unchanged), ValueOf(result.values, unchanged));
    }
    EXPECT_EQ(ValueOf(at_apply, "F"), 3.0f);
    EXPECT_EQ(ValueOf(result.values, "F"), 4.0f);
    // Scrolled to the end (88): the thumb sits at 36 + 73, row 5's card ends at 411.
    EXPECT_TRUE(HasColor(scrolled, 888, 100, kTrack));
    EXPECT_TRUE(HasColor(scrolled, 888, 120, kThumb));
    EXPECT_TRUE(HasColor(scrolled, 200, 405, kCardOutline));
    EXPECT_TRUE(HasColor(scrolled, 200, 420, kClear));
}

TEST_F(ShaderDialog, ContinuousWheelStepIsTwoPercentOfTheRange) {
    dir_.Write("wide.glsl", "#pragma parameter W \"Wide\" 10 -40 60 0\n");
    ztest::DialogScript script;
    script.At(2, [](ztest::DialogScript& s) { s.Hover(400, 80); })
        .Then([](ztest::DialogScript& s) { s.Wheel(-7); })
        .Then([](ztest::DialogScript& s) { s.Key(SDLK_KP_ENTER); })
        .Then([](ztest::DialogScript& s) { s.Quit(); });
    ShaderDialogResult const result =
        ShowShaderParameterDialog(nullptr, (dir_.path() / "wide.glsl").string(), 1.0f, nullptr, {});
    EXPECT_TRUE(result.accepted);  // applied without a callback, then quit
    ASSERT_EQ(result.values.size(), 1u);
    EXPECT_FLOAT_EQ(result.values[0].value, 8.0f);
}

TEST_F(ShaderDialog, SliderDragFollowsThePointerOutOfItsRowUntilRelease) {
    ztest::DialogScript script;
    script
        .At(2,
            [](ztest::DialogScript& s) {
                s.Press(200, 140);  // in row 1, left of its slider
                s.Press(400, 131);  // on the knob, above the bar
                s.Press(300, 140, SDL_BUTTON_RIGHT);
                s.Motion(500, 140);
            })
        .Then([](ztest::DialogScript& s) {
            s.Press(397, 140);  // B: 137 / 275
            s.Motion(700, 400);
        })
        .Then([](ztest::DialogScript& s) {
            s.Release(700, 400, SDL_BUTTON_MIDDLE);  // no end of the drag
            s.Motion(100, 30);
            s.Motion(329, 9999);  // B: 69 / 275
            s.Release(329, 9999);
            s.Motion(535, 140);
        })
        .Then([](ztest::DialogScript& s) {
            s.Press(534, 220);  // C: 274 / 275 of 0..10, snapped to 10
        })
        .Then([](ztest::DialogScript& s) { s.Release(710, 470); });  // over Cancel
    ShaderDialogResult const result = Run({{"C", 4.0f}});
    EXPECT_FALSE(script.timed_out());
    EXPECT_FALSE(result.accepted);
    EXPECT_TRUE(applied_.empty());
    EXPECT_FLOAT_EQ(ValueOf(result.values, "A"), 0.5f);
    EXPECT_FLOAT_EQ(ValueOf(result.values, "B"), 69.0f / 275.0f);
    EXPECT_FLOAT_EQ(ValueOf(result.values, "C"), 10.0f);
}

TEST_F(ShaderDialog, ThumbDragAndResizeMoveTheList) {
    ztest::Frame dragged;
    ztest::Frame shrunk_range;
    ztest::Frame fits;
    ztest::DialogScript script;
    script
        .At(2,
            [](ztest::DialogScript& s) {
                s.Press(889, 300);   // on the track below the thumb: no jump
                s.Motion(889, 336);  // 36 / 73 of 88 pixels
            })
        .Then([&](ztest::DialogScript& s) {
            dragged = s.Capture();
            s.Motion(889, 2000);
            s.Motion(889, -500);
            s.Motion(889, 336);
            s.Release(889, 336);
            s.Motion(889, 420);
        })
        .Then([](ztest::DialogScript& s) {
            SDL_SetWindowSize(s.Window(), 900, 560);  // 28 pixels left to scroll
            s.WindowEvent(SDL_WINDOWEVENT_RESIZED, 900, 560);
        })
        .Then([&](ztest::DialogScript& s) {
            shrunk_range = s.Capture();
            SDL_SetWindowSize(s.Window(), 900, 700);
            s.WindowEvent(SDL_WINDOWEVENT_RESIZED, 900, 700);
        })
        .Then([&](ztest::DialogScript& s) {
            fits = s.Capture();
            s.CloseWindow();
        });
    ShaderDialogResult const result = Run();
    EXPECT_FALSE(script.timed_out());
    EXPECT_FALSE(result.accepted);

    // Scrolled by 43: row 1's card starts at 57, the thumb at 36 + 35.
    EXPECT_TRUE(HasColor(dragged, 200, 57, kCardOutline));
    EXPECT_TRUE(HasColor(dragged, 888, 70, kTrack));
    EXPECT_TRUE(HasColor(dragged, 888, 71, kThumbOutline));
    ASSERT_EQ(shrunk_range.height, 560);
    EXPECT_TRUE(HasColor(shrunk_range, 200, 72, kCardOutline));  // 100 - 28
    EXPECT_TRUE(HasColor(shrunk_range, 888, 62, kTrack));
    EXPECT_TRUE(HasColor(shrunk_range, 888, 63, kThumbOutline));
    EXPECT_TRUE(HasColor(shrunk_range, 10, 508, kFooterLine));
    ASSERT_EQ(fits.height, 700);
    EXPECT_TRUE(HasColor(fits, 200, 100, kCardOutline));
    EXPECT_TRUE(HasColor(fits, 888, 300, kClear));  // no scrollbar
}

TEST_F(ShaderDialog, ApplyAndLeaveGesturesAndTheirResults) {
    struct Case {
        char const* name;
        std::vector<ztest::DialogScript::Step> steps;
        bool accepted;
        std::vector<float> applied_b;  // B's value at each Apply
        float final_b;
    };
    auto press_b = [](int x) { return [x](ztest::DialogScript& s) { s.Click(x, 140); }; };
    auto key = [](SDL_Keycode sym) { return [sym](ztest::DialogScript& s) { s.Key(sym); }; };
    ztest::DialogScript::Step const apply_button = [](ztest::DialogScript& s) {
        s.Press(100, 470);
        s.Release(840, 474);
    };
    ztest::DialogScript::Step const cancel = [](ztest::DialogScript& s) { s.Click(710, 470); };
    ztest::DialogScript::Step const close = [](ztest::DialogScript& s) { s.CloseWindow(); };
    ztest::DialogScript::Step const quit = [](ztest::DialogScript& s) { s.Quit(); };
    ztest::DialogScript::Step const other_window_closes = [](ztest::DialogScript& s) {
        SDL_Event event{};
        event.type = SDL_WINDOWEVENT;
        event.window.windowID = s.WindowId() + 1000;
        event.window.event = SDL_WINDOWEVENT_CLOSE;
        ztest::PushEvent(event);
    };
    float const at_260 = 0.0f;
    float const at_534 = 274.0f / 275.0f;
    Case const cases[] = {
        {"apply button, then close box",
         {press_b(534), apply_button, close},
         true,
         {at_534},
         at_534},
        {"return twice with a change between",
         {key(SDLK_RETURN), press_b(260), key(SDLK_RETURN), quit},
         true,
         {0.5f, at_260},
         at_260},
        {"keypad enter, change, escape",
         {key(SDLK_KP_ENTER), press_b(534), key(SDLK_ESCAPE)},
         false,
         {0.5f},
         at_534},
        {"apply then cancel", {apply_button, cancel}, false, {0.5f}, 0.5f},
        {"other window's close is ignored",
         {other_window_closes, press_b(260), quit},
         false,
         {},
         at_260},
        {"other keys do nothing", {key(SDLK_SPACE), key(SDLK_TAB), close}, false, {}, 0.5f},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(c.name);
        ztest::ResetRecorder();
        ztest::Faults().skip_delays = true;
        applied_.clear();
        ztest::DialogScript script;
        script.At(2, c.steps[0]);
        for (std::size_t i = 1; i < c.steps.size(); ++i) {
            script.Then(c.steps[i]);
        }
        ShaderDialogResult const result = Run();
        EXPECT_FALSE(script.timed_out());
        EXPECT_EQ(result.accepted, c.accepted);
        ASSERT_EQ(applied_.size(), c.applied_b.size());
        for (std::size_t i = 0; i < applied_.size(); ++i) {
            EXPECT_EQ(applied_[i].size(), 6u);
            EXPECT_FLOAT_EQ(ValueOf(applied_[i], "B"), c.applied_b[i]);
        }
        EXPECT_FLOAT_EQ(ValueOf(result.values, "B"), c.final_b);
        EXPECT_EQ(ztest::CountLiveObjects().windows, 0);
    }
}

TEST_F(ShaderDialog, WindowCallsFromOpeningToClosing) {
    SDL_Window* parent = SDL_CreateWindow("host", 100, 100, 640, 400, SDL_WINDOW_HIDDEN);
    ztest::ResetRecorder();
    ztest::DialogScript script;
    script.At(1, [](ztest::DialogScript& s) { s.Key(SDLK_ESCAPE); });
    ShowShaderParameterDialog(parent, shader_, 2.0f, nullptr, {});

    auto const created = ztest::RecordedCalls("SDL_CreateWindow");
    ASSERT_EQ(created.size(), 1u);
    EXPECT_EQ(created[0].text, "Shader Parameters");
    EXPECT_EQ(created[0].args, (std::vector<long long>{160, 160, 900, 500,
                                                       SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE}));
    EXPECT_EQ(ztest::RecordedCalls("SDL_Delay")[0].args[0], 12);
    EXPECT_EQ(ztest::CountCalls("SDL_ShowWindow"), 1);
    EXPECT_EQ(ztest::RecordedCalls("SDL_RaiseWindow").back().object, parent);
    std::vector<std::string> tail;
    for (std::string const& name : ztest::RecordedCallNames()) {
        if (name == "TTF_CloseFont" || name == "SDL_DestroyRenderer" ||
            name == "SDL_DestroyWindow") {
            tail.push_back(name);
        }
    }
    EXPECT_EQ(tail, (std::vector<std::string>{"TTF_CloseFont", "TTF_CloseFont",
                                              "SDL_DestroyRenderer", "SDL_DestroyWindow"}));
    auto const live = ztest::CountLiveObjects();
    EXPECT_EQ(live.windows, 1);
    EXPECT_EQ(live.renderers + live.textures + live.surfaces + live.fonts, 0);
    SDL_DestroyWindow(parent);
}

TEST_F(ShaderDialog, BoxesInsteadOfAWindow) {
    std::string const empty = dir_.Write("plain", "void main() {}\n").string();
    for (std::string const& path :
         {empty, std::string(), (dir_.path() / "absent.glslp").string()}) {
        SCOPED_TRACE(path);
        ztest::ResetRecorder();
        ShaderDialogResult const result =
            ShowShaderParameterDialog(nullptr, path, 1.0f, nullptr, {{"A", 1.0f}});
        EXPECT_FALSE(result.accepted);
        EXPECT_TRUE(result.values.empty());
        auto const boxes = ztest::RecordedCalls("SDL_ShowSimpleMessageBox");
        ASSERT_EQ(boxes.size(), 1u);
        EXPECT_EQ(boxes[0].args[0], SDL_MESSAGEBOX_INFORMATION);
        EXPECT_EQ(boxes[0].text,
                  "Shader Parameters\nNo #pragma parameter lines were found in the selected "
                  "shader file.");
        EXPECT_EQ(ztest::CountCalls("SDL_CreateWindow"), 0);
    }

    SDL_Window* parent = SDL_CreateWindow("host", 100, 100, 640, 400, SDL_WINDOW_HIDDEN);
    ztest::ResetRecorder();
    ztest::Faults().allow_font_path = [](std::string const&) { return false; };
    ShaderDialogResult const no_font =
        ShowShaderParameterDialog(parent, shader_, 1.0f, nullptr, {{"C", 7.0f}});
    EXPECT_FALSE(no_font.accepted);
    EXPECT_EQ(ValueOf(no_font.values, "C"), 7.0f);
    auto const boxes = ztest::RecordedCalls("SDL_ShowSimpleMessageBox");
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].args[0], SDL_MESSAGEBOX_ERROR);
    EXPECT_EQ(boxes[0].text, "Shader Parameters\nUnable to load a font via SDL_ttf.");
    EXPECT_EQ(boxes[0].object, parent);
    EXPECT_EQ(ztest::CountCalls("SDL_ShowWindow"), 0);
    EXPECT_EQ(ztest::CountCalls("SDL_RaiseWindow"), 0);
    EXPECT_EQ(ztest::CountLiveObjects().windows, 1);

    ztest::ResetRecorder();
    ztest::Faults().fail_window_creation = true;
    ShaderDialogResult const no_window =
        ShowShaderParameterDialog(parent, shader_, 1.0f, nullptr, {{"C", 7.0f}});
    EXPECT_EQ(no_window.values.size(), 6u);
    EXPECT_EQ(ValueOf(no_window.values, "C"), 7.0f);
    EXPECT_EQ(ztest::CountCalls("SDL_ShowSimpleMessageBox"), 0);
    SDL_DestroyWindow(parent);
}

}  // namespace
