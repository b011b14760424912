// The settings dialog run for real through the heartbeat on a scripted pointer:
// navigation, Apply and the closing gestures, input that must be ignored, a held
// slider, the nested font picker, and the failures that end it at once.
#include "settings/settings_internal.h"
#include "settings_canvas.h"
#include "support/dialog_script.h"
#include "support/temp_dir.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using namespace zset;
using Script = ztest::DialogScript;

constexpr int kApplyX = 763;
constexpr int kCancelX = 663;
constexpr int kButtonsY = 464;

int NavRowY(int index) {
    return 10 + 30 * index + 15;
}

void ClickAt(Script& s, int x, int y) {
    s.Hover(x, y);
    s.Click(x, y);
}

// Any pixel in the rectangle other than `fill`.
bool HasInk(ztest::Frame const& frame, SDL_Rect const& r, SDL_Color fill) {
    for (int y = r.y; y < r.y + r.h; ++y) {
        for (int x = r.x; x < r.x + r.w; ++x) {
            if (!SameColor(frame.At(x, y), fill)) {
                return true;
            }
        }
    }
    return false;
}

class SettingsDialog : public ztest::DialogTest {
protected:
    void SetUp() override {
        DialogTest::SetUp();
        ztest::Faults().skip_delays = true;
    }
    std::function<void(SettingsDialogValues const&)> Record() {
        return [this](SettingsDialogValues const& v) { applied.push_back(v); };
    }
    std::vector<SettingsDialogValues> applied;
    int const y0 = PanelTop(true);
};

TEST_F(SettingsDialog, OpensOnFontModeAndShowsEachTopicClicked) {
    SettingsDialogValues start;
    start.screenshot_capture_with_opengl_shaders = true;
    start.hdd_sounds_volume = 0.5;
    int const selectable[] = {1, 2, 3, 4, 6, 8, 10, 12};
    ztest::Frame first;
    ztest::Frame after_heading;
    std::map<int, ztest::Frame> shown;
    Script script;
    script.At(2, [&](Script& s) { first = s.Capture(); });
    for (int row : selectable) {
        script.Then([row](Script& s) { ClickAt(s, 100, NavRowY(row)); })
            .Then([&shown, row](Script& s) { shown[row] = s.Capture(); }, 2);
    }
    script.Then([](Script& s) { ClickAt(s, 100, NavRowY(11)); })
        .Then([&](Script& s) { after_heading = s.Capture(); }, 2)
        .Then([](Script& s) { s.Key(SDLK_ESCAPE); });
    ShowSettingsDialog(nullptr, 2.0f, start, Record());
    EXPECT_FALSE(script.timed_out());
    EXPECT_TRUE(applied.empty());

    auto const created = ztest::RecordedCalls("SDL_CreateWindow");
    ASSERT_EQ(created.size(), 1u);
    EXPECT_EQ(created[0].text, "Settings");
    EXPECT_EQ(std::vector<long long>(created[0].args.begin() + 2, created[0].args.end()),
              (std::vector<long long>{820, 492, SDL_WINDOW_HIDDEN}));
    EXPECT_EQ(ztest::RecordedCalls("SDL_Delay")[0].args[0], 12);

    // The fixed frame, opened on "Font Mode" with "pixel" selected.
    ASSERT_EQ(first.width, 820);
    EXPECT_TRUE(HasColor(first, 0, 0, kNavBg));
    EXPECT_TRUE(HasColor(first, 200, 11, kSection));
    EXPECT_TRUE(HasColor(first, 200, 41, kNavActive));
    EXPECT_TRUE(HasColor(first, 1, 41, kAccent));
    EXPECT_TRUE(HasColor(first, 200, 71, kNavBg));
    EXPECT_TRUE(HasColor(first, 224, 0, kTrack));
    EXPECT_TRUE(HasColor(first, 224, 435, kTrack));
    EXPECT_TRUE(HasColor(first, 225, 0, kWindowBg));
    EXPECT_TRUE(HasColor(first, 819, 435, kWindowBg));
    EXPECT_TRUE(HasInk(first, {247, 20, 150, 16}, kWindowBg)) << "the panel title";
    EXPECT_FALSE(HasInk(first, {230, 0, 590, 18}, kWindowBg)) << "nothing above the header";
    EXPECT_TRUE(HasColor(first, 255, y0 + 17, kAccent));  // the dot of "pixel"
    EXPECT_TRUE(HasColor(first, 263, y0 + 17 + 34, kRing));
    EXPECT_TRUE(HasColor(first, 0, 436, kTrack));
    EXPECT_TRUE(HasColor(first, 819, 436, kTrack));
    EXPECT_TRUE(HasColor(first, 5, 480, kFooter));
    EXPECT_TRUE(HasColor(first, 620, 451, kButton));
    EXPECT_TRUE(HasColor(first, 720, 451, kButton));

    for (int row : selectable) {
        SCOPED_TRACE("row " + std::to_string(row));
        ztest::Frame const& f = shown[row];
        ASSERT_FALSE(f.empty());
        EXPECT_TRUE(HasColor(f, 200, 10 + 30 * row + 1, kNavActive));
        EXPECT_TRUE(HasColor(f, 1, 10 + 30 * row + 1, kAccent));
        if (row != 1) {
            EXPECT_TRUE(HasColor(f, 200, 41, kNavBg));
        }
    }
    // A checked checkbox, and the filled parts of the two sliders.
    EXPECT_TRUE(HasColor(shown[4], 252, y0 + 86 + 5, kAccent));
    EXPECT_TRUE(HasColor(shown[12], 247 + 50, y0 + 60 + 6, kAccent));
    EXPECT_TRUE(HasColor(shown[12], 247 + 250, y0 + 60 + 6, kTrack));
    EXPECT_TRUE(HasColor(shown[6], 247 + 30, y0 + 22 + 6, kAccent));
    EXPECT_TRUE(HasColor(shown[6], 247 + 200, y0 + 22 + 6, kTrack));
    // A release on a heading changes nothing.
    EXPECT_TRUE(HasColor(after_heading, 200, 371, kNavActive));
    EXPECT_TRUE(HasColor(after_heading, 200, 341, kSection));
}

