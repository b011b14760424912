// The host's side of the pickers: each answer is a path as text, or nothing when the
// user cancelled; the host only says what it would do with it.
#include "pickers_demo.h"

#include <cstdio>
#include <string>

#include "gui/pickers.h"

namespace demo {

namespace {

namespace gui = zorvane::frontend::gui;

void Report(char const* what, std::string const& path, char const* action) {
    if (path.empty()) {
        std::printf("%s picker cancelled\n", what);
    } else {
        std::printf("%s picked: %s (%s)\n", what, path.c_str(), action);
    }
}

}  // namespace

void PickCaptureFolder(SDL_Window* host_window) {
    gui::FolderPickerOptions options;
    options.heading = "Folder for screenshots and captures";
    Report("folder", gui::ShowSimpleFolderPicker(host_window, options),
           "captures would be saved there");
}

void PickFont(SDL_Window* host_window) {
    Report("font", gui::ShowSimpleTtfFilePicker(host_window, ""),
           "the text-mode screen would use it");
}

void PickFloppy(SDL_Window* host_window) {
    Report("floppy", gui::ShowSimpleFloppyFilePicker(host_window, ""),
           "it would be inserted into drive A:");
}

void PickShader(SDL_Window* host_window) {
    Report("shader", gui::ShowSimpleShaderFilePicker(host_window, ""),
           "it would be compiled for the display");
}

}  // namespace demo
