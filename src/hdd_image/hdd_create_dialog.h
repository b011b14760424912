// Internals of the hard-disk image dialog: its state, the size rule, the preview
// path, the commit, the fixed form, the input handlers and the drawing.
#pragma once

#include "gui/hdd_image.h"

#include <string>

namespace zorvane::frontend::gui {

enum HddCreateDialogField : int {
    kHddFieldSize = 0,
    kHddFieldFileName = 1,
};

inline constexpr std::size_t kHddSizeMaxDigits = 10;
inline constexpr std::size_t kHddFileNameMaxBytes = 128;

struct HddCreateDialogState {
    HddCreateDialogResult result;  // the starting values until the commit
    std::string size_text;         // digits only, at most 10
    std::string folder_text;       // set by the folder picker; never typed into
    std::string file_name_text;    // as typed, at most 128 bytes
    int focused_field = kHddFieldSize;
    bool done = false;
    bool shown = false;  // the first frame is presented and the window raised
};

// The rectangles of the fixed 860 x 390 form.
struct HddCreateDialogLayout {
    SDL_Rect size_field{250, 72, 210, 36};
    SDL_Rect file_name_field{250, 132, 530, 36};
    SDL_Rect folder_field{250, 192, 430, 36};
    SDL_Rect choose_button{690, 192, 90, 36};
    SDL_Rect cancel_button{620, 318, 110, 40};
    SDL_Rect create_button{740, 318, 110, 40};
};

// The size in `text`: `default_mb` for an empty text, any byte that is not a digit
// or a value beyond 64 bits; 0 counts as 1, anything above 4294967295 as that.
unsigned int ParseHddCreateSizeMbOrDefault(std::string const& text, unsigned int default_mb);

// `folder` (or ".") joined with `file_name` (or "disk.img") as paths.
std::string BuildHddCreateTargetPath(std::string const& folder, std::string const& file_name);

// Turns the texts into the result, marks it accepted and ends the dialog.
void CommitHddCreateDialogResult(HddCreateDialogState* state);

HddCreateDialogLayout BuildHddCreateDialogLayout();

// Escape, Tab, Backspace and Return; every other key is ignored.
void HandleHddCreateDialogKey(HddCreateDialogState* state, int keycode);
// Appends the bytes of `text` that the focused field accepts.
void HandleHddCreateDialogTextInput(HddCreateDialogState* state, char const* text);
// A press focuses a text field; a release acts on the folder field and the buttons.
void HandleHddCreateDialogMouseButton(HddCreateDialogState* state, SDL_Window* window,
                                      SDL_MouseButtonEvent const& event, bool pressed);
// Runs the nested folder picker from `folder`; an accepted folder replaces it.
void OpenHddCreateFolderPicker(SDL_Window* parent, std::string& folder);

void RenderHddCreateDialog(SDL_Renderer* renderer, HddCreateDialogState const& state);

}  // namespace zorvane::frontend::gui
