// The shader parameter dialog as the demo host uses it: which shader to tune, and
// what a host does with each Apply and with the final values.
#pragma once

#include "host_machine.h"

namespace demo {

// The shader or preset named on the command line (the first argument ending in
// .glsl or .glslp), or else the sample preset that comes with the demo.
std::string ShaderPathFromArguments(int argc, char** argv);

// Opens the parameter dialog for the host's shader, starting from the host's current
// values or, while those are empty, from the preset's own. Every Apply is printed
// and taken over, as a host would hand it to its renderer.
void TuneShaderParameters(Host& host);

}  // namespace demo
