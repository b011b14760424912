// The host's side of the settings dialog: each Apply is taken over and printed.
#include "settings_demo.h"

#include <cstdio>

namespace demo {

namespace {

void PrintSettings(gui::SettingsDialogValues const& v) {
    std::printf(
        "  fps %d, font %s (%s), renderer %s, cpu %.2f MHz, mouse gain %.2f, text-mode "
        "capture %s, hdd sounds %s at %.0f%%, shader capture %s, capture size %d\n",
        v.fps, v.font_mode.c_str(),
        v.custom_font_path.empty() ? "no file" : v.custom_font_path.c_str(),
        v.renderer_mode.c_str(), v.cpu_mhz, v.mouse_capture_gain,
        v.allow_mouse_capture_in_text_mode ? "on" : "off", v.hdd_sounds_enabled ? "on" : "off",
        v.hdd_sounds_volume * 100.0, v.screenshot_capture_with_opengl_shaders ? "on" : "off",
        v.screenshot_capture_size_mode);
}

}  // namespace

void OpenSettings(Host& host) {
    gui::ShowSettingsDialog(
        host.window, 1.0f, host.settings, [&host](gui::SettingsDialogValues const& values) {
            host.settings = values;
            ++host.settings_applies;
            std::printf("settings applied (machine at frame %llu):\n", host.frames);
            PrintSettings(values);
        });
    Tell(host,
         "settings closed after " + std::to_string(host.settings_applies) + " apply(s) in all");
}

}  // namespace demo
