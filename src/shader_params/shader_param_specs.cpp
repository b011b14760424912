// Reading `#pragma parameter` declarations from a shader source, line by line,
// without compiling or preprocessing anything.
#include "shader_params/shader_param_parsers.h"

#include "pickers/picker_text.h"
#include "zorvane/opengl.h"
#include "zorvane/utils.h"

#include <filesystem>
#include <sstream>
#include <string_view>
#include <utility>

namespace zorvane::frontend::gui {

namespace {

constexpr std::string_view kPragma = "#pragma";
constexpr std::string_view kParameter = "parameter";

// isspace of the "C" locale, whatever the global locale is.
bool IsCSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

std::size_t SkipSpace(std::string_view text, std::size_t pos) {
    while (pos < text.size() && IsCSpace(text[pos])) {
        ++pos;
    }
    return pos;
}

std::size_t SkipNonSpace(std::string_view text, std::size_t pos) {
    while (pos < text.size() && !IsCSpace(text[pos])) {
        ++pos;
    }
    return pos;
}

// The four numbers behind the label, all required, read as a stream reads floats.
// `numbers` is reused from line to line: a fresh stream per line costs more than
// the rest of the line's work.
bool ReadFourNumbers(std::istringstream& numbers, std::string_view text,
                     ShaderParameterSpec& spec) {
    numbers.clear();
    numbers.str(std::string(text));
    numbers >> spec.default_value >> spec.min_value >> spec.max_value >> spec.step;
    return !numbers.fail();
}

// One declaration line: `#pragma parameter NAME "Label" default min max step`, led
// by any whitespace. Anything between "#pragma" and "parameter", between the name and
// the label, and behind the step is ignored.
bool ParseDeclarationLine(std::string_view line, std::istringstream& numbers,
                          ShaderParameterSpec& spec) {
    std::string_view const rest = line.substr(SkipSpace(line, 0));
    if (rest.substr(0, kPragma.size()) != kPragma) {
        return false;
    }
    std::size_t const word = rest.find(kParameter);
    if (word == std::string_view::npos) {
        return false;
    }
    std::size_t const name_begin = SkipSpace(rest, word + kParameter.size());
    std::size_t const name_end = SkipNonSpace(rest, name_begin);
    if (name_begin == rest.size() || name_end == rest.size()) {
        return false;  // no name, or nothing behind it for a label
    }
    std::size_t const open = rest.find('"', name_end);
    if (open == std::string_view::npos || open + 1 == rest.size()) {
        return false;
    }
    std::size_t const close = rest.find('"', open + 1);
    if (close == std::string_view::npos || close == open + 1) {
        return false;  // unterminated or empty label
    }
    spec.name.assign(rest.substr(name_begin, name_end - name_begin));
    spec.label.assign(rest.substr(open + 1, close - open - 1));
    if (!ReadFourNumbers(numbers, rest.substr(close + 1), spec)) {
        return false;
    }
    if (spec.min_value > spec.max_value) {
        std::swap(spec.min_value, spec.max_value);
    }
    if (!(spec.step > 0.0f)) {
        spec.step = 0.0f;
    }
    return true;
}

}  // namespace

bool ReadShaderParameterFile(std::string const& path, std::string& text) {
    std::string error;
    return zorvane::utils::read_text_file(zorvane::utils::path_from_utf8(path), text, error,
                                          "cannot open file", "cannot read file");
}

std::vector<ShaderParameterSpec> ParseShaderParameterSpecsFromText(std::string const& text) {
    // Lines end at each line feed, as std::getline splits them, without copying them.
    std::string_view const all(text);
    std::vector<ShaderParameterSpec> specs;
    std::istringstream numbers;
    for (std::size_t begin = 0; begin < all.size();) {
        std::size_t end = all.find('\n', begin);
        if (end == std::string_view::npos) {
            end = all.size();
        }
        ShaderParameterSpec spec;
        if (ParseDeclarationLine(all.substr(begin, end - begin), numbers, spec)) {
            specs.push_back(std::move(spec));
        }
        begin = end + 1;
    }
    return specs;
}

std::vector<ShaderParameterSpec> ParseShaderParameterSpecs(std::string const& path) {
    std::string const source_path =
        ExtLower(path) == ".glslp" ? zorvane::opengl::ResolveGlslpFirstPass(path) : path;
    if (source_path.empty()) {
        return {};
    }
    std::string text;
    if (!ReadShaderParameterFile(source_path, text)) {
        return {};
    }
    return ParseShaderParameterSpecsFromText(text);
}

}  // namespace zorvane::frontend::gui
