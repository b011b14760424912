// Picker rows read from real folders, one file picker driven by keys, wheel, scrollbar and a
// double click, and the four pickers' titles, sizes and start folders.
#include "gui/pickers.h"
#include "pickers/picker_dialog.h"
#include "pickers/picker_entries.h"
#include "support/dialog_checks.h"
#include "support/dialog_script.h"
#include "support/temp_dir.h"
#include "support/test_display.h"
#include "support/unprivileged.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;
using namespace zorvane::frontend::gui;
using Script = ztest::DialogScript;

// The rows as "name/|" for a directory and "name|" for a file, in list order.
std::string NamesOf(std::vector<PickerEntry> const& entries) {
    std::string names;
    for (PickerEntry const& entry : entries) {
        names += entry.name + (entry.is_directory ? "/|" : "|");
    }
    return names;
}

TEST(PickerEntries, ParentThenFoldersWithoutCaseThenAcceptedFilesWithTheirLabels) {
    ztest::TempDir dir;
    fs::path const& root = dir.path();
    for (std::string name : {"Zeta/", "alpha/", "music.img/", "b.IMG", "A.img", "c.txt",
                             "UPPER.IMA", "locked/inside.img"}) {
        dir.Write(name.back() == '/' ? name + "keep" : name, "x");
    }
    fs::create_directory_symlink(root / "alpha", root / "link_dir");
    fs::create_symlink(root / "locked/inside.img", root / "through_lock.img");
    fs::create_symlink(root / "gone.img", root / "dangling.img");
    ASSERT_EQ(mkfifo((root / "pipe.img").c_str(), 0600), 0);
    chmod(root.c_str(), 0755);
    chmod((root / "locked").c_str(), 0);
    // Unprivileged, the locked folder lists its parent alone and the file behind it goes.
    ztest::ChildOutcome const outcome = ztest::RunAsUnprivilegedUser([&] {
        return NamesOf(ReadFilteredPickerEntries(root, IsAllowedImagePickerEntry)) + "+" +
               NamesOf(ReadFilteredPickerEntries(root / "locked", IsAllowedImagePickerEntry));
    });
    ASSERT_TRUE(outcome.unprivileged);
    std::string const folders = "../|alpha/|link_dir/|locked/|music.img/|Zeta/|";
    EXPECT_EQ(outcome.output, folders + "A.img|b.IMG|UPPER.IMA|+../|");
    EXPECT_EQ(NamesOf(ReadFolderPickerEntries(root)), folders);
    EXPECT_EQ(ReadFolderPickerEntries(root)[0].path, root.parent_path());

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

class PickerDialog : public ztest::DialogTest {
protected:
    ztest::TempDir dir_;
};

// A 760 x 520 file picker: 17 rows of 24 pixels from y 57, the scrollbar track at x 738 to 749.
TEST_F(PickerDialog, KeysWheelScrollbarAndADoubleClickPickAFile) {
    for (int i = 0; i < 100; ++i) {  // rows "..", f000.img to f099.img inside "sub"
        dir_.Write((i < 10 ? "sub/f00" : "sub/f0") + std::to_string(i) + ".img", "");
    }
    ztest::Faults().skip_delays = true;
    ztest::Frame first;
    Script script;
    script
        .At(2, [](Script& s) { s.Click(100, 67 + 24, 2); })                // into "sub"
        .Then([&](Script& s) { first = s.Capture(), s.Click(743, 300); })  // a page down: 17
        .Then([](Script& s) { s.Wheel(-3); })                              // 20
        .Then([](Script& s) { s.Press(743, 150), s.Motion(743, 250), s.Release(743, 250); })
        .Then([](Script& s) { s.Click(743, 100); })  // the thumb dragged to 44, a page up: 27
        .Then([](Script& s) { s.Click(100, 67 + 24 * 2), s.Key(SDLK_DOWN), s.Key(SDLK_DOWN); })
        .Then([](Script& s) { s.Key(SDLK_RETURN); });
    EXPECT_EQ(ShowSimpleFloppyFilePicker(nullptr, dir_.path().string()),
              (dir_.path() / "sub/f030.img").string());
    EXPECT_FALSE(script.timed_out());
    // The first frame in "sub": the row under the double click selected, a thumb of 69 of 414
    // pixels at the top.
    ASSERT_EQ(first.width, 760);
    EXPECT_TRUE(ztest::HasColor(first, 12, 82, kColFormSelectedRow));
    EXPECT_TRUE(ztest::HasColor(first, 743, 100, {92, 102, 116, 255}));
    EXPECT_TRUE(ztest::HasColor(first, 743, 200, kColFormListFill));
    EXPECT_TRUE(ztest::HasColor(first, 755, 3, kColFormHeader));
}

TEST_F(PickerDialog, EachPickerHasItsTitleSizeAndStartFolder) {
    ztest::ScopedWorkingDirectory cwd(dir_.path());
    std::string const here = fs::current_path().string(), data = here + "/data";
    for (char const* name : {"data/ttf/A.ttf", "data/ttf/B.otf", "boot.img", "crt.glslp"}) {
        dir_.Write(name, "");
    }
    using Show = std::string (*)(SDL_Window*, std::string const&);
    Uint32 const hid = SDL_WINDOW_HIDDEN, res = hid | SDL_WINDOW_RESIZABLE;
    auto const down_and_return = [](int n) {
        return [n](Script& s) {
            for (int i = 0; i < n; ++i) {
                s.Key(SDLK_DOWN);
            }
            s.Key(SDLK_RETURN);
        };
    };
    // clang-format off
    struct { Show show; std::string start; Script::Step step; char const* title; Uint32 flags;
             int w, h; std::string expected; } const cases[] = {
        {ShowSimpleTtfFilePicker, "data/ttf/B.otf", down_and_return(1), "Select TTF Font", res,
         760, 520, "data/ttf/A.ttf"},  // beside the file, row 0 selected
        {ShowSimpleFloppyFilePicker, "missing/disk.img", down_and_return(2), "Load Floppy Image",
         hid, 760, 520, here + "/boot.img"},  // the working directory instead
        {ShowSimpleShaderFilePicker, "", down_and_return(1), "Select Shader", res, 760, 520,
         "./crt.glslp"},  // no parent row for "."
        {[](SDL_Window* p, std::string const& start) {
             return ShowSimpleFolderPicker(p, {"", "", "", "", start});
         }, data, [](Script& s) { s.Key(SDLK_DOWN), s.Click(719, 515); }, "Select Folder", hid,
         780, 540, data}};  // the folder on show, not the selected row
    // clang-format on
    for (auto const& c : cases) {
        SCOPED_TRACE(c.title);
        ztest::ResetRecorder();
        ztest::Faults().skip_delays = true;
        Script script;
        script.At(2, c.step);
        EXPECT_EQ(c.show(nullptr, c.start), c.expected);
        EXPECT_FALSE(script.timed_out());
        auto const created = ztest::RecordedCalls("SDL_CreateWindow");
        ASSERT_EQ(created.size(), 1u);
        EXPECT_EQ(created[0].text, c.title);
        EXPECT_EQ(created[0].args,  // 60 right of and below the centred marker
                  (std::vector<long long>{0x2FFF003C, 0x2FFF003C, c.w, c.h, c.flags}));
    }
}

}  // namespace
