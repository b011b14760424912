// The host's side of the pickers: each answer is a path as text, or nothing when the
// user cancelled, and the host takes the path over into its own state.
#include "pickers_demo.h"

#include "gui/pickers.h"

namespace demo {

void PickCaptureFolder(Host& host) {
    gui::FolderPickerOptions options;
    options.heading = "Folder for screenshots and captures";
    options.start_directory = host.capture_folder;
    std::string const folder = gui::ShowSimpleFolderPicker(host.window, options);
    if (folder.empty()) {
        Tell(host, "folder picker cancelled");
        return;
    }
    host.capture_folder = folder;
    Tell(host, "captures now go to " + folder);
}

void PickFont(Host& host) {
    std::string const font = gui::ShowSimpleTtfFilePicker(host.window, host.font_path);
    if (font.empty()) {
        Tell(host, "font picker cancelled");
    } else if (UseHostFont(host, font)) {
        Tell(host, "the screen now uses " + font);
    } else {
        Tell(host, "cannot open the font " + font + ": " + TTF_GetError());
    }
}

void PickFloppy(Host& host) {
    std::string const disk = gui::ShowSimpleFloppyFilePicker(host.window, host.drive_a);
    if (disk.empty()) {
        Tell(host, "floppy picker cancelled; drive A: unchanged");
        return;
    }
    host.drive_a = disk;
    Tell(host, "inserted " + disk + " into drive A:");
}

void PickShader(Host& host) {
    std::string const shader = gui::ShowSimpleShaderFilePicker(host.window, host.shader_path);
    if (shader.empty()) {
        Tell(host, "shader picker cancelled");
        return;
    }
    host.shader_path = shader;
    host.shader_values.clear();  // a new shader starts from its own values
    Tell(host, "the display would now compile " + gui::ResolveShaderGlslPath(shader));
}

}  // namespace demo
