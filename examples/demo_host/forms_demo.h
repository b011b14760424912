// The screenshot, disk image and About dialogs as the demo host uses them: what a
// host does with each result.
#pragma once

#include <SDL.h>

#include <string>

namespace demo {

// Grabs the host's current frame, asks where and how to save it, and writes it there
// as PNG, JPEG or BMP. `default_folder` may be empty (the working directory).
void SaveHostScreenshot(SDL_Window* host_window, SDL_Renderer* host_renderer,
                        std::string const& default_folder);

// Asks for a new disk image and prints what the host would create; creates nothing.
void AskForDiskImage(SDL_Window* host_window);

void ShowAbout(SDL_Window* host_window);

}  // namespace demo
