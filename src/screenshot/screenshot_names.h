// Window-free rules of the screenshot dialog: format labels, the extension of a
// name, the numeric option of a format, and the clock of the default file name.
#pragma once

#include "gui/screenshot.h"

#include <ctime>
#include <string>

namespace zorvane::frontend::gui {

// "PNG (*.png)", "JPEG (*.jpg)" or "BMP (*.bmp)"; unknown values read as PNG.
std::string FormatLabel(ScreenshotSaveFormat format);

// The label of the row under the format; unknown values read as BMP.
char const* FormatValueLabel(ScreenshotSaveFormat format);

// The stem of `name` (or "zorvane_capture" when it has none) with the format's
// extension, whatever extension it carried before.
std::string ReplaceFilenameExtension(std::string const& name, ScreenshotSaveFormat format);

// The number in `text`, limited to 1-100 for JPEG and 0-9 for PNG. `fallback` for an
// empty text, any byte that is not a digit, a value beyond int, and for BMP.
int ClampFormatValue(ScreenshotSaveFormat format, std::string const& text, int fallback);

// The clock behind MakeDefaultScreenshotFilename. Installs `clock` (null restores
// the system clock) and returns the one that was installed before.
using ScreenshotClock = std::time_t (*)();
ScreenshotClock SetScreenshotClock(ScreenshotClock clock);

}  // namespace zorvane::frontend::gui
