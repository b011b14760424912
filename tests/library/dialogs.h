// Every exported dialog as the whole-library tests open it: on the sample folder that
// the fixture makes the working directory, with its result given back as text, and run
// under the checks that every run of every dialog must pass.
#pragma once

#include "gui/message_box.h"
#include "gui/screenshot.h"
#include "gui/settings.h"

#include "support/dialog_script.h"
#include "support/temp_dir.h"
#include "support/test_display.h"

#include <functional>
#include <memory>
#include <string>

namespace ztest {

// What one run of a dialog gave.
struct Outcome {
    std::string result;        // every field of the result as text (records.h)
    bool nothing_done = true;  // the dialog's "nothing done" result came back
    std::string broken;        // an invariant of the result that fails, empty when none does
};

using Dialog = std::function<Outcome(SDL_Window* parent)>;

// A message box; the result is the id it returns.
Dialog MessageBox(zorvane::frontend::gui::SdlMessageBox::Config config);
// A message box with a Reset (1) and a Cancel (0, the cancel button) button, 420 wide.
Dialog MessageBox(zorvane::frontend::gui::SdlMessageBox::Type type,
                  std::string message = "The emulated PC restarts from drive C:.");
// The pickers; a file picker's pick must be a file of its kinds.
Dialog FolderPicker(std::string start);
Dialog FontPicker();
Dialog FloppyPicker(std::string start = "");
Dialog ShaderPicker(std::string start = "shaders");
// The settings of a host: 60 fps, 4.77 MHz, gain 1.5, HDD sounds on at 0.35, and the font
// mode given, with "data/ttf/Mono Retro.ttf" for "ttf-custom".
zorvane::frontend::gui::SettingsDialogValues SettingsOf(std::string const& font_mode);
// The settings dialog opened on SettingsOf(font_mode); the result lists each Apply.
Dialog Settings(std::string font_mode = "pixel");
// A shader or preset, started from the preset's values, then MASK at 0.65; the result
// lists each Apply, then the dialog's result.
Dialog ShaderParameters(std::string path = "shaders/crt.glsl");
// out/captures, the name (an empty one takes the time) in `format`, quality 85,
// compression 6, RLE on.
Dialog Screenshot(zorvane::frontend::gui::ScreenshotSaveFormat format,
                  std::string name = "capture.png");
// out/images, the default size.
Dialog DiskImage();
// The result lists the pages it opened; without fonts every measure takes its fallback.
Dialog About(bool fonts = true);

// A dialog test. Its working directory holds the UI fonts of the project's data/ttf,
// floppy images (four folders and 36 images), shaders/crt.glsl with five parameters and
// its preset, a preset that sets two of them, and the folders out/captures and
// out/images; a hidden host window is the parent.
class WholeDialogTest : public DialogTest {
protected:
    static void SetUpTestSuite();
    static void TearDownTestSuite();
    void SetUp() override;

    // A fresh recorder with what every run has: delays not slept, the software renderer.
    static void ResetRecorder();

    // Runs `dialog` once and checks what holds after any run: nothing written to disk,
    // no SDL object left, text input off, the focus back on the parent.
    Outcome Run(Dialog const& dialog, DialogScript const& script);

    static SDL_Window* parent_;

private:
    TempDir dir_;
    std::unique_ptr<ScopedWorkingDirectory> cwd_;
};

}  // namespace ztest
