// The screenshot dialog's model: the form's rectangles, what keys, text and clicks
// do to the state, the nested folder picker and the commit.
#include "screenshot/screenshot_dialog.h"

#include "forms/form_dialog.h"
#include "frame/look.h"

#include <algorithm>
#include <filesystem>

#include "zorvane/utils.h"

namespace zorvane::frontend::gui {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// The text of the focused field, or null when no field has the focus.
std::string* FocusedText(ScreenshotSaveDialogState& state) {
    switch (state.focused_field) {
        case kScreenshotFieldFileName:
            return &state.file_name_text;
        case kScreenshotFieldJpegQuality:
            return &state.jpeg_quality_text;
        case kScreenshotFieldPngCompression:
            return &state.png_compression_text;
        default:
            return nullptr;
    }
}

// The value field that goes with a format, or no field for BMP.
int ValueFieldOf(ScreenshotSaveFormat format) {
    switch (format) {
        case ScreenshotSaveFormat::Jpeg:
            return kScreenshotFieldJpegQuality;
        case ScreenshotSaveFormat::Png:
            return kScreenshotFieldPngCompression;
        default:
            return kScreenshotFieldNone;
    }
}

bool AcceptsByte(ScreenshotSaveDialogState const& state, char c) {
    switch (state.focused_field) {
        case kScreenshotFieldFileName:
            return IsAllowedFilenameChar(c) &&
                   state.file_name_text.size() < kScreenshotFileNameMaxBytes;
        case kScreenshotFieldJpegQuality:
            return IsDigit(c) && state.jpeg_quality_text.size() < kScreenshotJpegQualityMaxDigits;
        case kScreenshotFieldPngCompression:
            return IsDigit(c) && state.png_compression_text.empty();
        default:
            return false;
    }
}

void PressAt(ScreenshotSaveDialogState& state, ScreenshotSaveDialogLayout const& layout, int x,
             int y) {
    int const value_field = ValueFieldOf(state.format);
    if (IsInside(layout.file_name_field, x, y)) {
        state.focused_field = kScreenshotFieldFileName;
    } else if (value_field != kScreenshotFieldNone && IsInside(layout.value_field, x, y)) {
        state.focused_field = value_field;
    } else {
        state.focused_field = kScreenshotFieldNone;
    }
    if (IsInside(layout.format_field, x, y)) {
        return;
    }
    if (state.format_list_open && IsInside(layout.format_list, x, y)) {
        return;
    }
    state.format_list_open = false;
}

void ChooseFormatRow(ScreenshotSaveDialogState& state, ScreenshotSaveDialogLayout const& layout,
                     int y) {
    int const row = std::clamp((y - layout.format_list.y) / kScreenshotFormatRowHeight, 0, 2);
    state.format_list_open = false;
    state.format = static_cast<ScreenshotSaveFormat>(row);
    state.file_name_text = ReplaceFilenameExtension(state.file_name_text, state.format);
    state.focused_field = ValueFieldOf(state.format);
}

void ReleaseAt(ScreenshotSaveDialogState& state, SDL_Window* window,
               ScreenshotSaveDialogLayout const& layout, int x, int y) {
    if (state.format_list_open && IsInside(layout.format_list, x, y)) {
        ChooseFormatRow(state, layout, y);
    } else if (state.format == ScreenshotSaveFormat::Bmp && IsInside(layout.rle_checkbox, x, y)) {
        state.result.bmp_rle = !state.result.bmp_rle;
    } else if (IsInside(layout.choose_button, x, y) || IsInside(layout.folder_field, x, y)) {
        OpenFolderPicker(window, state.folder_text);
        state.format_list_open = false;
    } else if (IsInside(layout.format_field, x, y)) {
        state.format_list_open = !state.format_list_open;
        state.focused_field = kScreenshotFieldNone;
    } else if (IsInside(layout.cancel_button, x, y)) {
        state.done = true;
    } else if (IsInside(layout.save_button, x, y)) {
        CommitScreenshotSaveDialogResult(&state);
    }
}

}  // namespace

