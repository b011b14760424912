// Fuzzes the .glslp parameter value reader with arbitrary preset texts and stops on
// any record whose name could not have come from a trimmed key of a value line.
#include "shader_params/shader_param_parsers.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace {

bool IsCSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool IsValidValue(zorvane::frontend::gui::ShaderParameterValue const& value) {
    std::string const& name = value.name;
    return !name.empty() && !IsCSpace(name.front()) && !IsCSpace(name.back()) &&
           name.find('=') == std::string::npos && name.find(';') == std::string::npos &&
           name.find('\n') == std::string::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const text(reinterpret_cast<char const*>(data), size);
    for (auto const& value : zorvane::frontend::gui::ParseGlslpParameterOverridesFromText(text)) {
        if (!IsValidValue(value)) {
            __builtin_trap();
        }
    }
    return 0;
}
