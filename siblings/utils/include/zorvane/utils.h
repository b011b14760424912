// String, path and file helpers shared by the emulator's libraries.
// This is a small stand-in with the behaviour the dialog library relies on.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace zorvane::utils {

// A copy of `text` with A to Z lowered; every other byte, UTF-8 included, unchanged.
std::string ascii_to_lower(std::string_view text);

// `text` unchanged if it holds at most `max_chars` UTF-8 characters. Otherwise the
// last characters of `text`, led by "...", so that the result holds exactly
// `max_chars` characters. A limit of 3 or less has no room for the marker and keeps
// the last `max_chars` characters alone. Characters are never cut apart; a stray
// continuation byte counts with the character before it.
std::string ellipsize_left(std::string_view text, unsigned long long max_chars);

// Whether a byte may be appended to a file name: control bytes (below 0x20 and 0x7F)
// and / \ : * ? " < > | are refused; every byte of a multi-byte UTF-8 character
// (0x80 and above) is admitted.
bool is_allowed_filename_char(char c);

// The last component of `path`, taking both / and \ as separators and ignoring
// trailing ones; "" only when nothing but separators is given.
std::string filename_from_path(std::string_view path);

// The last component of `path` without its last extension ("shot.png" gives "shot",
// "a.b.png" gives "a.b", ".profile" stays). `fallback` when nothing usable is left:
// an empty text, a text of separators, "." or "..".
std::string stem_or_filename_from_path(std::string_view path, std::string_view fallback);

// A path from UTF-8 text, and the UTF-8 text of a path with / between its parts.
// Texts are UTF-8 everywhere; these two conversions keep them so on Windows too,
// where the narrow forms of std::filesystem::path go through the active code page
// or the C runtime's locale; there a malformed UTF-8 sequence becomes U+FFFD and
// nothing throws. Windows takes / as a separator as well, and a path reads the same
// on every system.
std::filesystem::path path_from_utf8(std::string_view text);
std::string utf8_from_path(std::filesystem::path const& path);

// Reads the whole file, byte for byte, into `text`. On failure `text` is left empty,
// `error` receives `open_error` (the file cannot be opened, or is a directory) or
// `read_error` (reading failed midway), and the result is false.
bool read_text_file(std::filesystem::path const& path, std::string& text, std::string& error,
                    char const* open_error, char const* read_error);

}  // namespace zorvane::utils
