// The generic picker: where it opens, its layout, its keyboard and mouse handling,
// its drawing and its loop.
//
// [SECTION] Start and layout: ResolveSimplePickerStartDir, ResolvePickerOpeningDirectory,
//           BuildPickerDialogLayout, PickerRowRect, BuildPickerScrollbar
// [SECTION] State changes: ChangePickerDirectory, ClampPickerScroll, TryAcceptPickerSelection
// [SECTION] Input: HandlePickerKey, HandlePickerWheel, HandlePickerThumbDrag,
//           HandlePickerRowButton, HandlePickerFooterRelease, HandlePickerMouseButton,
//           HandlePickerEvent
// [SECTION] Drawing: RenderPickerDialogFrame
// [SECTION] Loop: RunPickerDialogLoop, RunSimplePickerDialog
#include "pickers/picker_dialog.h"

#include "frame/draw.h"
#include "frame/modal_window.h"
#include "frame/ui_fonts.h"

#include <algorithm>
#include <climits>
#include <system_error>
#include <utility>

#include "zorvane/utils.h"

namespace zorvane::frontend::gui {

namespace {

constexpr SDL_Color kPickerListFill{12, 14, 18, 255};
constexpr SDL_Color kPickerListOutline{80, 88, 98, 255};
constexpr SDL_Color kPickerButtonFill{70, 76, 84, 255};
constexpr Uint32 kPickerDelayMs = 8;

int EntryCount(PickerDialogState const& state) {
    return static_cast<int>(std::min<std::size_t>(state.entries.size(), INT_MAX));
}

bool IsValidRow(PickerDialogState const& state, long long row) {
    return row >= 0 && row < EntryCount(state);
}

int ClampToInt(long long value) {
    return static_cast<int>(std::clamp<long long>(value, INT_MIN, INT_MAX));
}

PickerDialogLayout CurrentPickerLayout(SDL_Window* window, SdlPickerDialogOptions const& options) {
    int width = 0;
    int height = 0;
    SDL_GetWindowSize(window, &width, &height);
    return BuildPickerDialogLayout(options, width, height);
}

}  // namespace

// [SECTION] Start and layout

std::filesystem::path ResolveSimplePickerStartDir(std::string const& requested,
                                                  char const* fallback) {
    if (!requested.empty()) {
        return zorvane::utils::path_from_utf8(requested);
    }
    return zorvane::utils::path_from_utf8(fallback != nullptr ? fallback : "");
}

std::filesystem::path ResolvePickerOpeningDirectory(std::filesystem::path const& start) {
    // Every question here is asked with an error code, and a failure counts as no.
    std::error_code error;
    std::filesystem::path directory = start;
    if (!std::filesystem::exists(directory, error)) {
        directory = std::filesystem::current_path(error);
    }
    if (!std::filesystem::is_directory(directory, error)) {
        directory = directory.parent_path();
    }
    if (directory.empty()) {
        directory = std::filesystem::current_path(error);
    }
    return directory;
}

PickerDialogLayout BuildPickerDialogLayout(SdlPickerDialogOptions const& options, int width,
                                           int height) {
    PickerDialogLayout layout;
    layout.width = width;
    layout.height = height;
    long long const list_height =
        static_cast<long long>(height) - kPickerHeaderHeight - options.footer_height;
    layout.list_height = list_height < 2 ? 1 : ClampToInt(list_height);
    layout.visible_rows = std::max(layout.list_height / kPickerRowPitch, 1);
    layout.list = {8, kPickerHeaderHeight, width - 16, layout.list_height};

    int const footer_top = height - options.footer_height;
    int const button_y = footer_top + (options.footer_height - options.button_height) / 2;
    int const accept_x = width - 18 - options.button_width;
    layout.accept_button = {accept_x, button_y, options.button_width, options.button_height};
    layout.cancel_button = {accept_x - 10 - options.button_width, button_y, options.button_width,
                            options.button_height};
    return layout;
}

SDL_Rect PickerRowRect(PickerDialogLayout const& layout, int visible_row) {
    return {9, kPickerHeaderHeight + kPickerRowPitch * visible_row + 1, layout.width - 18, 23};
}

SimpleScrollbarLayout BuildPickerScrollbar(PickerDialogLayout const& layout,
                                           PickerDialogState const& state) {
    return BuildSimpleScrollbarLayout(layout.list, EntryCount(state), layout.visible_rows,
                                      state.scroll_offset);
}

// [SECTION] State changes

void ChangePickerDirectory(SdlPickerDialogOptions const& options, PickerDialogState& state,
                           std::filesystem::path directory) {
    state.current_directory = std::move(directory);
    state.entries.clear();
    if (options.load_entries != nullptr) {
        state.entries = options.load_entries(state.current_directory);
    }
    state.selected_index = state.entries.empty() ? -1 : 0;
    state.scroll_offset = 0;
}

void ClampPickerScroll(PickerDialogState& state, PickerDialogLayout const& layout) {
    int const last_page_start = EntryCount(state) - layout.visible_rows;
    state.scroll_offset =
        last_page_start < 1 ? 0 : std::clamp(state.scroll_offset, 0, last_page_start);
}

namespace {

// Stores the pick in `accepted_path`: the folder on show in the folder mode, else
// the selected file. False when there is nothing to pick.
bool TryAcceptPickerSelection(SdlPickerDialogOptions const& options,
                              std::filesystem::path const& current_directory,
                              std::vector<PickerEntry> const& entries, int selected_index,
                              std::string* accepted_path) {
    if (options.picker_mode == kPickShownFolder) {
        *accepted_path = zorvane::utils::utf8_from_path(current_directory);
        return true;
    }
    if (selected_index < 0 || static_cast<std::size_t>(selected_index) >= entries.size() ||
        entries[selected_index].is_directory) {
        return false;
    }
    *accepted_path = zorvane::utils::utf8_from_path(entries[selected_index].path);
    return true;
}

void AcceptSelection(SdlPickerDialogOptions const& options, PickerDialogState& state) {
    if (TryAcceptPickerSelection(options, state.current_directory, state.entries,
                                 state.selected_index, &state.accepted_path)) {
        state.done = true;
    }
}

bool IsSelectedDirectory(PickerDialogState const& state) {
    return IsValidRow(state, state.selected_index) &&
           state.entries[state.selected_index].is_directory;
}

void EnterRow(SdlPickerDialogOptions const& options, PickerDialogState& state, int row) {
    std::filesystem::path target = state.entries[row].path;  // the list is replaced below
    ChangePickerDirectory(options, state, std::move(target));
}

// [SECTION] Input

// True for Escape, which leaves the rest of the queue for the next pass.
bool HandlePickerKey(SdlPickerDialogOptions const& options, PickerDialogState& state,
                     SDL_Keycode key) {
    switch (key) {
        case SDLK_ESCAPE:
            state.done = true;
            return true;
        case SDLK_UP:
            if (state.selected_index > 0) {
                --state.selected_index;
            }
            return false;
        case SDLK_DOWN:
            if (state.selected_index + 1 < EntryCount(state)) {
                ++state.selected_index;
            }
            return false;
        case SDLK_RETURN:
        case SDLK_KP_ENTER:
            if (IsSelectedDirectory(state)) {
                EnterRow(options, state, state.selected_index);
            } else {
                AcceptSelection(options, state);
            }
            return false;
        default:
            return false;
    }
}

// One row per unit, wherever the pointer is; the frame applies the upper limit.
void HandlePickerWheel(PickerDialogState& state, Sint32 wheel_y) {
    long long const offset = static_cast<long long>(state.scroll_offset) - wheel_y;
    state.scroll_offset = offset < 0 ? 0 : ClampToInt(offset);
}

// Moves the list in proportion to the pointer's travel since the thumb was grabbed.
void HandlePickerThumbDrag(SDL_Window* window, SdlPickerDialogOptions const& options,
                           PickerDialogState& state, int pointer_y) {
    SimpleScrollbarLayout const bar =
        BuildPickerScrollbar(CurrentPickerLayout(window, options), state);
    if (bar.max_offset <= 0) {
        return;
    }
    float const travel = static_cast<float>(std::max(bar.track.h - bar.thumb.h, 1));
    float const moved = static_cast<float>(pointer_y) - static_cast<float>(state.drag_start_y);
    float const rows = moved / travel * static_cast<float>(bar.max_offset);
    float const limited = std::clamp(rows, -4.0e9f, 4.0e9f);  // keeps the conversion defined
    state.scroll_offset = ClampToInt(static_cast<long long>(state.drag_start_offset) +
                                     static_cast<long long>(limited));
}

void HandlePickerRowButton(SdlPickerDialogOptions const& options, PickerDialogState& state,
                           PickerDialogLayout const& layout, SDL_MouseButtonEvent const& button) {
    long long const row = (button.y - kPickerHeaderHeight) / kPickerRowPitch +
                          static_cast<long long>(state.scroll_offset);
    if (row < 0) {
        return;
    }
    if (IsValidRow(state, row)) {
        int const index = static_cast<int>(row);
        bool const double_press = button.type == SDL_MOUSEBUTTONDOWN && button.clicks >= 2;
        if (double_press && state.entries[index].is_directory) {
            EnterRow(options, state, index);
            return;
        }
        if (double_press && TryAcceptPickerSelection(options, state.current_directory,
                                                     state.entries, index, &state.accepted_path)) {
            state.done = true;
        }
        state.selected_index = index;
    }
    ClampPickerScroll(state, layout);
}

// Buttons act on the release alone, wherever the press began.
void HandlePickerFooterRelease(SdlPickerDialogOptions const& options, PickerDialogState& state,
                               PickerDialogLayout const& layout, int x, int y) {
    if (IsPointInRect(layout.cancel_button, x, y)) {
        state.done = true;
    } else if (IsPointInRect(layout.accept_button, x, y)) {
        if (IsSelectedDirectory(state) && options.picker_mode == kPickFile) {
            EnterRow(options, state, state.selected_index);
        } else {
            AcceptSelection(options, state);
        }
    }
}

// A left-button press or release: the scrollbar first, then the rows, then the
// buttons.
void HandlePickerMouseButton(SDL_Window* window, SdlPickerDialogOptions const& options,
                             PickerDialogState& state, SDL_MouseButtonEvent const& button) {
    PickerDialogLayout const layout = CurrentPickerLayout(window, options);
    SimpleScrollbarLayout const bar = BuildPickerScrollbar(layout, state);
    bool const pressed = button.type == SDL_MOUSEBUTTONDOWN;
    if (IsPointInRect(bar.track, button.x, button.y) && bar.max_offset > 0) {
        if (pressed && IsPointInRect(bar.thumb, button.x, button.y)) {
            state.drag_start_offset = state.scroll_offset;
            state.drag_start_y = button.y;
            state.dragging_thumb = true;
        } else if (pressed) {
            int const page = button.y >= bar.thumb.y + bar.thumb.h / 2 ? layout.visible_rows
                                                                       : -layout.visible_rows;
            long long const offset = static_cast<long long>(state.scroll_offset) + page;
            state.scroll_offset =
                static_cast<int>(std::clamp<long long>(offset, 0, bar.max_offset));
        }
        return;
    }
    if (button.y >= kPickerHeaderHeight &&
        button.y <= kPickerHeaderHeight - 1 + layout.list_height) {
        HandlePickerRowButton(options, state, layout, button);
        return;
    }
    if (!pressed) {
        HandlePickerFooterRelease(options, state, layout, button.x, button.y);
    }
}

}  // namespace

bool HandlePickerEvent(SDL_Window* window, SdlPickerDialogOptions const& options,
                       PickerDialogState& state, SDL_Event const& event) {
    switch (event.type) {
        case SDL_QUIT:
            state.done = true;
            return true;
        case SDL_WINDOWEVENT:
            if (event.window.windowID == SDL_GetWindowID(window) &&
                event.window.event == SDL_WINDOWEVENT_CLOSE) {
                state.done = true;
                return true;
            }
            return false;
        case SDL_KEYDOWN:
            return HandlePickerKey(options, state, event.key.keysym.sym);
        case SDL_MOUSEWHEEL:
            HandlePickerWheel(state, event.wheel.y);
            return false;
        case SDL_MOUSEMOTION:
            if (state.dragging_thumb) {
                HandlePickerThumbDrag(window, options, state, event.motion.y);
            }
            return false;
        case SDL_MOUSEBUTTONUP:
        case SDL_MOUSEBUTTONDOWN:
            if (event.button.button == SDL_BUTTON_LEFT) {
                if (event.type == SDL_MOUSEBUTTONUP) {
                    state.dragging_thumb = false;
                }
                HandlePickerMouseButton(window, options, state, event.button);
            }
            return false;
        default:
            return false;
    }
}

// [SECTION] Drawing

void RenderPickerDialogFrame(SDL_Renderer* renderer, SdlPickerDialogOptions const& options,
                             PickerDialogState const& state, PickerDialogLayout const& layout) {
    SetDrawColor(renderer, kColFormWindowBg);
    SDL_RenderClear(renderer);
    FillRect(renderer, {0, 0, layout.width, kPickerHeaderHeight}, kColFormHeader);
    DrawSimpleModalText(renderer, options.heading.c_str(), 10, 8, kColFormText);
    DrawSimpleModalText(renderer, zorvane::utils::utf8_from_path(state.current_directory).c_str(),
                        10, 30, kColFormText);

    FillRect(renderer, layout.list, kPickerListFill);
    SetDrawColor(renderer, kPickerListOutline);
    SDL_RenderDrawRect(renderer, &layout.list);

    // Only the rows on show are worded and drawn.
    int const count = EntryCount(state);
    int const first = std::clamp(state.scroll_offset, 0, count);
    int const last = static_cast<int>(
        std::min<long long>(count, static_cast<long long>(first) + layout.visible_rows));
    for (int index = first; index < last; ++index) {
        SDL_Rect const row = PickerRowRect(layout, index - first);
        if (index == state.selected_index) {
            FillRect(renderer, row, kColFormSelectedRow);
        }
        PickerEntry const& entry = state.entries[index];
        std::string const label =
            options.label_entry != nullptr ? options.label_entry(entry) : entry.name;
        DrawSimpleModalText(renderer, label.c_str(), row.x + 8, row.y + 4, kColFormText);
    }
    DrawSimpleScrollbar(renderer, BuildPickerScrollbar(layout, state));

    FillRect(renderer,
             {0, layout.height - options.footer_height, layout.width, options.footer_height},
             kColFormListFill);
    FillRect(renderer, layout.cancel_button, kPickerButtonFill);
    FillRect(renderer, layout.accept_button, kPickerButtonFill);
    DrawSimpleModalText(renderer, options.cancel_label, layout.cancel_button.x + 10,
                        layout.cancel_button.y + 7, kColFormText);
    DrawSimpleModalText(renderer, options.accept_label, layout.accept_button.x + 10,
                        layout.accept_button.y + 7, kColFormText);
}

// [SECTION] Loop

namespace {

// Turns until a gesture closes the picker; the closing pass still draws and presents.
void RunPickerDialogLoop(SDL_Window* window, SDL_Renderer* renderer,
                         SdlPickerDialogOptions const& options, PickerDialogState& state) {
    do {
        PumpModalDialogHeartbeat();
        SDL_Event event;
        while (SDL_PollEvent(&event) != 0) {
            if (HandlePickerEvent(window, options, state, event)) {
                break;
            }
        }
        PickerDialogLayout const layout = CurrentPickerLayout(window, options);
        ClampPickerScroll(state, layout);
        RenderPickerDialogFrame(renderer, options, state, layout);
        SDL_RenderPresent(renderer);
        if (!state.shown) {
            SDL_ShowWindow(window);
            SDL_RaiseWindow(window);
            SDL_SetWindowInputFocus(window);
        }
        SDL_Delay(kPickerDelayMs);
        state.shown = true;
    } while (!state.done);
}

}  // namespace

std::string RunSimplePickerDialog(SDL_Window* parent, SdlPickerDialogOptions const& options) {
    PickerDialogState state;
    std::filesystem::path opening = ResolvePickerOpeningDirectory(options.start_directory);
    ModalWindowBundle const bundle =
        CreateModalWindowBundle(parent, options.window_title, 60, 60, options.window_width,
                                options.window_height, options.window_flags, kPreferAccelerated);
    if (!bundle.window || !bundle.renderer) {
        return {};
    }
    ChangePickerDirectory(options, state, std::move(opening));
    RunPickerDialogLoop(bundle.window.get(), bundle.renderer.get(), options, state);
    RestoreModalParentFocus(parent);
    return std::move(state.accepted_path);
}

}  // namespace zorvane::frontend::gui
