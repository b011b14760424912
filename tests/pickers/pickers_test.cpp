// The picker rows read from real directories, and the pickers run for real through the
// heartbeat: every gesture answered on the returned path, the frame checked where fixed.
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
    ASSERT_EQ(NamesOf(entries),
              folders +
                  ".hidden.img|a.b.img|A.img|b.IMG|bad\xFF.img|disquette \xC3\xA9.img|"
                  "line\nfeed.img|link_file.img|link_txt.img|UPPER.IMA|with blank.ima|");
    EXPECT_EQ(entries[0].path, root.parent_path());
    for (std::size_t i = 1; i < entries.size(); ++i) {
        EXPECT_EQ(entries[i].path, root / entries[i].name);
    }
    EXPECT_EQ(NamesOf(ReadFolderPickerEntries(root)), folders);
    EXPECT_EQ(NamesOf(ReadFilteredPickerEntries(root, nullptr)), folders);
    EXPECT_EQ(NamesOf(ReadFolderPickerEntries(root / "alpha")), "../|");  // files left out

    PickerEntry const otf{"A.OTF", "d/A.OTF", false}, preset{"x.GLSLP", "x.GLSLP", false};  // texts
    EXPECT_EQ(LabelFontPickerEntry(otf) + LabelFontPickerEntry(preset) +
                  LabelShaderPickerEntry(otf) + LabelShaderPickerEntry(preset) +
                  LabelFloppyPickerEntry(entries[7]) + LabelFolderPickerEntry(entries[7]) +
                  LabelShaderPickerEntry(entries[0]) + LabelFontPickerEntry(entries[3]),
              "[OTF] A.OTF[TTF] x.GLSLP[SHD] A.OTF[PST] x.GLSLP[IMG] A.img[DIR] A.img[DIR] ..[DIR] "
              "music.img");
    std::string kinds;  // S: a shader file, F: a font file, -: neither
    for (char const* name : {"a.glsl", "a.GLSLP", "a.b.frag", "a.Vert", "a.fs", "a.vs", "a.TTF",
                             "a.otf", "a.glsl~", ".ttf", "a.ttc", "fs", "d.ttf/fs"}) {
        kinds += IsShaderPickerEntry(name) ? 'S' : IsFontPickerEntry(name) ? 'F' : '-';
    }
    EXPECT_EQ(kinds, "SSSSSSFF-----");
    EXPECT_EQ(ExtLower("dir.d/A.B.GLSLP") + "|" + TrimStr(" \t\v\fa b\r\n") + "|" + TrimStr("   "),
              ".glslp|a b|");
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
    ASSERT_GE(entries.size(), 2u);
    EXPECT_LT(entries.size(), 4001u);
    EXPECT_TRUE(std::is_sorted(entries.begin() + 1, entries.end(),
                               [](auto const& a, auto const& b) { return a.name < b.name; }));
    EXPECT_EQ(NamesOf(ReadFolderPickerEntries(g_vanishing)), "../|");
}

std::vector<ztest::Frame> g_shots;  // the frames taken by "shot" in the last run

// One word of a gesture script. Places are those of a 760 x 520 file picker: rows 24
// pixels apart from y 57, the track at x 738 to 749, accept at 707,497, cancel at 627,497.
void Perform(Script& s, std::string const& w) {
    int x = 0, y = 0, n = 1;
    char v[8] = "";
    if (w == "quit" || w == "close" || w == "shot") {  // shot: keep the last presented frame
        w == "quit" ? s.Quit() : w == "close" ? s.CloseWindow() : g_shots.push_back(s.Capture());
    } else if (w == "otherclose") {  // the close of a window that is not the picker's
        SDL_Event other{SDL_WINDOWEVENT};
        other.window.windowID = s.WindowId() + 100;
        other.window.event = SDL_WINDOWEVENT_CLOSE;
        ztest::PushEvent(other);
    } else if (std::sscanf(w.c_str(), "row%dx%d", &y, &n) >= 1) {  // row y clicked n times
        s.Click(100, 67 + 24 * y, static_cast<Uint8>(n));
    } else if (std::sscanf(w.c_str(), "%7[a-z]:%d,%d", v, &x, &y) >= 2) {
        std::string const verb = v;  // at (a click), right (a right click), press, release...
        verb == "at"        ? s.Click(x, y)
        : verb == "right"   ? (s.Press(x, y, SDL_BUTTON_RIGHT), s.Release(x, y, SDL_BUTTON_RIGHT))
        : verb == "press"   ? s.Press(x, y)
        : verb == "release" ? s.Release(x, y)
        : verb == "motion"  ? s.Motion(x, y)
        : verb == "size"    ? SDL_SetWindowSize(s.Window(), x, y)
                            : s.Wheel(x);
    } else {  // a key by its SDL name, "_" for a blank, "*n" to press it n times
        std::string name = w.substr(0, w.find('*'));
        std::replace(name.begin(), name.end(), '_', ' ');
        SDL_Keycode const key = SDL_GetKeyFromName(name.c_str());
        ASSERT_NE(key, SDLK_UNKNOWN) << w;
        for (int i = w.size() > name.size() ? std::stoi(w.substr(name.size() + 1)) : 1; i > 0;
             --i) {
            s.Key(key);
        }
    }
}

