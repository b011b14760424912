// Reading the parameter values of a .glslp preset: the `parameters` list line names
// the wanted parameters, and their own `NAME = value` lines give the values.
#include "shader_params/shader_param_parsers.h"

#include "pickers/picker_text.h"
#include "zorvane/opengl.h"

#include <sstream>
#include <stdexcept>
#include <string_view>
#include <unordered_set>

namespace zorvane::frontend::gui {

namespace {

constexpr std::string_view kListKey = "parameters";

// A preset line without its line end: one carriage return off, then trimmed.
std::string CleanLine(std::string line) {
    if (!line.empty() && line.back() == '\r') {
        line.pop_back();
    }
    return TrimStr(line);
}

// The position of the "=" of a list line, or npos when `line` is none: it must begin
// with "parameters", be longer than that word and hold a "=" behind it.
std::size_t ListLineEquals(std::string const& line) {
    if (line.size() <= kListKey.size() || line.compare(0, kListKey.size(), kListKey) != 0) {
        return std::string::npos;
    }
    return line.find('=', kListKey.size());
}

// The text of the names on a list line's value: what stands between its first two
// double quotes, or else the whole value trimmed.
std::string ListText(std::string const& value) {
    std::size_t const open = value.find('"');
    if (open != std::string::npos && open + 1 < value.size()) {
        std::size_t const close = value.find('"', open + 1);
        if (close != std::string::npos) {
            return value.substr(open + 1, close - open - 1);
        }
    }
    return TrimStr(value);
}

// The names on the first list line of the preset, trimmed and without empty ones.
std::unordered_set<std::string> FindWantedNames(std::istream& lines) {
    std::unordered_set<std::string> names;
    std::string line;
    while (std::getline(lines, line)) {
        std::string const clean = CleanLine(std::move(line));
        std::size_t const equals = ListLineEquals(clean);
        if (equals == std::string::npos) {
            continue;
        }
        std::istringstream pieces(ListText(clean.substr(equals + 1)));
        std::string piece;
        while (std::getline(pieces, piece, ';')) {
            std::string name = TrimStr(piece);
            if (!name.empty()) {
                names.insert(std::move(name));
            }
        }
        break;
    }
    return names;
}

// The number of a value line as std::stof reads it, quotes around it removed first.
bool ConvertValue(std::string value_text, float& value) {
    if (value_text.size() >= 2 && value_text.front() == '"' && value_text.back() == '"') {
        value_text = value_text.substr(1, value_text.size() - 2);
    }
    try {
        value = std::stof(value_text);
        return true;
    } catch (std::invalid_argument const&) {
        return false;
    } catch (std::out_of_range const&) {
        return false;
    }
}

// A `NAME = value` line for one of `wanted`, converted into `out`.
bool ParseValueLine(std::string const& line, std::unordered_set<std::string> const& wanted,
                    ShaderParameterValue& out) {
    std::size_t const equals = line.find('=');
    if (line.empty() || equals == std::string::npos || equals == 0) {
        return false;
    }
    std::string key = TrimStr(line.substr(0, equals));
    if (key.empty() || wanted.count(key) == 0) {
        return false;
    }
    if (!ConvertValue(TrimStr(line.substr(equals + 1)), out.value)) {
        return false;
    }
    out.name = std::move(key);
    return true;
}

}  // namespace

std::vector<ShaderParameterValue> ParseGlslpParameterOverridesFromText(std::string const& text) {
    std::istringstream lines(text);
    std::unordered_set<std::string> const wanted = FindWantedNames(lines);
    if (wanted.empty()) {
        return {};
    }
    // Value lines may stand anywhere, in front of the list line too: read from the top.
    lines.clear();
    lines.seekg(0);
    std::vector<ShaderParameterValue> values;
    std::string line;
    while (std::getline(lines, line)) {
        ShaderParameterValue value;
        if (ParseValueLine(CleanLine(std::move(line)), wanted, value)) {
            values.push_back(std::move(value));
        }
    }
    return values;
}

std::vector<ShaderParameterValue> ParseGlslpParameterOverrides(std::string const& path) {
    if (ExtLower(path) != ".glslp") {
        return {};
    }
    std::string text;
    if (!ReadShaderParameterFile(path, text)) {
        return {};
    }
    return ParseGlslpParameterOverridesFromText(text);
}

std::string ResolveShaderGlslPath(std::string const& path) {
    if (ExtLower(path) == ".glslp") {
        return zorvane::opengl::ResolveGlslpFirstPass(path);
    }
    return path;
}

}  // namespace zorvane::frontend::gui
