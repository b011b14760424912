// Internals of the screenshot save dialog: its state, the rectangles of the form,
// the input handlers and the commit, the drawing view and the drawing.
#pragma once

#include "screenshot/screenshot_names.h"

#include <string>

namespace zorvane::frontend::gui {

enum ScreenshotSaveDialogField : int {
    kScreenshotFieldFileName = 0,
    kScreenshotFieldJpegQuality = 1,
    kScreenshotFieldPngCompression = 2,
    kScreenshotFieldNone = 3,
};

inline constexpr std::size_t kScreenshotFileNameMaxBytes = 180;
inline constexpr std::size_t kScreenshotJpegQualityMaxDigits = 3;
inline constexpr int kScreenshotFormatRowHeight = 34;

struct ScreenshotSaveDialogState {
    ScreenshotSaveDialogResult result;  // the starting values until the commit
    std::string folder_text;            // set by the folder picker alone
    std::string file_name_text;         // as typed, at most 180 bytes
    ScreenshotSaveFormat format = ScreenshotSaveFormat::Png;
    std::string jpeg_quality_text;     // at most 3 digits
    std::string png_compression_text;  // at most 1 digit
    bool format_list_open = false;
    bool shown = false;  // the first frame is presented and the window raised
    bool done = false;
    int focused_field = kScreenshotFieldFileName;
};

// The form's rectangles for a window of the given size; only the right-hand and
// bottom parts depend on it.
struct ScreenshotSaveDialogLayout {
    SDL_Rect file_name_field{};
    SDL_Rect folder_field{};
    SDL_Rect choose_button{};
    SDL_Rect format_field{};
    SDL_Rect format_list{};
    SDL_Rect value_field{};
    SDL_Rect rle_checkbox{};
    SDL_Rect cancel_button{};
    SDL_Rect save_button{};
    int preview_label_y = 326;
    int preview_path_y = 346;
};

// What one frame draws, pointing into the state.
struct ScreenshotSaveDialogSession {
    SDL_Renderer* renderer = nullptr;
    std::string const* folder = nullptr;
    std::string const* file_name = nullptr;
    ScreenshotSaveFormat format = ScreenshotSaveFormat::Png;
    std::string const* jpeg_quality_text = nullptr;
    std::string const* png_compression_text = nullptr;
    int focused_field = kScreenshotFieldFileName;
    bool format_list_open = false;
    bool bmp_rle = true;
};

ScreenshotSaveDialogLayout BuildScreenshotSaveDialogLayout(int width, int height);

// Escape, Tab, Backspace and Return; every other key is ignored.
void HandleScreenshotSaveDialogKey(ScreenshotSaveDialogState* state, int keycode);
// Appends the bytes of `text` that the focused field accepts.
void HandleScreenshotSaveDialogTextInput(ScreenshotSaveDialogState* state, char const* text);
// A press moves the focus and may close the format list; a release acts on the
// list, the checkbox and the buttons, and may open the folder picker over `window`.
void HandleScreenshotSaveDialogMouseButton(ScreenshotSaveDialogState* state, SDL_Window* window,
                                           SDL_MouseButtonEvent const& event, bool pressed);
// Turns the texts into the result, marks it accepted and ends the dialog.
void CommitScreenshotSaveDialogResult(ScreenshotSaveDialogState* state);
// Runs the nested folder picker from `folder`; an accepted folder replaces it.
void OpenFolderPicker(SDL_Window* parent, std::string& folder);

// The preview of the file's full path, as drawn under the form.
std::string BuildScreenshotPreviewPath(std::string const& folder, std::string const& file_name,
                                       ScreenshotSaveFormat format);

// Draws the whole form; draws nothing without a renderer or any of the texts.
void RenderScreenshotSaveDialog(ScreenshotSaveDialogSession const& session,
                                ScreenshotSaveDialogLayout const& layout);

}  // namespace zorvane::frontend::gui
