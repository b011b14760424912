// Picker rows read from real folders, and the pickers run for real: each gesture judged by
// the returned path, each picker's texts, size and start, key pixels, the nested picker.
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

TEST(PickerEntries, ParentThenSortedFoldersThenAcceptedFilesAndTheirLabels) {
    ztest::TempDir dir;
    fs::path const& root = dir.path();
    for (std::string name : {"Zeta/", "alpha/", "music.img/", "b.IMG", "A.img", "c.txt",
                             ".hidden.img", "bad\xFF.img", "UPPER.IMA", ".img", "a.b.img"}) {
        dir.Write(name.back() == '/' ? name + "keep" : name, "x");
    }
    fs::create_directory_symlink(root / "alpha", root / "link_dir");
    fs::create_symlink(root / "c.txt", root / "link_txt.img");  // judged by the link's name
    fs::create_symlink(root / "gone.img", root / "dangling.img");
    ASSERT_EQ(mkfifo((root / "pipe.img").c_str(), 0600), 0);

    auto const entries = ReadFilteredPickerEntries(root, IsAllowedImagePickerEntry);
    std::string const folders = "../|alpha/|link_dir/|music.img/|Zeta/|";
    ASSERT_EQ(NamesOf(entries),
              folders + ".hidden.img|a.b.img|A.img|b.IMG|bad\xFF.img|link_txt.img|UPPER.IMA|");
    EXPECT_EQ(entries[0].path.string() + "|" + entries[1].path.string(),
              root.parent_path().string() + "|" + (root / "alpha").string());
    EXPECT_EQ(NamesOf(ReadFolderPickerEntries(root)), folders);

    PickerEntry const otf{"A.OTF", "A.OTF", false}, preset{"x.GLSLP", "x.GLSLP", false},
        dir_img{"m.img", "m.img", true};
    EXPECT_EQ(LabelFontPickerEntry(otf) + LabelShaderPickerEntry(preset) +
                  LabelFloppyPickerEntry(preset) + LabelFontPickerEntry(dir_img),
              "[OTF] A.OTF[PST] x.GLSLP[IMG] x.GLSLP[DIR] m.img");
    std::string kinds;  // S: a shader file, F: a font file, -: neither
    for (char const* name : {"a.glsl", "a.GLSLP", "a.b.frag", "a.Vert", "a.fs", "a.vs", "a.TTF",
                             "a.otf", "a.glsl~", ".ttf", "a.ttc", "d.ttf/fs"}) {
        kinds += IsShaderPickerEntry(name) ? 'S' : IsFontPickerEntry(name) ? 'F' : '-';
    }
    EXPECT_EQ(kinds, "SSSSSSFF----");
}

fs::path g_vanishing;

TEST(PickerEntries, UnreadableAndVanishingFoldersKeepWhatCanBeRead) {
    ztest::TempDir dir;
    fs::path const& root = dir.path();
    dir.Write("shown/ok.img", "");
    dir.Write("shown/locked/inside.img", "");
    fs::create_symlink(root / "shown/locked/inside.img", root / "shown/through_lock.img");
    chmod(root.c_str(), 0755);
    chmod((root / "shown").c_str(), 0755);
    chmod((root / "shown/locked").c_str(), 0);
    ztest::ChildOutcome const outcome = ztest::RunAsUnprivilegedUser([&] {
        return NamesOf(ReadFilteredPickerEntries(root / "shown", IsAllowedImagePickerEntry)) + "+" +
               NamesOf(ReadFilteredPickerEntries(root / "shown/locked", IsAllowedImagePickerEntry));
    });
    ASSERT_TRUE(outcome.unprivileged);
    // The file behind the lock cannot be typed and goes alone; the locked folder lists nothing.
    EXPECT_EQ(outcome.output, "../|locked/|ok.img|+../|");

    // A filter that removes the folder when first asked, far into a long listing.
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
}

std::vector<ztest::Frame> g_shots;  // the frames taken by "shot" in the last run

// One word of a gesture script. Places are those of a 760 x 520 file picker: rows 24
// pixels apart from y 57, the track at x 738 to 749, accept at 707,497, cancel at 627,497.
void Perform(Script& s, std::string const& w) {
    int x = 0, y = 0, n = 1;
    char v[8] = "";
    if (w == "quit" || w == "shot") {  // shot: keep the last presented frame
        w == "quit" ? s.Quit() : g_shots.push_back(s.Capture());
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
        for (int i = w.size() > name.size() ? std::stoi(w.substr(name.size() + 1)) : 1; i > 0;
             --i) {
            s.Key(key);
        }
    }
}

// Runs `show` with the words of `gestures` from the second frame on ("|" goes on to the
// next frame); `prepare` may add steps first.
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

