// The rows of a picker: reading a directory into sorted rows, the file filters of
// each kind of picker, and the texts and loaders that the pickers are built from.
// Free of SDL, so that it can be built and exercised on its own. The extension and
// trim helpers that the shader parsers share with the pickers are in picker_text.h.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace zorvane::frontend::gui {

// One row of a picker.
struct PickerEntry {
    // The last component of `path` as UTF-8 text, or ".." for the parent row.
    std::string name;
    // What the picker navigates to and returns: the listed directory joined with the
    // name (relative when the listed directory is), or the shortened parent path.
    std::filesystem::path path;
    // True for directories, links to directories and the parent row.
    bool is_directory = false;
};

using PickerFileFilter = bool (*)(std::filesystem::path const&);

// The parent row (if the directory has a parent other than itself), then the
// directories of `directory`, sorted by name without regard to ASCII case.
std::vector<PickerEntry> ReadFolderPickerEntries(std::filesystem::path const& directory);

// As ReadFolderPickerEntries, followed by the sorted regular files (links followed)
// that `accept_file` admits; a null `accept_file` admits none. A directory that
// cannot be read gives the parent row alone; an error midway keeps the rows read
// until then, and an entry whose type cannot be learnt is left out.
std::vector<PickerEntry> ReadFilteredPickerEntries(std::filesystem::path const& directory,
                                                   PickerFileFilter accept_file);

// The file filters, by lowered extension: .ttf .otf / .glsl .glslp .frag .vert .fs
// .vs / .ima .img.
bool IsFontPickerEntry(std::filesystem::path const& path);
bool IsShaderPickerEntry(std::filesystem::path const& path);
bool IsAllowedImagePickerEntry(std::filesystem::path const& path);

// The loader and the row text of each kind of picker. Every row text is a prefix of
// six characters ("[DIR] ", "[TTF] ", ...) followed by the entry's name.
std::vector<PickerEntry> LoadFolderPickerEntries(std::filesystem::path const& directory);
std::vector<PickerEntry> LoadFontPickerEntries(std::filesystem::path const& directory);
std::vector<PickerEntry> LoadFloppyPickerEntries(std::filesystem::path const& directory);
std::vector<PickerEntry> LoadShaderPickerEntries(std::filesystem::path const& directory);
std::string LabelFolderPickerEntry(PickerEntry const& entry);
std::string LabelFontPickerEntry(PickerEntry const& entry);
std::string LabelFloppyPickerEntry(PickerEntry const& entry);
std::string LabelShaderPickerEntry(PickerEntry const& entry);

// What makes one kind of picker: how it lists a directory and how it words a row.
struct PickerFamily {
    std::vector<PickerEntry> (*load_entries)(std::filesystem::path const&) = nullptr;
    std::string (*label_entry)(PickerEntry const&) = nullptr;
};

inline constexpr PickerFamily kFolderPickerFamily{LoadFolderPickerEntries, LabelFolderPickerEntry};
inline constexpr PickerFamily kFontPickerFamily{LoadFontPickerEntries, LabelFontPickerEntry};
inline constexpr PickerFamily kFloppyPickerFamily{LoadFloppyPickerEntries, LabelFloppyPickerEntry};
inline constexpr PickerFamily kShaderPickerFamily{LoadShaderPickerEntries, LabelShaderPickerEntry};

}  // namespace zorvane::frontend::gui
