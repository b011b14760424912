// One frame of each dialog as its loop draws it, on a software window of the dialog's
// own size.
#pragma once

#include "dialog_inputs.h"
#include "settings/settings_internal.h"
#include "shader_params/shader_dialog.h"

#include <SDL.h>
#include <SDL_ttf.h>

#include <functional>
#include <string>
#include <vector>

namespace zbench {

// The drawing of one settings turn with the pointer at (mouse_x, mouse_y): navigation,
// panel, bottom bar and present.
void DrawSettingsFrame(SDL_Renderer* renderer, TTF_Font* title_font, TTF_Font* body_font,
                       std::vector<zorvane::frontend::gui::NavItem> const& items,
                       zorvane::frontend::gui::SettingsDialogValues const& values, int panel,
                       int mouse_x, int mouse_y);

// A shown shader dialog session over `window`'s renderer, as the dialog's entry point
// fills it; every pointer must outlive the session.
zorvane::frontend::gui::ShaderDialogSession ShaderSession(
    SDL_Window* window, SDL_Renderer* renderer, TTF_Font* title_font, TTF_Font* body_font,
    std::string const& path, std::vector<zorvane::frontend::gui::ShaderParameterSpec> const& specs,
    zorvane::frontend::gui::ShaderDialogGeometry const& geometry,
    zorvane::frontend::gui::ShaderDialogResult& result);

// Draws and presents one idle frame of a dialog; owns the window and all it needs.
using FrameDrawing = std::function<void()>;

// One dialog's idle frame: the report's row, the stem of its benchmark names, the
// window size, and what opens the window and returns the drawing of one frame.
struct DialogFrame {
    std::string dialog;
    std::string stem;
    int width = 0;
    int height = 0;
    std::function<FrameDrawing()> open;
};

// Every exported dialog's frame, in the report's order. Needs SDL video running,
// since some sizes come from fonts.
std::vector<DialogFrame> DialogFrames(ReportFolder const& folder);

}  // namespace zbench
