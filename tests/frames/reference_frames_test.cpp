// Every dialog state worth seeing, run through its exported Show... function on the
// software renderer and compared pixel for pixel with its reference picture. A state is
// one row of kStates: the dialog, then the gestures that lead there, one per heartbeat.
#include "gui/about.h"
#include "gui/hdd_image.h"
#include "gui/message_box.h"
#include "gui/pickers.h"
#include "gui/screenshot.h"
#include "gui/settings.h"
#include "gui/shader_params.h"

#include "support/dialog_script.h"
#include "support/reference_frame.h"
#include "support/temp_dir.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
namespace gui = zorvane::frontend::gui;
using Script = ztest::DialogScript;
using Type = gui::SdlMessageBox::Type;

// ---- Gestures: each one is the input of one heartbeat -------------------------------------

Script::Step Key(SDL_Keycode key) {
    return [key](Script& s) { s.Key(key); };
}
Script::Step Text(char const* text) {
    return [text](Script& s) { s.Text(text); };
}
Script::Step Wheel(int notches) {
    return [notches](Script& s) { s.Wheel(notches); };
}
// The pointer moved to (x, y), with the left button as it was.
Script::Step Hover(int x, int y) {
    return [x, y](Script& s) {
        s.Hover(x, y);
        s.Motion(x, y);
    };
}
// The left button pressed at (x, y) and held there.
Script::Step Press(int x, int y) {
    return [x, y](Script& s) {
        s.Hover(x, y);
        ztest::Pointer().buttons = SDL_BUTTON_LMASK;
        s.Press(x, y);
    };
}
Script::Step Click(int x, int y, Uint8 clicks = 1) {
    return [x, y, clicks](Script& s) {
        s.Hover(x, y);
        s.Click(x, y, clicks);
    };
}
Script::Step Resize(int w, int h) {
    return [w, h](Script& s) { SDL_SetWindowSize(s.Window(), w, h); };
}

// ---- Dialogs, each opened on the sample folder of the fixture ------------------------------

using Open = std::function<void()>;

Open Box(Type type, std::string message = "The emulated PC restarts from drive C:.") {
    return [type, message] {
        gui::SdlMessageBox::Config config;
        config.title = "Reset the machine?";
        config.message = message;
        config.type = type;
        config.width = 420;
        config.buttons = {{1, "Reset", true, false, {}}, {0, "Cancel", false, true, {}}};
        gui::SdlMessageBox(config).Show(nullptr, 1.0f);
    };
}
Open BareBox() {
    return [] { gui::SdlMessageBox(gui::SdlMessageBox::Config{}).Show(nullptr, 1.0f); };
}

Open FolderPicker(std::string start) {
    return [start] { gui::ShowSimpleFolderPicker(nullptr, {"", "", "", "", start}); };
}
Open FilePicker(std::string (*show)(SDL_Window*, std::string const&), std::string start = "") {
    return [show, start] { show(nullptr, start); };
}

Open Settings(std::string font_mode = "pixel") {
    return [font_mode] {
        gui::SettingsDialogValues values;
        values.fps = 60;
        values.font_mode = font_mode;
        values.custom_font_path = font_mode == "ttf-custom" ? "data/ttf/Mono Retro.ttf" : "";
        values.cpu_mhz = 4.77;
        values.mouse_capture_gain = 1.5;
        values.hdd_sounds_enabled = true;
        values.hdd_sounds_volume = 0.35;
        gui::ShowSettingsDialog(nullptr, 1.0f, values, {});
    };
}

Open ShaderParameters() {
    return [] {
        gui::ShowShaderParameterDialog(nullptr, "shaders/crt.glsl", 1.0f, {}, {{"MASK", 0.65f}});
    };
}

Open Screenshot(gui::ScreenshotSaveFormat format) {
    return [format] {
        gui::ShowScreenshotSaveDialog(nullptr, "out/captures", "capture.png", format, 85, 6, true);
    };
}

Open DiskImage() {
    return [] { gui::ShowSimpleHddCreateDialog(nullptr, "out/images", 0); };
}

Open About() {
    return [] { gui::ShowSimpleAboutDialog(nullptr, 1.0f); };
}

// ---- The states --------------------------------------------------------------------------

struct FrameState {
    char const* name;
    Open open;
    std::vector<Script::Step> gestures;
    std::vector<SDL_Rect> ignored = {};  // text that follows the build
};

using gui::ScreenshotSaveFormat;
Script::Step const kNothing = [](Script&) {};
// A settings topic: its row in the navigation panel.
Script::Step Topic(int row) {
    return Click(100, 10 + 30 * row + 15);
}
// The top of every settings panel's content, below its title and subtitle.
int const kPanelY = 86;
// About's build facts: the date, compiler, platform and flags follow the build.
std::vector<SDL_Rect> const kBuildFacts = {{159, 446, 280, 28}, {530, 412, 300, 98}};