TEST_F(SettingsDialog, ApplyHandsOverTheWorkingCopyAndStaysOpen) {
    SettingsDialogValues start;
    start.fps = 40;
    start.cpu_mhz = 4.77;
    Script script;
    script.At(2, [](Script& s) { ClickAt(s, 100, NavRowY(2)); })
        .Then([&](Script& s) { ClickAt(s, 300, y0 + 34 * 2 + 17); })
        .Then([](Script& s) { ClickAt(s, kApplyX, kButtonsY); })
        .Then([&](Script& s) { ClickAt(s, 300, y0 + 34 * 3 + 17); })
        .Then([](Script& s) {
            // Pressed elsewhere, released on Apply: a click on Apply.
            s.Press(400, 470);
            s.Hover(kApplyX, kButtonsY);
            s.Release(kApplyX, kButtonsY);
        })
        .Then([](Script& s) { ClickAt(s, kCancelX, kButtonsY); });
    ShowSettingsDialog(nullptr, 1.0f, start, Record());
    EXPECT_FALSE(script.timed_out());
    ASSERT_EQ(applied.size(), 2u);
    SettingsDialogValues want = start;
    want.fps = 50;
    EXPECT_EQ(Describe(applied[0]), Describe(want));
    want.fps = 60;
    EXPECT_EQ(Describe(applied[1]), Describe(want));
}

TEST_F(SettingsDialog, ClosingGesturesHandOverNothing) {
    SDL_Window* parent = SDL_CreateWindow("host", 0, 0, 320, 200, SDL_WINDOW_HIDDEN);
    struct Case {
        char const* name;
        Script::Step close;
    };
    Case const cases[] = {
        {"cancel", [](Script& s) { ClickAt(s, 618, 449); }},
        {"escape", [](Script& s) { s.Key(SDLK_ESCAPE); }},
        {"window close", [](Script& s) { s.CloseWindow(); }},
        {"quit", [](Script& s) { s.Quit(); }},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(c.name);
        ztest::ResetRecorder();
        ztest::Faults().skip_delays = true;
        applied.clear();
        ztest::LiveObjects const before = ztest::CountLiveObjects();
        Script script;
        script.At(1, [](Script& s) { ClickAt(s, 100, NavRowY(12)); })
            .Then([&](Script& s) { ClickAt(s, 300, y0 + 3); })  // HDD sounds on
            .Then(c.close);
        ShowSettingsDialog(parent, 1.0f, SettingsDialogValues{}, Record());
        EXPECT_FALSE(script.timed_out());
        EXPECT_TRUE(applied.empty());
        EXPECT_EQ(SDL_PeepEvents(nullptr, 0, SDL_PEEKEVENT, SDL_QUIT, SDL_QUIT), 0);
        EXPECT_EQ(ztest::RecordedCalls("SDL_SetWindowInputFocus").back().object, parent);
        ztest::LiveObjects const after = ztest::CountLiveObjects();
        EXPECT_EQ(after.windows, before.windows);
        EXPECT_EQ(after.renderers + after.fonts + after.textures + after.surfaces,
                  before.renderers + before.fonts + before.textures + before.surfaces);
    }
    SDL_DestroyWindow(parent);
}

