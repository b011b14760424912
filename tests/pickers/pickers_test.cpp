// The pickers: real directories read into rows (order, filters, links, odd names, the
// parent row, the row texts, unreadable and vanishing directories), and the pickers run
// for real through the heartbeat, every gesture answered on the returned path and the
// frame checked where its look is fixed.
#include "gui/pickers.h"
#include "frame/ui_fonts.h"
#include "pickers/picker_dialog.h"
#include "pickers/picker_entries.h"
#include "pickers/picker_text.h"
#include "support/dialog_checks.h"
#include "support/dialog_script.h"
#include "support/temp_dir.h"
#include "support/test_display.h"
#include "support/unprivileged.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <sstream>

namespace {

namespace fs = std::filesystem;
using namespace zorvane::frontend::gui;
using Script = ztest::DialogScript;
using ztest::HasColor;

// The rows as "name/|" for a directory and "name|" for a file, in list order.
std::string NamesOf(std::vector<PickerEntry> const& entries) {
    std::string names;
    for (PickerEntry const& entry : entries) {
        names += entry.name + (entry.is_directory ? "/|" : "|");
    }
    return names;
}

TEST(PickerEntries, ParentThenSortedDirectoriesThenAcceptedFiles) {
    ztest::TempDir dir;
    fs::path const& root = dir.path();
    for (std::string name : {"Zeta/", "alpha/", "music.img/", "b.IMG", "A.img", "c.txt",
                             ".hidden.img", "with blank.ima", "disquette \xC3\xA9.img",
                             "bad\xFF.img", "line\nfeed.img", "UPPER.IMA", ".img", "a.b.img"}) {
        dir.Write(name.back() == '/' ? name + "keep" : name, "x");
    }
    fs::create_directory_symlink(root / "alpha", root / "link_dir");
    fs::create_symlink(root / "A.img", root / "link_file.img");
    fs::create_symlink(root / "c.txt", root / "link_txt.img");  // judged by the link's name
    fs::create_symlink(root / "gone.img", root / "dangling.img");
    fs::create_symlink(root / "loop.img", root / "loop.img");
    ASSERT_EQ(mkfifo((root / "pipe.img").c_str(), 0600), 0);

    auto const entries = ReadFilteredPickerEntries(root, IsAllowedImagePickerEntry);
    std::string const folders = "../|alpha/|link_dir/|music.img/|Zeta/|";
    EXPECT_EQ(NamesOf(entries),
              folders +
                  ".hidden.img|a.b.img|A.img|b.IMG|bad\xFF.img|disquette \xC3\xA9.img|"
                  "line\nfeed.img|link_file.img|link_txt.img|UPPER.IMA|with blank.ima|");
    ASSERT_EQ(entries.size(), 16u);
    EXPECT_EQ(entries[0].path, root.parent_path());
    for (std::size_t i = 1; i < entries.size(); ++i) {
        EXPECT_EQ(entries[i].path, root / entries[i].name);
    }
    EXPECT_EQ(NamesOf(ReadFolderPickerEntries(root)), folders);
    EXPECT_EQ(NamesOf(ReadFilteredPickerEntries(root, nullptr)), folders);
    EXPECT_EQ(NamesOf(ReadFolderPickerEntries(root / "alpha")), "../|");  // files left out

    // Row texts: the prefix comes from the kind of picker and the lowered extension.
    PickerEntry const otf{"A.OTF", "d/A.OTF", false}, preset{"x.GLSLP", "x.GLSLP", false};
    EXPECT_EQ(LabelFontPickerEntry(otf) + LabelFontPickerEntry(preset) +
                  LabelShaderPickerEntry(otf) + LabelShaderPickerEntry(preset) +
                  LabelFloppyPickerEntry(entries[7]) + LabelFolderPickerEntry(entries[7]) +
                  LabelShaderPickerEntry(entries[0]) + LabelFontPickerEntry(entries[3]),
              "[OTF] A.OTF[TTF] x.GLSLP[SHD] A.OTF[PST] x.GLSLP[IMG] A.img[DIR] A.img[DIR] ..[DIR] "
              "music.img");
    std::string kinds;  // S: a shader file, F: a font file, -: neither
    for (char const* name : {"a.glsl", "a.GLSLP", "a.frag", "a.Vert", "a.fs", "a.vs", "a.TTF",
                             "a.otf", "a.glsl~", ".ttf", "a.ttc", "fs"}) {
        kinds += IsShaderPickerEntry(name) ? 'S' : IsFontPickerEntry(name) ? 'F' : '-';
    }
    EXPECT_EQ(kinds, "SSSSSSFF----");
    EXPECT_EQ(ExtLower("dir/SHADER.GLSLP") + "|" + ExtLower("dir.d/noext") + "|" +
                  ExtLower("a.b.FRAG") + "|" + TrimStr(" \t\v\fa b\r\n") + "|" + TrimStr("   "),
              ".glslp||.frag|a b|");
}

fs::path g_vanishing;

TEST(PickerEntries, UnreadableAndVanishingDirectoriesKeepWhatCanBeRead) {
    ztest::TempDir dir;
    fs::path const& root = dir.path();
    dir.Write("shown/ok.img", "");
    dir.Write("shown/locked/inside.img", "");
    dir.Write("closed/never.img", "");
    fs::create_symlink(root / "shown/locked/inside.img", root / "shown/through_lock.img");
    chmod(root.c_str(), 0755);
    chmod((root / "shown").c_str(), 0755);
    chmod((root / "shown/locked").c_str(), 0);
    chmod((root / "closed").c_str(), 0111);  // may be entered, not read
    ztest::ChildOutcome const outcome = ztest::RunAsUnprivilegedUser([&] {
        return NamesOf(ReadFilteredPickerEntries(root / "shown", IsAllowedImagePickerEntry)) + "+" +
               NamesOf(ReadFilteredPickerEntries(root / "closed", IsAllowedImagePickerEntry));
    });
    ASSERT_EQ(outcome.exit_code, 0);
    ASSERT_TRUE(outcome.unprivileged);
    // The file behind the lock cannot be typed and goes alone; "closed" lists nothing.
    EXPECT_EQ(outcome.output, "../|locked/|ok.img|+../|");

    // A filter that removes the directory when first asked, far into a long listing.
    g_vanishing = root / "vanishing";
    for (int i = 0; i < 4000; ++i) {
        dir.Write("vanishing/" + std::string(48, 'p') + std::to_string(i) + ".img", "");
    }
    auto const entries = ReadFilteredPickerEntries(
        g_vanishing, [](fs::path const&) { return ((void)fs::remove_all(g_vanishing), true); });
    EXPECT_FALSE(fs::exists(g_vanishing));
    ASSERT_GE(entries.size(), 2u);
    EXPECT_LT(entries.size(), 4001u);
    EXPECT_TRUE(std::is_sorted(entries.begin() + 1, entries.end(),
                               [](auto const& a, auto const& b) { return a.name < b.name; }));
    EXPECT_EQ(NamesOf(ReadFolderPickerEntries(g_vanishing)), "../|");
}

// One word of a gesture script. Places are those of a 760 x 520 file picker: rows 24
// pixels apart from y 57, the track at x 738 to 749, accept at 707,497, cancel at 627,497.
void Perform(Script& s, std::string const& w) {
    int x = 0, y = 0, n = 1;
    char v[8] = "";
    if (w == "quit" || w == "close") {
        w == "quit" ? s.Quit() : s.CloseWindow();
    } else if (w == "otherclose") {  // the close of a window that is not the picker's
        SDL_Event other{};
        other.type = SDL_WINDOWEVENT;
        other.window.windowID = s.WindowId() + 100;
        other.window.event = SDL_WINDOWEVENT_CLOSE;
        ztest::PushEvent(other);
    } else if (w == "accept" || w == "cancel") {
        s.Click(w == "accept" ? 707 : 627, 497);
    } else if (std::sscanf(w.c_str(), "row%dx%d", &y, &n) >= 1) {  // row y clicked n times
        s.Click(100, 67 + 24 * y, static_cast<Uint8>(n));
    } else if (std::sscanf(w.c_str(), "%7[a-z]:%d,%d", v, &x, &y) >= 2) {
        std::string const verb = v;  // at (a click), right (a right click), press, release...
        verb == "at"        ? s.Click(x, y)
        : verb == "right"   ? (s.Press(x, y, SDL_BUTTON_RIGHT), s.Release(x, y, SDL_BUTTON_RIGHT))
        : verb == "press"   ? s.Press(x, y)
        : verb == "release" ? s.Release(x, y)
        : verb == "motion"  ? s.Motion(x, y)
                            : s.Wheel(x);
    } else {  // a key by its SDL name, "_" for a blank, "*n" to press it n times
        std::string name = w.substr(0, w.find('*'));
        std::replace(name.begin(), name.end(), '_', ' ');
        SDL_Keycode const key = SDL_GetKeyFromName(name.c_str());
        ASSERT_NE(key, SDLK_UNKNOWN) << w;
        int const times = w.size() > name.size() ? std::stoi(w.substr(name.size() + 1)) : 1;
        for (int i = 0; i < times; ++i) {
            s.Key(key);
        }
    }
}

// Runs `show` with the words of `gestures` on the frames from the second on ("|" goes on
// to the next frame); `prepare` may add steps first.
std::string RunScripted(std::function<std::string()> const& show, std::string const& gestures,
                        std::function<void(Script&)> const& prepare = nullptr) {
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    ztest::ResetRecorder();
    ztest::Faults().skip_delays = true;
    Script script;
    script.set_grace_frames(30);
    if (prepare) {
        prepare(script);
    }
    std::istringstream in(gestures);
    int frame = 2;
    for (std::string word; in >> word; frame += word == "|") {
        if (word != "|") {
            script.At(frame, [word](Script& s) { Perform(s, word); });
        }
    }
    std::string result = show();
    EXPECT_FALSE(script.timed_out()) << gestures;
    return result;
}

// The text drawn in the header band between rows y0 and y1 ends where `text`, measured
// in the pickers' font, ends.
void ExpectTextEnd(ztest::Frame const& f, int y0, int y1, std::string const& text) {
    int right = -1, w = 0;
    for (int y = y0; y < y1; ++y) {
        for (int x = 0; x < f.width; ++x) {
            right = HasColor(f, x, y, kColFormHeader) ? right : std::max(right, x);
        }
    }
    TTF_SizeUTF8(GetCachedSdlUiFont(15, false, kSemiBold), text.c_str(), &w, nullptr);
    EXPECT_NEAR(right, 10 + w, 3) << text;
}

constexpr SDL_Color kButton{70, 76, 84, 255}, kThumb{92, 102, 116, 255};

class PickerDialog : public ztest::DialogTest {
protected:
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
    // Gestures, and the picked path relative to the folder ("" for nothing).
    // clang-format off
    std::pair<char const*, char const*> const cases[] = {
        {"Up Down Down Down Up PageDown End Tab A Keypad_Enter", "f000.img"},  // other keys do nothing
        {"Down*120 Return", "f099.img"},                         // down stops on the last row
        {"Down Return | Return | Down*2 Return", "f000.img"},    // into a directory and out by ".."
        {"wheel:-3 | row0 | Return", "f001.img"},
        {"wheel:-1000 | row0 | Return", "f083.img"},             // held at the last page
        {"wheel:-5 wheel:1000 row2 | Return", "f000.img"},       // far up stops at once
        {"Down*20 | wheel:-2 | Return", "f018.img"},             // the wheel keeps the selection
        {"press:743,60 motion:743,160 release:743,160 motion:743,400 | row0 | Return", "f022.img"},
        {"at:743,300 | row0 | Return", "f015.img"},              // track below the thumb pages down
        {"wheel:-85 | at:743,200 | row0 | Return", "f066.img"},  // track above it pages up
        {"row3x2", "f001.img"},                                  // double click on a file accepts
        {"row1x2 | Down Return", "sub/inner.img"},               // on a directory opens it
        {"at:3,163 | Return", "f002.img"},                       // a click left of the list
        {"Down Return | at:743,115 | row10 | Return", "sub/inner.img"},  // no scrollbar; below the rows
        {"Down | accept | Down*2 | accept", "sub/inner.img"},
        {"Down*2 | press:707,497 release:300,10 | Escape", ""},  // buttons act on the release
        {"Down*2 | press:300,10 release:707,497", "f000.img"},
        {"Down*2 | right:707,497 | cancel", ""},
        {"Down*2 | quit", ""},
        {"close", ""},
        {"otherclose Down*2 Return Escape", "f000.img"},
    };
    // clang-format on
    for (auto const& [gestures, expected] : cases) {
        std::string const got = RunScripted(
            [&] { return ShowSimpleFloppyFilePicker(nullptr, dir_.path().string()); }, gestures);
        EXPECT_EQ(got, *expected ? (dir_.path() / expected).string() : "") << gestures;
    }
}

TEST_F(PickerDialog, FrameShowsHeaderPathRowsScrollbarAndButtons) {
    FillFloppies();
    ztest::ScopedWorkingDirectory cwd(dir_.path());
    ztest::Frame sub, here;  // "./sub": three rows that fit; ".": 101 rows, row 1 selected
    EXPECT_EQ(RunScripted([] { return ShowSimpleFloppyFilePicker(nullptr, "./sub"); },
                          "Return Down | accept",
                          [&](Script& script) {
                              script.At(2, [&](Script& s) { sub = s.Capture(); });
                              script.At(3, [&](Script& s) { here = s.Capture(); });
                          }),
              "./f000.img");  // a relative start stays relative, and so does its parent
    ASSERT_EQ(sub.width, 760);
    SDL_Color const list{12, 14, 18, 255}, foot = kColFormListFill, sel = kColFormSelectedRow;
    // clang-format off
    struct { ztest::Frame const& f; int x, y; SDL_Color color; } const probes[] = {
        {sub, 3, 200, kColFormWindowBg}, {sub, 755, 3, kColFormHeader}, {sub, 8, 300, {80, 88, 98, 255}},
        {sub, 12, 58, sel}, {sub, 730, 79, sel}, {sub, 12, 82, list}, {sub, 300, 400, list},
        {sub, 743, 300, kThumb}, {sub, 738, 58, {140, 150, 166, 255}}, {sub, 5, 500, foot},
        {sub, 592, 482, kButton}, {sub, 661, 511, kButton}, {sub, 591, 482, foot}, {sub, 662, 511, foot},
        {sub, 672, 481, foot}, {sub, 742, 511, foot}, {here, 12, 82, sel}, {here, 743, 100, kThumb},
        {here, 743, 200, foot}};
    // clang-format on
    for (auto const& p : probes) {  // the thumb of 101 rows: 69 of 414 pixels at the top
        EXPECT_TRUE(HasColor(p.f, p.x, p.y, p.color));
    }
    ExpectTextEnd(sub, 30, 54, "./sub");  // unshortened, unchanged
    ExpectTextEnd(here, 30, 54, ".");
}

TEST_F(PickerDialog, EachPickerOpensWithItsTextsSizesAndStart) {
    for (char const* name :
         {"data/ttf/A.ttf", "data/ttf/B.otf", "floppies/disk.IMA", "boot.img", "crt.glslp"}) {
        dir_.Write(name, "");
    }
    ztest::TempDir other;  // alpha, beta and empty, for the folder picker's gestures
    for (char const* name : {"alpha", "beta", "empty"}) {
        fs::create_directories(other.path() / name);
    }
    std::string const o = other.path().string(), up = other.path().parent_path().string();
    ztest::ScopedWorkingDirectory cwd(dir_.path());
    std::string const here = fs::current_path().string();
    auto const show = [](char kind, std::string const& start) {
        return kind == 't'   ? ShowSimpleTtfFilePicker(nullptr, start)
               : kind == 'i' ? ShowSimpleFloppyFilePicker(nullptr, start)
               : kind == 's' ? ShowSimpleShaderFilePicker(nullptr, start)
                             : ShowSimpleFolderPicker(nullptr, {"", "", "", "", start});
    };
    Uint32 const hid = SDL_WINDOW_HIDDEN, res = hid | SDL_WINDOW_RESIZABLE;
    std::string const ttf = "Select TTF Font", fonts = "Select font (*.ttf, *.otf)",
                      img = "Load Floppy Image", floppies = "Select floppy image (*.ima, *.img)",
                      dir = "Select Folder", dest = "Select destination folder";
    // The folder picker (d) is 780 x 540 with its accept button at (676, 498, 86, 34), the
    // file pickers are 760 x 520 with it at (672, 482, 70, 30).
    // clang-format off
    struct { char kind; std::string start, title; Uint32 flags; std::string heading, gestures, expected; }
    const cases[] = {
        {'t', "", ttf, res, fonts, "Down Return", "data/ttf/A.ttf"},
        {'t', "data/ttf/B.otf", ttf, res, fonts, "Down Return", "data/ttf/A.ttf"},  // row 0 selected
        {'i', "missing/disk.img", img, hid, floppies, "Down*3 Return", here + "/boot.img"},
        {'i', "", img, hid, floppies, "Return", "floppies/disk.IMA"},
        {'s', "", "Select Shader", res, "Select shader (*.glsl, *.glslp, *.frag, *.vert, *.fs, *.vs)",
         "Down*2 Return", "./crt.glslp"},
        {'d', "", dir, hid, dest, "at:700,510", here},
        {'d', o, dir, hid, dest, "Down at:719,515", o},  // the folder on show is picked
        {'d', o, dir, hid, dest, "Return | at:719,515", up},
        {'d', o, dir, hid, dest, "Down*2 Return | at:719,515", o + "/beta"},
        {'d', o, dir, hid, dest, "row1x2 | at:719,515", o + "/alpha"}};
    // clang-format on
    for (auto const& c : cases) {
        SCOPED_TRACE(c.title + " from " + c.start);
        ztest::Frame f;
        EXPECT_EQ(RunScripted([&] { return show(c.kind, c.start); }, c.gestures,
                              [&](Script& sc) { sc.At(2, [&](Script& s) { f = s.Capture(); }); }),
                  c.expected);
        auto const created = ztest::RecordedCalls("SDL_CreateWindow");
        ASSERT_EQ(created.size(), 1u);
        EXPECT_EQ(created[0].text, c.title);
        bool const d = c.kind == 'd';
        long long const at = 0x2FFF0000 + 60, w = d ? 780 : 760, h = d ? 540 : 520;
        EXPECT_EQ(created[0].args, (std::vector<long long>{at, at, w, h, c.flags}));
        EXPECT_EQ(ztest::RecordedCalls("SDL_CreateRenderer").at(0).args.at(1),
                  SDL_RENDERER_ACCELERATED);
        SDL_Rect const a = d ? SDL_Rect{676, 498, 86, 34} : SDL_Rect{672, 482, 70, 30};
        EXPECT_TRUE(HasColor(f, a.x, a.y, kButton));
        EXPECT_TRUE(HasColor(f, a.x + a.w - 1, a.y + a.h - 1, kButton));
        EXPECT_TRUE(HasColor(f, a.x + a.w, a.y + a.h, kColFormListFill));
        ExpectTextEnd(f, 8, 28, c.heading);
    }
    // An empty folder without a parent row: a folder picker takes it, a file picker has nothing.
    ztest::ScopedWorkingDirectory empty(other.path() / "empty");
    EXPECT_EQ(RunScripted([&] { return show('d', "."); }, "Return"), ".");
    EXPECT_EQ(RunScripted([&] { return show('d', "."); }, "at:719,515"), ".");
    EXPECT_EQ(RunScripted([&] { return show('s', ""); }, "Return Down Return | accept | Escape"),
              "");
}

TEST_F(PickerDialog, NestedResizedPickerGivesTheFocusBackAndKeepsWorkingTinyAndLarge) {
    for (int i = 10; i < 40; ++i) {
        dir_.Write("f" + std::to_string(i) + ".ttf", "");
    }
    dir_.Write("bad\xFF.ttf", "");  // names that are no valid UTF-8 or hold a line feed
    dir_.Write("\xC3\xA9t\xC3\xA9\nline.ttf", "");  // are drawn like any other
    SDL_Window* host = SDL_CreateWindow("host", 100, 100, 320, 200, SDL_WINDOW_HIDDEN);
    SDL_Window* outer = nullptr;
    void const* focus_after_inner = nullptr;
    std::string const d = dir_.path().string();
    std::string inner = "not run";
    ztest::Frame tiny, large;
    auto const resize = [](int w, int h) {
        return [=](Script& s) { SDL_SetWindowSize(s.Window(), w, h); };
    };
    // The inner folder picker takes the quit of frame 5 alone; the outer one is then made
    // smaller than a row, picks row 2 of 33, grows and accepts.
    EXPECT_EQ(RunScripted([&] { return ShowSimpleTtfFilePicker(host, d); },
                          "| | | quit | | | | | wheel:-2 at:100,56 | | at:947,877",
                          [&](Script& script) {
                              script.At(2, [&](Script& s) {
                                  outer = s.Window();
                                  inner = ShowSimpleFolderPicker(outer, {"", "", "", "", d});
                                  focus_after_inner =
                                      ztest::RecordedCalls("SDL_SetWindowInputFocus").back().object;
                              });
                              script.At(9, resize(300, 100));
                              script.At(11, [&](Script& s) { tiny = s.Capture(); });
                              script.At(11, resize(1000, 900));
                              script.At(12, [&](Script& s) { large = s.Capture(); });
                          }),
              d + "/f10.ttf");
    EXPECT_EQ(inner, "");
    EXPECT_EQ(focus_after_inner, outer);
    EXPECT_EQ(ztest::RecordedCalls("SDL_SetWindowInputFocus").back().object, host);
    EXPECT_EQ(ztest::CountCalls("SDL_SetWindowModalFor"), 2);
    auto const live = ztest::CountLiveObjects();
    EXPECT_EQ(live.windows, 1);
    EXPECT_EQ(live.renderers + live.textures + live.surfaces, 0);
    SDL_DestroyWindow(host);
    ASSERT_EQ(tiny.height, 100);
    EXPECT_TRUE(HasColor(tiny, 212, 62, kButton));  // the accept button moved up
    ASSERT_EQ(large.height, 900);
    EXPECT_TRUE(HasColor(large, 12, 58 + 24 * 2, kColFormSelectedRow));
    EXPECT_TRUE(HasColor(large, 984, 800, kThumb));  // all 33 rows fit
}

TEST_F(PickerDialog, FailuresAndBareOptions) {
    SDL_Window* parent = SDL_CreateWindow("host", 0, 0, 64, 64, SDL_WINDOW_HIDDEN);
    for (bool no_window : {true, false}) {
        ztest::ResetRecorder();
        ztest::FailWindowOrRenderer(no_window);
        EXPECT_EQ(ShowSimpleFloppyFilePicker(parent, dir_.path().string()), "");
        EXPECT_EQ(ztest::CountCalls("SDL_RaiseWindow") + ztest::CountCalls("SDL_RenderPresent"), 0);
        EXPECT_EQ(ztest::CountLiveObjects().windows, 1);
    }
    SDL_DestroyWindow(parent);

    // No texts, no sizes, no loader: it opens, draws and closes on Escape, and its
    // window comes up once, after the first frame.
    SdlPickerDialogOptions bare;
    bare.window_flags = SDL_WINDOW_HIDDEN;
    EXPECT_EQ(
        RunScripted([&] { return RunSimplePickerDialog(nullptr, bare); }, "Return Down | Escape"),
        "");
    std::string calls, frame = "SDL_Delay SDL_RenderPresent ";
    for (std::string const& name : ztest::RecordedCallNames()) {
        calls += name + " ";
    }
    EXPECT_EQ(calls.substr(calls.find("SDL_RenderPresent")),
              "SDL_RenderPresent SDL_ShowWindow SDL_RaiseWindow SDL_SetWindowInputFocus " + frame +
                  frame + frame + "SDL_Delay SDL_DestroyRenderer SDL_DestroyWindow ");
    EXPECT_EQ(ztest::RecordedCalls("SDL_Delay").back().args[0], 8);
}

}  // namespace
