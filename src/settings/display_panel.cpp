// The panels of the "Display" section: font mode with the custom font chooser,
// target frame rate, renderer and screenshots.
#include "frame/hit_test.h"
#include "frame/look.h"
#include "settings/settings_internal.h"

#include <zorvane/utils.h>

namespace zorvane::frontend::gui {

namespace {

// Hit test, draw, then report a click on an option as a change of `key`.
void RadioGroupControl(RightPanelContext const& c, RightPanelHitResult* hit, int y, char const* key,
                       std::vector<RadioOption> const& options, std::string const& selected) {
    int const hovered = HitTestRadioGroup(c.mouse_x, c.mouse_y, kSettingsContentX, y,
                                          static_cast<int>(options.size()));
    DrawRadioGroup(c.renderer, c.body_font, kSettingsContentX, y, options, selected, hovered);
    if (hovered >= 0 && c.clicked) {
        hit->changed = true;
        hit->key = key;
        hit->value = options[hovered].value;
    }
}

// The file line, the Browse button and the hint of the mode "ttf-custom".
void DrawCustomFontChooser(RightPanelContext const& c, RightPanelHitResult* hit, int y1) {
    std::string const& path = c.values->custom_font_path;
    if (path.empty()) {
        DrawSettingsPanelLine(c, "(no file selected)", y1 + 14, kColTextDim);
    } else {
        DrawSettingsPanelLine(c, zorvane::utils::filename_from_path(path), y1 + 14, kColTextMid);
    }
    SDL_Rect const browse{712, y1 + 8, 96, 28};
    bool const over = IsInRect(c.mouse_x, c.mouse_y, browse);
    DrawButton(c.renderer, c.body_font, browse, "Browse...", over);
    if (c.clicked && over) {
        hit->browse_font = true;
    }
    DrawSettingsPanelLine(c,
                          path.empty() ? "No font selected - click Browse to choose a .ttf file."
                                       : "Choose a monospace .ttf or .otf font file.",
                          y1 + 42, kColTextDim);
}

void DrawFontModePanel(RightPanelContext const& c, RightPanelHitResult* hit) {
    int const y0 =
        DrawSettingsPanelHeader(c, "Font Mode", "Text rendering mode used for the DOS display.");
    RadioGroupControl(c, hit, y0, "font_mode",
                      {{"Pixel  (classic bitmap font, fastest)", "pixel"},
                       {"TTF  (bundled IBM VGA font, scalable)", "ttf"},
                       {"TTF HiRes  (bundled font, high resolution)", "ttf-hires"},
                       {"TTF Custom  (user-selected font file)", "ttf-custom"}},
                      c.values->font_mode);
    int const y1 = y0 + 136;
    bool const custom = c.values->font_mode == "ttf-custom";
    if (custom) {
        DrawCustomFontChooser(c, hit, y1);
    }
    DrawSettingsPanelLine(c, "Pixel<->TTF switch requires restart.", custom ? y1 + 68 : y1 + 8,
                          kColTextDim);
}

void DrawTargetFpsPanel(RightPanelContext const& c, RightPanelHitResult* hit) {
    int const y0 = DrawSettingsPanelHeader(c, "Target FPS",
                                           "Display refresh rate target for the emulator window.");
    RadioGroupControl(c, hit, y0, "fps",
                      {{"25 FPS", "25"}, {"30 FPS", "30"}, {"50 FPS", "50"}, {"60 FPS", "60"}},
                      std::to_string(c.values->fps));
}

void DrawRendererPanel(RightPanelContext const& c, RightPanelHitResult* hit) {
    int const y0 = DrawSettingsPanelHeader(c, "Renderer",
                                           "SDL rendering backend. Takes effect on next launch.");
    RadioGroupControl(c, hit, y0, "renderer_mode",
                      {{"Hardware  (OpenGL accelerated)", "hardware"},
                       {"Software  (CPU-based, compatible)", "software"}},
                      c.values->renderer_mode);
    DrawSettingsPanelLine(c, "Note: renderer change requires restart to take full effect.", y0 + 80,
                          kColTextDim);
}

void DrawScreenshotsPanel(RightPanelContext const& c, RightPanelHitResult* hit) {
    int const y0 = DrawSettingsPanelHeader(
        c, "Screenshots", "Controls how menu screenshot capture is rendered and exported.");
    DrawSettingsPanelLine(
        c, "Default capture is source-faithful guest output without frontend post-processing.", y0,
        kColTextDim);
    DrawSettingsPanelLine(c, "Enable the option below if you want screenshots to include", y0 + 22,
                          kColTextDim);
    DrawSettingsPanelLine(c, "the active OpenGL shader pass.", y0 + 44, kColTextDim);
    bool const shaders = c.values->screenshot_capture_with_opengl_shaders;
    if (DrawCheckbox(c.renderer, c.body_font, kSettingsContentX, y0 + 86, shaders,
                     "Capture with active OpenGL shaders when available", c.mouse_x, c.mouse_y) &&
        c.clicked) {
        hit->changed = true;
        hit->key = "screenshot_capture_with_opengl_shaders";
        hit->checked = !shaders;
    }
    DrawSettingsPanelLine(c, "Capture size", y0 + 124, kColTextMid);
    RadioGroupControl(c, hit, y0 + 146, "screenshot_capture_size_mode",
                      {{"Original resolution", "0"}, {"Emu viewport resolution", "1"}},
                      std::to_string(c.values->screenshot_capture_size_mode));
    DrawSettingsPanelLine(
        c, "Pixel font: Original resolution uses guest-native output, e.g. 320x200 or 640x400.",
        y0 + 224, kColTextDim);
    DrawSettingsPanelLine(
        c, "TTF font mode: Original resolution falls back to the current emu viewport size.",
        y0 + 246, kColTextDim);
    DrawSettingsPanelLine(
        c, "If no OpenGL shader is active, capture falls back to the normal unshaded path.",
        y0 + 268, kColTextDim);
}

}  // namespace

bool DrawSettingsDisplayPanel(RightPanelContext const& context, RightPanelHitResult* hit) {
    if (hit == nullptr || context.values == nullptr) {
        return false;
    }
    switch (context.active_panel) {
        case 0:
            DrawFontModePanel(context, hit);
            return true;
        case 1:
            DrawTargetFpsPanel(context, hit);
            return true;
        case 2:
            DrawRendererPanel(context, hit);
            return true;
        case 7:
            DrawScreenshotsPanel(context, hit);
            return true;
        default:
            return false;
    }
}

}  // namespace zorvane::frontend::gui
