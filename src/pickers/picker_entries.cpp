// Reading a directory into picker rows, the file filters and the row texts.
#include "pickers/picker_entries.h"

#include <algorithm>
#include <initializer_list>
#include <system_error>
#include <utility>

#include "zorvane/utils.h"

namespace zorvane::frontend::gui {

namespace {

// A row with its sort key, the name with A to Z lowered, made once per row rather
// than once per comparison.
struct KeyedPickerEntry {
    std::string key;
    PickerEntry entry;
};

// Byte order of the lowered names (std::string compares bytes as unsigned values);
// names that differ in case alone are equal and stay in whatever order sort leaves.
bool PickerEntryNameLess(KeyedPickerEntry const& left, KeyedPickerEntry const& right) {
    return left.key < right.key;
}

KeyedPickerEntry MakeKeyedEntry(std::filesystem::directory_entry const& item, bool is_directory) {
    std::string name = zorvane::utils::utf8_from_path(item.path().filename());
    std::string key = zorvane::utils::ascii_to_lower(name);
    return {std::move(key), PickerEntry{std::move(name), item.path(), is_directory}};
}

// The extension of `path` with its dot and A to Z lowered; "" when it has none.
std::string LoweredExtension(std::filesystem::path const& path) {
    return zorvane::utils::ascii_to_lower(zorvane::utils::utf8_from_path(path.extension()));
}

bool HasAnyExtension(std::filesystem::path const& path,
                     std::initializer_list<char const*> extensions) {
    std::string const extension = LoweredExtension(path);
    return std::any_of(extensions.begin(), extensions.end(),
                       [&](char const* candidate) { return extension == candidate; });
}

// The ".." row, for a directory whose parent is neither empty nor itself.
void AppendParentEntry(std::filesystem::path const& directory, std::vector<PickerEntry>& out) {
    std::filesystem::path parent = directory.parent_path();
    if (!parent.empty() && parent.compare(directory) != 0) {
        out.push_back(PickerEntry{"..", std::move(parent), true});
    }
}

void AppendSorted(std::vector<KeyedPickerEntry>& keyed, std::vector<PickerEntry>& out) {
    std::sort(keyed.begin(), keyed.end(), PickerEntryNameLess);
    for (KeyedPickerEntry& item : keyed) {
        out.push_back(std::move(item.entry));
    }
}

// The listing behind both readers. Each step's error ends the listing; an error
// while typing one entry drops that entry, since the next step clears the code.
// Files are asked about only when `list_files` is set.
std::vector<PickerEntry> ReadPickerEntries(std::filesystem::path const& directory, bool list_files,
                                           PickerFileFilter accept_file) {
    std::vector<KeyedPickerEntry> directories;
    std::vector<KeyedPickerEntry> files;
    std::error_code error;
    std::filesystem::directory_iterator it(directory, error);
    for (; !error && it != std::filesystem::directory_iterator(); it.increment(error)) {
        std::filesystem::directory_entry const& item = *it;
        if (item.is_directory(error)) {
            directories.push_back(MakeKeyedEntry(item, true));
            continue;
        }
        if (error || !list_files || !item.is_regular_file(error) || error) {
            continue;
        }
        if (accept_file != nullptr && accept_file(item.path())) {
            files.push_back(MakeKeyedEntry(item, false));
        }
    }
    std::vector<PickerEntry> result;
    result.reserve(directories.size() + files.size() + 1);
    AppendParentEntry(directory, result);
    AppendSorted(directories, result);
    AppendSorted(files, result);
    return result;
}

// The six-character prefix and the name.
std::string PrefixedLabel(char const* prefix, PickerEntry const& entry) {
    return prefix + entry.name;
}

}  // namespace

std::vector<PickerEntry> ReadFolderPickerEntries(std::filesystem::path const& directory) {
    return ReadPickerEntries(directory, false, nullptr);
}

std::vector<PickerEntry> ReadFilteredPickerEntries(std::filesystem::path const& directory,
                                                   PickerFileFilter accept_file) {
    return ReadPickerEntries(directory, true, accept_file);
}

bool IsFontPickerEntry(std::filesystem::path const& path) {
    return HasAnyExtension(path, {".ttf", ".otf"});
}

bool IsShaderPickerEntry(std::filesystem::path const& path) {
    return HasAnyExtension(path, {".glsl", ".glslp", ".frag", ".vert", ".fs", ".vs"});
}

bool IsAllowedImagePickerEntry(std::filesystem::path const& path) {
    return HasAnyExtension(path, {".ima", ".img"});
}

std::vector<PickerEntry> LoadFolderPickerEntries(std::filesystem::path const& directory) {
    return ReadFolderPickerEntries(directory);
}

std::vector<PickerEntry> LoadFontPickerEntries(std::filesystem::path const& directory) {
    return ReadFilteredPickerEntries(directory, IsFontPickerEntry);
}

std::vector<PickerEntry> LoadFloppyPickerEntries(std::filesystem::path const& directory) {
    return ReadFilteredPickerEntries(directory, IsAllowedImagePickerEntry);
}

std::vector<PickerEntry> LoadShaderPickerEntries(std::filesystem::path const& directory) {
    return ReadFilteredPickerEntries(directory, IsShaderPickerEntry);
}

std::string LabelFolderPickerEntry(PickerEntry const& entry) {
    return PrefixedLabel("[DIR] ", entry);
}

std::string LabelFloppyPickerEntry(PickerEntry const& entry) {
    return PrefixedLabel(entry.is_directory ? "[DIR] " : "[IMG] ", entry);
}

std::string LabelFontPickerEntry(PickerEntry const& entry) {
    if (entry.is_directory) {
        return PrefixedLabel("[DIR] ", entry);
    }
    return PrefixedLabel(LoweredExtension(entry.path) == ".otf" ? "[OTF] " : "[TTF] ", entry);
}

std::string LabelShaderPickerEntry(PickerEntry const& entry) {
    if (entry.is_directory) {
        return PrefixedLabel("[DIR] ", entry);
    }
    return PrefixedLabel(LoweredExtension(entry.path) == ".glslp" ? "[PST] " : "[SHD] ", entry);
}

}  // namespace zorvane::frontend::gui
