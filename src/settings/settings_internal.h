// Internals of the settings dialog: the records that pass between the loop and the
// panels, the two panels, what a hit does to the settings, and the loop itself.
#pragma once

#include "frame/ui_fonts.h"
#include "gui/settings.h"
#include "settings/settings_widgets.h"

#include <SDL_ttf.h>

#include <functional>
#include <string>
#include <vector>

namespace zorvane::frontend::gui {

// What the loop hands the panels for one frame.
struct RightPanelContext {
    SDL_Renderer* renderer = nullptr;
    TTF_Font* title_font = nullptr;  // bold: panel titles and the CPU speed value
    TTF_Font* body_font = nullptr;   // plain: everything else
    int active_panel = -1;           // the panel to show, negative for none
    int mouse_x = -1;                // the polled pointer, -1, -1 outside the window
    int mouse_y = -1;
    bool clicked = false;     // an unconsumed left release fell on the right panel
    bool mouse_down = false;  // the left button is held over the right panel
    SettingsDialogValues const* values = nullptr;
};

// What a panel reports for one frame; default-constructed, nothing happened.
struct RightPanelHitResult {
    bool changed = false;  // the fields below ask for a change of one setting
    std::string key;
    std::string value;
    double number = 0.0;
    bool checked = false;
    bool browse_font = false;  // the user asked for the font picker
};

// The column at which every panel's content starts.
inline constexpr int kSettingsContentX = 247;

// A panel's header at (247, 20); returns the y at which its content starts.
inline int DrawSettingsPanelHeader(RightPanelContext const& context, std::string const& title,
                                   std::string const& subtitle) {
    return DrawPanelHeader(context.renderer, context.title_font, context.body_font,
                           kSettingsContentX, 20, title, subtitle);
}

// One plain line of a panel's text at the content column.
inline void DrawSettingsPanelLine(RightPanelContext const& context, std::string const& text, int y,
                                  SDL_Color color) {
    DrawText(context.renderer, context.body_font, text, kSettingsContentX, y, color);
}

// The panels "Font Mode" (0), "Target FPS" (1), "Renderer" (2) and "Screenshots" (7).
// Returns true if one of them was drawn.
bool DrawSettingsDisplayPanel(RightPanelContext const& context, RightPanelHitResult* hit);
// The panels "CPU Speed" (3), "Logger Options" (4), "HDD Sounds" (5) and
// "Mouse Capture" (6). Returns true if one of them was drawn.
bool DrawSettingsRuntimePanel(RightPanelContext const& context, RightPanelHitResult* hit);

// Writes the change a hit asks for into `values`; unknown keys change nothing.
void ApplySettingsHit(SettingsDialogValues* values, RightPanelHitResult const& hit);
// Runs the font picker over `window` for a browse hit and takes the chosen file.
void HandleSettingsFontPickerHit(SettingsDialogValues* values, SDL_Window* window,
                                 RightPanelHitResult const& hit);

// The whole state of one run of the dialog, on the stack of ShowSettingsDialog.
struct SettingsDialogSession {
    SDL_Window* window = nullptr;
    SDL_Renderer* renderer = nullptr;
    TTF_Font* title_font = nullptr;
    TTF_Font* body_font = nullptr;
    std::vector<NavItem> const* nav_items = nullptr;
    SDL_Rect cancel_button{};
    SDL_Rect apply_button{};
    SettingsDialogValues values;  // the working copy
    int active_panel = -1;
    bool shown = false;  // set once the first frame was presented
};

struct SettingsDialogButtons {
    SDL_Rect cancel{};
    SDL_Rect apply{};
};

std::vector<NavItem> BuildSettingsNavItems();
// The panel of the first selectable row, or -1.
int FindInitialSettingsPanel(std::vector<NavItem> const& items);
SettingsDialogButtons BuildSettingsDialogButtons();

void RunSettingsDialogLoop(SettingsDialogSession* session,
                           std::function<void(SettingsDialogValues const&)> const& on_apply);
// Draws the active panel, or a hint when there is none, and returns its hit.
RightPanelHitResult DrawRightPanel(RightPanelContext const& context);

}  // namespace zorvane::frontend::gui