std::vector<FrameState> const kStates = {
    {"message_box_info", Box(Type::Info), {}},
    {"message_box_question", Box(Type::Question), {}},
    {"message_box_warning", Box(Type::Warning), {}},
    {"message_box_error", Box(Type::Error), {}},
    {"message_box_critical", Box(Type::Critical), {}},
    {"message_box_success", Box(Type::Success), {}},
    {"message_box_type_above_five", Box(Type(9)), {}},
    {"message_box_defaults", BareBox(), {}},
    {"message_box_hovered_button", Box(Type::Question), {Hover(350, 170)}},
    {"message_box_pressed_button", Box(Type::Question), {Press(250, 170)}},
    {"message_box_wrapped_text",
     Box(Type::Warning,
         "Drive A: holds DOS622_1.IMA.\n\nThe emulated machine keeps running while "
         "this box is open. C:\\WINDOWS\\SYSTEM\\VERYLONGDRIVERNAME.DRV"),
     {}},
    {"picker_folder", FolderPicker("floppies"), {Key(SDLK_DOWN), Key(SDLK_DOWN)}},
    {"picker_font", FilePicker(gui::ShowSimpleTtfFilePicker), {}},
    {"picker_floppy", FilePicker(gui::ShowSimpleFloppyFilePicker), {}},
    {"picker_floppy_selected_row",
     FilePicker(gui::ShowSimpleFloppyFilePicker),
     {Click(100, 57 + 24 * 4)}},
    {"picker_floppy_scrolled", FilePicker(gui::ShowSimpleFloppyFilePicker), {Wheel(-3)}},
    {"picker_floppy_thumb_dragged",
     FilePicker(gui::ShowSimpleFloppyFilePicker),
     {Press(743, 80), Hover(743, 180)}},
    {"picker_floppy_folder_opened",
     FilePicker(gui::ShowSimpleFloppyFilePicker),
     {Click(100, 60, 2)}},
    {"picker_shader", FilePicker(gui::ShowSimpleShaderFilePicker, "shaders"), {}},
    {"picker_shader_resized",
     FilePicker(gui::ShowSimpleShaderFilePicker, "shaders"),
     {Resize(420, 160)}},
    {"settings_font_mode", Settings(), {}},
    {"settings_font_mode_custom", Settings("ttf-custom"), {Hover(740, 240)}},
    {"settings_target_fps", Settings(), {Topic(2)}},
    {"settings_renderer", Settings(), {Topic(3), Hover(400, kPanelY + 40)}},
    {"settings_screenshots", Settings(), {Topic(4), Hover(300, kPanelY + 90)}},
    {"settings_mouse_capture", Settings(), {Topic(6)}},
    {"settings_mouse_capture_slider_held", Settings(), {Topic(6), Press(460, kPanelY + 30)}},
    {"settings_cpu_speed", Settings(), {Topic(8)}},
    {"settings_logger_options", Settings(), {Topic(10)}},
    {"settings_hdd_sounds", Settings(), {Topic(12)}},
    {"settings_hdd_sounds_slider_dragged",
     Settings(),
     {Topic(12), Press(300, kPanelY + 68), Hover(330, kPanelY + 68)}},
    {"settings_nav_hovered", Settings(), {Hover(100, 10 + 30 * 8 + 15)}},
    {"settings_apply_pressed", Settings(), {Press(763, 464)}},
    {"shader_params", ShaderParameters(), {}},
    {"shader_params_scrolled", ShaderParameters(), {Hover(300, 300), Wheel(-1)}},
    {"shader_params_thumb_dragged", ShaderParameters(), {Press(889, 100), Hover(889, 400)}},
    {"shader_params_slider_dragged", ShaderParameters(), {Press(300, 140), Hover(450, 150)}},
    {"shader_params_enlarged", ShaderParameters(), {Hover(300, 300), Wheel(-1), Resize(900, 640)}},
    {"screenshot_png", Screenshot(ScreenshotSaveFormat::Png), {}},
    {"screenshot_jpeg", Screenshot(ScreenshotSaveFormat::Jpeg), {Click(300, 290), Text("9")}},
    {"screenshot_bmp", Screenshot(ScreenshotSaveFormat::Bmp), {}},
    {"screenshot_bmp_without_rle", Screenshot(ScreenshotSaveFormat::Bmp), {Click(255, 290)}},
    {"screenshot_format_list", Screenshot(ScreenshotSaveFormat::Png), {Click(300, 230)}},
    {"screenshot_name_typed",
     Screenshot(ScreenshotSaveFormat::Png),
     {Key(SDLK_BACKSPACE), Text("s/h:ot"), Key(SDLK_TAB)}},
    {"screenshot_folder_picker", Screenshot(ScreenshotSaveFormat::Png), {Click(800, 160)}},
    {"screenshot_folder_picked",
     Screenshot(ScreenshotSaveFormat::Png),
     {Click(800, 160), Key(SDLK_RETURN), Click(700, 510)}},
    {"hdd_image", DiskImage(), {}},
    {"hdd_image_typed", DiskImage(), {Text("0x0"), Click(300, 150), Text("-games")}},
    {"hdd_image_folder_picked",
     DiskImage(),
     {Click(720, 210), Key(SDLK_DOWN), Key(SDLK_RETURN), Click(700, 510)}},
    {"about", About(), {}, kBuildFacts},
    {"about_link_hovered", About(), {Hover(300, 200)}, kBuildFacts},
};

