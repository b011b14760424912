// The hard-disk image dialog: its rules, its form, and its runs with the nested picker.
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

// The size and path rules; then a form opened on 64 MB fed an input ('\b' Backspace,
// '\t' Tab, '\r' Return, the rest text), each row with the texts left and the commit.
TEST(HddCreateRules, SizesPathsAndTheFormDrivenByKeysAndText) {
    // clang-format off
    std::pair<char const*, unsigned int> const sizes[] = {
        {"", 10}, {"0", 1}, {"000", 1}, {"007", 7}, {"512", 512},
        {"4294967295", 4294967295u}, {"4294967296", 4294967295u}, {"9999999999", 4294967295u},
        {"18446744073709551615", 4294967295u}, {"18446744073709551616", 10},
        {"12a", 10}, {"-5", 10}, {"+5", 10}, {"1 2", 10}, {" 12", 10}, {"1.5", 10}, {"12MB", 10}};
    std::tuple<char const*, char const*, fs::path> const paths[] = {
        {"", "", fs::path(".") / "disk.img"}, {"images", "c", fs::path("images") / "c"},
        {"/srv/images/", "c.img", "/srv/images/c.img"}, {"/srv", "/abs/d.img", "/abs/d.img"},
        {"/srv/\xC3\xA9t\xC3\xA9", "\xE2\x82\xAC.img", "/srv/\xC3\xA9t\xC3\xA9/\xE2\x82\xAC.img"}};
    std::string const n127(127, 'n');
    std::string const rows[][4] = {  // size, name, input, what is left
        {"1", "", "2a3 4-5.6789012", "1234567890||"},
        {"", "", "\tc:/d|\xC3\xA9\xE2\x82\xAC", "|cd\xC3\xA9\xE2\x82\xAC|"},
        {"", "d\xC3\xA9\xE2\x82\xAC", "\t\b", "|d\xC3\xA9\xE2\x82|"},
        {"", n127, "\t*xy", "|" + n127 + "x|"}, {"", "", "\b\t\b\t\b5", "5||"},
        {"12", "ab", "\t\t\b", "1|ab|"}, {"", "dos", "\t\r", "|dos|accepted 64 . dos"},
        {"0", "", "\r", "0||accepted 1 . disk.img"}};
    // clang-format on
    for (auto const& [text, mb] : sizes) {
        EXPECT_EQ(ParseHddCreateSizeMbOrDefault(text, 10), mb) << text;
    }
    for (auto const& [folder, name, path] : paths) {
        EXPECT_EQ(BuildHddCreateTargetPath(folder, name), path.string()) << folder << "+" << name;
    }
    for (auto const& row : rows) {
        HddCreateDialogState state;
        state.result.size_mb = 64;
        state.size_text = row[0];
        state.file_name_text = row[1];
        for (char const c : row[2]) {  // SDLK_BACKSPACE, SDLK_TAB and SDLK_RETURN are their bytes
            char const one[2] = {c, '\0'};
            c > 0 && c < ' ' ? HandleHddCreateDialogKey(&state, c)
                             : HandleHddCreateDialogTextInput(&state, one);
        }
        EXPECT_EQ(state.size_text + "|" + state.file_name_text + "|" +
                      (state.done ? Describe(state.result) : ""),
                  row[3]);
    }
    HandleHddCreateDialogTextInput(nullptr, "1");
    HandleHddCreateDialogKey(nullptr, SDLK_RETURN);
}

class HddCreateDialog : public ztest::DialogTest {};

// Create returns what was typed and picked, other ways out the starting values.
TEST_F(HddCreateDialog, OnlyCreateReturnsWhatWasTypedAndPicked) {
    SDL_Window* parent = SDL_CreateWindow("host", 100, 100, 640, 400, SDL_WINDOW_HIDDEN);
    ztest::TempDir dir;
    fs::create_directory(dir.path() / "sub");
    ztest::Frame first, back;
    Script script;
    script.At(1, [&](Script& s) {
        first = s.Capture();
        s.Text("48");       // after the starting "10"
        s.Click(300, 150);  // the file name field
        for (int i = 0; i < 8; ++i) {
            s.Key(SDLK_BACKSPACE);
        }
        s.Text("games.img");
        s.Click(700, 200);  // "Choose"
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
        ShowSimpleHddCreateDialog(parent, (dir.path() / "sub").string(), 0);
    EXPECT_FALSE(script.timed_out());
    EXPECT_EQ(Describe(r), "accepted 1048 " + r.folder + " games.imgx");
    EXPECT_TRUE(fs::equivalent(r.folder, dir.path())) << r.folder;
    auto const created = ztest::RecordedCalls("SDL_CreateWindow");
    EXPECT_EQ(created.at(1).text + "/" + created.at(2).text,
              "Create HDD Image/Select HDD Output Folder");
    EXPECT_EQ(created[1].args, (std::vector<long long>{180, 180, 860, 390, SDL_WINDOW_HIDDEN}));
    ASSERT_EQ(first.width, 860);
    EXPECT_TRUE(ztest::HasColor(first, 250, 72, {160, 176, 210, 255})) << "the size has the focus";
    EXPECT_TRUE(ztest::HasColor(first, 845, 355, {56, 64, 74, 255})) << "Create";
    EXPECT_TRUE(ztest::HasColor(back, 250, 132, {160, 176, 210, 255})) << "the name has the focus";

    Script::Step const gestures[] = {[](Script& s) { s.Key(SDLK_ESCAPE); },
                                     [](Script& s) { s.CloseWindow(); },
                                     [](Script& s) { s.Quit(); },
                                     [](Script& s) {  // pressed elsewhere, released on Cancel
                                         s.Press(5, 5);
                                         s.Release(650, 330);
                                     }};
    for (auto const& gesture : gestures) {
        ztest::ResetRecorder();
        Script run;
        run.At(1, [](Script& s) { s.Text("99"); }).Then(gesture);
        EXPECT_EQ(Describe(ShowSimpleHddCreateDialog(parent, "/srv/images", 300)),
                  "300 /srv/images disk.img");
        EXPECT_FALSE(run.timed_out());
        EXPECT_EQ(ztest::CountCalls("SDL_StartTextInput"), 1);
        EXPECT_EQ(ztest::CountCalls("SDL_StopTextInput"), 1);
        EXPECT_EQ(ztest::RecordedCalls("SDL_RaiseWindow").back().object, parent);
    }
    for (bool const no_window : {true, false}) {
        ztest::ResetRecorder();
        ztest::FailWindowOrRenderer(no_window);
        EXPECT_EQ(Describe(ShowSimpleHddCreateDialog(parent, "", 0)), "10 . disk.img");
        EXPECT_EQ(ztest::CountCalls("SDL_StartTextInput") + ztest::CountCalls("SDL_RaiseWindow"),
                  0);
    }
    EXPECT_EQ(ztest::CountLiveObjects().windows, 1);
    SDL_DestroyWindow(parent);
}

}  // namespace
