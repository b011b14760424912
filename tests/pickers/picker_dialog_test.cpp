// The pickers run for real through the heartbeat, frame by frame: every gesture
// answered on the returned path, and the frame checked where its look is fixed.
#include "pickers/picker_dialog.h"
#include "frame/ui_fonts.h"
#include "gui/pickers.h"
#include "support/dialog_script.h"
#include "support/temp_dir.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <sstream>

namespace {

namespace fs = std::filesystem;
using namespace zorvane::frontend::gui;
using Script = ztest::DialogScript;

// One word of a gesture script (see Schedule). Row and button places are those of a
// 760 x 520 file picker: rows 24 pixels apart from y 57, the track at x 738 to 749.
void Perform(Script& s, std::string const& word) {
    int x = 0, y = 0, n = 1;
    if (word == "quit") {
        s.Quit();
    } else if (word == "close") {
        s.CloseWindow();
    } else if (word == "otherclose") {
        SDL_Event other{};
        other.type = SDL_WINDOWEVENT;
        other.window.windowID = s.WindowId() + 100;
        other.window.event = SDL_WINDOWEVENT_CLOSE;
        ztest::PushEvent(other);
    } else if (word == "accept" || word == "cancel") {
        s.Click(word == "accept" ? 707 : 627, 497);
    } else if (std::sscanf(word.c_str(), "row%dx%d", &y, &n) >= 1) {
        s.Click(100, 67 + 24 * y, static_cast<Uint8>(n));
    } else if (char verb[8]; std::sscanf(word.c_str(), "%7[a-z]:%d,%d", verb, &x, &y) == 3) {
        std::string const v = verb;  // at, right (a click of that button), press, release, motion
        Uint8 const button = v == "right" ? SDL_BUTTON_RIGHT : SDL_BUTTON_LEFT;
        if (v == "at" || v == "right" || v == "press") {
            s.Press(x, y, button);
        }
        if (v == "at" || v == "right" || v == "release") {
            s.Release(x, y, button);
        }
        if (v == "motion") {
            s.Motion(x, y);
        }
    } else if (std::sscanf(word.c_str(), "wheel:%d", &y) == 1) {
        s.Wheel(y);
    } else {  // a key by its SDL name, "_" for a blank, "*n" to press it n times
        std::string name = word.substr(0, word.find('*'));
        std::replace(name.begin(), name.end(), '_', ' ');
        SDL_Keycode const key = SDL_GetKeyFromName(name.c_str());
        ASSERT_NE(key, SDLK_UNKNOWN) << word;
        int const times =
            word.find('*') == std::string::npos ? 1 : std::stoi(word.substr(name.size() + 1));
        for (int i = 0; i < times; ++i) {
            s.Key(key);
        }
    }
}

// Puts the words of `gestures` on the frames from the second on; "|" goes on to the
// next frame.
void Schedule(Script& script, std::string const& gestures) {
    std::istringstream in(gestures);
    int frame = 2;
    for (std::string word; in >> word;) {
        if (word == "|") {
            ++frame;
        } else {
            script.At(frame, [word](Script& s) { Perform(s, word); });
        }
    }
}

// Runs `show` under `gestures`; `prepare` may add steps first.
std::string RunScripted(std::function<std::string()> const& show, std::string const& gestures,
                        std::function<void(Script&)> const& prepare = nullptr) {
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    Script script;
    script.set_grace_frames(30);
    if (prepare) {
        prepare(script);
    }
    Schedule(script, gestures);
    std::string result = show();
    EXPECT_FALSE(script.timed_out()) << gestures;
    return result;
}

bool SameColor(SDL_Color a, SDL_Color b) {
    return a.r == b.r && a.g == b.g && a.b == b.b;
}

// The right end of the text drawn in the header band between rows y0 and y1, beside
// where the text measured in the pickers' font ends.
int InkRightEdge(ztest::Frame const& frame, int y0, int y1) {
    int right = -1;
    for (int y = y0; y < y1; ++y) {
        for (int x = 0; x < frame.width; ++x) {
            right = SameColor(frame.At(x, y), kColFormHeader) ? right : std::max(right, x);
        }
    }
    return right;
}
int TextEnd(std::string const& text) {
    int w = 0;
    TTF_SizeUTF8(GetCachedSdlUiFont(15, false, kSemiBold), text.c_str(), &w, nullptr);
    return 10 + w;
}

constexpr SDL_Color kButton{70, 76, 84, 255}, kThumb{92, 102, 116, 255};

class PickerDialog : public ztest::DialogTest {
protected:
    void SetUp() override { DialogTest::SetUp(), ztest::Faults().skip_delays = true; }
    // Rows "..", sub (deeper/, inner.img), f000.img to f099.img.
    void FillFloppies() {
        fs::create_directories(dir_.path() / "sub/deeper");
        dir_.Write("sub/inner.img", "");
        for (int i = 0; i < 100; ++i) {
            dir_.Write("f0" + std::string(i < 10 ? "0" : "") + std::to_string(i) + ".img", "");
        }
    }
    ztest::TempDir dir_;
};

TEST_F(PickerDialog, GesturesOfTheFilePicker) {
    FillFloppies();
    struct Case {
        char const* name;
        char const* gestures;
        char const* expected;  // relative to the folder; "" for nothing
    };
    Case const cases[] = {
        {"arrows move, other keys do nothing",
         "Up Down Down Down Up PageDown End Tab A Keypad_Enter", "f000.img"},
        {"down stops on the last row", "Down*120 Return", "f099.img"},
        {"return opens a directory, its parent row goes back",
         "Down Return | Return | Down*2 Return", "f000.img"},
        {"wheel", "wheel:-3 | row0 | Return", "f001.img"},
        {"wheel far down holds at the last page", "wheel:-1000 | row0 | Return", "f083.img"},
        {"wheel far up stops at once", "wheel:-5 wheel:1000 row2 | Return", "f000.img"},
        {"arrows select out of view, the wheel keeps the selection", "Down*20 | wheel:-2 | Return",
         "f018.img"},
        {"thumb drag of 100 of 345 pixels, no motion after the release",
         "press:743,60 motion:743,160 release:743,160 motion:743,400 | row0 | Return", "f022.img"},
        {"track below the thumb pages down", "at:743,300 | row0 | Return", "f015.img"},
        {"track above the thumb pages up", "wheel:-85 | at:743,200 | row0 | Return", "f066.img"},
        {"double click on a file accepts", "row3x2", "f001.img"},
        {"double click opens a directory, its release selects there", "row1x2 | Down Return",
         "sub/inner.img"},
        {"a click left of the list selects", "at:3,163 | Return", "f002.img"},
        {"short list: the scrollbar's place is a row, below the last row keeps the selection",
         "Down Return | at:743,115 | row10 | Return", "sub/inner.img"},
        {"accept opens a directory, then accepts a file", "Down | accept | Down*2 | accept",
         "sub/inner.img"},
        {"a press on accept released elsewhere does nothing",
         "Down*2 | press:707,497 release:300,10 | Escape", ""},
        {"a press elsewhere released on accept is a click", "Down*2 | press:300,10 release:707,497",
         "f000.img"},
        {"the right button does nothing, cancel gives nothing", "Down*2 | right:707,497 | cancel",
         ""},
        {"quit", "Down*2 | quit", ""},
        {"the window's close", "close", ""},
        {"another window's close is ignored, accepted before escape",
         "otherclose Down*2 Return Escape", "f000.img"},
    };
    for (Case const& c : cases) {
        std::string const got = RunScripted(
            [&] { return ShowSimpleFloppyFilePicker(nullptr, dir_.path().string()); }, c.gestures);
        EXPECT_EQ(got, *c.expected ? (dir_.path() / c.expected).string() : "") << c.name;
    }
}

TEST_F(PickerDialog, FrameShowsHeaderPathRowsScrollbarAndButtons) {
    FillFloppies();
    ztest::ScopedWorkingDirectory cwd(dir_.path());
    ztest::Frame sub;   // "./sub": three rows that fit
    ztest::Frame here;  // ".": 101 rows, row 1 selected
    std::string const got = RunScripted([] { return ShowSimpleFloppyFilePicker(nullptr, "./sub"); },
                                        "Return Down | accept",
                                        [&](Script& script) {
                                            script.At(2, [&](Script& s) { sub = s.Capture(); });
                                            script.At(3, [&](Script& s) { here = s.Capture(); });
                                        });
    EXPECT_EQ(got, "./f000.img");  // a relative start stays relative, and so does its parent
    ASSERT_EQ(sub.width, 760);
    struct Probe {
        int x, y;
        SDL_Color color;
    };
    SDL_Color const list{12, 14, 18, 255}, footer = kColFormListFill;
    // clang-format off
    Probe const probes[] = {
        {3, 200, kColFormWindowBg}, {755, 3, kColFormHeader}, {8, 300, {80, 88, 98, 255}},
        {12, 58, kColFormSelectedRow}, {730, 79, kColFormSelectedRow}, {12, 82, list},
        {300, 400, list}, {743, 300, kThumb}, {738, 58, {140, 150, 166, 255}}, {5, 500, footer},
        {592, 482, kButton}, {661, 511, kButton}, {591, 482, footer}, {662, 511, footer},
        {672, 482, kButton}, {741, 511, kButton}, {742, 511, footer}, {672, 481, footer}};
    // clang-format on
    for (Probe const& p : probes) {
        EXPECT_TRUE(SameColor(sub.At(p.x, p.y), p.color)) << p.x << "," << p.y;
    }
    EXPECT_TRUE(SameColor(here.At(12, 82), kColFormSelectedRow));
    EXPECT_TRUE(SameColor(here.At(743, 100), kThumb));  // 69 of 414 pixels at the top
    EXPECT_TRUE(SameColor(here.At(743, 200), kColFormListFill));
    EXPECT_NEAR(InkRightEdge(sub, 8, 28), TextEnd("Select floppy image (*.ima, *.img)"), 3);
    EXPECT_NEAR(InkRightEdge(sub, 30, 54), TextEnd("./sub"), 3);  // unshortened, unchanged
    EXPECT_NEAR(InkRightEdge(here, 30, 54), TextEnd("."), 3);
}

TEST_F(PickerDialog, FolderPickerAcceptsTheShownFolder) {
    fs::create_directories(dir_.path() / "alpha");
    fs::create_directories(dir_.path() / "beta");
    fs::create_directories(dir_.path() / "empty");
    FolderPickerOptions options;
    options.start_directory = dir_.path().string();
    auto const folder = [&] { return ShowSimpleFolderPicker(nullptr, options); };
    auto const dot = [] { return ShowSimpleFolderPicker(nullptr, {"", "", "", "", "."}); };
    ztest::ScopedWorkingDirectory cwd(dir_.path() / "empty");
    EXPECT_EQ(RunScripted(folder, "Down at:719,515"), dir_.path().string());
    EXPECT_EQ(RunScripted(folder, "Return | at:719,515"), dir_.path().parent_path().string());
    EXPECT_EQ(RunScripted(folder, "Down*2 Return | at:719,515"), (dir_.path() / "beta").string());
    EXPECT_EQ(RunScripted(folder, "row1x2 | at:719,515"), (dir_.path() / "alpha").string());
    // An empty folder without a parent row: a folder picker takes it, a file picker has nothing.
    EXPECT_EQ(RunScripted(dot, "Return"), ".");
    EXPECT_EQ(RunScripted(dot, "at:719,515"), ".");
    EXPECT_EQ(RunScripted([] { return ShowSimpleShaderFilePicker(nullptr, ""); },
                          "Return Down Return | accept | Escape"),
              "");
}

TEST_F(PickerDialog, EachPickerOpensWithItsTextsSizesAndStart) {
    for (char const* name :
         {"data/ttf/A.ttf", "data/ttf/B.otf", "floppies/disk.IMA", "boot.img", "crt.glslp"}) {
        dir_.Write(name, "");
    }
    ztest::ScopedWorkingDirectory cwd(dir_.path());
    std::string const here = fs::current_path().string();
    struct Case {
        std::function<std::string()> show;
        char const* title;
        int width, height;
        Uint32 flags;
        SDL_Rect accept;
        std::string heading, gestures, expected;
    };
    Uint32 const hidden = SDL_WINDOW_HIDDEN, resizable = hidden | SDL_WINDOW_RESIZABLE;
    SDL_Rect const file{672, 482, 70, 30};
    char const* const fonts = "Select font (*.ttf, *.otf)";
    char const* const floppies = "Select floppy image (*.ima, *.img)";
    Case const cases[] = {
        {[] { return ShowSimpleTtfFilePicker(nullptr, ""); }, "Select TTF Font", 760, 520,
         resizable, file, fonts, "Down Return", "data/ttf/A.ttf"},
        // A file opens its folder with the first row selected, not the file.
        {[] { return ShowSimpleTtfFilePicker(nullptr, "data/ttf/B.otf"); }, "Select TTF Font", 760,
         520, resizable, file, fonts, "Down Return", "data/ttf/A.ttf"},
        {[] { return ShowSimpleFloppyFilePicker(nullptr, "missing/disk.img"); },
         "Load Floppy Image", 760, 520, hidden, file, floppies, "Down*3 Return",
         here + "/boot.img"},
        {[] { return ShowSimpleFloppyFilePicker(nullptr, ""); }, "Load Floppy Image", 760, 520,
         hidden, file, floppies, "Return", "floppies/disk.IMA"},
        {[] { return ShowSimpleShaderFilePicker(nullptr, ""); }, "Select Shader", 760, 520,
         resizable, file, "Select shader (*.glsl, *.glslp, *.frag, *.vert, *.fs, *.vs)",
         "Down*2 Return", "./crt.glslp"},
        // clang-format off
        {[] { return ShowSimpleFolderPicker(nullptr, {"", "", "", "", ""}); }, "Select Folder",
         780, 540, hidden, {676, 498, 86, 34}, "Select destination folder", "at:700,510", here},
        // clang-format on
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(c.title);
        ztest::ResetRecorder();
        ztest::Faults().skip_delays = true;
        ztest::Frame frame;
        EXPECT_EQ(
            RunScripted(c.show, c.gestures,
                        [&](Script& sc) { sc.At(2, [&](Script& s) { frame = s.Capture(); }); }),
            c.expected);
        auto const created = ztest::RecordedCalls("SDL_CreateWindow");
        ASSERT_EQ(created.size(), 1u);
        EXPECT_EQ(created[0].text, c.title);
        long long const at = 0x2FFF0000 + 60;
        EXPECT_EQ(created[0].args, (std::vector<long long>{at, at, c.width, c.height, c.flags}));
        SDL_Rect const& a = c.accept;
        EXPECT_TRUE(SameColor(frame.At(a.x, a.y), kButton));
        EXPECT_TRUE(SameColor(frame.At(a.x + a.w - 1, a.y + a.h - 1), kButton));
        EXPECT_TRUE(SameColor(frame.At(a.x + a.w, a.y + a.h), kColFormListFill));
        EXPECT_NEAR(InkRightEdge(frame, 8, 28), TextEnd(c.heading), 3);
    }
}

TEST_F(PickerDialog, NestedPickerGivesTheFocusBackAndTakesTheQuitAlone) {
    dir_.Write("fonts/A.ttf", "");
    SDL_Window* host = SDL_CreateWindow("host", 100, 100, 320, 200, SDL_WINDOW_HIDDEN);
    SDL_Window* outer = nullptr;
    std::string inner = "not run";
    void const* focus_after_inner = nullptr;
    FolderPickerOptions options;
    options.start_directory = dir_.path().string();
    std::string const got = RunScripted(
        [&] { return ShowSimpleFolderPicker(host, options); }, "| | | quit | | | at:719,515",
        [&](Script& script) {
            script.At(2, [&](Script& s) {
                outer = s.Window();
                inner = ShowSimpleTtfFilePicker(outer, (dir_.path() / "fonts").string());
                focus_after_inner = ztest::RecordedCalls("SDL_SetWindowInputFocus").back().object;
            });
        });
    EXPECT_EQ(got, dir_.path().string());
    EXPECT_EQ(inner, "");
    EXPECT_EQ(focus_after_inner, outer);
    EXPECT_EQ(ztest::RecordedCalls("SDL_SetWindowInputFocus").back().object, host);
    EXPECT_EQ(ztest::CountCalls("SDL_SetWindowModalFor"), 2);
    auto const live = ztest::CountLiveObjects();
    EXPECT_EQ(live.windows, 1);
    EXPECT_EQ(live.renderers + live.textures + live.surfaces, 0);
    SDL_DestroyWindow(host);
}

TEST_F(PickerDialog, ResizedPickerKeepsWorkingTinyAndLarge) {
    for (int i = 10; i < 40; ++i) {
        dir_.Write("f" + std::to_string(i) + ".ttf", "");
    }
    dir_.Write("bad\xFF.ttf", "");  // names that are no valid UTF-8 or hold a line feed
    dir_.Write("\xC3\xA9t\xC3\xA9\nline.ttf", "");  // are drawn like any other
    ztest::Frame tiny, large;
    auto const resize = [](int w, int h) {
        return [=](Script& s) { SDL_SetWindowSize(s.Window(), w, h); };
    };
    std::string const got =
        RunScripted([&] { return ShowSimpleTtfFilePicker(nullptr, dir_.path().string()); },
                    "| wheel:-2 at:100,56 | | at:947,877",  // row 2 of 33 with no room for a row
                    [&](Script& script) {
                        script.At(2, resize(300, 100));
                        script.At(4, [&](Script& s) { tiny = s.Capture(); });
                        script.At(4, resize(1000, 900));
                        script.At(5, [&](Script& s) { large = s.Capture(); });
                    });
    EXPECT_EQ(got, (dir_.path() / "f10.ttf").string());
    ASSERT_EQ(tiny.height, 100);
    EXPECT_TRUE(SameColor(tiny.At(212, 62), kButton));  // the accept button moved up
    ASSERT_EQ(large.height, 900);
    EXPECT_TRUE(SameColor(large.At(12, 58 + 24 * 2), kColFormSelectedRow));
    EXPECT_TRUE(SameColor(large.At(984, 800), kThumb));  // all 33 rows fit
}

TEST_F(PickerDialog, FailuresAndBareOptions) {
    SDL_Window* parent = SDL_CreateWindow("host", 0, 0, 64, 64, SDL_WINDOW_HIDDEN);
    for (int fault = 0; fault < 2; ++fault) {
        ztest::ResetRecorder();
        ztest::Faults().fail_window_creation = fault == 0;
        ztest::Faults().fail_accelerated_renderer = fault == 1;
        ztest::Faults().fail_software_renderer = fault == 1;
        EXPECT_EQ(ShowSimpleFloppyFilePicker(parent, dir_.path().string()), "");
        EXPECT_EQ(ztest::CountCalls("SDL_RaiseWindow") + ztest::CountCalls("SDL_RenderPresent"), 0);
        EXPECT_EQ(ztest::CountLiveObjects().windows, 1);
    }
    SDL_DestroyWindow(parent);

    // No texts, no sizes, no loader: it opens, draws and closes on Escape, and its
    // window comes up once, after the first frame.
    ztest::ResetRecorder();
    ztest::Faults().skip_delays = true;
    SdlPickerDialogOptions bare;
    bare.window_flags = SDL_WINDOW_HIDDEN;
    EXPECT_EQ(
        RunScripted([&] { return RunSimplePickerDialog(nullptr, bare); }, "Return Down | Escape"),
        "");
    std::vector<std::string> names = ztest::RecordedCallNames();
    names.erase(names.begin(), std::find(names.begin(), names.end(), "SDL_RenderPresent"));
    EXPECT_EQ(names, (std::vector<std::string>{
                         "SDL_RenderPresent", "SDL_ShowWindow", "SDL_RaiseWindow",
                         "SDL_SetWindowInputFocus", "SDL_Delay", "SDL_RenderPresent", "SDL_Delay",
                         "SDL_RenderPresent", "SDL_Delay", "SDL_RenderPresent", "SDL_Delay",
                         "SDL_DestroyRenderer", "SDL_DestroyWindow"}));
    EXPECT_EQ(ztest::RecordedCalls("SDL_Delay").back().args[0], 8);
}

}  // namespace