ScreenshotSaveDialogLayout BuildScreenshotSaveDialogLayout(int width, int height) {
    int const W = width;
    int const H = height;
    ScreenshotSaveDialogLayout layout;
    layout.file_name_field = {250, 82, W - 280, 38};
    layout.folder_field = {250, 148, W - 390, 38};
    layout.choose_button = {W - 130, 148, 100, 38};
    layout.format_field = {250, 214, 220, 38};
    layout.format_list = {250, 252, 220, 102};
    layout.value_field = {250, 280, 160, 38};
    layout.rle_checkbox = {250, 286, 22, 22};
    layout.cancel_button = {W - 250, H - 58, 100, 38};
    layout.save_button = {W - 130, H - 58, 100, 38};
    return layout;
}

void HandleScreenshotSaveDialogKey(ScreenshotSaveDialogState* state, int keycode) {
    if (state == nullptr) {
        return;
    }
    switch (keycode) {
        case SDLK_ESCAPE:
            if (state->format_list_open) {
                state->format_list_open = false;
            } else {
                state->done = true;
            }
            break;
        case SDLK_TAB: {
            state->format_list_open = false;
            int const value_field = ValueFieldOf(state->format);
            bool const to_value = value_field != kScreenshotFieldNone &&
                                  state->focused_field == kScreenshotFieldFileName;
            state->focused_field = to_value ? value_field : kScreenshotFieldFileName;
            break;
        }
        case SDLK_BACKSPACE:
            if (std::string* text = FocusedText(*state)) {
                EraseLastByte(*text);
            }
            break;
        case SDLK_RETURN:
        case SDLK_KP_ENTER:
            if (!state->format_list_open) {
                CommitScreenshotSaveDialogResult(state);
            }
            break;
        default:
            break;
    }
}

void HandleScreenshotSaveDialogTextInput(ScreenshotSaveDialogState* state, char const* text) {
    if (state == nullptr || text == nullptr) {
        return;
    }
    for (char const* p = text; *p != '\0'; ++p) {
        if (AcceptsByte(*state, *p)) {
            FocusedText(*state)->push_back(*p);
        }
    }
}

void HandleScreenshotSaveDialogMouseButton(ScreenshotSaveDialogState* state, SDL_Window* window,
                                           SDL_MouseButtonEvent const& event, bool pressed) {
    if (state == nullptr || window == nullptr) {
        return;
    }
    int width = 0;
    int height = 0;
    SDL_GetWindowSize(window, &width, &height);
    ScreenshotSaveDialogLayout const layout = BuildScreenshotSaveDialogLayout(width, height);
    if (pressed) {
        PressAt(*state, layout, event.x, event.y);
    } else {
        ReleaseAt(*state, window, layout, event.x, event.y);
    }
}

void CommitScreenshotSaveDialogResult(ScreenshotSaveDialogState* state) {
    if (state == nullptr) {
        return;
    }
    ScreenshotSaveDialogResult& result = state->result;
    result.accepted = true;
    result.folder = state->folder_text.empty()
                        ? zorvane::utils::utf8_from_path(std::filesystem::current_path())
                        : state->folder_text;
    result.format = state->format;
    result.jpeg_quality =
        ClampFormatValue(ScreenshotSaveFormat::Jpeg, state->jpeg_quality_text, result.jpeg_quality);
    result.png_compression = ClampFormatValue(ScreenshotSaveFormat::Png,
                                              state->png_compression_text, result.png_compression);
    result.file_name = ReplaceFilenameExtension(state->file_name_text, state->format);
    state->done = true;
}

void OpenFolderPicker(SDL_Window* parent, std::string& folder) {
    ChooseFolderInto(parent, "Select Screenshot Output Folder",
                     "Choose folder for screenshot export", folder);
}

}  // namespace zorvane::frontend::gui
