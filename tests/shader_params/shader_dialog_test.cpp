// The shader parameter dialog run for real: the wheel, slider and scrollbar drags,
// resizing, the ways to apply and to leave, what a frame shows, and the boxes shown
// instead of a window.
#include "gui/shader_params.h"

#include "support/dialog_script.h"
#include "support/temp_dir.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

namespace {

using namespace zorvane::frontend::gui;
using Script = ztest::DialogScript;
using Values = std::vector<ShaderParameterValue>;

// Six rows open a 900 x 500 window with 88 pixels to scroll. Row r's top lies at
// 20 + 80 r - scroll, its slider bar at (260, top + 34, 275, 13).
constexpr char kSixParameters[] =
    "#pragma parameter A \"Alpha\" 0.5 0 1 0.25\n"
    "#pragma parameter B \"Beta\" 0.5 0 1 0\n"
    "#pragma parameter C \"Gamma\" 2 0 10 1\n"
    "#pragma parameter D \"Delta\" 0 -1 1 0.5\n"
    "#pragma parameter E \"Epsilon\" 1 0 2 0.1\n"
    "#pragma parameter F \"Zeta\" 3 0 4 1\n";

constexpr SDL_Color kClear{18, 20, 26, 255}, kHeader{26, 28, 36, 255}, kCard{32, 36, 44, 255},
    kCardLine{58, 64, 74, 255}, kBar{52, 56, 64, 255}, kBarLine{78, 86, 96, 255},
    kFilled{106, 156, 255, 255}, kKnob{126, 176, 255, 255}, kTrack{30, 33, 40, 255},
    kThumb{72, 80, 94, 255}, kThumbLine{96, 108, 128, 255}, kFooter{26, 30, 38, 255},
    kFooterLine{60, 66, 78, 255}, kButton{48, 52, 60, 255}, kButtonLine{84, 92, 104, 255};

struct Probe {
    int x;
    int y;
    SDL_Color color;
};

void ExpectProbes(ztest::Frame const& frame, std::vector<Probe> const& probes) {
    for (Probe const& p : probes) {
        SDL_Color const got = frame.At(p.x, p.y);
        EXPECT_TRUE(got.r == p.color.r && got.g == p.color.g && got.b == p.color.b)
            << "at " << p.x << "," << p.y << ": got " << int(got.r) << "," << int(got.g) << ","
            << int(got.b);
    }
}

// Whether anything but `background` was drawn inside the rectangle, as text would be.
bool HasInk(ztest::Frame const& frame, SDL_Rect const& area, SDL_Color background) {
    for (int y = area.y; y < area.y + area.h; ++y) {
        for (int x = area.x; x < area.x + area.w; ++x) {
            SDL_Color const c = frame.At(x, y);
            if (c.r != background.r || c.g != background.g || c.b != background.b) {
                return true;
            }
        }
    }
    return false;
}

class ShaderDialog : public ztest::DialogTest {
protected:
    void SetUp() override {
        ztest::DialogTest::SetUp();
        ztest::Faults().skip_delays = true;
        shader_ = dir_.Write("six.glsl", kSixParameters).string();
    }

    // Runs the dialog on the six rows with the script's steps one frame apart.
    ShaderDialogResult Run(std::vector<Script::Step> const& steps, Values const& overrides = {}) {
        Script script;
        script.At(2, steps[0]);
        for (std::size_t i = 1; i < steps.size(); ++i) {
            script.Then(steps[i]);
        }
        ShaderDialogResult result = ShowShaderParameterDialog(
            nullptr, shader_, 1.0f, [this](Values const& values) { applied_.push_back(values); },
            overrides);
        EXPECT_FALSE(script.timed_out());
        return result;
    }

