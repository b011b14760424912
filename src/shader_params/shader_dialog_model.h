// The shader parameter dialog without a window: its metrics, the rectangles of a
// frame, the record of one run, starting values, snapping and the mouse mappings.
#pragma once

#include "gui/shader_params.h"

#include <SDL.h>
#include <SDL_ttf.h>

#include <string>
#include <vector>

namespace zorvane::frontend::gui {

// The fixed metrics of the dialog, in window pixels, the same at every scale.
struct ShaderDialogGeometry {
    int row_origin_y = 20;  // window y of row 0's top with nothing scrolled
    int row_height = 80;
    int slider_x = 260;
    int slider_width = 275;
    int slider_height = 13;
    int label_x = 14;
    int value_x = 545;  // value text and range text
    int button_width = 78;
    int button_height = 26;
    int window_width = 900;
    int window_height = 280;  // content_height limited to 280..500
    int content_height = 90;  // 90 + 80 per parameter; only sizes the window
};

// The rectangles of one frame for the current window size and scroll position.
struct ShaderDialogLayout {
    int list_top = 36;
    int list_height = 1;  // window height - 88, at least 1
    int max_scroll{};
    SDL_Rect cancel_button{};
    SDL_Rect apply_button{};
    SDL_Rect scrollbar_track{};
    SDL_Rect scrollbar_thumb{};  // equals the track when everything fits
};

// The state of one dialog run. It owns nothing: every pointer outlives the run.
struct ShaderDialogSession {
    SDL_Window* window = nullptr;
    SDL_Renderer* renderer = nullptr;
    TTF_Font* title_font = nullptr;  // the header line
    TTF_Font* body_font = nullptr;   // every other text
    std::string const* path = nullptr;
    std::vector<ShaderParameterSpec> const* specs = nullptr;
    ShaderDialogGeometry const* geometry = nullptr;
    ShaderDialogResult* result = nullptr;  // its values are edited in place
    bool shown = false;
    bool dragging_slider = false;
    int active_row = -1;
    bool dragging_thumb = false;
    int drag_start_y{};
    int drag_start_scroll{};
    int scroll_y{};
};

// One value per parameter, in list order: the first override of the parameter's name
// or its default, clamped and snapped. `accepted` starts false.
ShaderDialogResult InitializeShaderDialogResult(std::vector<ShaderParameterSpec> const& specs,
                                                std::vector<ShaderParameterValue> const& overrides);

// The metrics for `parameter_count` rows; `scale` is not used.
ShaderDialogGeometry BuildShaderDialogGeometry(int parameter_count, float scale);

// The frame's rectangles from the session's parameters, geometry and scroll position.
ShaderDialogLayout BuildShaderDialogLayout(ShaderDialogSession const& session, int width,
                                           int height);

// `value` clamped to the parameter's bounds and, for a positive step, moved to the
// nearest stop of the grid that starts at min_value.
float SnapToStep(ShaderParameterSpec const& spec, float value);

// The snapped value that a slider shows for the pointer at window x `mouse_x`.
float ShaderDialogValueFromMouse(ShaderParameterSpec const& spec,
                                 ShaderDialogGeometry const& geometry, int mouse_x);

// The row under window y `y` at scroll position `scroll_y`, or -1.
int FindShaderDialogParamAtY(ShaderDialogGeometry const& geometry, int y, int scroll_y,
                             int parameter_count);

// The window y of a row's top at scroll position `scroll_y`.
int ShaderDialogRowTop(ShaderDialogGeometry const& geometry, int row, int scroll_y);

}  // namespace zorvane::frontend::gui