TEST_F(PickerDialog, KeysClicksWheelAndScrollbarMoveTheSelectionAndPick) {
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
        {"shot Up Down Down Down Up PageDown End Tab A Keypad_Enter", "f000.img"},
        {"Down*120 | wheel:2 | Return", "f099.img"}, {"at:743,300 | row0 | Return", "f015.img"},
        {"wheel:-5 wheel:1000 wheel:-3 | row0 | Return", "f001.img"}, {"row3x2", "f001.img"},
        {"wheel:-1000 | at:743,200 | row0 | Return", "f066.img"},
        {"press:743,60 motion:743,160 release:743,160 motion:743,400 | row0 | Return", "f022.img"},
        // In by a double click, out by "..", in again; the track of a list without scrollbar.
        {"row1x2 | Return | Down Return | at:743,115 | row10 | Return", "sub/inner.img"},
        // Buttons act on the left release wherever the press began; accept opens a folder.
        {"Down | press:300,10 release:707,497 | Down*2 | at:707,497", "sub/inner.img"},
        {"Down*2 | press:707,497 release:300,10 | right:707,497 | at:627,497", ""}};
    // clang-format on
    ztest::Frame f;  // the first frame: row 0 selected, a thumb of 69 of 414 pixels at the top
    for (auto const& [gestures, expected] : cases) {
        std::string const got = RunScripted(
            [&] { return ShowSimpleFloppyFilePicker(nullptr, dir_.path().string()); }, gestures);
        EXPECT_EQ(got, *expected ? (dir_.path() / expected).string() : "") << gestures;
        f = g_shots.empty() ? f : g_shots[0];
    }

    ASSERT_EQ(f.width, 760);
    // clang-format off
    std::tuple<int, int, SDL_Color> const probes[] = {
        {3, 200, kColFormWindowBg}, {755, 3, kColFormHeader}, {12, 58, kColFormSelectedRow},
        {730, 79, kColFormSelectedRow}, {12, 82, {12, 14, 18, 255}}, {743, 100, kThumb},
        {743, 200, kColFormListFill}, {592, 482, kButton}, {591, 482, kColFormListFill}};
    // clang-format on
    for (auto const& [x, y, color] : probes) {
        EXPECT_TRUE(HasColor(f, x, y, color));
    }
}

TEST_F(PickerDialog, EachPickerOpensWithItsTextsSizeAndStartAndANestedOneGivesTheFocusBack) {
    ztest::ScopedWorkingDirectory cwd(dir_.path());
    std::string const here = fs::current_path().string(), o = here + "/data";
    for (char const* name : {"data/ttf/A.ttf", "data/ttf/B.otf", "data/alpha/x", "data/beta/x",
                             "floppies/disk.IMA", "boot.img", "crt.glslp"}) {
        dir_.Write(name, "");
    }
    using Show = std::string (*)(SDL_Window*, std::string const&);
    Show const folder = [](SDL_Window* parent, std::string const& start) {
        return ShowSimpleFolderPicker(parent, {"", "", "", "", start});
    };
    Uint32 const hid = SDL_WINDOW_HIDDEN, res = hid | SDL_WINDOW_RESIZABLE;
    // clang-format off
    struct Look { Show show; std::string title; Uint32 flags; std::string head; int w, h; };
    Look const ttf{ShowSimpleTtfFilePicker, "Select TTF Font", res, "Select font (*.ttf, *.otf)",
            760, 520},
        img{ShowSimpleFloppyFilePicker, "Load Floppy Image", hid,
            "Select floppy image (*.ima, *.img)", 760, 520},
        shd{ShowSimpleShaderFilePicker, "Select Shader", res,
            "Select shader (*.glsl, *.glslp, *.frag, *.vert, *.fs, *.vs)", 760, 520},
        dir{folder, "Select Folder", hid, "Select destination folder", 780, 540};
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
        ExpectTextEnd(g_shots.at(0), 8, 28, c.look.head);
    }
    // A nested folder picker takes the quit of frame 5 alone and gives the focus back.
    std::string inner = "not run";
    auto const nest = [&](Script& s) {
        SDL_Window* const outer = s.Window();
        inner = folder(outer, here);
        EXPECT_EQ(ztest::RecordedCalls("SDL_SetWindowInputFocus").back().object, outer);
    };
    EXPECT_EQ(RunScripted([&] { return ShowSimpleTtfFilePicker(nullptr, ""); },
                          "| | | quit | | Down Return", [&](Script& s) { s.At(2, nest); }),
              "data/ttf/A.ttf");
    EXPECT_EQ(inner, "");
}

}  // namespace
