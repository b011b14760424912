// Two small text helpers of the picker family that the shader parsers use as well:
// the lowered extension of a path text and a whitespace trim. Their one home is here.
#pragma once

#include <string>

namespace zorvane::frontend::gui {

// The extension of `path_text` with its dot, A to Z lowered; "" when it has none.
std::string ExtLower(std::string const& path_text);

// `text` without leading and trailing blanks, tabs, line feeds, vertical tabs, form
// feeds and carriage returns (isspace in the "C" locale); inner whitespace stays.
std::string TrimStr(std::string const& text);

}  // namespace zorvane::frontend::gui
