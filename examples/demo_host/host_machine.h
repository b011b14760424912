// The demo host's own state: its main window, the emulated "machine" that the
// heartbeat keeps running, and everything the host has done with dialog results.
#pragma once

#include <SDL.h>
#include <SDL_ttf.h>

#include <map>
#include <string>
#include <vector>

#include "gui/settings.h"
#include "gui/shader_params.h"

namespace demo {

namespace gui = zorvane::frontend::gui;

// One text line of the screen as last drawn. The host keeps its texture while the
// text and colour stay the same, so a frame rasterises only the lines that changed.
struct ScreenLine {
    std::string text;
    SDL_Color color{0, 0, 0, 0};
    SDL_Texture* texture = nullptr;
    int width = 0;
    int height = 0;
};

struct Host {
    SDL_Window* window = nullptr;
    SDL_Renderer* renderer = nullptr;
    TTF_Font* font = nullptr;
    std::string font_path;                   // the file of the screen's font
    std::map<int, ScreenLine> screen_lines;  // by the cell where each line starts

    // The machine: it runs frames at settings.fps and keeps its own clock.
    unsigned long long frames = 0;
    double uptime_ms = 0.0;       // emulated time since the last reset
    double next_frame_ms = -1.0;  // when the next frame is due, in SDL ticks
    bool quit = false;            // the user asked the host to end

    // What the dialogs changed: the host keeps it and shows it on its screen.
    gui::SettingsDialogValues settings;
    int settings_applies = 0;
    std::string drive_a;         // floppy image in drive A:, empty when none
    std::string capture_folder;  // where screenshots go; empty: the working directory
    std::string last_capture;    // the file the last screenshot was written to
    std::string shader_path;     // the shader or preset the display would use
    std::vector<gui::ShaderParameterValue> shader_values;  // its parameters as last applied
    std::vector<std::string> key_lines;                    // the key list shown on screen
    std::string status;                                    // what the host did last
};

// Opens the main window (720 by 400, a VGA text-mode screen) and its font.
bool OpenHost(Host& host);
void CloseHost(Host& host);

// Replaces the screen's font by the file at `path`; false if it cannot be opened.
bool UseHostFont(Host& host, std::string const& path);

// Runs the frames that are due at settings.fps and redraws the screen when the
// machine advanced. Called by the host's own loop and by the dialogs' heartbeat.
void RunMachine(Host& host);

// Sleeps until the machine's next frame is due; returns at once when it already is.
void SleepUntilNextFrame(Host const& host);

// Starts the machine over: frame counter and emulated clock go back to zero.
void ResetMachine(Host& host);

// Prints what the host did and shows it on the status line.
void Tell(Host& host, std::string const& text);

}  // namespace demo
