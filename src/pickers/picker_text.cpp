// The lowered extension of a path text and the whitespace trim.
#include "pickers/picker_text.h"

#include <filesystem>

#include "zorvane/utils.h"

namespace zorvane::frontend::gui {

namespace {

// isspace of the "C" locale, independent of the process's global locale.
bool IsCSpace(unsigned char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

}  // namespace

std::string ExtLower(std::string const& path_text) {
    return zorvane::utils::ascii_to_lower(
        zorvane::utils::utf8_from_path(zorvane::utils::path_from_utf8(path_text).extension()));
}

std::string TrimStr(std::string const& text) {
    std::size_t begin = 0;
    std::size_t end = text.size();
    while (begin < end && IsCSpace(static_cast<unsigned char>(text[begin]))) {
        ++begin;
    }
    while (end > begin && IsCSpace(static_cast<unsigned char>(text[end - 1]))) {
        --end;
    }
    return text.substr(begin, end - begin);
}

}  // namespace zorvane::frontend::gui
