// The four exported pickers: folders, font files, floppy images and shader files.
// Each blocks until its window closes and returns the accepted path as text, or an
// empty text when nothing was accepted.
#pragma once

#include <SDL.h>

#include <string>

namespace zorvane::frontend::gui {

// The texts of ShowSimpleFolderPicker; an empty field means its default.
struct FolderPickerOptions {
    std::string window_title = "Select Folder";
    std::string heading = "Select destination folder";
    std::string accept_label = "Select";
    std::string cancel_label = "Cancel";
    std::string start_directory;  // empty: the working directory
};

std::string ShowSimpleFolderPicker(SDL_Window* parent, FolderPickerOptions const& options);
std::string ShowSimpleTtfFilePicker(SDL_Window* parent, std::string const& initial_path);
std::string ShowSimpleFloppyFilePicker(SDL_Window* parent, std::string const& initial_path);
std::string ShowSimpleShaderFilePicker(SDL_Window* parent, std::string const& initial_path);

}  // namespace zorvane::frontend::gui
