// The pickers run for real through the heartbeat, frame by frame: every gesture
// answered on the returned path, and the frame checked where its look is fixed.
#include "gui/pickers.h"

#include "frame/ui_fonts.h"
#include "pickers/picker_dialog.h"
#include "support/dialog_script.h"
#include "support/temp_dir.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using namespace zorvane::frontend::gui;
using Step = ztest::DialogScript::Step;

// Where things are in a 760 x 520 file picker: 17 rows, the track at x 738.
int RowY(int row) {
    return 57 + 24 * row + 10;
}
constexpr int kAcceptX = 707, kCancelX = 627, kButtonY = 497, kTrackX = 743;

Step Keys(std::vector<SDL_Keycode> keys) {
    return [keys](ztest::DialogScript& s) {
        for (SDL_Keycode key : keys) {
            s.Key(key);
        }
    };
}
Step ClickRow(int row, Uint8 clicks = 1) {
    return [=](ztest::DialogScript& s) { s.Click(100, RowY(row), clicks); };
}
Step ClickAt(int x, int y) {
    return [=](ztest::DialogScript& s) { s.Click(x, y); };
}

// Runs `show` with one step on each frame from the second on.
std::string RunScripted(std::function<std::string()> const& show, std::vector<Step> const& steps) {
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    ztest::DialogScript script;
    script.set_grace_frames(30);
    for (std::size_t i = 0; i < steps.size(); ++i) {
        script.At(2 + static_cast<int>(i), steps[i]);
    }
    std::string result = show();
    EXPECT_FALSE(script.timed_out());
    return result;
}

bool SameColor(SDL_Color a, SDL_Color b) {
    return a.r == b.r && a.g == b.g && a.b == b.b;
}

// The right end of what was drawn in the header band between rows y0 and y1.
int InkRightEdge(ztest::Frame const& frame, int y0, int y1) {
    int right = -1;
    for (int y = y0; y < y1; ++y) {
        for (int x = 0; x < frame.width; ++x) {
            if (!SameColor(frame.At(x, y), kColFormHeader)) {
                right = std::max(right, x);
            }
        }
    }
    return right;
}
int TextWidth(std::string const& text) {
    int w = 0;
    TTF_SizeUTF8(GetCachedSdlUiFont(15, false, kSemiBold), text.c_str(), &w, nullptr);
    return w;
}

class PickerDialog : public ztest::DialogTest {
protected:
    void SetUp() override {
        DialogTest::SetUp();
        ztest::Faults().skip_delays = true;
    }
    // sub/ (deeper/, inner.img) and f000.img to f099.img: rows .., sub, f000, ...
    void FillFloppies() {
        fs::create_directories(dir_.path() / "sub/deeper");
        dir_.Write("sub/inner.img", "");
        for (int i = 0; i < 100; ++i) {
            char name[16];
            std::snprintf(name, sizeof name, "f%03d.img", i);
            dir_.Write(name, "");
        }
    }
    ztest::TempDir dir_;
};

