// The hard-disk image dialog: its size and path rules, the form driven by keys and
// text, and the dialog run for real with its nested folder picker.
#include "gui/hdd_image.h"

#include "hdd_image/hdd_create_dialog.h"
#include "support/dialog_checks.h"
#include "support/dialog_script.h"
#include "support/temp_dir.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using namespace zorvane::frontend::gui;
using ztest::HasColor;
namespace fs = std::filesystem;

TEST(HddCreateRules, SizeTextsBecomeMegabytesOrTheDefault) {
    struct Row {
        char const* text;
        unsigned int expected;
    } const rows[] = {
        // clang-format off
        {"", 10}, {"0", 1}, {"000", 1}, {"007", 7}, {"512", 512},
        {"4294967295", 4294967295u}, {"4294967296", 4294967295u}, {"9999999999", 4294967295u},
        {"18446744073709551615", 4294967295u}, {"18446744073709551616", 10},
        {"12a", 10}, {"-5", 10}, {"+5", 10}, {"1 2", 10}, {" 12", 10}, {"1.5", 10}, {"12MB", 10},
        // clang-format on
    };
    for (Row const& row : rows) {
        EXPECT_EQ(ParseHddCreateSizeMbOrDefault(row.text, 10), row.expected) << row.text;
    }
}

TEST(HddCreateRules, PreviewPathJoinsFolderAndName) {
    struct Row {
        char const *folder, *name;
        fs::path expected;
    } const rows[] = {
        {"", "", fs::path(".") / "disk.img"},
        {"images", "c", fs::path("images") / "c"},
        {"/srv/images/", "c.img", "/srv/images/c.img"},
        {"/srv", "/abs/d.img", "/abs/d.img"},
        {"/srv/\xC3\xA9t\xC3\xA9", "\xE2\x82\xAC.img", "/srv/\xC3\xA9t\xC3\xA9/\xE2\x82\xAC.img"},
    };
    for (Row const& row : rows) {
        EXPECT_EQ(BuildHddCreateTargetPath(row.folder, row.name), row.expected.string())
            << "'" << row.folder << "' + '" << row.name << "'";
    }
}

// A form opened on 64 MB, fed `input`: '\b' stands for Backspace, '\t' for Tab and
// '\n' for Return; everything else arrives as text.
HddCreateDialogState Typed(std::string const& size, std::string const& name, char const* input) {
    HddCreateDialogState state;
    state.result.size_mb = 64;
    state.size_text = size;
    state.file_name_text = name;
    for (char const* p = input; *p != '\0'; ++p) {
        int const key = *p == '\b' ? SDLK_BACKSPACE : *p == '\t' ? SDLK_TAB : SDLK_RETURN;
        char const one[2] = {*p, '\0'};
        if (*p == '\b' || *p == '\t' || *p == '\n') {
            HandleHddCreateDialogKey(&state, key);
        } else {
            HandleHddCreateDialogTextInput(&state, one);
        }
    }
    return state;
}

TEST(HddCreateForm, KeysAndTextEditTheFocusedField) {
    std::string const n127(127, 'n');
    struct Row {
        std::string size, name;
        char const* input;
        std::string want_size, want_name;
    } const rows[] = {
        {"1", "", "2a3 4-5.6789012", "1234567890", ""},
        {"", "", "\tc:/d|\xC3\xA9\xE2\x82\xAC", "", "cd\xC3\xA9\xE2\x82\xAC"},
        {"", "d\xC3\xA9\xE2\x82\xAC", "\t\b", "", "d\xC3\xA9\xE2\x82"},
        {"", n127, "\t*xy", "", n127 + "x"},
        {"", "", "\b\t\b\t\b5", "5", ""},
        {"12", "ab", "\t\t\b", "1", "ab"},
    };
    for (Row const& row : rows) {
        HddCreateDialogState const state = Typed(row.size, row.name, row.input);
        EXPECT_EQ(state.size_text, row.want_size) << row.input;
        EXPECT_EQ(state.file_name_text, row.want_name) << row.input;
        EXPECT_FALSE(state.done);
    }
    HandleHddCreateDialogTextInput(nullptr, "1");
    HandleHddCreateDialogKey(nullptr, SDLK_RETURN);
}

TEST(HddCreateForm, ReturnCommitsFromEitherFieldAndFillsEmptyTexts) {
    HddCreateDialogResult const kept = Typed("", "dos", "\t\n").result;
    EXPECT_TRUE(kept.accepted);
    EXPECT_EQ(kept.size_mb, 64u) << "an empty size keeps the starting one";
    EXPECT_EQ(kept.folder, ".");
    EXPECT_EQ(kept.file_name, "dos") << "no extension is added";
    HddCreateDialogResult const filled = Typed("0", "", "\n").result;
    EXPECT_EQ(filled.size_mb, 1u);
    EXPECT_EQ(filled.file_name, "disk.img");
}

class HddCreateDialog : public ztest::DialogTest {};

