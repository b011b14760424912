// The four exported pickers: each fills the generic picker's options with its texts,
// sizes, kind of rows and mode, and runs it.
#include "gui/pickers.h"

#include "pickers/picker_dialog.h"

namespace zorvane::frontend::gui {

namespace {

// The common shape of the three file pickers; they differ in texts and rows alone.
SdlPickerDialogOptions FilePickerOptions(char const* window_title, char const* heading,
                                         std::filesystem::path start_directory,
                                         PickerFamily const& family, unsigned int window_flags) {
    SdlPickerDialogOptions options;
    options.window_title = window_title;
    options.heading = heading;
    options.start_directory = std::move(start_directory);
    options.load_entries = family.load_entries;
    options.label_entry = family.label_entry;
    options.accept_label = "Open";
    options.cancel_label = "Cancel";
    options.window_width = 760;
    options.window_height = 520;
    options.footer_height = 46;
    options.button_width = 70;
    options.button_height = 30;
    options.picker_mode = kPickFile;
    options.window_flags = window_flags;
    return options;
}

// `text` unless it is empty, else `fallback`.
char const* TextOr(std::string const& text, char const* fallback) {
    return text.empty() ? fallback : text.c_str();
}

}  // namespace

std::string ShowSimpleFolderPicker(SDL_Window* parent, FolderPickerOptions const& options) {
    SdlPickerDialogOptions picker;
    picker.window_title = TextOr(options.window_title, "Select Folder");
    picker.heading = TextOr(options.heading, "Select destination folder");
    picker.start_directory = options.start_directory.empty()
                                 ? std::filesystem::current_path()
                                 : std::filesystem::path(options.start_directory);
    picker.load_entries = kFolderPickerFamily.load_entries;
    picker.label_entry = kFolderPickerFamily.label_entry;
    picker.accept_label = TextOr(options.accept_label, "Select");
    picker.cancel_label = TextOr(options.cancel_label, "Cancel");
    picker.window_width = 780;
    picker.window_height = 540;
    picker.footer_height = 50;
    picker.button_width = 86;
    picker.button_height = 34;
    picker.picker_mode = kPickShownFolder;
    picker.window_flags = SDL_WINDOW_HIDDEN;
    return RunSimplePickerDialog(parent, picker);
}

std::string ShowSimpleTtfFilePicker(SDL_Window* parent, std::string const& initial_path) {
    return RunSimplePickerDialog(
        parent, FilePickerOptions("Select TTF Font", "Select font (*.ttf, *.otf)",
                                  ResolveSimplePickerStartDir(initial_path, "data/ttf"),
                                  kFontPickerFamily, SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE));
}

std::string ShowSimpleFloppyFilePicker(SDL_Window* parent, std::string const& initial_path) {
    return RunSimplePickerDialog(
        parent, FilePickerOptions("Load Floppy Image", "Select floppy image (*.ima, *.img)",
                                  ResolveSimplePickerStartDir(initial_path, "floppies"),
                                  kFloppyPickerFamily, SDL_WINDOW_HIDDEN));
}

std::string ShowSimpleShaderFilePicker(SDL_Window* parent, std::string const& initial_path) {
    return RunSimplePickerDialog(
        parent, FilePickerOptions("Select Shader",
                                  "Select shader (*.glsl, *.glslp, *.frag, *.vert, *.fs, *.vs)",
                                  ResolveSimplePickerStartDir(initial_path, "."),
                                  kShaderPickerFamily, SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE));
}

}  // namespace zorvane::frontend::gui