TEST_F(PickerDialog, GesturesOfTheFilePicker) {
    FillFloppies();
    struct Case {
        char const* name;
        std::vector<Step> steps;
        char const* expected;  // relative to the folder; "" for nothing
    };
    auto const press_release = [](int px, int py, int rx, int ry, Uint8 button) -> Step {
        return [=](ztest::DialogScript& s) {
            s.Press(px, py, button);
            s.Release(rx, ry, button);
        };
    };
    Case const cases[] = {
        {"arrows move, other keys do nothing, keypad enter accepts",
         {Keys({SDLK_UP, SDLK_DOWN, SDLK_DOWN, SDLK_DOWN, SDLK_UP, SDLK_PAGEDOWN, SDLK_END,
                SDLK_TAB, SDLK_a, SDLK_KP_ENTER})},
         "f000.img"},
        {"down stops on the last row",
         {Keys(std::vector<SDL_Keycode>(120, SDLK_DOWN)), Keys({SDLK_RETURN})},
         "f099.img"},
        {"return opens a directory and its parent row goes back",
         {Keys({SDLK_DOWN, SDLK_RETURN}), Keys({SDLK_RETURN}),
          Keys({SDLK_DOWN, SDLK_DOWN, SDLK_RETURN})},
         "f000.img"},
        {"wheel",
         {[](ztest::DialogScript& s) { s.Wheel(-3); }, ClickRow(0), Keys({SDLK_RETURN})},
         "f001.img"},
        {"wheel far down holds at the last page",
         {[](ztest::DialogScript& s) { s.Wheel(-1000); }, ClickRow(0), Keys({SDLK_RETURN})},
         "f083.img"},
        {"wheel far up stops at the top at once",
         {[](ztest::DialogScript& s) {
              s.Wheel(-5);
              s.Wheel(1000);
              s.Click(100, RowY(2));
          },
          Keys({SDLK_RETURN})},
         "f000.img"},
        {"arrows select out of view and the wheel leaves the selection",
         {Keys(std::vector<SDL_Keycode>(20, SDLK_DOWN)),
          [](ztest::DialogScript& s) { s.Wheel(-2); }, Keys({SDLK_RETURN})},
         "f018.img"},
        {"thumb drag, and motion after the release does nothing",
         {[](ztest::DialogScript& s) {
              s.Press(kTrackX, 60);
              s.Motion(kTrackX, 160);  // 100 of 345 pixels of travel: row 24 of 85
              s.Release(kTrackX, 160);
              s.Motion(kTrackX, 400);
          },
          ClickRow(0), Keys({SDLK_RETURN})},
         "f022.img"},
        {"track below the thumb pages down",
         {ClickAt(kTrackX, 300), ClickRow(0), Keys({SDLK_RETURN})},
         "f015.img"},
        {"track above the thumb pages up",
         {[](ztest::DialogScript& s) { s.Wheel(-85); }, ClickAt(kTrackX, 200), ClickRow(0),
          Keys({SDLK_RETURN})},
         "f066.img"},
        {"double click on a file accepts it", {ClickRow(3, 2)}, "f001.img"},
        {"double click opens a directory, its release selects in the new list",
         {ClickRow(1, 2), Keys({SDLK_DOWN, SDLK_RETURN})},
         "sub/inner.img"},
        {"click left of the list selects the row",
         {ClickAt(3, RowY(4)), Keys({SDLK_RETURN})},
         "f002.img"},
        {"a short list: the scrollbar's place is a row, below the last row keeps the selection",
         {Keys({SDLK_DOWN, SDLK_RETURN}), ClickAt(kTrackX, RowY(2)), ClickRow(10),
          Keys({SDLK_RETURN})},
         "sub/inner.img"},
        {"accept opens a directory, then accepts a file",
         {Keys({SDLK_DOWN}), ClickAt(kAcceptX, kButtonY), Keys({SDLK_DOWN, SDLK_DOWN}),
          ClickAt(kAcceptX, kButtonY)},
         "sub/inner.img"},
        {"a press on accept released elsewhere does nothing",
         {Keys({SDLK_DOWN, SDLK_DOWN}), press_release(kAcceptX, kButtonY, 300, 10, SDL_BUTTON_LEFT),
          Keys({SDLK_ESCAPE})},
         ""},
        {"a press elsewhere released on accept is a click",
         {Keys({SDLK_DOWN, SDLK_DOWN}),
          press_release(300, 10, kAcceptX, kButtonY, SDL_BUTTON_LEFT)},
         "f000.img"},
        {"the right button does nothing, cancel gives nothing",
         {Keys({SDLK_DOWN, SDLK_DOWN}),
          press_release(kAcceptX, kButtonY, kAcceptX, kButtonY, SDL_BUTTON_RIGHT),
          ClickAt(kCancelX, kButtonY)},
         ""},
        {"quit", {Keys({SDLK_DOWN, SDLK_DOWN}), [](ztest::DialogScript& s) { s.Quit(); }}, ""},
        {"the window's close", {[](ztest::DialogScript& s) { s.CloseWindow(); }}, ""},
        {"another window's close is ignored; accepted before escape in one pass",
         {[](ztest::DialogScript& s) {
              SDL_Event other{};
              other.type = SDL_WINDOWEVENT;
              other.window.windowID = s.WindowId() + 100;
              other.window.event = SDL_WINDOWEVENT_CLOSE;
              ztest::PushEvent(other);
          },
          Keys({SDLK_DOWN, SDLK_DOWN, SDLK_RETURN, SDLK_ESCAPE})},
         "f000.img"},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(c.name);
        std::string const got = RunScripted(
            [&] { return ShowSimpleFloppyFilePicker(nullptr, dir_.path().string()); }, c.steps);
        EXPECT_EQ(got, c.expected[0] == '\0' ? "" : (dir_.path() / c.expected).string());
    }
}

