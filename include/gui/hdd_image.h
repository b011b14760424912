// The hard-disk image dialog as the host sees it: it asks for the size, the file
// name and the folder of a new image and returns them. The host creates the image.
#pragma once

#include <SDL.h>

#include <string>

namespace zorvane::frontend::gui {

struct HddCreateDialogResult {
    bool accepted = false;     // true only when the user chose Create
    unsigned int size_mb = 0;  // size of the image in megabytes, at least 1 after a run
    std::string folder;        // never empty once the dialog has run ("." at least)
    std::string file_name;     // as typed, never empty ("disk.img" at least)
};

// Opens the fixed form over `parent` (which may be null) and blocks until it closes.
// A `default_size_mb` of 0 means 10 and an empty `default_folder` means ".". Anything
// but Create returns these starting values, with "disk.img", and `accepted` false.
HddCreateDialogResult ShowSimpleHddCreateDialog(SDL_Window* parent,
                                                std::string const& default_folder,
                                                unsigned int default_size_mb);

}  // namespace zorvane::frontend::gui
