// The disk image dialog: its size and path rules, and one Create with the nested picker.
#include "hdd_image/hdd_create_dialog.h"
#include "support/dialog_script.h"
#include "support/temp_dir.h"
#include "support/test_display.h"

namespace {

using namespace zorvane::frontend::gui;
using Script = ztest::DialogScript;

TEST(HddCreateRules, SizeTextsAndTargetPaths) {
    std::pair<char const*, unsigned int> const sizes[] = {
        {"", 10}, {"0", 1}, {"007", 7}, {"9999999999", 4294967295u}, {"12a", 10}, {"-5", 10}};
    for (auto const& [text, mb] : sizes) {
        EXPECT_EQ(ParseHddCreateSizeMbOrDefault(text, 10), mb) << text;
    }
    EXPECT_EQ(BuildHddCreateTargetPath("", ""), "./disk.img");
    EXPECT_EQ(BuildHddCreateTargetPath("/srv/images/", "c.img"), "/srv/images/c.img");
    EXPECT_EQ(BuildHddCreateTargetPath("/srv", "/abs/d.img"), "/abs/d.img");
}

class HddCreateDialog : public ztest::DialogTest {};

TEST_F(HddCreateDialog, CreateReturnsTheTypedSizeAndNameAndThePickedFolder) {
    ztest::TempDir dir;
    Script script;
    script.At(1, [](Script& s) {
        s.Text("4a8"), s.Click(300, 150);  // digits alone after "10", then the name field
        for (int i = 0; i < 8; ++i) {      // "disk.img"
            s.Key(SDLK_BACKSPACE);
        }
        s.Text("ga/m:es.img"), s.Click(700, 200);  // no separators; then "Choose"
    });
    script.At(3, [](Script& s) { s.Key(SDLK_RETURN), s.Click(700, 510); });  // "..", then "Use"
    script.At(5, [](Script& s) {
        EXPECT_EQ(ztest::RecordedCalls("SDL_SetWindowInputFocus").back().object, s.Window());
        s.Click(790, 330);  // Create
    });
    HddCreateDialogResult const r =
        ShowSimpleHddCreateDialog(nullptr, dir.Write("sub/x", "").parent_path().string(), 0);
    EXPECT_EQ(std::tie(r.accepted, r.size_mb, r.file_name),
              std::make_tuple(true, 1048u, "games.img"));
    EXPECT_TRUE(std::filesystem::equivalent(r.folder, dir.path())) << r.folder;
}

}  // namespace