// Runs `show` with the words of `gestures` on the frames from the second on ("|" goes on
// to the next frame); `prepare` may add steps first.
std::string RunScripted(
    std::function<std::string()> const& show, std::string const& gestures,
    std::function<void(Script&)> const& prepare = [](Script&) {}) {
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    ztest::ResetRecorder();
    ztest::Faults().skip_delays = true;
    g_shots.clear();
    Script script;
    script.set_grace_frames(30);
    prepare(script);
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

// The text drawn in the header band between rows y0 and y1 ends where `text` would.
void ExpectTextEnd(ztest::Frame const& f, int y0, int y1, std::string const& text) {
    int right = -1, w = 0;
    for (int i = y0 * f.width; i < y1 * f.width; ++i) {
        right = HasColor(f, i % f.width, i / f.width, kColFormHeader)
                    ? right
                    : std::max(right, i % f.width);
    }
    TTF_SizeUTF8(GetCachedSdlUiFont(15, false, kSemiBold), text.c_str(), &w, nullptr);
    EXPECT_NEAR(right, 10 + w, 3) << text;
}

constexpr SDL_Color kButton{70, 76, 84, 255}, kThumb{92, 102, 116, 255};

class PickerDialog : public ztest::DialogTest {
protected:
    ztest::TempDir dir_;
};

TEST_F(PickerDialog, GesturesOfTheFilePickerAndItsFrame) {
    fs::create_directories(dir_.path() / "sub/deeper");  // rows "..", sub, f000.img to f099.img
    dir_.Write("sub/inner.img", "");
    for (int i = 0; i < 100; ++i) {
        dir_.Write((i < 10 ? "f00" : "f0") + std::to_string(i) + ".img", "");
    }
    // Gestures, and the picked path relative to the folder ("" for nothing). Other keys do
    // nothing; Down stops on the last row and the wheel keeps the selection; the wheel is
    // held at both ends at once; the track pages down below the thumb and up above it.
    // clang-format off
    std::pair<char const*, char const*> const cases[] = {
        {"Up Down Down Down Up PageDown End Tab A Keypad_Enter", "f000.img"},
        {"Down*120 | wheel:2 | Return", "f099.img"}, {"at:743,300 | row0 | Return", "f015.img"},
        {"wheel:-5 wheel:1000 wheel:-3 | row0 | Return", "f001.img"}, {"row3x2", "f001.img"},
        {"wheel:-1000 | at:743,200 | row0 | Return", "f066.img"}, {"at:3,163 | Return", "f002.img"},
        {"press:743,60 motion:743,160 release:743,160 motion:743,400 | row0 | Return", "f022.img"},
        {"row1x2 | Down Return", "sub/inner.img"},
        // In, out by "..", in; clicks on the track of a list without scrollbar, below the rows.
        {"Down Return | Return | Down Return | at:743,115 | row10 | Return", "sub/inner.img"},
        // Buttons act on the left release wherever the press began; accept opens a directory.
        {"otherclose Down | press:300,10 release:707,497 | Down*2 | at:707,497", "sub/inner.img"},
        {"Down*2 | press:707,497 release:300,10 | right:707,497 | at:627,497", ""},
        {"Down*2 | quit", ""}, {"close", ""}};
    // clang-format on
    for (auto const& [gestures, expected] : cases) {
        std::string const got = RunScripted(
            [&] { return ShowSimpleFloppyFilePicker(nullptr, dir_.path().string()); }, gestures);
        EXPECT_EQ(got, *expected ? (dir_.path() / expected).string() : "") << gestures;
    }

    // "./sub" fits its 3 rows; "." has 101, row 1 selected; relative paths stay relative.
    ztest::ScopedWorkingDirectory cwd(dir_.path());
    EXPECT_EQ(RunScripted([] { return ShowSimpleFloppyFilePicker(nullptr, "./sub"); },
                          "shot Return Down | shot at:707,497"),
              "./f000.img");
    ztest::Frame const &sub = g_shots.at(0), &here = g_shots.at(1);
    ASSERT_EQ(sub.width, 760);
    SDL_Color const list{12, 14, 18, 255}, foot = kColFormListFill, sel = kColFormSelectedRow;
    // clang-format off
    struct { ztest::Frame const& f; int x, y; SDL_Color color; } const probes[] = {
        {sub, 3, 200, kColFormWindowBg}, {sub, 755, 3, kColFormHeader}, {sub, 8, 300, {80, 88, 98, 255}},
        {sub, 12, 58, sel}, {sub, 730, 79, sel}, {sub, 12, 82, list}, {sub, 743, 300, kThumb},
        {sub, 738, 58, {140, 150, 166, 255}}, {sub, 5, 500, foot}, {sub, 592, 482, kButton},
        {sub, 661, 511, kButton}, {sub, 591, 482, foot}, {sub, 662, 511, foot}, {sub, 672, 481, foot},
        {sub, 742, 511, foot}, {here, 12, 82, sel}, {here, 743, 100, kThumb}, {here, 743, 200, foot}};
    // clang-format on
    for (auto const& p : probes) {  // the thumb of 101 rows: 69 of 414 pixels at the top
        EXPECT_TRUE(HasColor(p.f, p.x, p.y, p.color));
    }
    ExpectTextEnd(sub, 30, 54, "./sub");  // unshortened, unchanged
    ExpectTextEnd(here, 30, 54, ".");
}

TEST_F(PickerDialog, EachPickerOpensWithItsTextsSizesAndStart) {
    ztest::ScopedWorkingDirectory cwd(dir_.path());
    std::string const here = fs::current_path().string(), o = here + "/data";
    for (char const* name : {"data/ttf/A.ttf", "data/ttf/B.otf", "data/alpha/x", "data/beta/x",
                             "floppies/disk.IMA", "boot.img", "crt.glslp"}) {
        dir_.Write(name, "");
    }
    fs::create_directories(o + "/empty");
    using Show = std::string (*)(SDL_Window*, std::string const&);
    Show const folder = [](SDL_Window* parent, std::string const& start) {
        return ShowSimpleFolderPicker(parent, {"", "", "", "", start});
    };
    Uint32 const hid = SDL_WINDOW_HIDDEN, res = hid | SDL_WINDOW_RESIZABLE;
    SDL_Rect const ok{672, 482, 70, 30};  // a file picker's accept button
    // clang-format off
    struct Look { Show show; std::string title; Uint32 flags; std::string head; int w, h; SDL_Rect ok; };
    Look const ttf{ShowSimpleTtfFilePicker, "Select TTF Font", res, "Select font (*.ttf, *.otf)", 760, 520, ok},
        img{ShowSimpleFloppyFilePicker, "Load Floppy Image", hid, "Select floppy image (*.ima, *.img)",
            760, 520, ok},
        shd{ShowSimpleShaderFilePicker, "Select Shader", res,
            "Select shader (*.glsl, *.glslp, *.frag, *.vert, *.fs, *.vs)", 760, 520, ok},
        dir{folder, "Select Folder", hid, "Select destination folder", 780, 540, {676, 498, 86, 34}};
    struct { Look const& look; std::string start, gestures, expected; } const cases[] = {
        {ttf, "", "Down Return", "data/ttf/A.ttf"},
        {ttf, "data/ttf/B.otf", "Down Return", "data/ttf/A.ttf"},  // row 0 selected
        {img, "missing/disk.img", "Down*3 Return", here + "/boot.img"},
        {img, "", "Return", "floppies/disk.IMA"}, {shd, "", "Down*2 Return", "./crt.glslp"},
        {dir, "", "at:700,510", here}, {dir, o, "Down at:719,515", o},  // the folder on show
        {dir, o, "Return | at:719,515", here},  // out by ".."; in by a double click and Return
        {dir, o, "row1x2 | Return | Down*2 Return | at:719,515", o + "/beta"}};
    // clang-format on
    for (auto const& c : cases) {
        SCOPED_TRACE(c.look.title + " from " + c.start);
        EXPECT_EQ(RunScripted([&] { return c.look.show(nullptr, c.start); }, "shot " + c.gestures),
                  c.expected);
        auto const created = ztest::RecordedCalls("SDL_CreateWindow");
        ASSERT_EQ(created.size(), 1u);
        EXPECT_EQ(created[0].text, c.look.title);
        EXPECT_EQ(
            created[0].args,  // 60 right of and below the centred marker
            (std::vector<long long>{0x2FFF003C, 0x2FFF003C, c.look.w, c.look.h, c.look.flags}));
        ztest::Frame const& f = g_shots.at(0);
        SDL_Rect const a = c.look.ok;
        EXPECT_TRUE(HasColor(f, a.x, a.y, kButton));
        EXPECT_TRUE(HasColor(f, a.x + a.w - 1, a.y + a.h - 1, kButton));
        EXPECT_TRUE(HasColor(f, a.x + a.w, a.y + a.h, kColFormListFill));
        ExpectTextEnd(f, 8, 28, c.look.head);
    }
    // An empty folder without a parent row: a folder picker takes it, a file picker has nothing.
    ztest::ScopedWorkingDirectory empty(o + "/empty");
    EXPECT_EQ(RunScripted([&] { return folder(nullptr, "."); }, "Return"), ".");
    EXPECT_EQ(RunScripted([] { return ShowSimpleShaderFilePicker(nullptr, ""); },
                          "Return Down Return | at:707,497 | Escape"),
              "");
}

TEST_F(PickerDialog, NestedResizedPickerGivesTheFocusBackAndKeepsWorkingTinyAndLarge) {
    for (int i = 10; i < 40; ++i) {
        dir_.Write("f" + std::to_string(i) + ".ttf", "");
    }
    dir_.Write("bad\xFF.ttf", "");  // names that are no valid UTF-8 or hold a line feed
    dir_.Write("\xC3\xA9t\xC3\xA9\nline.ttf", "");  // are drawn like any other
    SDL_Window* host = SDL_CreateWindow("host", 100, 100, 320, 200, SDL_WINDOW_HIDDEN);
    std::string inner = "not run", d = dir_.path().string();
    auto const nest = [&](Script& s) {
        SDL_Window* const outer = s.Window();
        inner = ShowSimpleFolderPicker(outer, {"", "", "", "", d});
        EXPECT_EQ(ztest::RecordedCalls("SDL_SetWindowInputFocus").back().object, outer);
    };
    // The inner folder picker takes the quit of frame 5 alone; the outer one is then made
    // smaller than a row, picks row 2 of 33, grows and accepts.
    EXPECT_EQ(RunScripted([&] { return ShowSimpleTtfFilePicker(host, d); },
                          "| | | quit | | | | size:300,100 | wheel:-2 at:100,56 | shot "
                          "size:1000,900 | shot at:947,877",
                          [&](Script& script) { script.At(2, nest); }),
              d + "/f10.ttf");
    EXPECT_EQ(inner, "");
    EXPECT_EQ(ztest::RecordedCalls("SDL_SetWindowInputFocus").back().object, host);
    auto const live = ztest::CountLiveObjects();
    EXPECT_EQ(live.windows, 1);
    EXPECT_EQ(live.renderers + live.textures + live.surfaces, 0);
    SDL_DestroyWindow(host);
    ztest::Frame const &tiny = g_shots.at(0), &large = g_shots.at(1);
    ASSERT_EQ(tiny.height, 100);
    EXPECT_TRUE(HasColor(tiny, 212, 62, kButton));  // the accept button moved up
    ASSERT_EQ(large.height, 900);
    EXPECT_TRUE(HasColor(large, 12, 58 + 24 * 2, kColFormSelectedRow));
    EXPECT_TRUE(HasColor(large, 984, 800, kThumb));  // all 33 rows fit
}

}  // namespace
