// Picker rows read from real folders, and where a file picker starts.
#include "gui/pickers.h"
#include "pickers/picker_dialog.h"
#include "pickers/picker_entries.h"
#include "support/dialog_script.h"
#include "support/temp_dir.h"
#include "support/test_display.h"
#include "support/unprivileged.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;
using namespace zorvane::frontend::gui;

// The rows as "name/|" for a directory and "name|" for a file, in list order.
[[maybe_unused]] std::string NamesOf(std::vector<PickerEntry> const& entries) {
    std::string names;
    for (PickerEntry const& entry : entries) {
        names += entry.name + (entry.is_directory ? "/|" : "|");
    }
    return names;
}

TEST(PickerEntries, ParentThenFoldersWithoutCaseThenAcceptedFilesWithTheirLabels) {
#ifdef _WIN32
    GTEST_SKIP() << "made of POSIX files: symbolic links, a FIFO and a folder locked by chmod";
#else
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
