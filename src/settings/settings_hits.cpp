// What a panel's hit does to the working copy of the settings, and the font picker
// that a browse hit opens over the settings window.
#include "gui/pickers.h"
#include "settings/settings_internal.h"

#include <filesystem>

#include "zorvane/utils.h"

namespace zorvane::frontend::gui {

void ApplySettingsHit(SettingsDialogValues* values, RightPanelHitResult const& hit) {
    if (values == nullptr || !hit.changed) {
        return;
    }
    std::string const& key = hit.key;
    if (key == "font_mode") {
        values->font_mode = hit.value;
    } else if (key == "fps") {
        values->fps = std::stoi(hit.value);
    } else if (key == "renderer_mode") {
        values->renderer_mode = hit.value;
    } else if (key == "mouse_capture_gain") {
        values->mouse_capture_gain = hit.number;
    } else if (key == "allow_mouse_capture_in_text_mode") {
        values->allow_mouse_capture_in_text_mode = hit.checked;
    } else if (key == "hdd_sounds_enabled") {
        values->hdd_sounds_enabled = hit.value == "1";
    } else if (key == "hdd_sounds_volume") {
        values->hdd_sounds_volume = hit.number;
    } else if (key == "screenshot_capture_size_mode") {
        values->screenshot_capture_size_mode = std::stoi(hit.value);
    } else if (key == "screenshot_capture_with_opengl_shaders") {
        values->screenshot_capture_with_opengl_shaders = hit.checked;
    }
}

void HandleSettingsFontPickerHit(SettingsDialogValues* values, SDL_Window* window,
                                 RightPanelHitResult const& hit) {
    if (values == nullptr || !hit.browse_font) {
        return;
    }
    std::string start_directory;
    if (!values->custom_font_path.empty()) {
        start_directory = zorvane::utils::utf8_from_path(
            zorvane::utils::path_from_utf8(values->custom_font_path).parent_path());
    }
    // Blocks: the picker runs its own loop, with the heartbeat going on, and gives
    // the focus back to `window` when it closes.
    std::string const chosen = ShowSimpleTtfFilePicker(window, start_directory);
    if (chosen.empty()) {
        return;
    }
    values->custom_font_path = chosen;
    values->font_mode = "ttf-custom";
}

}  // namespace zorvane::frontend::gui
