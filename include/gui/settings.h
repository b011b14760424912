// The settings dialog as the host sees it: the settings record that goes in and
// comes back through `on_apply`, and the entry point that opens the dialog.
#pragma once

#include <SDL.h>

#include <functional>
#include <string>

namespace zorvane::frontend::gui {

// The host's settings as the dialog edits them. Copied memberwise; owns its strings.
struct SettingsDialogValues {
    int fps = 60;                            // target frame rate; the host always sets it
    std::string font_mode = "pixel";         // "pixel", "ttf", "ttf-hires" or "ttf-custom"
    std::string renderer_mode = "hardware";  // "hardware" or "software"
    double cpu_mhz = 30.0;                   // shown only, never edited
    double mouse_capture_gain = 1.0;         // 0.25 to 3.0
    bool allow_mouse_capture_in_text_mode = false;
    bool hdd_sounds_enabled = false;
    double hdd_sounds_volume = 0.5;  // 0 to 1
    std::string custom_font_path;    // font file of the mode "ttf-custom"
    bool screenshot_capture_with_opengl_shaders = false;
    int screenshot_capture_size_mode = 1;  // 0: original resolution, 1: emu viewport
};

// Opens the settings dialog over `parent` (may be null) and blocks until it closes.
// The dialog edits a copy of `initial_values`; each click on "Apply" hands that copy
// to `on_apply` (which may be empty) and keeps the dialog open. Closing it hands over
// nothing. `scale` has no effect: the dialog has fixed pixel sizes.
void ShowSettingsDialog(SDL_Window* parent, float scale, SettingsDialogValues const& initial_values,
                        std::function<void(SettingsDialogValues const&)> on_apply);

}  // namespace zorvane::frontend::gui
