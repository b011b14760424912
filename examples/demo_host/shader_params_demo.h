// The shader parameter dialog as the demo host uses it: which shader to tune, and
// what a host does with each Apply and with the final values.
#pragma once

#include "gui/shader_params.h"

#include <SDL.h>

#include <string>
#include <vector>

namespace demo {

// The shader or preset named on the command line (the first argument ending in
// .glsl or .glslp), or else the sample preset that comes with the demo.
std::string ShaderPathFromArguments(int argc, char** argv);

// Opens the parameter dialog for `path`, starting from `values` (the host's current
// parameters) or, while those are empty, from the preset's own values. Prints every
// Apply and takes it over into `values`, as a host would hand it to its renderer.
void TuneShaderParameters(SDL_Window* host_window, std::string const& path,
                          std::vector<zorvane::frontend::gui::ShaderParameterValue>& values);

}  // namespace demo
