// The shader parameter dialog's loop and its input handlers, apart from the entry point.
#pragma once

#include "shader_params/shader_dialog_model.h"

#include <functional>

namespace zorvane::frontend::gui {

using ShaderDialogApplyCallback = std::function<void(std::vector<ShaderParameterValue> const&)>;

// Runs the dialog until Cancel, Escape, the window's close or SDL_QUIT. Returns at
// once when the session or any window, renderer, geometry, specs, result or path of
// it is null.
void RunShaderParameterDialog(ShaderDialogSession* session,
                              ShaderDialogApplyCallback const& on_apply);

// Draws and presents one frame; the first one also shows and focuses the window.
void RenderShaderDialog(ShaderDialogSession* session, ShaderDialogLayout const& layout, int width,
                        int height);

}  // namespace zorvane::frontend::gui