TEST_F(PickerDialog, FrameShowsHeaderPathRowsScrollbarAndButtons) {
    FillFloppies();
    ztest::ScopedWorkingDirectory cwd(dir_.path());
    ztest::Frame short_list;
    ztest::Frame long_list;
    std::string const got = RunScripted(
        [] { return ShowSimpleFloppyFilePicker(nullptr, "./sub"); },
        {[&](ztest::DialogScript& s) { short_list = s.Capture(); }, Keys({SDLK_RETURN, SDLK_DOWN}),
         [&](ztest::DialogScript& s) { long_list = s.Capture(); }, ClickAt(kAcceptX, kButtonY)});
    EXPECT_EQ(got, "./f000.img");  // a relative start stays relative, and so does its parent
    ASSERT_EQ(short_list.width, 760);
    struct Probe {
        int x, y;
        SDL_Color color;
    };
    SDL_Color const row_fill{12, 14, 18, 255}, button{70, 76, 84, 255};
    SDL_Color const footer = kColFormListFill, track = kColFormListFill, thumb{92, 102, 116, 255};
    Probe const short_probes[] = {{3, 200, kColFormWindowBg},
                                  {755, 3, kColFormHeader},
                                  {8, 300, {80, 88, 98, 255}},
                                  {12, 58, kColFormSelectedRow},
                                  {730, 79, kColFormSelectedRow},
                                  {12, 82, row_fill},
                                  {300, 400, row_fill},
                                  {kTrackX, 300, thumb},
                                  {738, 58, {140, 150, 166, 255}},
                                  {5, 500, footer},
                                  {592, 482, button},
                                  {661, 511, button},
                                  {591, 482, footer},
                                  {662, 511, footer},
                                  {672, 482, button},
                                  {741, 511, button},
                                  {742, 511, footer},
                                  {672, 481, footer},
                                  {672, 512, footer}};
    for (Probe const& p : short_probes) {
        EXPECT_TRUE(SameColor(short_list.At(p.x, p.y), p.color)) << p.x << "," << p.y;
    }
    // The long list: row 1 selected, a thumb of 69 pixels at the top of the track.
    EXPECT_TRUE(SameColor(long_list.At(12, 58 + 24), kColFormSelectedRow));
    EXPECT_TRUE(SameColor(long_list.At(kTrackX, 100), thumb));
    EXPECT_TRUE(SameColor(long_list.At(kTrackX, 200), track));
    // The heading and the unshortened relative path, each ending where its text ends.
    EXPECT_NEAR(InkRightEdge(short_list, 8, 28),
                10 + TextWidth("Select floppy image (*.ima, *.img)"), 3);
    EXPECT_NEAR(InkRightEdge(short_list, 30, 54), 10 + TextWidth("./sub"), 3);
    EXPECT_NEAR(InkRightEdge(long_list, 30, 54), 10 + TextWidth("."), 3);
}

