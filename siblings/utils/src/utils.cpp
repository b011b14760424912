// String, path and file helpers of the utility stand-in.
#include "zorvane/utils.h"

#include <cstdio>
#include <system_error>
#include <vector>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif

namespace zorvane::utils {

namespace {

bool IsContinuationByte(unsigned char byte) {
    return (byte & 0xC0u) == 0x80u;
}

bool IsSeparator(char c) {
    return c == '/' || c == '\\';
}

// Byte offsets at which the UTF-8 characters of `text` begin.
std::vector<std::size_t> CharacterStarts(std::string_view text) {
    std::vector<std::size_t> starts;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (i == 0 || !IsContinuationByte(static_cast<unsigned char>(text[i]))) {
            starts.push_back(i);
        }
    }
    return starts;
}

}  // namespace

std::string ascii_to_lower(std::string_view text) {
    std::string lowered(text);
    for (char& c : lowered) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c - 'A' + 'a');
        }
    }
    return lowered;
}

std::string ellipsize_left(std::string_view text, unsigned long long max_chars) {
    std::vector<std::size_t> const starts = CharacterStarts(text);
    if (starts.size() <= max_chars) {
        return std::string(text);
    }
    constexpr std::string_view kMarker = "...";
    if (max_chars <= kMarker.size()) {
        if (max_chars == 0) {
            return {};
        }
        return std::string(text.substr(starts[starts.size() - max_chars]));
    }
    std::size_t const kept = static_cast<std::size_t>(max_chars) - kMarker.size();
    std::string result(kMarker);
    result.append(text.substr(starts[starts.size() - kept]));
    return result;
}

bool is_allowed_filename_char(char c) {
    auto const byte = static_cast<unsigned char>(c);
    if (byte < 0x20u || byte == 0x7Fu) {
        return false;
    }
    switch (c) {
        case '/':
        case '\\':
        case ':':
        case '*':
        case '?':
        case '"':
        case '<':
        case '>':
        case '|':
            return false;
        default:
            return true;
    }
}

std::string filename_from_path(std::string_view path) {
    std::size_t end = path.size();
    while (end > 0 && IsSeparator(path[end - 1])) {
        --end;
    }
    std::size_t begin = end;
    while (begin > 0 && !IsSeparator(path[begin - 1])) {
        --begin;
    }
    return std::string(path.substr(begin, end - begin));
}

std::string stem_or_filename_from_path(std::string_view path, std::string_view fallback) {
    std::string name = filename_from_path(path);
    if (name.empty() || name == "." || name == "..") {
        return std::string(fallback);
    }
    std::size_t const dot = name.rfind('.');
    if (dot != std::string::npos && dot > 0) {
        name.erase(dot);
    }
    return name;
}

// POSIX paths are bytes, and the texts are UTF-8 already. Windows paths are UTF-16:
// the conversions are the system's own, which turn a malformed sequence into U+FFFD
// where the standard library's would throw (a typed name may hold any bytes).
std::filesystem::path path_from_utf8(std::string_view text) {
#ifdef _WIN32
    int const size = static_cast<int>(text.size());
    std::wstring wide(MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
    return std::filesystem::path(wide);
#else
    return std::filesystem::path(std::string(text));
#endif
}

std::string utf8_from_path(std::filesystem::path const& path) {
#ifdef _WIN32
    std::wstring const wide = path.generic_wstring();
    int const size = static_cast<int>(wide.size());
    std::string text(
        WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr, 0, nullptr, nullptr), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, text.data(), static_cast<int>(text.size()),
                        nullptr, nullptr);
    return text;
#else
    return path.generic_string();
#endif
}

bool read_text_file(std::filesystem::path const& path, std::string& text, std::string& error,
                    char const* open_error, char const* read_error) {
    text.clear();
    std::error_code ec;
    if (std::filesystem::is_directory(path, ec)) {
        error = open_error != nullptr ? open_error : "";
        return false;
    }
    // C's streams tell a failed read (ferror) from the end of the file on every standard
    // library; C++ streams report one only under some of them.
#ifdef _WIN32
    std::FILE* file = _wfopen(path.c_str(), L"rb");
#else
    std::FILE* file = std::fopen(path.c_str(), "rb");
#endif
    if (file == nullptr) {
        error = open_error != nullptr ? open_error : "";
        return false;
    }
    // Read in large blocks: shader sources can be big.
    std::string content;
    char block[1 << 16];
    for (std::size_t n = 0; (n = std::fread(block, 1, sizeof(block), file)) > 0;) {
        content.append(block, n);
    }
    bool const failed = std::ferror(file) != 0;
    std::fclose(file);
    if (failed) {
        error = read_error != nullptr ? read_error : "";
        return false;
    }
    text = std::move(content);
    return true;
}

}  // namespace zorvane::utils
