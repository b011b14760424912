// Picker rows read from real folders, and where a file picker starts.
#include "gui/pickers.h"
#include "pickers/picker_dialog.h"
#include "pickers/picker_entries.h"
#include "support/dialog_script.h"
#include "support/temp_dir.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace {

namespace fs = std::filesystem;
using namespace zorvane::frontend::gui;

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
    for (std::string name :
         {"Zeta/", "alpha/", "music.img/", "b.IMG", "A.img", "c.txt", "UPPER.IMA"}) {
        dir.Write(name.back() == '/' ? name + "keep" : name, "x");
    }
    std::string const folders = "../|alpha/|music.img/|Zeta/|";
    EXPECT_EQ(NamesOf(ReadFilteredPickerEntries(root, IsAllowedImagePickerEntry)),
              folders + "A.img|b.IMG|UPPER.IMA|");
    EXPECT_EQ(NamesOf(ReadFolderPickerEntries(root)), folders);
    EXPECT_EQ(ReadFolderPickerEntries(root)[0].path, root.parent_path());
    // A folder that cannot be listed (here a file) shows its parent alone.
    EXPECT_EQ(NamesOf(ReadFilteredPickerEntries(root / "A.img", IsAllowedImagePickerEntry)),
              "../|");
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
#ifdef _WIN32
    GTEST_SKIP() << "its symbolic links and FIFO are POSIX files";
#else  // a linked folder is a folder; a dangling link and a FIFO are no image files
    fs::create_directory_symlink(root / "alpha", root / "link_dir");
    fs::create_symlink(root / "gone.img", root / "dangling.img");
    ASSERT_EQ(mkfifo((root / "pipe.img").c_str(), 0600), 0);
    EXPECT_EQ(NamesOf(ReadFilteredPickerEntries(root, IsAllowedImagePickerEntry)),
              "../|alpha/|link_dir/|music.img/|Zeta/|A.img|b.IMG|UPPER.IMA|");
#endif
}

class PickerDialog : public ztest::DialogTest {};

// A start that names a file opens its folder with row 0 selected; one that names nothing
// opens the working directory, and the path comes back as it was formed.
TEST_F(PickerDialog, StartsBesideAFileOrInTheWorkingDirectory) {
    ztest::TempDir dir;
    ztest::ScopedWorkingDirectory cwd(dir.path());
    for (char const* name : {"data/ttf/A.ttf", "data/ttf/B.otf", "boot.img"}) {
        dir.Write(name, "");
    }
    ztest::Faults().skip_delays = true;
    ztest::DialogScript script;
    script.At(2, ztest::gestures::Key(SDLK_DOWN));
    script.Then(ztest::gestures::Key(SDLK_RETURN));
    script.Then(ztest::gestures::Key(SDLK_DOWN), 2);
    script.Then(ztest::gestures::Key(SDLK_DOWN));
    script.Then(ztest::gestures::Key(SDLK_RETURN));
    std::string const font = ShowSimpleTtfFilePicker(nullptr, "data/ttf/B.otf");
    std::string const floppy = ShowSimpleFloppyFilePicker(nullptr, "missing/disk.img");
    EXPECT_EQ(font + " " + floppy,
              "data/ttf/A.ttf " + (fs::current_path() / "boot.img").generic_string());
    EXPECT_FALSE(script.timed_out());
}

}  // namespace
