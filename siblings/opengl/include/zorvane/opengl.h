// Shader preset handling of the emulator's OpenGL output.
// This is a small stand-in with the one call the dialog library relies on.
#pragma once

#include <string>

namespace zorvane::opengl {

// The shader file of the first pass of the .glslp preset at `preset_path`, as a path
// that can be opened from the working directory: a relative `shader0` is taken from
// the preset's own folder, an absolute one is kept. The preset is read as lines of
// `key = value`, with or without double quotes around the value; lines starting with
// '#' are comments. Empty when the preset cannot be read, declares `shaders` below 1,
// has no `shader0` line, or that line's value is empty.
std::string ResolveGlslpFirstPass(std::string const& preset_path);

}  // namespace zorvane::opengl
