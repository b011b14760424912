// How the demo host writes a capture of its frame in the format the screenshot
// dialog returned, honouring that format's option.
#pragma once

#include <SDL.h>

#include <string>

#include "gui/screenshot.h"

namespace demo {

// Writes `frame` to `path`: PNG through libpng at `choice.png_compression`, JPEG at
// `choice.jpeg_quality`, BMP as an 8-bit indexed image (RLE8-compressed when
// `choice.bmp_rle` is set) if the frame has at most 256 colours, else as true colour.
// Returns false on failure. `how` receives a short account of what was written, or
// of what went wrong.
bool WriteCapture(SDL_Surface* frame, std::string const& path,
                  zorvane::frontend::gui::ScreenshotSaveDialogResult const& choice,
                  std::string& how);

}  // namespace demo
