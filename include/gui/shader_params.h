// Shader parameters: reading the `#pragma parameter` declarations of a shader, the
// parameter values of a .glslp preset, and the dialog that tunes them with sliders.
#pragma once

#include <functional>
#include <string>
#include <vector>

struct SDL_Window;

namespace zorvane::frontend::gui {

// One declared parameter of a shader. A parsed record always has a name without
// whitespace, a label without a double quote, min_value <= max_value and step >= 0.
struct ShaderParameterSpec {
    std::string name;            // key of the parameter in presets and results
    std::string label;           // text shown to the user
    float default_value = 0.0f;  // may lie outside min_value to max_value
    float min_value = 0.0f;
    float max_value = 1.0f;
    float step = 0.0f;  // 0: continuous, no snapping
};

// A parameter's name with one value: a preset's override, or a value of the dialog.
struct ShaderParameterValue {
    std::string name;
    float value = 0.0f;
};

// What the parameter dialog hands back: `values` holds one entry per parsed
// parameter, in declaration order, whatever way the dialog was left.
struct ShaderDialogResult {
    bool accepted = false;  // true after Apply, false after Cancel or Escape
    std::vector<ShaderParameterValue> values;
};

// The parameters declared by `#pragma parameter NAME "Label" default min max step`
// lines of the shader at `path`; a path ending in .glslp (any case) stands for the
// shader of the preset's first pass. Malformed lines are left out; an unreadable
// file gives an empty list. Safe on any thread.
std::vector<ShaderParameterSpec> ParseShaderParameterSpecs(std::string const& path);

// The values that the .glslp preset at `path` sets for the parameters named on its
// `parameters = "A;B"` line, in the order of the value lines. Anything else, an
// unreadable file or a path that is no preset gives an empty list. Safe on any thread.
std::vector<ShaderParameterValue> ParseGlslpParameterOverrides(std::string const& path);

// The shader file that `path` stands for: the first pass of a .glslp preset (empty if
// it cannot be determined), otherwise `path` itself, unchecked.
std::string ResolveShaderGlslPath(std::string const& path);

// Opens a modal, resizable window with one slider per parameter of the shader or
// preset at `path`, starting at `overrides` where they name a parameter and at the
// declared defaults elsewhere. Each Apply (button, Return, keypad Enter) calls
// `on_apply`, if set, with the current values and keeps the window open; Cancel,
// Escape, closing the window and SDL_QUIT leave. `scale` is not used. When the file
// declares no parameter, an information box says so and no window opens.
ShaderDialogResult ShowShaderParameterDialog(
    SDL_Window* parent, std::string const& path, float scale,
    std::function<void(std::vector<ShaderParameterValue> const&)> on_apply,
    std::vector<ShaderParameterValue> const& overrides);

}  // namespace zorvane::frontend::gui
