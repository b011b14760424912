// The hard-disk image dialog: its size and path rules, its form, and one Create run for real
// with the nested folder picker.
#include "hdd_image/hdd_create_dialog.h"
#include "support/dialog_checks.h"
#include "support/dialog_script.h"
#include "support/temp_dir.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

namespace {

using namespace zorvane::frontend::gui;
using Script = ztest::DialogScript;
namespace fs = std::filesystem;

// A record as one line: "accepted" when it is, the size, the folder and the name.
std::string Describe(HddCreateDialogResult const& r) {
    return (r.accepted ? "accepted " : "") + std::to_string(r.size_mb) + " " + r.folder + " " +
           r.file_name;
}

TEST(HddCreateRules, SizeTextsAndTargetPaths) {
    // clang-format off
    std::pair<char const*, unsigned int> const sizes[] = {
        {"", 10}, {"0", 1}, {"007", 7}, {"4294967295", 4294967295u}, {"9999999999", 4294967295u},
        {"18446744073709551616", 10}, {"12a", 10}, {"-5", 10}, {"+5", 10}, {" 12", 10}};
    std::tuple<char const*, char const*, fs::path> const paths[] = {
        {"", "", fs::path(".") / "disk.img"}, {"images", "c", fs::path("images") / "c"},
        {"/srv/images/", "c.img", "/srv/images/c.img"}, {"/srv", "/abs/d.img", "/abs/d.img"}};
    // clang-format on
    for (auto const& [text, mb] : sizes) {
        EXPECT_EQ(ParseHddCreateSizeMbOrDefault(text, 10), mb) << text;
    }
    for (auto const& [folder, name, path] : paths) {
        EXPECT_EQ(BuildHddCreateTargetPath(folder, name), path.string()) << folder << "+" << name;
    }
}

class HddCreateDialog : public ztest::DialogTest {};

TEST_F(HddCreateDialog, CreateReturnsWhatWasTypedAndPicked) {
    ztest::TempDir dir;
    fs::create_directory(dir.path() / "sub");
    ztest::Frame first, back;
    Script script;
    script.At(1, [&](Script& s) {
        first = s.Capture();
        s.Text("4a8");      // digits alone, after the starting "10"
        s.Click(300, 150);  // the file name field
        for (int i = 0; i < 8; ++i) {
            s.Key(SDLK_BACKSPACE);
        }
        s.Text("ga/m:es.img");  // no folder or drive separators in a name
        s.Click(700, 200);      // "Choose"
    });
    script.At(3, [](Script& s) { s.Key(SDLK_RETURN); });  // row 0: up to the temporary folder
    script.At(5, [](Script& s) { s.Click(700, 510); });   // the picker's "Use"
    script.At(7, [&](Script& s) {
        back = s.Capture();
        EXPECT_EQ(ztest::RecordedCalls("SDL_SetWindowInputFocus").back().object, s.Window());
        s.Click(5, 5);  // elsewhere: the focus stays
        s.Text("x");
        s.Click(790, 330);  // Create
    });
    HddCreateDialogResult const r =
        ShowSimpleHddCreateDialog(nullptr, (dir.path() / "sub").string(), 0);
    EXPECT_FALSE(script.timed_out());
    EXPECT_EQ(Describe(r), "accepted 1048 " + r.folder + " games.imgx");
    EXPECT_TRUE(fs::equivalent(r.folder, dir.path())) << r.folder;
    auto const created = ztest::RecordedCalls("SDL_CreateWindow");
    EXPECT_EQ(created.at(0).text + "/" + created.at(1).text,
              "Create HDD Image/Select HDD Output Folder");
    EXPECT_EQ(created[0].args,
              (std::vector<long long>{0x2FFF0050, 0x2FFF0050, 860, 390, SDL_WINDOW_HIDDEN}));
    EXPECT_TRUE(ztest::HasColor(first, 250, 72, {160, 176, 210, 255})) << "the size has the focus";
    EXPECT_TRUE(ztest::HasColor(first, 845, 355, {56, 64, 74, 255})) << "Create";
    EXPECT_TRUE(ztest::HasColor(back, 250, 132, {160, 176, 210, 255})) << "the name has the focus";
}

}  // namespace
