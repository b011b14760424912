// The text halves of the two shader parameter parsers: what they make of a file's
// contents once it is read. SDL-free, stateless, safe on any thread.
#pragma once

#include "gui/shader_params.h"

#include <string>
#include <vector>

namespace zorvane::frontend::gui {

// Reads the whole file at `path` into `text`; false, with `text` empty, when it
// cannot be opened or read.
bool ReadShaderParameterFile(std::string const& path, std::string& text);

// The `#pragma parameter` declarations of a shader source, in line order.
std::vector<ShaderParameterSpec> ParseShaderParameterSpecsFromText(std::string const& text);

// The parameter values of a .glslp preset's text, in the order of its value lines.
std::vector<ShaderParameterValue> ParseGlslpParameterOverridesFromText(std::string const& text);

}  // namespace zorvane::frontend::gui
