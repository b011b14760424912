// The About dialog and the program's identity texts, both fixed by the build.
#pragma once

#include <SDL.h>

namespace zorvane::frontend {

// The version as dotted numbers, such as "0.1.0".
extern char const* const kProgramVersion;
// The date and time of the build, such as "Apr 14 2026 10:06:43".
extern char const* const kProgramBuildDate;

}  // namespace zorvane::frontend

namespace zorvane::frontend::gui {

// Shows who made the program, two links that open in the system's browser and the
// facts of this build; blocks until Escape or the window's close. `parent` may be
// null. The dialog always draws at its own fixed scale, so `scale` changes nothing.
void ShowSimpleAboutDialog(SDL_Window* parent, float scale);

}  // namespace zorvane::frontend::gui