    ztest::TempDir dir_;
    std::string shader_;
    std::vector<Values> applied_;
};

TEST_F(ShaderDialog, FrameShowsHeaderCardsSlidersScrollbarAndFooter) {
    ztest::Frame f;
    Run({[&](Script& s) {
        f = s.Capture();
        s.Key(SDLK_ESCAPE);
    }});
    ASSERT_EQ(f.width, 900);
    ASSERT_EQ(f.height, 500);
    auto const created = ztest::RecordedCalls("SDL_CreateWindow");
    ASSERT_EQ(created.size(), 1u);
    EXPECT_EQ(created[0].text, "Shader Parameters");
    EXPECT_EQ(created[0].args.back(), SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE);
    // The header over row 0's clipped card; row 1 (Beta at 0.5): card (12, 100, 858, 74),
    // bar filled to 138 with the knob from 392; row 2 (Gamma, 2 of 10) filled to 55; the
    // track (882, 36, 14, 412) with a thumb 339 high; the footer from 448 with Cancel
    // at (708, 461) and Apply at (802, 461).
    ExpectProbes(f, {{880, 10, kHeader},      {100, 30, kHeader},     {100, 96, kClear},
                     {875, 120, kClear},      {12, 120, kCardLine},   {869, 120, kCardLine},
                     {200, 173, kCardLine},   {200, 160, kCard},      {270, 140, kFilled},
                     {391, 140, kFilled},     {392, 131, kKnob},      {403, 150, kKnob},
                     {404, 140, kBar},        {534, 140, kBarLine},   {450, 134, kBarLine},
                     {300, 220, kFilled},     {320, 220, kKnob},      {321, 220, kBar},
                     {882, 100, kThumbLine},  {888, 100, kThumb},     {888, 374, kThumbLine},
                     {888, 400, kTrack},      {10, 448, kFooterLine}, {10, 480, kFooter},
                     {708, 470, kButtonLine}, {711, 484, kButton},    {879, 486, kButtonLine},
                     {805, 484, kButton}});
    EXPECT_TRUE(HasInk(f, {12, 4, 120, 14}, kHeader));
    EXPECT_TRUE(HasInk(f, {14, 105, 60, 16}, kCard));    // label
    EXPECT_TRUE(HasInk(f, {545, 104, 60, 14}, kCard));   // value
    EXPECT_TRUE(HasInk(f, {545, 119, 200, 14}, kCard));  // range
    EXPECT_FALSE(HasInk(f, {545, 145, 300, 25}, kCard));
    EXPECT_TRUE(HasInk(f, {718, 467, 50, 16}, kButton));
}

TEST_F(ShaderDialog, WheelScrollsAndStepsTheRowUnderThePointer) {
    auto wheel_at = [](int x, int y, int notches) {
        return [=](Script& s) {
            s.Hover(x, y);
            s.Wheel(notches);
        };
    };
    ztest::Frame scrolled;
    ShaderDialogResult const result = Run({
        wheel_at(300, 140, 1),   // nothing to scroll; B (step 0) up 2 % of its range
        wheel_at(300, 140, -1),  // scroll 40; now over row 2, C down one step
        wheel_at(300, 140, 3),   // scroll 0; B up again, one step for three notches
        wheel_at(300, 30, -1),   // header: nothing
        wheel_at(300, 460, -1),  // footer: nothing
        [](Script& s) {
            s.Leave();  // the pointer over another window: nothing
            s.Wheel(-1);
        },
        wheel_at(300, 430, -5),  // scroll 88; no row under the pointer
        [&](Script& s) {
            scrolled = s.Capture();
            s.Key(SDLK_RETURN);
        },
        wheel_at(300, 430, 1),  // scroll 48; row 5, F up one step
        [](Script& s) { s.Key(SDLK_ESCAPE); },
    });
    EXPECT_FALSE(result.accepted);
    ASSERT_EQ(applied_.size(), 1u);
    std::vector<float> const at_apply = {0.5f, 0.5f + 0.02f + 0.02f, 1.0f, 0.0f, 1.0f, 3.0f};
    for (std::size_t i = 0; i < at_apply.size(); ++i) {
        EXPECT_FLOAT_EQ(applied_[0][i].value, at_apply[i]) << applied_[0][i].name;
        EXPECT_FLOAT_EQ(result.values[i].value, i == 5 ? 4.0f : at_apply[i]);
    }
    // At the end of the list the thumb starts at 36 + 73 and row 5's card ends at 405.
    ExpectProbes(
        scrolled,
        {{888, 100, kTrack}, {888, 120, kThumb}, {200, 405, kCardLine}, {200, 420, kClear}});
}

TEST_F(ShaderDialog, SliderDragFollowsThePointerOutOfItsRowUntilRelease) {
    ShaderDialogResult const result =
        Run({[](Script& s) {
                 s.Press(200, 140);  // row 1 left of its slider
                 s.Press(400, 131);  // the knob above the bar
                 s.Press(300, 140, SDL_BUTTON_RIGHT);
                 s.Motion(500, 140);
             },
             [](Script& s) {
                 s.Press(397, 140);  // B at 137 / 275
                 s.Motion(700, 400);
                 s.Release(700, 400, SDL_BUTTON_MIDDLE);  // no end of the drag
                 s.Motion(100, 30);
                 s.Motion(329, 9999);  // B at 69 / 275
                 s.Release(329, 9999);
                 s.Motion(535, 140);
             },
             [](Script& s) { s.Press(534, 220); },  // C at 274 / 275 of 10, snapped
             [](Script& s) { s.Release(710, 470); }},
            {{"C", 4.0f}});
    EXPECT_FALSE(result.accepted);  // released over Cancel
    EXPECT_TRUE(applied_.empty());
    EXPECT_FLOAT_EQ(result.values[0].value, 0.5f);
    EXPECT_FLOAT_EQ(result.values[1].value, 69.0f / 275.0f);
    EXPECT_FLOAT_EQ(result.values[2].value, 10.0f);
}

TEST_F(ShaderDialog, ThumbDragAndResizeMoveTheList) {
    auto resize = [](int height) {
        return [height](Script& s) {
            SDL_SetWindowSize(s.Window(), 900, height);
            s.WindowEvent(SDL_WINDOWEVENT_RESIZED, 900, height);
        };
    };
    ztest::Frame dragged;
    ztest::Frame shorter_range;
    ztest::Frame fits;
    Run({[](Script& s) {
             s.Press(889, 300);   // on the track below the thumb: no jump
             s.Motion(889, 336);  // 36 / 73 of 88 pixels
         },
         [&](Script& s) {
             dragged = s.Capture();
             s.Motion(889, 2000);
             s.Motion(889, -500);
             s.Motion(889, 336);
             s.Release(889, 336);
             s.Motion(889, 420);
         },
         resize(560),  // 28 pixels left to scroll
         [&](Script& s) {
             shorter_range = s.Capture();
             resize(700)(s);
         },
         [&](Script& s) {
             fits = s.Capture();
             s.CloseWindow();
         }});
    // Scrolled by 43: row 1's card from 57, the thumb from 36 + 35.
    ExpectProbes(dragged, {{200, 57, kCardLine}, {888, 70, kTrack}, {888, 71, kThumbLine}});
    ASSERT_EQ(shorter_range.height, 560);
    ExpectProbes(
        shorter_range,
        {{200, 72, kCardLine}, {888, 62, kTrack}, {888, 63, kThumbLine}, {10, 508, kFooterLine}});
    ASSERT_EQ(fits.height, 700);
    ExpectProbes(fits, {{200, 100, kCardLine}, {888, 300, kClear}});
}

TEST_F(ShaderDialog, ApplyAndLeaveGesturesAndTheirResults) {
    auto set_b = [](int x) { return [x](Script& s) { s.Click(x, 140); }; };
    auto key = [](SDL_Keycode sym) { return [sym](Script& s) { s.Key(sym); }; };
    Script::Step const apply = [](Script& s) {
        s.Press(100, 470);  // the buttons answer the release alone
        s.Release(840, 474);
    };
    Script::Step const cancel = [](Script& s) { s.Click(710, 470); };
    Script::Step const close = [](Script& s) { s.CloseWindow(); };
    Script::Step const quit = [](Script& s) { s.Quit(); };
    Script::Step const foreign_close = [](Script& s) {
        SDL_Event event{};
        event.type = SDL_WINDOWEVENT;
        event.window.windowID = s.WindowId() + 1000;
        event.window.event = SDL_WINDOWEVENT_CLOSE;
        ztest::PushEvent(event);
    };
    float const high = 274.0f / 275.0f;
    struct Case {
        std::vector<Script::Step> steps;
        bool accepted;
        std::vector<float> b_at_applies;
        float b_at_end;
    } const cases[] = {
        {{set_b(534), apply, close}, true, {high}, high},
        {{key(SDLK_RETURN), set_b(260), key(SDLK_RETURN), quit}, true, {0.5f, 0.0f}, 0.0f},
        {{key(SDLK_KP_ENTER), set_b(534), key(SDLK_ESCAPE)}, false, {0.5f}, high},
        {{apply, cancel}, false, {0.5f}, 0.5f},
        {{foreign_close, set_b(260), key(SDLK_SPACE), quit}, false, {}, 0.0f},
    };
    for (std::size_t c = 0; c < std::size(cases); ++c) {
        SCOPED_TRACE("case " + std::to_string(c));
        applied_.clear();
        ShaderDialogResult const result = Run(cases[c].steps);
        EXPECT_EQ(result.accepted, cases[c].accepted);
        ASSERT_EQ(applied_.size(), cases[c].b_at_applies.size());
        for (std::size_t i = 0; i < applied_.size(); ++i) {
            EXPECT_FLOAT_EQ(applied_[i].at(1).value, cases[c].b_at_applies[i]);
        }
        EXPECT_FLOAT_EQ(result.values.at(1).value, cases[c].b_at_end);
    }
}

TEST_F(ShaderDialog, BoxesInsteadOfAWindow) {
    std::string const plain = dir_.Write("plain", "void main() {}\n").string();
    for (std::string const& path :
         {plain, std::string(), (dir_.path() / "absent.glslp").string()}) {
        ztest::ResetRecorder();
        ShaderDialogResult const r =
            ShowShaderParameterDialog(nullptr, path, 1, nullptr, {{"A", 1}});
        EXPECT_FALSE(r.accepted);
        EXPECT_TRUE(r.values.empty());
        auto const boxes = ztest::RecordedCalls("SDL_ShowSimpleMessageBox");
        ASSERT_EQ(boxes.size(), 1u) << path;
        EXPECT_EQ(boxes[0].args[0], SDL_MESSAGEBOX_INFORMATION);
        EXPECT_EQ(boxes[0].text,
                  "Shader Parameters\nNo #pragma parameter lines were found in the "
                  "selected shader file.");
        EXPECT_EQ(ztest::CountCalls("SDL_CreateWindow"), 0);
    }
    SDL_Window* parent = SDL_CreateWindow("host", 100, 100, 640, 400, SDL_WINDOW_HIDDEN);
    ztest::ResetRecorder();
    ztest::Faults().allow_font_path = [](std::string const&) { return false; };
    ShaderDialogResult const no_font =
        ShowShaderParameterDialog(parent, shader_, 1, nullptr, {{"C", 7}});
    EXPECT_FALSE(no_font.accepted);
    EXPECT_EQ(no_font.values.at(2).value, 7.0f);
    auto const boxes = ztest::RecordedCalls("SDL_ShowSimpleMessageBox");
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].args[0], SDL_MESSAGEBOX_ERROR);
    EXPECT_EQ(boxes[0].text, "Shader Parameters\nUnable to load a font via SDL_ttf.");
    EXPECT_EQ(boxes[0].object, parent);
    EXPECT_EQ(ztest::CountCalls("SDL_ShowWindow") + ztest::CountCalls("SDL_RaiseWindow"), 0);
    EXPECT_EQ(ztest::CountLiveObjects().windows, 1);

    ztest::ResetRecorder();
    ztest::Faults().fail_window_creation = true;
    ShaderDialogResult const no_window =
        ShowShaderParameterDialog(parent, shader_, 1, nullptr, {{"C", 7}});
    EXPECT_EQ(no_window.values.at(2).value, 7.0f);
    EXPECT_EQ(ztest::CountCalls("SDL_ShowSimpleMessageBox"), 0);
    SDL_DestroyWindow(parent);
}

}  // namespace
