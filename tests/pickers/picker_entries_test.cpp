// Reading real directories into picker rows: order, filters, links, odd names, the
// parent row, unreadable and vanishing directories, and the row texts.
#include "pickers/picker_entries.h"
#include "pickers/picker_text.h"

#include "support/temp_dir.h"
#include "support/unprivileged.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using namespace zorvane::frontend::gui;

// "name" for a file row, "name/" for a directory row, in list order.
std::vector<std::string> Names(std::vector<PickerEntry> const& entries) {
    std::vector<std::string> names;
    for (PickerEntry const& entry : entries) {
        names.push_back(entry.name + (entry.is_directory ? "/" : ""));
    }
    return names;
}

void MakeDirs(fs::path const& root, std::initializer_list<char const*> names) {
    for (char const* name : names) {
        fs::create_directories(root / name);
    }
}

// A folder with directories, accepted and refused files, links of every kind and
// names that are awkward to show.
void FillMixedFolder(ztest::TempDir const& dir) {
    fs::path const& root = dir.path();
    MakeDirs(root, {"Zeta", "alpha", "music.img", "notes"});
    for (char const* name :
         {"b.IMG", "A.img", "c.txt", ".hidden.img", "with blank.ima", "disquette \xC3\xA9.img",
          "bad\xFF.img", "line\nfeed.img", "UPPER.IMA", ".img", "a.b.img"}) {
        dir.Write(name, "x");
    }
    fs::create_directory_symlink(root / "alpha", root / "link_dir");
    fs::create_symlink(root / "A.img", root / "link_file.img");
    fs::create_symlink(root / "c.txt", root / "link_txt.img");  // judged by the link's name
    fs::create_symlink(root / "gone.img", root / "dangling.img");
    fs::create_symlink(root / "loop.img", root / "loop.img");
    ASSERT_EQ(mkfifo((root / "pipe.img").c_str(), 0600), 0);
}

TEST(PickerEntries, ParentThenSortedDirectoriesThenAcceptedFiles) {
    ztest::TempDir dir;
    FillMixedFolder(dir);
    auto const entries = ReadFilteredPickerEntries(dir.path(), IsAllowedImagePickerEntry);
    std::vector<std::string> const expected = {"../",
                                               "alpha/",
                                               "link_dir/",
                                               "music.img/",
                                               "notes/",
                                               "Zeta/",
                                               ".hidden.img",
                                               "a.b.img",
                                               "A.img",
                                               "b.IMG",
                                               "bad\xFF.img",
                                               "disquette \xC3\xA9.img",
                                               "line\nfeed.img",
                                               "link_file.img",
                                               "link_txt.img",
                                               "UPPER.IMA",
                                               "with blank.ima"};
    EXPECT_EQ(Names(entries), expected);
    ASSERT_FALSE(entries.empty());
    EXPECT_EQ(entries[0].path, dir.path().parent_path());
    for (std::size_t i = 1; i < entries.size(); ++i) {
        EXPECT_EQ(entries[i].path, dir.path() / entries[i].name) << entries[i].name;
    }

    // The folder reader keeps the parent and the directories alone.
    EXPECT_EQ(
        Names(ReadFolderPickerEntries(dir.path())),
        (std::vector<std::string>{"../", "alpha/", "link_dir/", "music.img/", "notes/", "Zeta/"}));
    // A null filter admits no file; a folder of files alone gives the parent alone.
    EXPECT_EQ(ReadFilteredPickerEntries(dir.path(), nullptr).size(), 6u);
    ztest::TempDir files_only;
    files_only.Write("a.img", "");
    EXPECT_EQ(Names(ReadFolderPickerEntries(files_only.path())), std::vector<std::string>{"../"});
}

TEST(PickerEntries, ParentRowFollowsThePathAsWritten) {
    ztest::TempDir dir;
    dir.Write("data/ttf/Plex.TTF", "");
    dir.Write("data/ttf/notes.txt", "");
    ztest::ScopedWorkingDirectory cwd(dir.path());
    struct Case {
        fs::path directory;
        std::vector<std::string> names;
        fs::path parent;  // empty: no parent row
    };
    Case const cases[] = {
        {"data/ttf", {"../", "Plex.TTF"}, "data"},
        {"data", {"ttf/"}, {}},
        {".", {"data/"}, {}},
        {"/", {}, {}},
        {"missing/deeper", {"../"}, "missing"},
        {"", {}, {}},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(c.directory.string());
        auto const entries = ReadFilteredPickerEntries(c.directory, IsFontPickerEntry);
        if (c.directory == "/") {
            ASSERT_FALSE(entries.empty());
            EXPECT_NE(entries[0].name, "..");
            continue;
        }
        EXPECT_EQ(Names(entries), c.names);
        if (!c.parent.empty()) {
            EXPECT_EQ(entries[0].path, c.parent);
        }
    }
    // Rows of a relative directory stay relative.
    auto const fonts = ReadFilteredPickerEntries("data/ttf", IsFontPickerEntry);
    ASSERT_EQ(fonts.size(), 2u);
    EXPECT_EQ(fonts[1].path, fs::path("data/ttf/Plex.TTF"));
}

