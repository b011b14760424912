// Helpers of the settings tests: colours as "r,g,b" text, a whole record as one
// line, and the panels' content line under the dialog's fonts.
#pragma once

#include "frame/ui_fonts.h"
#include "gui/settings.h"
#include "support/dialog_script.h"
#include "support/test_display.h"

#include <sstream>

namespace zset {

using namespace zorvane::frontend::gui;

inline std::string Rgb(SDL_Color c) {
    return std::to_string(c.r) + "," + std::to_string(c.g) + "," + std::to_string(c.b);
}

inline char const kAccent[] = "106,166,255";
inline char const kHover[] = "40,46,60";
inline char const kTrack[] = "52,58,70";  // also outlines and dividers
inline char const kNavBg[] = "24,27,34";
inline char const kNavActive[] = "44,74,128";

inline std::string Describe(SettingsDialogValues const& v) {
    std::ostringstream out;
    out << v.fps << " " << v.font_mode << " " << v.renderer_mode << " " << v.cpu_mhz << " "
        << v.mouse_capture_gain << " " << v.allow_mouse_capture_in_text_mode << v.hdd_sounds_enabled
        << " " << v.hdd_sounds_volume << " '" << v.custom_font_path << "' "
        << v.screenshot_capture_with_opengl_shaders << v.screenshot_capture_size_mode;
    return out.str();
}

// The y at which a panel's content starts under the dialog's fonts.
inline int PanelTop(bool with_subtitle) {
    int const h1 = TTF_FontHeight(OpenSdlUiFontHandle(15, true, kSemiBold).get());
    int const h2 = TTF_FontHeight(OpenSdlUiFontHandle(15, false, kSemiBold).get());
    return with_subtitle ? 20 + h1 + 6 + h2 + 20 : 20 + h1 + 20;
}

}  // namespace zset