TEST_F(PickerDialog, FolderPickerAcceptsTheShownFolder) {
    fs::create_directories(dir_.path() / "alpha");
    fs::create_directories(dir_.path() / "beta");
    dir_.Write("file.img", "");
    fs::path const empty = dir_.path() / "empty";
    fs::create_directories(empty);
    FolderPickerOptions options;
    options.start_directory = dir_.path().string();
    auto const folder = [&] { return ShowSimpleFolderPicker(nullptr, options); };
    Step const accept = ClickAt(780 - 18 - 43, 540 - 50 + 8 + 17);
    struct Case {
        std::function<std::string()> show;
        std::vector<Step> steps;
        std::string expected;
    };
    ztest::ScopedWorkingDirectory cwd(empty);
    Case const cases[] = {
        {folder, {accept}, dir_.path().string()},
        {folder, {Keys({SDLK_RETURN}), accept}, dir_.path().parent_path().string()},
        {folder,
         {Keys({SDLK_DOWN, SDLK_DOWN, SDLK_RETURN}), accept},
         (dir_.path() / "beta").string()},
        {folder, {ClickRow(1, 2), accept}, (dir_.path() / "alpha").string()},
        // An empty folder without a parent row: the folder picker takes it, a file picker has
        // nothing.
        {[] {
             return ShowSimpleFolderPicker(nullptr, {"", "", "", "", "."});
         },
         {Keys({SDLK_RETURN})},
         "."},
        {[] {
             return ShowSimpleFolderPicker(nullptr, {"", "", "", "", "."});
         },
         {accept},
         "."},
        {[] { return ShowSimpleShaderFilePicker(nullptr, ""); },
         {Keys({SDLK_RETURN, SDLK_DOWN, SDLK_RETURN}), ClickAt(kAcceptX, kButtonY),
          Keys({SDLK_ESCAPE})},
         ""},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(c.expected);
        EXPECT_EQ(RunScripted(c.show, c.steps), c.expected);
    }
}

TEST_F(PickerDialog, EachPickerOpensWithItsTextsSizesAndStart) {
    dir_.Write("data/ttf/A.ttf", "");
    dir_.Write("data/ttf/B.otf", "");
    dir_.Write("floppies/disk.IMA", "");
    dir_.Write("boot.img", "");
    dir_.Write("crt.glslp", "");
    ztest::ScopedWorkingDirectory cwd(dir_.path());
    std::string const here = fs::current_path().string();
    struct Case {
        std::function<std::string()> show;
        char const* title;
        int width, height;
        Uint32 flags;
        SDL_Rect accept;
        std::string heading;
        Step gesture;
        std::string expected;
    };
    Uint32 const hidden = SDL_WINDOW_HIDDEN, resizable = SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE;
    SDL_Rect const file_accept{672, 482, 70, 30};
    char const* const font_heading = "Select font (*.ttf, *.otf)";
    char const* const floppy_heading = "Select floppy image (*.ima, *.img)";
    Case const cases[] = {
        {[] { return ShowSimpleTtfFilePicker(nullptr, ""); }, "Select TTF Font", 760, 520,
         resizable, file_accept, font_heading, Keys({SDLK_DOWN, SDLK_RETURN}), "data/ttf/A.ttf"},
        // A file opens its folder, with the first row selected rather than the file.
        {[] { return ShowSimpleTtfFilePicker(nullptr, "data/ttf/B.otf"); }, "Select TTF Font", 760,
         520, resizable, file_accept, font_heading, Keys({SDLK_DOWN, SDLK_RETURN}),
         "data/ttf/A.ttf"},
        {[] { return ShowSimpleFloppyFilePicker(nullptr, "missing/disk.img"); },
         "Load Floppy Image", 760, 520, hidden, file_accept, floppy_heading,
         Keys({SDLK_DOWN, SDLK_DOWN, SDLK_DOWN, SDLK_RETURN}), here + "/boot.img"},
        {[] { return ShowSimpleFloppyFilePicker(nullptr, ""); }, "Load Floppy Image", 760, 520,
         hidden, file_accept, floppy_heading, Keys({SDLK_RETURN}), "floppies/disk.IMA"},
        {[] { return ShowSimpleShaderFilePicker(nullptr, ""); }, "Select Shader", 760, 520,
         resizable, file_accept, "Select shader (*.glsl, *.glslp, *.frag, *.vert, *.fs, *.vs)",
         Keys({SDLK_DOWN, SDLK_DOWN, SDLK_RETURN}), "./crt.glslp"},
        {[] {
             return ShowSimpleFolderPicker(nullptr, {"", "", "", "", ""});
         },
         "Select Folder",
         780,
         540,
         hidden,
         {676, 498, 86, 34},
         "Select destination folder",
         ClickAt(700, 510),
         here},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(c.title);
        ztest::ResetRecorder();
        ztest::Faults().skip_delays = true;
        ztest::Frame frame;
        std::string const got =
            RunScripted(c.show, {[&](ztest::DialogScript& s) { frame = s.Capture(); }, c.gesture});
        EXPECT_EQ(got, c.expected);
        auto const created = ztest::RecordedCalls("SDL_CreateWindow");
        ASSERT_EQ(created.size(), 1u);
        EXPECT_EQ(created[0].text, c.title);
        long long const at = 0x2FFF0000 + 60;
        EXPECT_EQ(created[0].args, (std::vector<long long>{at, at, c.width, c.height, c.flags}));
        SDL_Rect const& a = c.accept;
        SDL_Color const button{70, 76, 84, 255};
        EXPECT_TRUE(SameColor(frame.At(a.x, a.y), button));
        EXPECT_TRUE(SameColor(frame.At(a.x + a.w - 1, a.y + a.h - 1), button));
        EXPECT_TRUE(SameColor(frame.At(a.x + a.w, a.y + a.h), kColFormListFill));
        EXPECT_NEAR(InkRightEdge(frame, 8, 28), 10 + TextWidth(c.heading), 3);
    }
}