TEST(PickerEntries, FiltersLabelsAndExtensionText) {
    struct Case {
        char const* path;
        bool font;
        bool shader;
        bool image;
        char const* font_label;
        char const* shader_label;
    };
    Case const cases[] = {
        {"dir/A.OTF", true, false, false, "[OTF] A.OTF", "[SHD] A.OTF"},
        {"a.ttf", true, false, false, "[TTF] a.ttf", "[SHD] a.ttf"},
        {".ttf", false, false, false, "[TTF] .ttf", "[SHD] .ttf"},
        {"x.GLSLP", false, true, false, "[TTF] x.GLSLP", "[PST] x.GLSLP"},
        {"x.vs", false, true, false, "[TTF] x.vs", "[SHD] x.vs"},
        {"crt.Frag", false, true, false, "[TTF] crt.Frag", "[SHD] crt.Frag"},
        {"DISK.IMA", false, false, true, "[TTF] DISK.IMA", "[SHD] DISK.IMA"},
        {"a.b.img", false, false, true, "[TTF] a.b.img", "[SHD] a.b.img"},
        {"noext", false, false, false, "[TTF] noext", "[SHD] noext"},
        {"img", false, false, false, "[TTF] img", "[SHD] img"},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(c.path);
        fs::path const path(c.path);
        EXPECT_EQ(IsFontPickerEntry(path), c.font);
        EXPECT_EQ(IsShaderPickerEntry(path), c.shader);
        EXPECT_EQ(IsAllowedImagePickerEntry(path), c.image);
        PickerEntry const file{path.filename().string(), path, false};
        EXPECT_EQ(LabelFontPickerEntry(file), c.font_label);
        EXPECT_EQ(LabelShaderPickerEntry(file), c.shader_label);
        EXPECT_EQ(LabelFloppyPickerEntry(file), "[IMG] " + file.name);
        EXPECT_EQ(LabelFolderPickerEntry(file), "[DIR] " + file.name);
    }
    PickerEntry const parent{"..", "/tmp", true};
    for (auto label : {LabelFolderPickerEntry, LabelFontPickerEntry, LabelFloppyPickerEntry,
                       LabelShaderPickerEntry}) {
        EXPECT_EQ(label(parent), "[DIR] ..");
    }
    // A directory named like an accepted file is still a directory.
    EXPECT_EQ(LabelFontPickerEntry({"x.otf", "x.otf", true}), "[DIR] x.otf");

    EXPECT_EQ(ExtLower("dir/SHADER.GLSLP"), ".glslp");
    EXPECT_EQ(ExtLower("dir.d/noext"), "");
    EXPECT_EQ(ExtLower("a.b.FRAG"), ".frag");
    EXPECT_EQ(TrimStr(" \ta b\r\n"), "a b");
    EXPECT_EQ(TrimStr("   "), "");
    EXPECT_EQ(TrimStr("\v\fx\xC3\xA9\f"), "x\xC3\xA9");
}

// "name/" or "name" of each row, one per line, for the report of a child process.
std::string Serialised(std::vector<PickerEntry> const& entries) {
    std::string text;
    for (std::string const& name : Names(entries)) {
        text += name + "\n";
    }
    return text;
}

TEST(PickerEntries, UnreadableDirectoriesAndEntriesAsAnOrdinaryUser) {
    ztest::TempDir dir;
    fs::path const& root = dir.path();
    fs::permissions(root, fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec |
                              fs::perms::others_read | fs::perms::others_exec);
    dir.Write("shown/ok.img", "");
    dir.Write("shown/locked/inside.img", "");
    dir.Write("closed/never.img", "");
    dir.Write("search_only/never.img", "");
    fs::create_symlink(root / "shown/locked/inside.img", root / "shown/through_lock.img");
    fs::create_directory_symlink(root / "shown/locked", root / "shown/locked_link");
    chmod((root / "shown").c_str(), 0755);
    chmod((root / "shown/locked").c_str(), 0);
    chmod((root / "closed").c_str(), 0);
    chmod((root / "search_only").c_str(), 0111);

    ztest::ChildOutcome const outcome = ztest::RunAsUnprivilegedUser([&] {
        return Serialised(ReadFilteredPickerEntries(root / "shown", IsAllowedImagePickerEntry)) +
               "|" +
               Serialised(ReadFilteredPickerEntries(root / "closed", IsAllowedImagePickerEntry)) +
               "|" + Serialised(ReadFolderPickerEntries(root / "search_only"));
    });
    ASSERT_EQ(outcome.exit_code, 0);
    ASSERT_TRUE(outcome.unprivileged);
    // The locked directory and a link to it are listed; a file behind the lock,
    // reached through a link, cannot be typed and is dropped alone.
    EXPECT_EQ(outcome.output, "../\nlocked/\nlocked_link/\nok.img\n|../\n|../\n");
}

fs::path g_vanishing_directory;

// A filter that removes the listed directory while it is being read.
bool RemoveDirectoryOnFirstFile(fs::path const&) {
    if (!g_vanishing_directory.empty()) {
        fs::remove_all(g_vanishing_directory);
        g_vanishing_directory.clear();
    }
    return true;
}

TEST(PickerEntries, DirectoryRemovedWhileListedKeepsWhatWasRead) {
    ztest::TempDir dir;
    fs::path const folder = dir.path() / "vanishing";
    fs::create_directory(folder);
    std::string const padding(48, 'p');
    int const count = 4000;
    for (int i = 0; i < count; ++i) {
        dir.Write("vanishing/" + padding + std::to_string(i) + ".img", "");
    }
    g_vanishing_directory = folder;
    auto const entries = ReadFilteredPickerEntries(folder, RemoveDirectoryOnFirstFile);
    EXPECT_FALSE(fs::exists(folder));
    ASSERT_GE(entries.size(), 2u);
    EXPECT_LT(entries.size(), static_cast<std::size_t>(count) + 1);
    EXPECT_EQ(entries[0].name, "..");
    for (std::size_t i = 2; i < entries.size(); ++i) {
        EXPECT_LT(entries[i - 1].name, entries[i].name);
    }
    // Read again, the directory that is gone gives its parent row alone.
    EXPECT_EQ(Names(ReadFilteredPickerEntries(folder, IsAllowedImagePickerEntry)),
              std::vector<std::string>{"../"});
}

}  // namespace
