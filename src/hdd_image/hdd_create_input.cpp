// The hard-disk image dialog's model: the size rule, the preview path, the commit,
// and what keys, text and clicks do to the state.
#include "hdd_image/hdd_create_dialog.h"

#include "forms/form_dialog.h"
#include "frame/hit_test.h"

#include <algorithm>
#include <filesystem>
#include <limits>
#include <stdexcept>

#include "zorvane/utils.h"

namespace zorvane::frontend::gui {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string& FocusedText(HddCreateDialogState& state) {
    return state.focused_field == kHddFieldSize ? state.size_text : state.file_name_text;
}

bool AcceptsByte(HddCreateDialogState const& state, char c) {
    if (state.focused_field == kHddFieldSize) {
        return IsDigit(c) && state.size_text.size() < kHddSizeMaxDigits;
    }
    return zorvane::utils::is_allowed_filename_char(c) &&
           state.file_name_text.size() < kHddFileNameMaxBytes;
}

}  // namespace

unsigned int ParseHddCreateSizeMbOrDefault(std::string const& text, unsigned int default_mb) {
    if (text.empty() || !std::all_of(text.begin(), text.end(), IsDigit)) {
        return default_mb;
    }
    unsigned long long value = 0;
    try {
        value = std::stoull(text, nullptr, 10);
    } catch (std::out_of_range const&) {
        return default_mb;
    }
    constexpr unsigned long long kMax = std::numeric_limits<unsigned int>::max();
    return static_cast<unsigned int>(std::clamp<unsigned long long>(value, 1, kMax));
}

std::string BuildHddCreateTargetPath(std::string const& folder, std::string const& file_name) {
    std::filesystem::path const base =
        zorvane::utils::path_from_utf8(folder.empty() ? "." : folder);
    std::filesystem::path const name =
        zorvane::utils::path_from_utf8(file_name.empty() ? "disk.img" : file_name);
    return zorvane::utils::utf8_from_path(base / name);
}

void CommitHddCreateDialogResult(HddCreateDialogState* state) {
    if (state == nullptr) {
        return;
    }
    HddCreateDialogResult& result = state->result;
    result.accepted = true;
    result.size_mb = ParseHddCreateSizeMbOrDefault(state->size_text, result.size_mb);
    result.folder = state->folder_text.empty() ? "." : state->folder_text;
    result.file_name = state->file_name_text.empty() ? "disk.img" : state->file_name_text;
    state->done = true;
}

HddCreateDialogLayout BuildHddCreateDialogLayout() {
    return HddCreateDialogLayout{};
}

void HandleHddCreateDialogKey(HddCreateDialogState* state, int keycode) {
    if (state == nullptr) {
        return;
    }
    switch (keycode) {
        case SDLK_ESCAPE:
            state->done = true;
            break;
        case SDLK_TAB:
            state->focused_field =
                state->focused_field == kHddFieldSize ? kHddFieldFileName : kHddFieldSize;
            break;
        case SDLK_BACKSPACE:
            EraseLastByte(FocusedText(*state));
            break;
        case SDLK_RETURN:
        case SDLK_KP_ENTER:
            CommitHddCreateDialogResult(state);
            break;
        default:
            break;
    }
}

void HandleHddCreateDialogTextInput(HddCreateDialogState* state, char const* text) {
    if (state == nullptr || text == nullptr) {
        return;
    }
    for (char const* p = text; *p != '\0'; ++p) {
        if (AcceptsByte(*state, *p)) {
            FocusedText(*state).push_back(*p);
        }
    }
}

void HandleHddCreateDialogMouseButton(HddCreateDialogState* state, SDL_Window* window,
                                      SDL_MouseButtonEvent const& event, bool pressed) {
    if (state == nullptr || window == nullptr) {
        return;
    }
    HddCreateDialogLayout const layout = BuildHddCreateDialogLayout();
    int const x = event.x;
    int const y = event.y;
    if (pressed) {
        if (IsPointInRect(layout.size_field, x, y)) {
            state->focused_field = kHddFieldSize;
        } else if (IsPointInRect(layout.file_name_field, x, y)) {
            state->focused_field = kHddFieldFileName;
        }
        return;
    }
    if (IsPointInRect(layout.folder_field, x, y) || IsPointInRect(layout.choose_button, x, y)) {
        OpenHddCreateFolderPicker(window, state->folder_text);
    } else if (IsPointInRect(layout.cancel_button, x, y)) {
        state->done = true;
    } else if (IsPointInRect(layout.create_button, x, y)) {
        CommitHddCreateDialogResult(state);
    }
}

void OpenHddCreateFolderPicker(SDL_Window* parent, std::string& folder) {
    ChooseFolderInto(parent, "Select HDD Output Folder", "Choose folder for new HDD image", folder);
}

}  // namespace zorvane::frontend::gui
