// The generic picker behind the exported pickers: its options, the state of one run,
// the layout worked out from the window's size, the input handlers and the drawing.
#pragma once

#include "frame/look.h"
#include "pickers/picker_entries.h"

#include <SDL.h>

#include <filesystem>
#include <string>
#include <vector>

namespace zorvane::frontend::gui {

// What one kind of picker brings to the generic loop. Zero-initialise, fill, and keep
// it alive for the call; the texts may be null.
struct SdlPickerDialogOptions {
    char const* window_title = nullptr;
    std::string heading;                    // first line of the header band
    std::filesystem::path start_directory;  // a directory, or a file to open beside
    std::vector<PickerEntry> (*load_entries)(std::filesystem::path const&) = nullptr;
    std::string (*label_entry)(PickerEntry const&) = nullptr;  // null: the bare name
    char const* accept_label = nullptr;                        // the right-hand button
    char const* cancel_label = nullptr;                        // the left-hand button
    int window_width{};
    int window_height{};
    int footer_height{};
    int button_width{};
    int button_height{};
    int picker_mode{};            // kPickFile or kPickShownFolder
    unsigned int window_flags{};  // passed on unchanged, SDL_WINDOW_HIDDEN among them
};

inline constexpr int kPickFile = 0;         // the selected file is picked
inline constexpr int kPickShownFolder = 1;  // the folder on show is picked

// Everything one run of the picker changes.
struct PickerDialogState {
    std::filesystem::path current_directory;
    std::vector<PickerEntry> entries;  // read once on entering a directory
    int selected_index = -1;           // -1: no row selected
    int scroll_offset{};               // index of the first row on show
    std::string accepted_path;         // the result; empty until something is accepted
    bool done = false;
    bool shown = false;
    bool dragging_thumb = false;
    int drag_start_offset{};
    int drag_start_y{};
};

// Rectangles of one frame, from the window's size at that moment.
struct PickerDialogLayout {
    int width{};
    int height{};
    int list_height = 1;
    int visible_rows = 1;
    SDL_Rect list{};
    SDL_Rect cancel_button{};
    SDL_Rect accept_button{};
};

inline constexpr int kPickerHeaderHeight = 56;
inline constexpr int kPickerRowPitch = 24;

// Blocks until the picker closes; returns the accepted path as text, or "" when the
// user cancels or no window could be made. `parent` may be null.
std::string RunSimplePickerDialog(SDL_Window* parent, SdlPickerDialogOptions const& options);

// `requested` as a path, or `fallback` when it is empty. The disk is not consulted.
std::filesystem::path ResolveSimplePickerStartDir(std::string const& requested,
                                                  char const* fallback);

// Where a run opens: `start` if it is a directory; the directory of a file; the
// working directory for a path that names nothing.
std::filesystem::path ResolvePickerOpeningDirectory(std::filesystem::path const& start);

PickerDialogLayout BuildPickerDialogLayout(SdlPickerDialogOptions const& options, int width,
                                           int height);
SDL_Rect PickerRowRect(PickerDialogLayout const& layout, int visible_row);
SimpleScrollbarLayout BuildPickerScrollbar(PickerDialogLayout const& layout,
                                           PickerDialogState const& state);

// Reads `directory` into the state and selects its first row.
void ChangePickerDirectory(SdlPickerDialogOptions const& options, PickerDialogState& state,
                           std::filesystem::path directory);
// Keeps the first row on show between 0 and the last full page.
void ClampPickerScroll(PickerDialogState& state, PickerDialogLayout const& layout);

// One event; true when the rest of the queue waits for the next pass.
bool HandlePickerEvent(SDL_Window* window, SdlPickerDialogOptions const& options,
                       PickerDialogState& state, SDL_Event const& event);

void RenderPickerDialogFrame(SDL_Renderer* renderer, SdlPickerDialogOptions const& options,
                             PickerDialogState const& state, PickerDialogLayout const& layout);

}  // namespace zorvane::frontend::gui
