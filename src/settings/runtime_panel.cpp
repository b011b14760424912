// The panels of the running emulator: CPU speed and logger options (text only),
// HDD sounds and mouse capture (editable).
#include "frame/look.h"
#include "settings/settings_internal.h"

#include <iomanip>
#include <sstream>

namespace zorvane::frontend::gui {

namespace {

constexpr int kSliderWidth = 280;

void ReportNumber(RightPanelHitResult* hit, char const* key, double number) {
    hit->changed = true;
    hit->key = key;
    hit->number = number;
}

void DrawCpuSpeedPanel(RightPanelContext const& c) {
    int const y0 = DrawSettingsPanelHeader(c, "CPU Speed", "Emulated CPU clock frequency.");
    std::ostringstream mhz;
    mhz << std::fixed << std::setprecision(2) << c.values->cpu_mhz << " MHz";
    DrawText(c.renderer, c.title_font, mhz.str(), kSettingsContentX, y0, kColTextHi);
    DrawSettingsPanelLine(c, "Adjust CPU speed from the Machine menu", y0 + 32, kColTextDim);
    DrawSettingsPanelLine(c, "using Increase / Decrease Speed (MHz).", y0 + 52, kColTextDim);
    DrawSettingsPanelLine(c, "Setting is saved automatically when changed.", y0 + 82, kColTextDim);
}

void DrawLoggerPanel(RightPanelContext const& c) {
    int const y0 = DrawSettingsPanelHeader(c, "Logger Options", "");
    DrawSettingsPanelLine(c, "Verbose logging can be enabled via --verbose-log", y0, kColTextDim);
    DrawSettingsPanelLine(c, "command-line argument. Log file path: --log <path>.", y0 + 22,
                          kColTextDim);
    DrawSettingsPanelLine(c, "Runtime log verbosity controls will appear here in", y0 + 52,
                          kColTextDim);
    DrawSettingsPanelLine(c, "a future release.", y0 + 74, kColTextDim);
}

void DrawHddSoundsPanel(RightPanelContext const& c, RightPanelHitResult* hit) {
    int const y0 = DrawSettingsPanelHeader(c, "HDD Sounds",
                                           "Simulated hard disk drive sounds during emulation.");
    bool const enabled = c.values->hdd_sounds_enabled;
    if (DrawCheckbox(c.renderer, c.body_font, kSettingsContentX, y0, enabled, "Enable HDD sounds",
                     c.mouse_x, c.mouse_y) &&
        c.clicked) {
        hit->changed = true;
        hit->key = "hdd_sounds_enabled";
        hit->value = enabled ? "0" : "1";
    }
    DrawSettingsPanelLine(c, "Volume", y0 + 38, kColTextMid);
    double volume = c.values->hdd_sounds_volume;
    if (DrawSlider(c.renderer, c.body_font, kSettingsContentX, y0 + 60, kSliderWidth, volume,
                   c.mouse_x, c.mouse_y, c.mouse_down, &volume)) {
        ReportNumber(hit, "hdd_sounds_volume", volume);
    }
    DrawSettingsPanelLine(c, "Enabled by default. Use --without-hdd-sounds to opt out at launch.",
                          y0 + 94, kColTextDim);
}

void DrawMouseCapturePanel(RightPanelContext const& c, RightPanelHitResult* hit) {
    int const y0 = DrawSettingsPanelHeader(
        c, "Mouse Capture",
        "Relative mouse gain used while the emulator has grabbed the host pointer.");
    DrawSettingsPanelLine(c, "Capture Speed", y0, kColTextMid);
    double gain = c.values->mouse_capture_gain;
    if (DrawRangeSlider(c.renderer, c.body_font, kSettingsContentX, y0 + 22, kSliderWidth, gain,
                        0.25, 3.0, c.mouse_x, c.mouse_y, c.mouse_down, &gain, "x")) {
        ReportNumber(hit, "mouse_capture_gain", gain);
    }
    DrawSettingsPanelLine(c, "1.00x = current behavior. Higher = faster guest cursor.", y0 + 56,
                          kColTextDim);
    bool const allow = c.values->allow_mouse_capture_in_text_mode;
    if (DrawCheckbox(c.renderer, c.body_font, kSettingsContentX, y0 + 78, allow,
                     "Allow mouse capture in text mode (DOS)", c.mouse_x, c.mouse_y) &&
        c.clicked) {
        hit->changed = true;
        hit->key = "allow_mouse_capture_in_text_mode";
        hit->checked = !allow;
    }
    DrawSettingsPanelLine(c,
                          "Default off: capture waits for guest graphics mode such as Windows 2.x.",
                          y0 + 106, kColTextDim);
    DrawSettingsPanelLine(c, "Use F11 to toggle mouse capture during emulation.", y0 + 128,
                          kColTextDim);
}

}  // namespace

bool DrawSettingsRuntimePanel(RightPanelContext const& context, RightPanelHitResult* hit) {
    if (hit == nullptr || context.values == nullptr) {
        return false;
    }
    switch (context.active_panel) {
        case 3:
            DrawCpuSpeedPanel(context);
            return true;
        case 4:
            DrawLoggerPanel(context);
            return true;
        case 5:
            DrawHddSoundsPanel(context, hit);
            return true;
        case 6:
            DrawMouseCapturePanel(context, hit);
            return true;
        default:
            return false;
    }
}

}  // namespace zorvane::frontend::gui