TEST_F(PickerDialog, NestedPickerGivesTheFocusBackAndTakesTheQuitAlone) {
    dir_.Write("fonts/A.ttf", "");
    SDL_Window* host = SDL_CreateWindow("host", 100, 100, 320, 200, SDL_WINDOW_HIDDEN);
    SDL_Window* outer = nullptr;
    std::string inner_result = "unset";
    std::vector<ztest::SdlCall> focus_after_inner;
    ztest::DialogScript script;
    script.At(2, [&](ztest::DialogScript& s) {
        outer = s.Window();
        inner_result = ShowSimpleTtfFilePicker(outer, (dir_.path() / "fonts").string());
        focus_after_inner = ztest::RecordedCalls("SDL_SetWindowInputFocus");
    });
    script.At(5, [](ztest::DialogScript& s) { s.Quit(); });  // inside the inner picker
    script.At(8, ClickAt(719, 515));                         // the outer picker's accept
    FolderPickerOptions options;
    options.start_directory = dir_.path().string();
    EXPECT_EQ(ShowSimpleFolderPicker(host, options), dir_.path().string());
    EXPECT_EQ(inner_result, "");
    ASSERT_FALSE(focus_after_inner.empty());
    EXPECT_EQ(focus_after_inner.back().object, outer);
    EXPECT_EQ(ztest::RecordedCalls("SDL_SetWindowInputFocus").back().object, host);
    EXPECT_EQ(ztest::RecordedCalls("SDL_SetWindowModalFor").size(), 2u);
    auto const live = ztest::CountLiveObjects();
    EXPECT_EQ(live.windows, 1);
    EXPECT_EQ(live.renderers + live.textures + live.surfaces, 0);
    SDL_DestroyWindow(host);
}

