// The two sliders of the settings dialog: a fraction labelled in percent and a
// value between two limits labelled with two decimals. Neither captures the drag.
#include "settings/settings_widgets.h"

#include "frame/look.h"
#include "frame/ui_fonts.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <sstream>

namespace zorvane::frontend::gui {

namespace {

constexpr SDL_Color kColTrack{52, 58, 70, 255};

// `value` limited to 0..1; a value that is not a number counts as 0.
double ClampUnit(double value) {
    if (!(value > 0.0)) {
        return 0.0;
    }
    return std::min(value, 1.0);
}

// What the two sliders share: the track, the fill, the knob, the label and the band.
// Returns the pointer's position p (0..1) when the mouse is active, else -1.
double DrawSliderTrack(SDL_Renderer* renderer, TTF_Font* font, int x, int y, int width, double t,
                       std::string const& label, int mouse_x, int mouse_y, bool mouse_down) {
    int const filled = static_cast<int>(t * width);
    FillRect(renderer, {x, y + 5, width, 6}, kColTrack);
    if (filled > 0) {
        FillRect(renderer, {x, y + 5, filled, 6}, kColAccentFg);
    }
    PlotSettingsRing(renderer, x + filled, y + 8, 8, 0, 64, kColAccentFg);
    int const label_y = font != nullptr ? y + 8 - TTF_FontHeight(font) / 2 : y;
    DrawText(renderer, font, label, x + width + 12, label_y, kColTextMid);

    bool const active = mouse_down && mouse_x >= x - 8 && mouse_x < x + width + 8 &&
                        mouse_y >= y - 2 && mouse_y < y + 18;
    if (!active) {
        return -1.0;
    }
    return ClampUnit(static_cast<double>(mouse_x - x) / width);
}

}  // namespace

std::string FormatSliderPercent(double value) {
    std::ostringstream text;
    // Adding 0.0 turns a rounded -0 into 0.
    text << std::fixed << std::setprecision(0) << std::round(value * 100.0) + 0.0 << '%';
    return text.str();
}

std::string FormatRangeSliderValue(double value, double min_value, double max_value,
                                   char const* suffix) {
    double const lo = std::min(min_value, max_value);
    double const hi = std::max(min_value, max_value);
    std::ostringstream text;
    text << std::fixed << std::setprecision(2) << std::clamp(value, lo, hi);
    if (suffix != nullptr) {
        text << suffix;
    }
    return text.str();
}

bool DrawSlider(SDL_Renderer* renderer, TTF_Font* font, int x, int y, int width, double value,
                int mouse_x, int mouse_y, bool mouse_down, double* out_value) {
    double const p = DrawSliderTrack(renderer, font, x, y, width, ClampUnit(value),
                                     FormatSliderPercent(value), mouse_x, mouse_y, mouse_down);
    if (p < 0.0) {
        return false;
    }
    if (out_value != nullptr) {
        *out_value = p;
    }
    return true;
}

bool DrawRangeSlider(SDL_Renderer* renderer, TTF_Font* font, int x, int y, int width, double value,
                     double min_value, double max_value, int mouse_x, int mouse_y, bool mouse_down,
                     double* out_value, char const* suffix) {
    double const lo = std::min(min_value, max_value);
    double const span = std::max(std::max(min_value, max_value) - lo, 0.0001);
    double const p = DrawSliderTrack(renderer, font, x, y, width, ClampUnit((value - lo) / span),
                                     FormatRangeSliderValue(value, min_value, max_value, suffix),
                                     mouse_x, mouse_y, mouse_down);
    if (p < 0.0) {
        return false;
    }
    if (out_value != nullptr) {
        *out_value = lo + p * span;
    }
    return true;
}

}  // namespace zorvane::frontend::gui
