// The screenshot save dialog as the host sees it: the image formats, the default
// file name, and the dialog that returns a name, a folder, a format and its option.
// The library writes no image; the host does, from the result.
#pragma once

#include <SDL.h>

#include <cstdint>
#include <string>

namespace zorvane::frontend::gui {

// Values outside the three named ones are treated as Png wherever a name or an
// extension is made.
enum class ScreenshotSaveFormat : std::uint8_t {
    Png = 0,
    Jpeg = 1,
    Bmp = 2,
};

struct ScreenshotSaveDialogResult {
    bool accepted = false;  // true only when the user saved
    std::string folder;     // folder of the file, as UTF-8
    std::string file_name;  // file name with the format's extension
    ScreenshotSaveFormat format = ScreenshotSaveFormat::Png;
    int jpeg_quality = 90;    // 1 to 100
    int png_compression = 2;  // 0 to 9
    bool bmp_rle = true;      // "Use RLE if possible (indexed BMP paths)"
};

// The extension without a dot ("png", "jpg", "bmp"), of static lifetime.
char const* ScreenshotSaveFormatExtension(ScreenshotSaveFormat format);

// A new name from the local time, such as "zorvane_capture_2026_04_14_10_06_49.png".
std::string MakeDefaultScreenshotFilename(ScreenshotSaveFormat format);

// Opens the resizable save form over `parent` (which may be null) and blocks until
// it closes. An empty `default_folder` means the working directory, an empty
// `default_file_name` a time-stamped name; the numbers are limited to their ranges.
// Anything but Save returns these starting values with `accepted` false.
ScreenshotSaveDialogResult ShowScreenshotSaveDialog(SDL_Window* parent,
                                                    std::string const& default_folder,
                                                    std::string const& default_file_name,
                                                    ScreenshotSaveFormat format, int jpeg_quality,
                                                    int png_compression, bool bmp_rle);

}  // namespace zorvane::frontend::gui
