// The hard-disk image dialog on screen: the drawing of the fixed form and the modal
// run that feeds it events until the user creates or leaves.
#include "hdd_image/hdd_create_dialog.h"

#include "forms/form_dialog.h"
#include "frame/look.h"
#include "frame/modal_window.h"
#include "frame/ui_fonts.h"

#include <initializer_list>

#include "zorvane/utils.h"

namespace zorvane::frontend::gui {

namespace {

constexpr SDL_Color kPreviewPathColor{214, 221, 230, 255};

void FillAndOutline(SDL_Renderer* renderer, std::initializer_list<SDL_Rect const*> rects,
                    SDL_Color fill, SDL_Color outline) {
    SetDrawColor(renderer, fill);
    for (SDL_Rect const* rect : rects) {
        SDL_RenderFillRect(renderer, rect);
    }
    SetDrawColor(renderer, outline);
    for (SDL_Rect const* rect : rects) {
        SDL_RenderDrawRect(renderer, rect);
    }
}

void DrawTextIn(SDL_Renderer* renderer, std::string const& text, SDL_Rect const& rect, int dx,
                int dy) {
    DrawHddCreateDialogText(renderer, text.c_str(), rect.x + dx, rect.y + dy, kColFormText);
}

// A field's text, drawn only when there is some.
void DrawFieldText(SDL_Renderer* renderer, std::string const& text, SDL_Rect const& rect) {
    if (!text.empty()) {
        DrawTextIn(renderer, text, rect, 8, 9);
    }
}

void RenderHddCreateTexts(SDL_Renderer* renderer, HddCreateDialogState const& state,
                          HddCreateDialogLayout const& l) {
    DrawFieldText(renderer, state.size_text, l.size_field);
    DrawFieldText(renderer, state.file_name_text, l.file_name_field);
    DrawFieldText(renderer, zorvane::utils::ellipsize_left(state.folder_text, 58), l.folder_field);
    DrawTextIn(renderer, "Choose", l.choose_button, 13, 9);
    DrawTextIn(renderer, "Cancel", l.cancel_button, 23, 11);
    DrawTextIn(renderer, "Create", l.create_button, 31, 11);
    DrawHddCreateDialogText(renderer, "Will be saved as:", 20, 258, kColFormTextSecondary);
    std::string const preview = zorvane::utils::ellipsize_left(
        BuildHddCreateTargetPath(state.folder_text, state.file_name_text), 95);
    if (!preview.empty()) {
        DrawHddCreateDialogText(renderer, preview.c_str(), 20, 280, kPreviewPathColor);
    }
}

void RenderHddCreateDialogFrame(HddCreateDialogState const& state, SDL_Window* /*window*/,
                                SDL_Renderer* renderer) {
    RenderHddCreateDialog(renderer, state);
}

}  // namespace

void RenderHddCreateDialog(SDL_Renderer* renderer, HddCreateDialogState const& state) {
    if (renderer == nullptr) {
        return;
    }
    HddCreateDialogLayout const l = BuildHddCreateDialogLayout();
    SetDrawColor(renderer, kColFormWindowBg);
    SDL_RenderClear(renderer);
    DrawHddCreateDialogText(renderer, "Create new HDD image (.img)", 20, 16, kColFormText);
    DrawHddCreateDialogText(renderer, "Size (MB):", 20, 80, kColFormText);
    DrawHddCreateDialogText(renderer, "File name:", 20, 140, kColFormText);
    DrawHddCreateDialogText(renderer, "Folder:", 20, 200, kColFormText);
    FillAndOutline(renderer, {&l.size_field, &l.file_name_field, &l.folder_field},
                   kColFormFieldFill, kColFormFieldOutline);
    if (state.focused_field == kHddFieldSize) {
        OutlineRect(renderer, l.size_field, kColFormFocusOutline);
    } else if (state.focused_field == kHddFieldFileName) {
        OutlineRect(renderer, l.file_name_field, kColFormFocusOutline);
    }
    FillAndOutline(renderer, {&l.choose_button, &l.cancel_button, &l.create_button},
                   kColFormButtonFill, kColFormButtonOutline);
    RenderHddCreateTexts(renderer, state, l);
}

HddCreateDialogResult ShowSimpleHddCreateDialog(SDL_Window* parent,
                                                std::string const& default_folder,
                                                unsigned int default_size_mb) {
    HddCreateDialogState state;
    state.result.size_mb = default_size_mb != 0 ? default_size_mb : 10;
    state.result.folder = default_folder.empty() ? "." : default_folder;
    state.result.file_name = "disk.img";
    ModalWindowBundle const bundle = CreateModalWindowBundle(
        parent, "Create HDD Image", 80, 80, 860, 390, SDL_WINDOW_HIDDEN, kPreferAccelerated);
    if (!bundle.window || !bundle.renderer) {
        return state.result;
    }
    state.size_text = std::to_string(state.result.size_mb);
    state.folder_text = state.result.folder;
    state.file_name_text = state.result.file_name;
    state.focused_field = kHddFieldSize;
    RunFormDialog(state, parent,
                  FormDialogRun<HddCreateDialogState>{
                      bundle.window.get(), bundle.renderer.get(), &HandleHddCreateDialogKey,
                      &HandleHddCreateDialogTextInput, &HandleHddCreateDialogMouseButton,
                      &RenderHddCreateDialogFrame});
    return state.result;
}

}  // namespace zorvane::frontend::gui
