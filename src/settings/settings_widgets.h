// Immediate-mode widgets of the settings dialog: button, checkbox, radio group,
// the navigation panel, the panel header, the bottom bar and the two sliders.
// Every call draws one frame from its arguments and keeps nothing.
#pragma once

#include <SDL.h>
#include <SDL_ttf.h>

#include <string>
#include <vector>

namespace zorvane::frontend::gui {

// One row of a radio group: the drawn text and the value it stands for.
struct RadioOption {
    std::string label;
    std::string value;
};

// One row of the navigation panel.
struct NavItem {
    int kind = 0;  // 0: section heading, 1: selectable item
    std::string label;
    int panel_id = -1;  // the panel the item opens, -1 on headings
};

void DrawButton(SDL_Renderer* renderer, TTF_Font* font, SDL_Rect const& rect,
                std::string const& label, bool hovered);

// Returns whether the pointer is on the checkbox's row.
bool DrawCheckbox(SDL_Renderer* renderer, TTF_Font* font, int x, int y, bool checked,
                  std::string const& label, int mouse_x, int mouse_y);

// Rows are 34 pixels high; pass the result of HitTestRadioGroup as `hovered_index`.
void DrawRadioGroup(SDL_Renderer* renderer, TTF_Font* font, int x, int y,
                    std::vector<RadioOption> const& options, std::string const& selected_value,
                    int hovered_index);

// The row under the pointer, or -1. The band runs from `x` to the column 807.
int HitTestRadioGroup(int mouse_x, int mouse_y, int x, int y, int count);

// Draws a title and an optional subtitle; returns the y at which content starts.
int DrawPanelHeader(SDL_Renderer* renderer, TTF_Font* title_font, TTF_Font* subtitle_font, int x,
                    int y, std::string const& title, std::string const& subtitle);

void DrawLeftPanel(SDL_Renderer* renderer, TTF_Font* section_font, TTF_Font* item_font,
                   std::vector<NavItem> const& items, int active_panel, int mouse_x, int mouse_y);

void DrawBottomBar(SDL_Renderer* renderer, TTF_Font* font, SDL_Rect const& cancel_rect,
                   SDL_Rect const& apply_rect, int mouse_x, int mouse_y);

// A fraction from 0 to 1, labelled in percent. While the button is held in the band
// the value of the pointer's column goes to `out_value` (may be null) and the
// result is true.
bool DrawSlider(SDL_Renderer* renderer, TTF_Font* font, int x, int y, int width, double value,
                int mouse_x, int mouse_y, bool mouse_down, double* out_value);

// A value between two limits in either order, labelled with two decimals and
// `suffix` (may be null). Otherwise as DrawSlider.
bool DrawRangeSlider(SDL_Renderer* renderer, TTF_Font* font, int x, int y, int width, double value,
                     double min_value, double max_value, int mouse_x, int mouse_y, bool mouse_down,
                     double* out_value, char const* suffix);

// Drawing helpers shared by the widgets and sliders.
inline constexpr SDL_Color kColWidgetHover{40, 46, 60, 255};

// Plots every point around (cx, cy) within offsets -radius..radius whose squared
// distance lies between `min_sq` and `max_sq`, both included.
void PlotSettingsRing(SDL_Renderer* renderer, int cx, int cy, int radius, int min_sq, int max_sq,
                      SDL_Color color);

// The label texts of the two sliders, such as "50%" and "1.00x".
std::string FormatSliderPercent(double value);
std::string FormatRangeSliderValue(double value, double min_value, double max_value,
                                   char const* suffix);

}  // namespace zorvane::frontend::gui
