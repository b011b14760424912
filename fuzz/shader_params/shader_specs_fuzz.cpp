// Fuzzes the `#pragma parameter` reader with arbitrary shader sources and stops on
// any record that breaks the promises of a parsed declaration.
#include "shader_params/shader_param_parsers.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace {

bool IsCSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool IsValidSpec(zorvane::frontend::gui::ShaderParameterSpec const& spec) {
    for (char c : spec.name) {
        if (IsCSpace(c)) {
            return false;
        }
    }
    return !spec.name.empty() && !spec.label.empty() && spec.label.find('"') == std::string::npos &&
           spec.min_value <= spec.max_value && spec.step >= 0.0f;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const text(reinterpret_cast<char const*>(data), size);
    for (auto const& spec : zorvane::frontend::gui::ParseShaderParameterSpecsFromText(text)) {
        if (!IsValidSpec(spec)) {
            __builtin_trap();
        }
    }
    return 0;
}
