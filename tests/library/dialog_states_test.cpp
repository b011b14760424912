// Every dialog state worth seeing, run through its exported Show... function on the
// software renderer: the frame of the state is compared pixel for pixel with its
// reference picture, then an ending is played and the whole result compared. A state is
// one row of kStates; gestures and ending take one heartbeat a gesture.
#include "dialogs.h"

#include "gui/pickers.h"
#include "gui/screenshot.h"
#include "support/records.h"
#include "support/reference_frame.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

namespace {

using namespace ztest;
using namespace ztest::gestures;
using Format = zorvane::frontend::gui::ScreenshotSaveFormat;
using Config = zorvane::frontend::gui::SdlMessageBox::Config;
using Button = zorvane::frontend::gui::SdlMessageBox::Button;
using Type = zorvane::frontend::gui::SdlMessageBox::Type;
using Values = zorvane::frontend::gui::SettingsDialogValues;

struct State {
    char const* name;  // of its reference picture
    Dialog dialog;
    std::vector<DialogScript::Step> gestures;  // from the first shown frame on
    std::vector<DialogScript::Step> ending;    // after the picture; then quits
    std::string result;
    std::vector<SDL_Rect> ignored = {};  // text that follows the build
};

void PrintTo(State const& state, std::ostream* out) {
    *out << state.name;
}

std::string Repeated(std::string const& line, std::size_t bytes) {
    std::string text;
    while (text.size() < bytes) {
        text += line;
    }
    return text;
}
std::string const kInvalid = "bad \xFF\xFE utf8 \xC3 end \xE2\x82";

// A settings topic: its row in the navigation panel.
DialogScript::Step Topic(int row) {
    return Click(100, 10 + 30 * row + 15);
}
// Where every settings panel's content starts, below its title and subtitle.
int const kPanel = 86;
DialogScript::Step const kApply = Click(763, 464);
// What an Apply hands over, compared whole: the settings the dialog opened with, changed.
std::string Applied(std::function<void(Values&)> const& change = {},
                    std::string const& font_mode = "pixel") {
    Values values = SettingsOf(font_mode);
    if (change) {
        change(values);
    }
    return "apply " + Describe(values);
}
char const kShaderStart[] = "CURVE=0.08;SCAN=6;MASK=0.65;GAMMA=2.2;TILT=0;";
// About's build facts: the compiler, the build date, the platform and the flags.
std::vector<SDL_Rect> const kBuildFacts = {{159, 446, 280, 28}, {530, 412, 300, 98}};

// clang-format off
std::vector<State> const kStates = {
    // A box 420 x 207: Reset (id 1) at x 214 to 297, Cancel (id 0, the cancel button) at 306
    // to 389, both from y 157 for 28 pixels.
    {"message_box_info", MessageBox(Type::Info), {}, {Key(SDLK_ESCAPE)}, "0"},
    {"message_box_question", MessageBox(Type::Question), {}, {Click(250, 170)}, "1"},
    {"message_box_warning", MessageBox(Type::Warning), {}, {CloseWindow()}, "-1"},
    {"message_box_error", MessageBox(Type::Error), {}, {}, "-1"},
    {"message_box_critical", MessageBox(Type::Critical), {},
     {Key(SDLK_RETURN), Key(SDLK_ESCAPE)}, "0"},
    {"message_box_success", MessageBox(Type::Success), {}, {Click(390, 170), Click(389, 184)}, "0"},
    {"message_box_type_above_five", MessageBox(Type(9)), {}, {Click(214, 157)}, "1"},
    {"message_box_defaults", MessageBox(Config{}), {}, {Key(SDLK_ESCAPE)}, "1"},
    {"message_box_huge_text",
     MessageBox({"T", Repeated("emulated machine keeps running\n", 1 << 20), Type(250),
                 {{9, "Keep", false, true, {}}}, -50, -7}),
     {}, {Key(SDLK_ESCAPE)}, "9"},
    {"message_box_invalid_utf8",
     MessageBox({kInvalid, kInvalid, Type::Error, std::vector<Button>(1000, {9, kInvalid, 0, 1, {}})}),
     {}, {Key(SDLK_ESCAPE)}, "9"},
    {"message_box_hovered_button", MessageBox(Type::Question), {Hover(350, 170)},
     {Click(350, 185)}, "-1"},
    {"message_box_pressed_button", MessageBox(Type::Question), {Press(250, 170)},
     {Release(350, 170)}, "0"},
    {"message_box_wrapped_text",
     MessageBox(Type::Warning, "  Drive A: holds\t\tDOS622_1.IMA.\n\nThe emulated machine keeps "
                               "running while this box is open. C:\\WINDOWS\\SYSTEM\\DRIVERS.DRV"),
     {}, {}, "-1"},
    // File pickers 760 x 520: a list from y 56 to 473 with rows of 24 from y 57, Cancel at x 592
    // to 661 and Open at 672 to 741, y 482 to 511; the folder picker 780 x 540 with Select at
    // x 676 to 761, y 498 to 531.
    {"picker_folder", FolderPicker("floppies"),
     {Key(SDLK_DOWN), Key(SDLK_DOWN), Key(SDLK_DOWN), Key(SDLK_UP)}, {Click(700, 510)}, "floppies"},
    {"picker_font", FontPicker(), {},
     {Key(SDLK_DOWN), Key(SDLK_DOWN), Click(100, 60), Key(SDLK_DOWN), Key(SDLK_RETURN)},
     "data/ttf/IBMPlexSans-Regular.ttf"},
    {"picker_floppy", FloppyPicker(), {Hover(300, 300)}, {Click(620, 495)}, ""},
    {"picker_floppy_selected_row", FloppyPicker(), {Click(100, 57 + 24 * 4)},
     {Click(100, 473), Click(700, 495)}, "floppies/GAMES_18.IMG"},
    {"picker_floppy_scrolled", FloppyPicker(), {Wheel(-3)}, {Click(100, 57 + 24 * 2, 2)},
     "floppies/DOS622_1.IMA"},
    {"picker_floppy_scrolled_to_the_end", FloppyPicker(), {Wheel(-50)},
     {Click(100, 57 + 24 * 16), Key(SDLK_RETURN)}, "floppies/TOOLS.IMG"},
    {"picker_floppy_thumb_dragged", FloppyPicker(), {Press(743, 80), Hover(743, 180)},
     {Click(100, 60), Key(SDLK_RETURN)}, "floppies/GAMES_10.IMG"},
    {"picker_floppy_folder_opened", FloppyPicker(), {Click(100, 60 + 24, 2)},
     {Key(SDLK_DOWN), Key(SDLK_RETURN)}, "floppies/drivers/MOUSE.IMG"},
    {"picker_floppy_beyond_ascii", FloppyPicker("floppies/caf\xC3\xA9"), {},
     {Key(SDLK_DOWN), Key(SDLK_RETURN)}, "floppies/caf\xC3\xA9/\xE6\x97\xA5\xE6\x9C\xAC.img"},
    {"picker_shader", ShaderPicker(), {}, {Key(SDLK_RETURN)}, "shaders/crt.glsl"},
    {"picker_shader_resized", ShaderPicker(), {Resize(420, 160)},
     {Key(SDLK_DOWN), Click(350, 130)}, "shaders/crt.glslp"},
    // Settings 820 x 492: Cancel at (663, 464), Apply at (763, 464).
    {"settings_font_mode", Settings(), {}, {kApply}, Applied()},
    {"settings_font_mode_custom", Settings("ttf-custom"), {Hover(740, 240)},
     {Click(740, 240), Key(SDLK_DOWN), Key(SDLK_RETURN), kApply},
     Applied([](Values& v) { v.custom_font_path = "data/ttf/IBMPlexSans-Regular.ttf"; },
             "ttf-custom")},
    {"settings_font_mode_custom_without_file", Settings(), {Click(300, kPanel + 119)},
     {kApply}, Applied([](Values& v) { v.font_mode = "ttf-custom"; })},
    {"settings_target_fps", Settings(), {Topic(2), Hover(224, 10 + 30 * 8 + 15)},
     {Click(300, kPanel + 85), kApply}, Applied([](Values& v) { v.fps = 50; })},
    {"settings_renderer", Settings(), {Topic(3), Hover(400, kPanel + 40)},
     {Click(400, kPanel + 40), kApply}, Applied([](Values& v) { v.renderer_mode = "software"; })},
    {"settings_screenshots", Settings(), {Topic(4), Hover(300, kPanel + 90)},
     {Click(300, kPanel + 90), Click(300, kPanel + 163), kApply}, Applied([](Values& v) {
         v.screenshot_capture_with_opengl_shaders = true; v.screenshot_capture_size_mode = 0; })},
    {"settings_mouse_capture", Settings(), {Topic(6)}, {Click(300, kPanel + 81), kApply},
     Applied([](Values& v) { v.allow_mouse_capture_in_text_mode = true; })},
    {"settings_mouse_capture_slider_held", Settings(), {Topic(6), Press(460, kPanel + 30)},
     {Release(460, kPanel + 30), kApply},  // (460 - 247) / 280 of the way from 0.25 to 3
     Applied([](Values& v) { v.mouse_capture_gain = 0.25 + 2.75 * 213 / 280; })},
    {"settings_cpu_speed", Settings(), {Topic(8)}, {Key(SDLK_RETURN), kApply}, Applied()},
    {"settings_logger_options", Settings(), {Topic(10)}, {Click(663, 464)}, ""},
    {"settings_hdd_sounds", Settings(), {Topic(12), Hover(400, kPanel + 68)},
     {Click(300, kPanel + 3), kApply, Click(300, kPanel + 3), kApply},
     Applied([](Values& v) { v.hdd_sounds_enabled = false; }) + " | " + Applied()},
    {"settings_hdd_sounds_slider_dragged", Settings(),
     {Topic(12), Press(300, kPanel + 68), Hover(330, kPanel + 68)},
     {Release(330, kPanel + 68), kApply},
     Applied([](Values& v) { v.hdd_sounds_volume = 83.0 / 280; })},
    {"settings_nav_hovered", Settings(), {Hover(0, 10 + 30 * 8 + 15)}, {CloseWindow()}, ""},
    {"settings_apply_pressed", Settings(), {Press(763, 464)}, {Release(663, 464)}, ""},
    // The shader dialog 900 x 490: rows of 80 from y 20 less the scroll, sliders at x 260 to
    // 534, Cancel at (740, 464), Apply at (840, 464), the scrollbar at x 882 to 895.
    {"shader_params", ShaderParameters(), {}, {Key(SDLK_RETURN), Key(SDLK_ESCAPE)},
     std::string("apply ") + kShaderStart + " | not accepted " + kShaderStart},
    {"shader_params_of_a_preset_beyond_ascii",
     ShaderParameters("presets/\xE6\x97\xA5\xE6\x9C\xAC/caf\xC3\xA9.glslp"), {},
     {Key(SDLK_RETURN), Key(SDLK_ESCAPE)},
     "apply CURVE=0.08;SCAN=6;MASK=0.9;GAMMA=2.2;TILT=-0.5; | "
     "not accepted CURVE=0.08;SCAN=6;MASK=0.9;GAMMA=2.2;TILT=-0.5;"},
    {"shader_params_scrolled", ShaderParameters(), {Hover(300, 300), Wheel(-1)},
     {Click(840, 464), Click(740, 464)}, "apply CURVE=0.08;SCAN=6;MASK=0.65;GAMMA=2.1;TILT=0; | "
     "not accepted CURVE=0.08;SCAN=6;MASK=0.65;GAMMA=2.1;TILT=0;"},
    {"shader_params_scrolled_back", ShaderParameters(),
     {Hover(300, 300), Wheel(-1), Wheel(1)}, {Key(SDLK_ESCAPE)},
     std::string("not accepted ") + kShaderStart},
    {"shader_params_thumb_dragged", ShaderParameters(), {Press(889, 100), Hover(889, 400)},
     {Release(889, 400), CloseWindow()}, std::string("not accepted ") + kShaderStart},
    {"shader_params_slider_dragged", ShaderParameters(), {Press(300, 140), Hover(450, 150)},
     {Hover(2000, 150), Key(SDLK_KP_ENTER)},
     "apply CURVE=0.08;SCAN=12;MASK=0.65;GAMMA=2.2;TILT=0; | "
     "accepted CURVE=0.08;SCAN=12;MASK=0.65;GAMMA=2.2;TILT=0;"},
    {"shader_params_enlarged", ShaderParameters(),
     {Hover(300, 300), Wheel(-1), Resize(900, 640)}, {Click(740, 614)},
     "not accepted CURVE=0.08;SCAN=6;MASK=0.65;GAMMA=2.1;TILT=0;"},
    // The screenshot form 900 x 410: the value field at (300, 299), the format field at
    // (300, 233) with its rows 34 high from y 252, Cancel at (700, 370), Save at (800, 370).
    {"screenshot_png", Screenshot(Format::Png), {}, {Key(SDLK_RETURN)},
     "saved out/captures capture.png png q85 c6 rle1"},
    {"screenshot_jpeg", Screenshot(Format::Jpeg), {Click(300, 299), Text("9")},
     {Click(800, 370)}, "saved out/captures capture.jpg jpg q100 c6 rle1"},
    {"screenshot_bmp", Screenshot(Format::Bmp), {}, {Key(SDLK_ESCAPE)},
     "not saved out/captures capture.bmp bmp q85 c6 rle1"},
    {"screenshot_bmp_without_rle", Screenshot(Format::Bmp), {Click(255, 290)},
     {Click(700, 370)}, "not saved out/captures capture.bmp bmp q85 c6 rle0"},
    {"screenshot_format_list", Screenshot(Format::Png), {Click(300, 233)},
     {Click(300, 252 + 34 + 17), Key(SDLK_RETURN)},
     "saved out/captures capture.jpg jpg q85 c6 rle1"},
    {"screenshot_name_typed", Screenshot(Format::Png),
     {Key(SDLK_BACKSPACE), Text("s/h:ot"), Key(SDLK_TAB)},
     {Key(SDLK_BACKSPACE), Text("19"), Key(SDLK_RETURN)},
     "saved out/captures capture.png png q85 c1 rle1"},
    {"screenshot_folder_picker", Screenshot(Format::Png), {Click(800, 167)},
     {Key(SDLK_ESCAPE), Key(SDLK_RETURN)}, "saved out/captures capture.png png q85 c6 rle1"},
    {"screenshot_folder_picked", Screenshot(Format::Png),
     {Click(800, 167), Key(SDLK_RETURN), Click(700, 510)}, {Key(SDLK_RETURN)},
     "saved out capture.png png q85 c6 rle1"},
    // The disk image form 860 x 390: the name field at (300, 150), Choose at (720, 210),
    // Create at (790, 338).
    {"hdd_image", DiskImage(), {}, {Key(SDLK_ESCAPE)}, "no image 10MB out/images disk.img"},
    {"hdd_image_typed", DiskImage(),
     {Text("0x0"), Key(SDLK_BACKSPACE), Click(300, 150), Text("-games")}, {Click(790, 338)},
     "create 100MB out/images disk.img-games"},
    {"hdd_image_folder_picked", DiskImage(),
     {Click(720, 210), Key(SDLK_DOWN), Key(SDLK_RETURN), Click(700, 510)}, {Key(SDLK_RETURN)},
     "create 10MB out disk.img"},
    // About 860 x 607: the video row from y 163 and the home row from y 263, each 88 high.
    {"about", About(), {}, {Press(300, 300)}, "open https://zorvane.org ", kBuildFacts},
    {"about_link_hovered", About(), {Hover(300, 200)}, {Release(300, 200), Press(300, 200)},
     "open https://www.youtube.com/@zorvane ", kBuildFacts},
    // Without fonts 860 x 597: the video row from y 163 and the home row from y 261, 86 high.
    {"about_without_fonts", About(false), {Hover(139, 203)},
     {Click(139, 301, 1, SDL_BUTTON_RIGHT), Press(821, 203), Press(139, 203), Press(139, 301)},
     "open https://www.youtube.com/@zorvane open https://zorvane.org "},
};
// clang-format on

class DialogStates : public WholeDialogTest, public testing::WithParamInterface<State> {};

TEST_P(DialogStates, DrawTheirPictureAndGiveTheirResult) {
    std::string const unavailable = ReferenceFramesUnavailable();
    if (!unavailable.empty()) {
        if (std::getenv("CI") != nullptr) {
            FAIL() << unavailable;
        }
        GTEST_SKIP() << unavailable;
    }
    State const& state = GetParam();
    Frame frame;
    DialogScript script;
    script.At(1, [](DialogScript&) {});  // the first frame on show
    for (DialogScript::Step const& gesture : state.gestures) {
        script.Then(gesture);
    }
    script.Then([&](DialogScript& s) { frame = s.Capture(); }, 2);
    for (DialogScript::Step const& gesture : state.ending) {
        script.Then(gesture);
    }
    for (int open_dialogs = 0; open_dialogs < 3; ++open_dialogs) {
        script.Then(Quit(), 2);
    }
    EXPECT_EQ(Run(state.dialog, script).result, state.result);
    EXPECT_TRUE(MatchesReference(frame, state.name, state.ignored));
}

INSTANTIATE_TEST_SUITE_P(Dialogs, DialogStates, testing::ValuesIn(kStates),
                         [](testing::TestParamInfo<State> const& row) {
                             return std::string(row.param.name);
                         });

}  // namespace