TEST_F(HddCreateDialog, CreateReturnsTheTypedSizeNameAndChosenFolder) {
    ztest::TempDir dir;
    fs::create_directory(dir.path() / "sub");
    SDL_Window* dialog = nullptr;
    std::string picker_title;
    ztest::Frame first;
    ztest::Frame back;
    ztest::DialogScript script;
    script
        .At(1,
            [&](ztest::DialogScript& s) {
                dialog = s.Window();
                first = s.Capture();
                s.Key(SDLK_BACKSPACE);
                s.Key(SDLK_BACKSPACE);
                s.Text("2048");
                s.Click(300, 150);  // the file name field
                for (int i = 0; i < 8; ++i) {
                    s.Key(SDLK_BACKSPACE);
                }
                s.Text("games.img");
                s.Click(700, 200);  // "Choose"
            })
        .Then(
            [&](ztest::DialogScript& s) {
                picker_title = SDL_GetWindowTitle(s.Window());
                s.Key(SDLK_RETURN);  // row 0 is the parent entry: up to the temporary folder
            },
            2)
        .Then([](ztest::DialogScript& s) { s.Click(700, 510); }, 2)  // the picker's "Use"
        .Then(
            [&](ztest::DialogScript& s) {
                back = s.Capture();
                EXPECT_EQ(ztest::RecordedCalls("SDL_SetWindowInputFocus").back().object, dialog);
                s.Click(5, 5);  // elsewhere: the focus stays
                s.Text("x");
                s.Click(790, 330);  // Create
            },
            2);
    HddCreateDialogResult const r =
        ShowSimpleHddCreateDialog(nullptr, (dir.path() / "sub").string(), 0);
    EXPECT_FALSE(script.timed_out());
    EXPECT_TRUE(r.accepted);
    EXPECT_EQ(r.size_mb, 2048u);
    EXPECT_TRUE(fs::equivalent(r.folder, dir.path())) << r.folder;
    EXPECT_EQ(r.file_name, "games.imgx");
    EXPECT_EQ(picker_title, "Select HDD Output Folder");

    EXPECT_EQ(ztest::RecordedCalls("SDL_CreateWindow").at(0).args,
              (std::vector<long long>{0x2FFF0050, 0x2FFF0050, 860, 390, SDL_WINDOW_HIDDEN}));
    ASSERT_EQ(first.width, 860);
    EXPECT_TRUE(HasColor(first, 250, 72, {160, 176, 210, 255})) << "the size has the focus";
    EXPECT_TRUE(HasColor(first, 845, 355, {56, 64, 74, 255})) << "Create";
    EXPECT_TRUE(HasColor(back, 250, 132, {160, 176, 210, 255})) << "the name has the focus";
}

TEST_F(HddCreateDialog, EveryWayOutButCreateReturnsTheStartingValues) {
    SDL_Window* parent = SDL_CreateWindow("host", 100, 100, 640, 400, SDL_WINDOW_HIDDEN);
    ztest::DialogScript::Step const gestures[] = {
        [](ztest::DialogScript& s) { s.Click(650, 330); },  // Cancel
        [](ztest::DialogScript& s) { s.Key(SDLK_ESCAPE); },
        [](ztest::DialogScript& s) { s.CloseWindow(); },
        [](ztest::DialogScript& s) { s.Quit(); },
        [](ztest::DialogScript& s) {  // pressed elsewhere, released on Cancel
            s.Press(5, 5);
            s.Release(650, 330);
        },
    };
    for (auto const& gesture : gestures) {
        ztest::ResetRecorder();
        ztest::DialogScript script;
        script.At(1, [](ztest::DialogScript& s) { s.Text("99"); }).Then(gesture);
        HddCreateDialogResult const r = ShowSimpleHddCreateDialog(parent, "/srv/images", 300);
        EXPECT_FALSE(script.timed_out());
        EXPECT_FALSE(r.accepted);
        EXPECT_EQ(r.size_mb, 300u);
        EXPECT_EQ(r.folder, "/srv/images");
        EXPECT_EQ(r.file_name, "disk.img");
        EXPECT_EQ(ztest::CountCalls("SDL_StartTextInput"), 1);
        EXPECT_EQ(ztest::CountCalls("SDL_StopTextInput"), 1);
        EXPECT_EQ(ztest::RecordedCalls("SDL_RaiseWindow").back().object, parent);
    }
    for (bool const no_window : {true, false}) {
        ztest::ResetRecorder();
        ztest::FailWindowOrRenderer(no_window);
        HddCreateDialogResult const r = ShowSimpleHddCreateDialog(parent, "", 0);
        EXPECT_FALSE(r.accepted);
        EXPECT_EQ(r.size_mb, 10u);
        EXPECT_EQ(r.folder, ".");
        EXPECT_EQ(ztest::CountCalls("SDL_StartTextInput") + ztest::CountCalls("SDL_RaiseWindow"),
                  0);
    }
    EXPECT_EQ(ztest::CountLiveObjects().windows, 1);
    SDL_DestroyWindow(parent);
}

}  // namespace
