// Reading real directories into picker rows: order, filters, links, odd names, the
// parent row, unreadable and vanishing directories, and the row texts.
#include "pickers/picker_entries.h"
#include "support/temp_dir.h"
#include "support/unprivileged.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>

namespace {

namespace fs = std::filesystem;
using namespace zorvane::frontend::gui;
using Names = std::vector<std::string>;

// The rows as "name/" for a directory and "name" for a file, in list order.
Names NamesOf(std::vector<PickerEntry> const& entries) {
    Names names;
    for (PickerEntry const& entry : entries) {
        names.push_back(entry.name + (entry.is_directory ? "/" : ""));
    }
    return names;
}

TEST(PickerEntries, ParentThenSortedDirectoriesThenAcceptedFiles) {
    ztest::TempDir dir;
    fs::path const& root = dir.path();
    for (char const* name : {"Zeta/", "alpha/", "music.img/", "b.IMG", "A.img", "c.txt",
                             ".hidden.img", "with blank.ima", "disquette \xC3\xA9.img",
                             "bad\xFF.img", "line\nfeed.img", "UPPER.IMA", ".img", "a.b.img"}) {
        dir.Write(name[std::strlen(name) - 1] == '/' ? std::string(name) + "keep" : name, "x");
    }
    fs::create_directory_symlink(root / "alpha", root / "link_dir");
    fs::create_symlink(root / "A.img", root / "link_file.img");
    fs::create_symlink(root / "c.txt", root / "link_txt.img");  // judged by the link's name
    fs::create_symlink(root / "gone.img", root / "dangling.img");
    fs::create_symlink(root / "loop.img", root / "loop.img");
    ASSERT_EQ(mkfifo((root / "pipe.img").c_str(), 0600), 0);

    auto const entries = ReadFilteredPickerEntries(root, IsAllowedImagePickerEntry);
    EXPECT_EQ(NamesOf(entries),
              (Names{"../", "alpha/", "link_dir/", "music.img/", "Zeta/", ".hidden.img", "a.b.img",
                     "A.img", "b.IMG", "bad\xFF.img", "disquette \xC3\xA9.img", "line\nfeed.img",
                     "link_file.img", "link_txt.img", "UPPER.IMA", "with blank.ima"}));
    ASSERT_FALSE(entries.empty());
    EXPECT_EQ(entries[0].path, root.parent_path());
    for (std::size_t i = 1; i < entries.size(); ++i) {
        EXPECT_EQ(entries[i].path, root / entries[i].name);
    }
    EXPECT_EQ(NamesOf(ReadFolderPickerEntries(root)),
              (Names{"../", "alpha/", "link_dir/", "music.img/", "Zeta/"}));
    EXPECT_EQ(NamesOf(ReadFilteredPickerEntries(root, nullptr)),
              NamesOf(ReadFolderPickerEntries(root)));
    EXPECT_EQ(NamesOf(ReadFolderPickerEntries(root / "alpha")), Names{"../"});  // files alone

    // Row texts: the prefix comes from the kind of picker and the lowered extension.
    PickerEntry const otf{"A.OTF", "d/A.OTF", false}, preset{"x.GLSLP", "x.GLSLP", false};
    EXPECT_EQ(LabelFontPickerEntry(otf) + LabelFontPickerEntry(preset), "[OTF] A.OTF[TTF] x.GLSLP");
    EXPECT_EQ(LabelShaderPickerEntry(otf) + LabelShaderPickerEntry(preset),
              "[SHD] A.OTF[PST] x.GLSLP");
    EXPECT_EQ(LabelFloppyPickerEntry(entries[7]) + LabelFolderPickerEntry(entries[7]),
              "[IMG] A.img[DIR] A.img");
    EXPECT_EQ(LabelShaderPickerEntry(entries[0]) + LabelFontPickerEntry(entries[3]),
              "[DIR] ..[DIR] music.img");
}

TEST(PickerEntries, UnreadableDirectoriesAndEntriesAsAnOrdinaryUser) {
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
        std::string text;
        for (char const* name : {"shown", "closed"}) {
            for (std::string const& row :
                 NamesOf(ReadFilteredPickerEntries(root / name, IsAllowedImagePickerEntry))) {
                text += row + " ";
            }
        }
        return text;
    });
    ASSERT_EQ(outcome.exit_code, 0);
    ASSERT_TRUE(outcome.unprivileged);
    // The file behind the lock cannot be typed and goes alone; "closed" lists nothing.
    EXPECT_EQ(outcome.output, "../ locked/ ok.img ../ ");
}

fs::path g_vanishing_directory;

// A filter that removes the directory being listed when it is first asked.
bool RemoveTheListedDirectory(fs::path const&) {
    fs::remove_all(g_vanishing_directory);
    return true;
}

TEST(PickerEntries, DirectoryRemovedWhileListedKeepsWhatWasRead) {
    ztest::TempDir dir;
    g_vanishing_directory = dir.path() / "vanishing";
    int const count = 4000;  // far more than one read of the directory returns
    for (int i = 0; i < count; ++i) {
        dir.Write("vanishing/" + std::string(48, 'p') + std::to_string(i) + ".img", "");
    }
    auto const entries = ReadFilteredPickerEntries(g_vanishing_directory, RemoveTheListedDirectory);
    EXPECT_FALSE(fs::exists(g_vanishing_directory));
    ASSERT_GE(entries.size(), 2u);
    EXPECT_LT(entries.size(), count + 1u);
    EXPECT_TRUE(std::is_sorted(entries.begin() + 1, entries.end(),
                               [](auto const& a, auto const& b) { return a.name < b.name; }));
    EXPECT_EQ(NamesOf(ReadFolderPickerEntries(g_vanishing_directory)), Names{"../"});
}

}  // namespace