TEST_F(PickerDialog, ResizedPickerKeepsWorkingTinyAndLarge) {
    for (int i = 0; i < 30; ++i) {
        dir_.Write("f" + std::to_string(10 + i) + ".ttf", "");
    }
    ztest::Frame tiny;
    ztest::Frame large;
    std::string const got =
        RunScripted([&] { return ShowSimpleTtfFilePicker(nullptr, dir_.path().string()); },
                    {[](ztest::DialogScript& s) { SDL_SetWindowSize(s.Window(), 300, 100); },
                     [](ztest::DialogScript& s) {
                         s.Wheel(-2);  // no room for a row, yet one is on show: row 2 of 31
                         s.Click(100, 56);
                     },
                     [&](ztest::DialogScript& s) {
                         tiny = s.Capture();
                         SDL_SetWindowSize(s.Window(), 1000, 900);
                     },
                     [&](ztest::DialogScript& s) {
                         large = s.Capture();
                         s.Click(1000 - 18 - 35, 900 - 46 + 8 + 15);  // the moved accept button
                     }});
    EXPECT_EQ(got, (dir_.path() / "f11.ttf").string());
    ASSERT_EQ(tiny.height, 100);
    EXPECT_TRUE(SameColor(tiny.At(212, 62), {70, 76, 84, 255}));  // accept at x 212, y 62
    ASSERT_EQ(large.height, 900);
    // 33 rows fit: all 31 are shown, and the thumb fills the track.
    EXPECT_TRUE(SameColor(large.At(12, 58 + 24 * 2), kColFormSelectedRow));
    EXPECT_TRUE(SameColor(large.At(1000 - 8 - 8, 800), {92, 102, 116, 255}));
}

std::vector<PickerEntry> HundredThousandRows(fs::path const&) {
    return std::vector<PickerEntry>(100000, PickerEntry{"row", "row", false});
}
int g_labels_made = 0;
std::string CountingLabel(PickerEntry const& entry) {
    ++g_labels_made;
    return entry.name;
}

TEST_F(PickerDialog, FailuresAndBareOptions) {
    SDL_Window* parent = SDL_CreateWindow("host", 0, 0, 64, 64, SDL_WINDOW_HIDDEN);
    for (int fault = 0; fault < 2; ++fault) {
        ztest::ResetRecorder();
        ztest::Faults().fail_window_creation = fault == 0;
        ztest::Faults().fail_accelerated_renderer = ztest::Faults().fail_software_renderer =
            fault == 1;
        EXPECT_EQ(ShowSimpleFloppyFilePicker(parent, dir_.path().string()), "");
        EXPECT_EQ(ztest::CountCalls("SDL_RaiseWindow") + ztest::CountCalls("SDL_RenderPresent"), 0);
        EXPECT_EQ(ztest::CountLiveObjects().windows, 1);
    }
    SDL_DestroyWindow(parent);

    // No texts, no sizes, no loader: it opens, draws and closes on Escape.
    ztest::ResetRecorder();
    ztest::Faults().skip_delays = true;
    SdlPickerDialogOptions bare;
    bare.window_flags = SDL_WINDOW_HIDDEN;
    EXPECT_EQ(RunScripted([&] { return RunSimplePickerDialog(nullptr, bare); },
                          {Keys({SDLK_RETURN, SDLK_DOWN}), Keys({SDLK_ESCAPE})}),
              "");
    // A huge list: only the rows on show are worded, and the selection walks past them.
    SdlPickerDialogOptions huge = bare;
    huge.load_entries = HundredThousandRows;
    huge.label_entry = CountingLabel;
    huge.window_width = 400;
    huge.window_height = 300;
    huge.footer_height = 40;
    g_labels_made = 0;
    EXPECT_EQ(RunScripted([&] { return RunSimplePickerDialog(nullptr, huge); },
                          {Keys(std::vector<SDL_Keycode>(50, SDLK_DOWN)), Keys({SDLK_RETURN})}),
              "row");
    int const frames = ztest::CountCalls("SDL_RenderPresent");
    EXPECT_GT(frames, 2);
    EXPECT_LE(g_labels_made, frames * ((300 - 56 - 40) / 24));
}

}  // namespace