TEST_F(SettingsDialog, IgnoredInputChangesNothing) {
    ztest::Frame hovered;
    Script script;
    script.At(2, [](Script& s) { ClickAt(s, 100, NavRowY(2)); })
        .Then([&](Script& s) {
            s.Hover(300, y0 + 17);  // over "25 FPS"
            s.Release(300, y0 + 17, SDL_BUTTON_RIGHT);
            s.Release(300, y0 + 17, SDL_BUTTON_MIDDLE);
            s.Press(300, y0 + 17);
            s.Key(SDLK_a);
            s.Release(100, NavRowY(0));  // a heading: pending, but left of the panel
            s.Release(400, 460);         // the bar outside the buttons
            Uint32 const other = s.WindowId() + 100;
            SDL_Event e{};
            e.type = SDL_KEYDOWN;
            e.key.windowID = other;
            e.key.keysym.sym = SDLK_ESCAPE;
            ztest::PushEvent(e);
            e = SDL_Event{};
            e.type = SDL_WINDOWEVENT;
            e.window.windowID = other;
            e.window.event = SDL_WINDOWEVENT_CLOSE;
            ztest::PushEvent(e);
            e = SDL_Event{};
            e.type = SDL_MOUSEBUTTONUP;
            e.button.windowID = other;
            e.button.button = SDL_BUTTON_LEFT;
            e.button.x = kApplyX;
            e.button.y = kButtonsY;
            ztest::PushEvent(e);
        })
        .Then(
            [&](Script& s) {
                s.Hover(kApplyX, kButtonsY);
                s.Release(kCancelX, 100, SDL_BUTTON_LEFT);  // above Cancel, in the panel's blank
            },
            2)
        .Then([&](Script& s) { hovered = s.Capture(); }, 2)
        .Then([](Script& s) { ClickAt(s, kApplyX, kButtonsY); })
        .Then([](Script& s) { s.Key(SDLK_ESCAPE); }, 2);
    ShowSettingsDialog(nullptr, 1.0f, SettingsDialogValues{}, Record());
    EXPECT_FALSE(script.timed_out());
    ASSERT_EQ(applied.size(), 1u);
    EXPECT_EQ(Describe(applied[0]), Describe(SettingsDialogValues{}));
    EXPECT_TRUE(HasColor(hovered, 720, 451, kButtonHover));
    EXPECT_TRUE(HasColor(hovered, 620, 451, kButton));
}

TEST_F(SettingsDialog, EmptyCallbackLeavesApplyHarmless) {
    int presents_after_apply = 0;
    Script script;
    script.At(2, [](Script& s) { ClickAt(s, kApplyX, kButtonsY); })
        .Then([](Script& s) { ClickAt(s, kApplyX, kButtonsY); })
        .Then(
            [&](Script& s) {
                presents_after_apply = ztest::PresentCount();
                s.Key(SDLK_ESCAPE);
            },
            3);
    ShowSettingsDialog(nullptr, 1.0f, SettingsDialogValues{}, {});
    EXPECT_FALSE(script.timed_out());
    EXPECT_GE(presents_after_apply, 5);
}

TEST_F(SettingsDialog, SliderFollowsTheHeldButtonOnlyInItsBand) {
    SettingsDialogValues start;
    start.hdd_sounds_volume = 0.8;
    Script script;
    script.At(2, [](Script& s) { ClickAt(s, 100, NavRowY(12)); })
        .Then([&](Script& s) {
            s.HoldLeftButton(true);
            s.Hover(247 + 70, y0 + 60 + 30);  // held below the band
        })
        .Then([](Script& s) { ClickAt(s, kApplyX, kButtonsY); })
        .Then([&](Script& s) {
            s.HoldLeftButton(true);
            s.Hover(247 + 140, y0 + 68);  // slides into the band: follows
        })
        .Then([](Script& s) { s.Leave(); })  // held outside the window: stays
        .Then([](Script& s) {
            s.HoldLeftButton(false);
            ClickAt(s, kApplyX, kButtonsY);
        })
        .Then([](Script& s) { s.Key(SDLK_ESCAPE); });
    ShowSettingsDialog(nullptr, 1.0f, start, Record());
    ASSERT_EQ(applied.size(), 2u);
    EXPECT_DOUBLE_EQ(applied[0].hdd_sounds_volume, 0.8);
    EXPECT_DOUBLE_EQ(applied[1].hdd_sounds_volume, 0.5);
}

