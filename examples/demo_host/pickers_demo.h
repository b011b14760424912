// The four pickers as the demo host uses them: what a host does with each answer.
#pragma once

#include <SDL.h>

namespace demo {

// A folder for the host's captures, starting in the working directory.
void PickCaptureFolder(SDL_Window* host_window);
// A UI font, starting in data/ttf when that folder exists.
void PickFont(SDL_Window* host_window);
// A floppy image for drive A:, starting in floppies/ when that folder exists.
void PickFloppy(SDL_Window* host_window);
// A shader or preset, starting in the working directory.
void PickShader(SDL_Window* host_window);

}  // namespace demo
