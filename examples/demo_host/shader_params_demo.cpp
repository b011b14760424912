// Tuning a shader's parameters from the demo host: the parsers, the dialog, and the
// host's side of each Apply.
#include "shader_params_demo.h"

#include <cstdio>
#include <string_view>

#include "gui/shader_params.h"

namespace demo {

namespace {

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

void TuneShaderParameters(Host& host) {
    // What a host can learn without the dialog: the shader behind the path and its
    // declared parameters.
    std::string const& path = host.shader_path;
    std::vector<gui::ShaderParameterSpec> const specs = gui::ParseShaderParameterSpecs(path);
    std::printf("shader %s (file %s): %zu parameter(s)\n", path.c_str(),
                gui::ResolveShaderGlslPath(path).c_str(), specs.size());
    if (host.shader_values.empty()) {
        host.shader_values = gui::ParseGlslpParameterOverrides(path);
        PrintValues("preset values", host.shader_values);
    }
    int applies = 0;
    gui::ShaderDialogResult const result = gui::ShowShaderParameterDialog(
        host.window, path, 1.0f,
        [&host, &applies](std::vector<gui::ShaderParameterValue> const& applied) {
            ++applies;
            host.shader_values = applied;
            PrintValues("shader parameters applied", applied);
        },
        host.shader_values);
    Tell(host, std::string("shader dialog closed, ") +
                   (result.accepted ? "accepted" : "not accepted") + ", after " +
                   std::to_string(applies) + " apply(s)");
}

}  // namespace demo
