// The screenshot save dialog on screen: the drawing of the form and the modal run
// that feeds it events until the user saves or leaves.
#include "screenshot/screenshot_dialog.h"

#include "forms/form_dialog.h"
#include "frame/look.h"
#include "frame/modal_window.h"
#include "frame/ui_fonts.h"

#include <algorithm>
#include <filesystem>

#include "zorvane/utils.h"

namespace zorvane::frontend::gui {

namespace {

constexpr SDL_Color kCheckboxMark = kColAccentFg;

void DrawTextAt(SDL_Renderer* renderer, std::string const& text, int x, int y, SDL_Color color) {
    DrawScreenshotDialogText(renderer, text.c_str(), x, y, color);
}

// Text inside a field or button, at its usual inset.
void DrawTextIn(SDL_Renderer* renderer, std::string const& text, SDL_Rect const& rect, int dx) {
    DrawTextAt(renderer, text, rect.x + dx, rect.y + 10, kColFormText);
}

void RenderHeaderAndLabels(SDL_Renderer* renderer, ScreenshotSaveFormat format) {
    int width = 0;
    int height = 0;
    SDL_GetRendererOutputSize(renderer, &width, &height);
    SetDrawColor(renderer, kColFormWindowBg);
    SDL_RenderClear(renderer);
    FillRect(renderer, {0, 0, width, 56}, kColFormHeader);
    DrawTextAt(renderer, "Save screenshot", 18, 14, kColFormText);
    DrawTextAt(renderer, "Export current guest output as PNG, JPEG or BMP", 18, 34,
               kColFormTextSecondary);
    DrawTextAt(renderer, "File name:", 20, 92, kColFormText);
    DrawTextAt(renderer, "Folder:", 20, 158, kColFormText);
    DrawTextAt(renderer, "Format:", 20, 224, kColFormText);
    DrawTextAt(renderer, FormatValueLabel(format), 20, 290, kColFormText);
}

void RenderFieldsAndButtons(ScreenshotSaveDialogSession const& s,
                            ScreenshotSaveDialogLayout const& l) {
    bool const has_value_field = s.format != ScreenshotSaveFormat::Bmp;
    for (SDL_Rect const* field : {&l.file_name_field, &l.folder_field, &l.format_field}) {
        FillRect(s.renderer, *field, kColFormFieldFill);
    }
    if (has_value_field) {
        FillRect(s.renderer, l.value_field, kColFormFieldFill);
    }
    for (SDL_Rect const* field : {&l.file_name_field, &l.folder_field, &l.format_field}) {
        OutlineRect(s.renderer, *field, kColFormFieldOutline);
    }
    if (has_value_field) {
        OutlineRect(s.renderer, l.value_field, kColFormFieldOutline);
    }
    if (s.focused_field == kScreenshotFieldFileName) {
        OutlineRect(s.renderer, l.file_name_field, kColFormFocusOutline);
    } else if ((s.focused_field == kScreenshotFieldJpegQuality &&
                s.format == ScreenshotSaveFormat::Jpeg) ||
               (s.focused_field == kScreenshotFieldPngCompression &&
                s.format == ScreenshotSaveFormat::Png)) {
        OutlineRect(s.renderer, l.value_field, kColFormFocusOutline);
    }
    for (SDL_Rect const* button : {&l.choose_button, &l.cancel_button, &l.save_button}) {
        FillRect(s.renderer, *button, kColFormButtonFill);
    }
    for (SDL_Rect const* button : {&l.choose_button, &l.cancel_button, &l.save_button}) {
        OutlineRect(s.renderer, *button, kColFormButtonOutline);
    }
}

void RenderValueRow(ScreenshotSaveDialogSession const& s, ScreenshotSaveDialogLayout const& l) {
    if (s.format == ScreenshotSaveFormat::Jpeg) {
        DrawTextIn(s.renderer, *s.jpeg_quality_text, l.value_field, 8);
        return;
    }
    if (s.format == ScreenshotSaveFormat::Png) {
        DrawTextIn(s.renderer, *s.png_compression_text, l.value_field, 8);
        return;
    }
    SDL_Rect const& box = l.rle_checkbox;
    FillRect(s.renderer, box, kColFormFieldFill);
    OutlineRect(s.renderer, box, kColFormFieldOutline);
    if (s.bmp_rle) {
        FillRect(s.renderer, {box.x + 5, box.y + 5, 12, 12}, kCheckboxMark);
    }
    DrawTextAt(s.renderer, "Use RLE if possible (indexed BMP paths)", box.x + 34, box.y + 2,
               kColFormText);
}

void RenderFormatList(SDL_Renderer* renderer, ScreenshotSaveFormat current, SDL_Rect const& list) {
    FillRect(renderer, list, kColFormListFill);
    OutlineRect(renderer, list, kColFormButtonOutline);
    for (int i = 0; i < 3; ++i) {
        SDL_Rect const row{list.x + 1, list.y + kScreenshotFormatRowHeight * i + 1, list.w - 2, 33};
        auto const format = static_cast<ScreenshotSaveFormat>(i);
        if (format == current) {
            FillRect(renderer, row, kColFormSelectedRow);
        }
        DrawTextAt(renderer, FormatLabel(format), row.x + 8, row.y + 9, kColFormText);
    }
}

void RenderScreenshotSaveDialogFrame(ScreenshotSaveDialogState const& state, SDL_Window* window,
                                     SDL_Renderer* renderer) {
    int width = 0;
    int height = 0;
    SDL_GetWindowSize(window, &width, &height);
    ScreenshotSaveDialogSession session;
    session.renderer = renderer;
    session.folder = &state.folder_text;
    session.file_name = &state.file_name_text;
    session.format = state.format;
    session.jpeg_quality_text = &state.jpeg_quality_text;
    session.png_compression_text = &state.png_compression_text;
    session.focused_field = state.focused_field;
    session.format_list_open = state.format_list_open;
    session.bmp_rle = state.result.bmp_rle;
    RenderScreenshotSaveDialog(session, BuildScreenshotSaveDialogLayout(width, height));
}

// The starting values: numbers limited, the folder and the name filled in.
ScreenshotSaveDialogResult BuildInitialScreenshotResult(std::string const& default_folder,
                                                        std::string const& default_file_name,
                                                        ScreenshotSaveFormat format,
                                                        int jpeg_quality, int png_compression,
                                                        bool bmp_rle) {
    ScreenshotSaveDialogResult result;
    result.folder = default_folder.empty()
                        ? zorvane::utils::utf8_from_path(std::filesystem::current_path())
                        : default_folder;
    result.format = format;
    result.jpeg_quality = std::clamp(jpeg_quality, 1, 100);
    result.png_compression = std::clamp(png_compression, 0, 9);
    result.bmp_rle = bmp_rle;
    std::string const name =
        default_file_name.empty() ? MakeDefaultScreenshotFilename(format) : default_file_name;
    result.file_name = ReplaceFilenameExtension(name, format);
    return result;
}

}  // namespace

std::string BuildScreenshotPreviewPath(std::string const& folder, std::string const& file_name,
                                       ScreenshotSaveFormat format) {
    std::filesystem::path const base =
        folder.empty() ? std::filesystem::current_path() : zorvane::utils::path_from_utf8(folder);
    return zorvane::utils::utf8_from_path(
        base / zorvane::utils::path_from_utf8(ReplaceFilenameExtension(file_name, format)));
}

void RenderScreenshotSaveDialog(ScreenshotSaveDialogSession const& session,
                                ScreenshotSaveDialogLayout const& layout) {
    ScreenshotSaveDialogSession const& s = session;
    if (s.renderer == nullptr || s.folder == nullptr || s.file_name == nullptr ||
        s.jpeg_quality_text == nullptr || s.png_compression_text == nullptr) {
        return;
    }
    RenderHeaderAndLabels(s.renderer, s.format);
    RenderFieldsAndButtons(s, layout);
    DrawTextIn(s.renderer, *s.file_name, layout.file_name_field, 8);
    DrawTextIn(s.renderer, EllipsizeLeft(*s.folder, 70), layout.folder_field, 8);
    DrawTextIn(s.renderer, FormatLabel(s.format), layout.format_field, 8);
    RenderValueRow(s, layout);
    DrawTextIn(s.renderer, "Choose", layout.choose_button, 17);
    DrawTextIn(s.renderer, "Cancel", layout.cancel_button, 22);
    DrawTextIn(s.renderer, "Save", layout.save_button, 31);
    SDL_Rect const& format_field = layout.format_field;
    DrawTextAt(s.renderer, s.format_list_open ? "^" : "v", format_field.x + format_field.w - 18,
               format_field.y + 10, kColFormText);
    DrawTextAt(s.renderer, "Will be saved as:", 20, layout.preview_label_y, kColFormTextSecondary);
    DrawTextAt(s.renderer,
               EllipsizeLeft(BuildScreenshotPreviewPath(*s.folder, *s.file_name, s.format), 100),
               20, layout.preview_path_y, kColFormText);
    if (s.format_list_open) {
        RenderFormatList(s.renderer, s.format, layout.format_list);
    }
}

ScreenshotSaveDialogResult ShowScreenshotSaveDialog(SDL_Window* parent,
                                                    std::string const& default_folder,
                                                    std::string const& default_file_name,
                                                    ScreenshotSaveFormat format, int jpeg_quality,
                                                    int png_compression, bool bmp_rle) {
    ScreenshotSaveDialogState state;
    state.result = BuildInitialScreenshotResult(default_folder, default_file_name, format,
                                                jpeg_quality, png_compression, bmp_rle);
    ModalWindowBundle const bundle =
        CreateModalWindowBundle(parent, "Save Screenshot", 80, 80, 900, 410,
                                SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE, kPreferAccelerated);
    if (!bundle.window || !bundle.renderer) {
        return state.result;
    }
    state.folder_text = state.result.folder;
    state.file_name_text = state.result.file_name;
    state.format = format;
    state.jpeg_quality_text = std::to_string(state.result.jpeg_quality);
    state.png_compression_text = std::to_string(state.result.png_compression);

    RunFormDialog(state, parent,
                  FormDialogRun<ScreenshotSaveDialogState>{
                      bundle.window.get(), bundle.renderer.get(), &HandleScreenshotSaveDialogKey,
                      &HandleScreenshotSaveDialogTextInput, &HandleScreenshotSaveDialogMouseButton,
                      &RenderScreenshotSaveDialogFrame});
    return state.result;
}

}  // namespace zorvane::frontend::gui
