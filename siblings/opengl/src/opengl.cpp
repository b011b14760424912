// The first pass of a .glslp preset: a key = value scan for `shaders` and `shader0`.
#include "zorvane/opengl.h"

#include <filesystem>
#include <fstream>
#include <sstream>

#include "zorvane/utils.h"

namespace zorvane::opengl {

namespace {

bool IsBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

std::string Trim(std::string const& text) {
    std::size_t begin = 0;
    std::size_t end = text.size();
    while (begin < end && IsBlank(text[begin])) {
        ++begin;
    }
    while (end > begin && IsBlank(text[end - 1])) {
        --end;
    }
    return text.substr(begin, end - begin);
}

// The value of a `key = value` line without the quotes around it, if it has both.
std::string Unquote(std::string value) {
    if (value.size() >= 2 && value.front() == '"' && value.back() == '"') {
        return value.substr(1, value.size() - 2);
    }
    return value;
}

// Whether the `shaders` value names at least one pass; an unreadable count is let
// through, so that the `shader0` line decides.
bool DeclaresAnyPass(std::string const& count_text) {
    std::istringstream stream(count_text);
    long count = 0;
    return !(stream >> count) || count >= 1;
}

}  // namespace

std::string ResolveGlslpFirstPass(std::string const& preset_path) {
    if (preset_path.empty()) {
        return {};
    }
    std::filesystem::path const preset = zorvane::utils::path_from_utf8(preset_path);
    std::ifstream file(preset, std::ios::binary);
    if (!file) {
        return {};
    }
    std::string first_pass;
    bool found = false;
    std::string line;
    while (std::getline(file, line)) {
        std::string const trimmed = Trim(line);
        std::size_t const equals = trimmed.find('=');
        if (trimmed.empty() || trimmed.front() == '#' || equals == std::string::npos) {
            continue;
        }
        std::string const key = Trim(trimmed.substr(0, equals));
        std::string const value = Unquote(Trim(trimmed.substr(equals + 1)));
        if (key == "shaders" && !DeclaresAnyPass(value)) {
            return {};
        }
        if (key == "shader0" && !found) {
            first_pass = value;
            found = true;
        }
    }
    if (file.bad() || Trim(first_pass).empty()) {
        return {};
    }
    std::filesystem::path const shader = zorvane::utils::path_from_utf8(first_pass);
    return zorvane::utils::utf8_from_path(shader.is_absolute() ? shader
                                                               : preset.parent_path() / shader);
}

}  // namespace zorvane::opengl
