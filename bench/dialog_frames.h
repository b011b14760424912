// One frame of each dialog as its loop draws it, on a software window of the dialog's
// own size, registered beside a floor of a clear and present at the same size.
#pragma once

#include "dialog_inputs.h"
#include "settings/settings_internal.h"
#include "shader_params/shader_dialog.h"

#include <SDL.h>
#include <SDL_ttf.h>

#include <map>
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

// The benchmark of one dialog's frame and the floor that it is read against.
struct FrameCase {
    std::string frame;
    std::string floor;
};

// Registers every dialog's frame benchmark and the floors that they need, and returns
// their names by dialog. Needs SDL video running, since some sizes come from fonts.
std::map<std::string, FrameCase> RegisterDialogFrameBenchmarks(ReportFolder const& folder);

}  // namespace zbench
