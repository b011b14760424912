// Tuning a shader's parameters from the demo host: the parsers, the dialog, and the
// host's side of each Apply.
#include "shader_params_demo.h"

#include <cstdio>
#include <string_view>

namespace demo {

namespace {

namespace gui = zorvane::frontend::gui;

constexpr char kSamplePreset[] = "examples/shaders/crt_soft.glslp";

bool EndsWith(std::string_view text, std::string_view tail) {
    return text.size() >= tail.size() && text.substr(text.size() - tail.size()) == tail;
}

void PrintValues(char const* what, std::vector<gui::ShaderParameterValue> const& values) {
    std::printf("%s:", what);
    for (gui::ShaderParameterValue const& value : values) {
        std::printf(" %s=%.3f", value.name.c_str(), value.value);
    }
    std::printf("\n");
}

}  // namespace

std::string ShaderPathFromArguments(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        if (EndsWith(argv[i], ".glsl") || EndsWith(argv[i], ".glslp")) {
            return argv[i];
        }
    }
    return kSamplePreset;
}

void TuneShaderParameters(SDL_Window* host_window, std::string const& path,
                          std::vector<gui::ShaderParameterValue>& values) {
    // What a host can learn without the dialog: the shader behind the path and its
    // declared parameters.
    std::vector<gui::ShaderParameterSpec> const specs = gui::ParseShaderParameterSpecs(path);
    std::printf("shader %s (file %s): %zu parameter(s)\n", path.c_str(),
                gui::ResolveShaderGlslPath(path).c_str(), specs.size());
    if (values.empty()) {
        values = gui::ParseGlslpParameterOverrides(path);
        PrintValues("preset values", values);
    }
    int applies = 0;
    gui::ShaderDialogResult const result = gui::ShowShaderParameterDialog(
        host_window, path, 1.0f,
        [&values, &applies](std::vector<gui::ShaderParameterValue> const& applied) {
            ++applies;
            values = applied;
            PrintValues("shader parameters applied", applied);
        },
        values);
    std::printf("shader dialog closed, %s, after %d apply(s)\n",
                result.accepted ? "accepted" : "not accepted", applies);
}

}  // namespace demo
