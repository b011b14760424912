// The four exported pickers: each fills the generic picker's options with its texts,
// sizes, kind of rows and mode, and runs it.
#include "gui/pickers.h"

#include "pickers/picker_dialog.h"

#include <utility>

#include "zorvane/utils.h"

namespace zorvane::frontend::gui {

namespace {

// Window and footer measures of one kind of picker.
struct PickerFrame {
    int width = 0;
    int height = 0;
    int footer_height = 0;
    int button_width = 0;
    int button_height = 0;
};

constexpr PickerFrame kFilePickerFrame{760, 520, 46, 70, 30};
constexpr PickerFrame kFolderPickerFrame{780, 540, 50, 86, 34};

SdlPickerDialogOptions MakePickerOptions(char const* window_title, std::string heading,
                                         std::filesystem::path start_directory,
                                         PickerFamily const& family, char const* accept_label,
                                         char const* cancel_label, PickerFrame const& frame,
                                         int picker_mode, unsigned int window_flags) {
    SdlPickerDialogOptions options;
    options.window_title = window_title;
    options.heading = std::move(heading);
    options.start_directory = std::move(start_directory);
    options.load_entries = family.load_entries;
    options.label_entry = family.label_entry;
    options.accept_label = accept_label;
    options.cancel_label = cancel_label;
    options.window_width = frame.width;
    options.window_height = frame.height;
    options.footer_height = frame.footer_height;
    options.button_width = frame.button_width;
    options.button_height = frame.button_height;
    options.picker_mode = picker_mode;
    options.window_flags = window_flags;
    return options;
}

// The file pickers differ in their texts, rows and start folder alone.
std::string RunFilePicker(SDL_Window* parent, char const* window_title, char const* heading,
                          std::filesystem::path start_directory, PickerFamily const& family,
                          unsigned int window_flags) {
    return RunSimplePickerDialog(
        parent, MakePickerOptions(window_title, heading, std::move(start_directory), family, "Open",
                                  "Cancel", kFilePickerFrame, kPickFile, window_flags));
}

// `text` unless it is empty, else `fallback`.
char const* TextOr(std::string const& text, char const* fallback) {
    return text.empty() ? fallback : text.c_str();
}

}  // namespace

std::string ShowSimpleFolderPicker(SDL_Window* parent, FolderPickerOptions const& options) {
    char const* const title = TextOr(options.window_title, "Select Folder");
    char const* const heading = TextOr(options.heading, "Select destination folder");
    std::filesystem::path start = options.start_directory.empty()
                                      ? std::filesystem::current_path()
                                      : zorvane::utils::path_from_utf8(options.start_directory);
    return RunSimplePickerDialog(
        parent, MakePickerOptions(title, heading, std::move(start), kFolderPickerFamily,
                                  TextOr(options.accept_label, "Select"),
                                  TextOr(options.cancel_label, "Cancel"), kFolderPickerFrame,
                                  kPickShownFolder, SDL_WINDOW_HIDDEN));
}

std::string ShowSimpleTtfFilePicker(SDL_Window* parent, std::string const& initial_path) {
    return RunFilePicker(parent, "Select TTF Font", "Select font (*.ttf, *.otf)",
                         ResolveSimplePickerStartDir(initial_path, "data/ttf"), kFontPickerFamily,
                         SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE);
}

std::string ShowSimpleFloppyFilePicker(SDL_Window* parent, std::string const& initial_path) {
    return RunFilePicker(parent, "Load Floppy Image", "Select floppy image (*.ima, *.img)",
                         ResolveSimplePickerStartDir(initial_path, "floppies"), kFloppyPickerFamily,
                         SDL_WINDOW_HIDDEN);
}

std::string ShowSimpleShaderFilePicker(SDL_Window* parent, std::string const& initial_path) {
    return RunFilePicker(parent, "Select Shader",
                         "Select shader (*.glsl, *.glslp, *.frag, *.vert, *.fs, *.vs)",
                         ResolveSimplePickerStartDir(initial_path, "."), kShaderPickerFamily,
                         SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE);
}

}  // namespace zorvane::frontend::gui