void PrintTo(FrameState const& state, std::ostream* out) {
    *out << state.name;
}

// ---- The run -----------------------------------------------------------------------------

// The fixture's working directory: the UI fonts and a few folders to pick from.
class ReferenceFrames : public ztest::DialogTest, public testing::WithParamInterface<FrameState> {
protected:
    void SetUp() override {
        DialogTest::SetUp();
        ztest::Faults().skip_delays = true;
        ztest::Faults().fail_accelerated_renderer = true;  // the software renderer everywhere
        std::error_code ignored;
        fs::create_directories(dir_.path() / "data/ttf", ignored);
        fs::copy(fs::current_path() / "data/ttf", dir_.path() / "data/ttf", ignored);
        cwd_ = std::make_unique<ztest::ScopedWorkingDirectory>(dir_.path());
        std::string const unavailable = ztest::ReferenceFramesUnavailable();
        if (!unavailable.empty()) {
            if (std::getenv("CI") != nullptr) {
                FAIL() << unavailable;
            }
            GTEST_SKIP() << unavailable;
        }
        for (char const* name :
             {"DOS622_1.IMA", "DOS622_2.IMA", "DOS622_3.IMA", "TOOLS.IMG", "dos_tools.img",
              "readme.txt", "drivers/MOUSE.IMG", "games/keep", "system/keep"}) {
            dir_.Write(std::string("floppies/") + name, "");
        }
        for (int disk = 10; disk < 40; ++disk) {
            dir_.Write("floppies/GAMES_" + std::to_string(disk) + ".IMG", "");
        }
        dir_.Write("shaders/crt.glslp", "shaders = 1\nshader0 = crt.glsl\n");
        dir_.Write("shaders/notes.txt", "");
        dir_.Write("shaders/crt.glsl",
                   "#pragma parameter CURVE \"Screen curvature\" 0.08 0.0 0.25 0.01\n"
                   "#pragma parameter SCAN \"Scanline weight\" 6.0 0.5 12.0 0.5\n"
                   "#pragma parameter MASK \"Mask strength\" 0.5 0.0 1.0 0.05\n"
                   "#pragma parameter GLOW \"\" 0.3 0.0 1.0 0.0\n"
                   "#pragma parameter GAMMA \"Output gamma\" 2.2 1.0 3.0 0.1\n"
                   "#pragma parameter TILT \"Tilt\" 0.0 -1.0 1.0 0.25\n");
        dir_.Write("out/captures/old.png", "");
        dir_.Write("out/images/c.img", "");
    }

    void TearDown() override {
        cwd_.reset();
        DialogTest::TearDown();
    }

private:
    ztest::TempDir dir_;
    std::unique_ptr<ztest::ScopedWorkingDirectory> cwd_;
};

TEST_P(ReferenceFrames, MatchItsPicture) {
    FrameState const& state = GetParam();
    // Gestures from the first shown frame on, the capture once the last one was drawn,
    // then a quit for each dialog that may be open.
    ztest::Frame frame;
    Script script;
    script.At(1, kNothing);
    for (Script::Step const& gesture : state.gestures) {
        script.Then(gesture);
    }
    script.Then([&](Script& s) { frame = s.Capture(); }, 2);
    for (int level = 0; level < 3; ++level) {
        script.Then([](Script& s) { s.Quit(); }, 2);
    }
    state.open();
    EXPECT_FALSE(script.timed_out());
    EXPECT_TRUE(ztest::MatchesReference(frame, state.name, state.ignored));
}

INSTANTIATE_TEST_SUITE_P(Dialogs, ReferenceFrames, testing::ValuesIn(kStates),
                         [](testing::TestParamInfo<FrameState> const& row) {
                             return std::string(row.param.name);
                         });

}  // namespace