TEST_F(SettingsDialog, FontPickerRunsOverTheDialogAndItsChoiceIsKept) {
    ztest::TempDir dir;
    std::string const chosen = dir.Write("fonts/pick.ttf", "font bytes").string();
    SettingsDialogValues start;
    start.font_mode = "ttf-custom";
    start.custom_font_path = (dir.path() / "fonts" / "old.ttf").string();
    int const browse_y = y0 + 136 + 8 + 10;
    SDL_Window* settings = nullptr;
    SDL_Window* picker = nullptr;
    std::string picker_title;
    Script script;
    script
        .At(2,
            [&](Script& s) {
                settings = s.Window();
                ClickAt(s, 720, browse_y);
            })
        .Then(
            [&](Script& s) {
                picker = s.Window();
                picker_title = SDL_GetWindowTitle(picker);
                s.Key(SDLK_DOWN);
            },
            3)
        .Then([](Script& s) { s.Key(SDLK_RETURN); })
        .Then([](Script& s) { ClickAt(s, kApplyX, kButtonsY); }, 3)
        .Then([&](Script& s) { ClickAt(s, 720, browse_y); })
        .Then([](Script& s) { s.Key(SDLK_ESCAPE); }, 3)
        .Then([](Script& s) { ClickAt(s, kApplyX, kButtonsY); }, 3)
        .Then([](Script& s) { s.Key(SDLK_ESCAPE); });
    ShowSettingsDialog(nullptr, 1.0f, start, Record());
    EXPECT_FALSE(script.timed_out());
    ASSERT_NE(picker, settings);
    EXPECT_EQ(picker_title, "Select TTF Font");
    ASSERT_EQ(applied.size(), 2u);
    EXPECT_EQ(applied[0].custom_font_path, chosen);
    EXPECT_EQ(applied[0].font_mode, "ttf-custom");
    EXPECT_EQ(Describe(applied[1]), Describe(applied[0])) << "a cancelled picker changes nothing";

    // The picker opened over the settings window and gave the focus back to it.
    auto const calls = ztest::RecordedCalls();
    auto const closed = std::find_if(calls.begin(), calls.end(), [&](ztest::SdlCall const& c) {
        return c.name == "SDL_DestroyWindow" && c.object == picker;
    });
    ASSERT_NE(closed, calls.end());
    auto const focus =
        std::find_if(std::make_reverse_iterator(closed), calls.rend(),
                     [](ztest::SdlCall const& c) { return c.name == "SDL_SetWindowInputFocus"; });
    ASSERT_NE(focus, calls.rend());
    EXPECT_EQ(focus->object, settings);
    EXPECT_GE(ztest::CountCalls("SDL_SetWindowModalFor"), 2);
}

TEST_F(SettingsDialog, FailuresReturnAtOnceWithoutCallback) {
    SDL_Window* parent = SDL_CreateWindow("host", 0, 0, 320, 200, SDL_WINDOW_HIDDEN);
    struct Case {
        char const* name;
        void (*inject)();
        bool message;
    };
    Case const cases[] = {
        {"no window", [] { ztest::Faults().fail_window_creation = true; }, false},
        {"no renderer", [] { ztest::Faults().fail_software_renderer = true; }, false},
        {"no font",
         [] { ztest::Faults().allow_font_path = [](std::string const&) { return false; }; }, true},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(c.name);
        ztest::ResetRecorder();
        c.inject();
        ztest::LiveObjects const before = ztest::CountLiveObjects();
        Script script;
        script.At(3, [](Script& s) { s.Key(SDLK_ESCAPE); });
        ShowSettingsDialog(parent, 1.0f, SettingsDialogValues{}, Record());
        EXPECT_EQ(script.frame(), -1) << "no turn ran";
        EXPECT_TRUE(applied.empty());
        EXPECT_EQ(ztest::CountCalls("SDL_RenderPresent"), 0);
        EXPECT_EQ(ztest::CountCalls("SDL_RaiseWindow"), 0);
        auto const boxes = ztest::RecordedCalls("SDL_ShowSimpleMessageBox");
        ASSERT_EQ(boxes.size(), c.message ? 1u : 0u);
        if (c.message) {
            EXPECT_EQ(boxes[0].text, "Settings\nFailed to load font.");
            EXPECT_EQ(boxes[0].args[0], SDL_MESSAGEBOX_ERROR);
            EXPECT_EQ(boxes[0].object, parent);
        }
        ztest::LiveObjects const after = ztest::CountLiveObjects();
        EXPECT_EQ(after.windows, before.windows);
        EXPECT_EQ(after.renderers + after.fonts, before.renderers + before.fonts);
    }
    SDL_DestroyWindow(parent);
}

}  // namespace
