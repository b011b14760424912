// The button, checkbox and radio group of the settings dialog, and its frames: the
// navigation panel, the panel header and the bottom bar.
#include "settings/settings_widgets.h"

#include "frame/look.h"
#include "frame/ui_fonts.h"

#include <algorithm>

namespace zorvane::frontend::gui {

namespace {

constexpr SDL_Color kColButton{48, 54, 68, 255};
constexpr SDL_Color kColButtonHover{68, 76, 92, 255};
constexpr SDL_Color kColNavActive{44, 74, 128, 255};
constexpr int kRadioRowHeight = 34;
constexpr int kNavRowHeight = 30;
constexpr int kNavWidth = 224;
constexpr int kNavHeight = 436;

// Renders `label` centred in `rect`, unscaled and unclipped.
void DrawCentredLabel(SDL_Renderer* renderer, TTF_Font* font, SDL_Rect const& rect,
                      std::string const& label) {
    if (font == nullptr) {
        return;
    }
    SdlSurfaceHandle surface(TTF_RenderUTF8_Blended(font, label.c_str(), kColTextHi));
    if (!surface) {
        return;
    }
    SdlTextureHandle texture(SDL_CreateTextureFromSurface(renderer, surface.get()));
    if (!texture) {
        return;
    }
    SDL_Rect const target{rect.x + (rect.w - surface->w) / 2, rect.y + (rect.h - surface->h) / 2,
                          surface->w, surface->h};
    SDL_RenderCopy(renderer, texture.get(), nullptr, &target);
}

void DrawNavItem(SDL_Renderer* renderer, TTF_Font* font, NavItem const& item, int row_y,
                 bool active, bool hovered) {
    SDL_Rect const row{0, row_y, kNavWidth, kNavRowHeight};
    if (active) {
        FillRect(renderer, row, kColNavActive);
        FillRect(renderer, {0, row_y, 3, kNavRowHeight}, kColAccentFg);
    } else if (hovered) {
        FillRect(renderer, row, kColWidgetHover);
    }
    int const h = FontHeightOr(font, 16);
    DrawText(renderer, font, item.label, 22, row_y + (kNavRowHeight - h) / 2,
             active ? kColTextHi : kColTextMid);
}

}  // namespace

void PlotSettingsRing(SDL_Renderer* renderer, int cx, int cy, int radius, int min_sq, int max_sq,
                      SDL_Color color) {
    SetDrawColor(renderer, color);
    for (int dy = -radius; dy <= radius; ++dy) {
        for (int dx = -radius; dx <= radius; ++dx) {
            int const sq = dx * dx + dy * dy;
            if (sq >= min_sq && sq <= max_sq) {
                SDL_RenderDrawPoint(renderer, cx + dx, cy + dy);
            }
        }
    }
}

void DrawButton(SDL_Renderer* renderer, TTF_Font* font, SDL_Rect const& rect,
                std::string const& label, bool hovered) {
    FillRect(renderer, rect, hovered ? kColButtonHover : kColButton);
    OutlineRect(renderer, rect, kColPanelButtonOutline);
    DrawCentredLabel(renderer, font, rect, label);
}

bool DrawCheckbox(SDL_Renderer* renderer, TTF_Font* font, int x, int y, bool checked,
                  std::string const& label, int mouse_x, int mouse_y) {
    // Layout: the row reaches 4 pixels left of the box and 5 above it.
    int const font_height = font != nullptr ? TTF_FontHeight(font) : 0;
    int const row_height = font != nullptr ? std::max(font_height, 16) + 10 : 26;
    int const label_y = font != nullptr ? y + (16 - font_height) / 2 : y;
    SDL_Rect const row{x - 4, y - 5, 583, row_height};
    // Interaction.
    bool const hovered = IsInRect(mouse_x, mouse_y, row);
    // Drawing.
    if (hovered) {
        FillRect(renderer, row, kColWidgetHover);
    }
    OutlineRect(renderer, {x, y, 16, 16}, kColTextDim);
    if (checked) {
        FillRect(renderer, {x + 3, y + 3, 10, 10}, kColAccentFg);
    }
    DrawText(renderer, font, label, x + 26, label_y, checked ? kColTextHi : kColTextMid);
    return hovered;
}

void DrawRadioGroup(SDL_Renderer* renderer, TTF_Font* font, int x, int y,
                    std::vector<RadioOption> const& options, std::string const& selected_value,
                    int hovered_index) {
    int const h = FontHeightOr(font, 0);
    for (int i = 0; i < static_cast<int>(options.size()); ++i) {
        int const row_y = y + kRadioRowHeight * i;
        bool const selected = options[i].value == selected_value;
        if (i == hovered_index) {
            FillRect(renderer, {x - 4, row_y, 583, kRadioRowHeight}, kColWidgetHover);
        }
        PlotSettingsRing(renderer, x + 8, row_y + 17, 8, 37, 64, kColTextDim);
        if (selected) {
            PlotSettingsRing(renderer, x + 8, row_y + 17, 4, 0, 16, kColAccentFg);
        }
        DrawText(renderer, font, options[i].label, x + 26, row_y + 17 - h / 2,
                 selected ? kColTextHi : kColTextMid);
    }
}

int HitTestRadioGroup(int mouse_x, int mouse_y, int x, int y, int count) {
    if (mouse_x < x || mouse_x > 807 || count < 1) {
        return -1;
    }
    for (int i = 0; i < count; ++i) {
        int const top = y + kRadioRowHeight * i;
        if (mouse_y >= top && mouse_y <= top + kRadioRowHeight - 1) {
            return i;
        }
    }
    return -1;
}

int DrawPanelHeader(SDL_Renderer* renderer, TTF_Font* title_font, TTF_Font* subtitle_font, int x,
                    int y, std::string const& title, std::string const& subtitle) {
    int const h1 = FontHeightOr(title_font, 17);
    int const h2 = FontHeightOr(subtitle_font, 16);
    DrawText(renderer, title_font, title, x, y, kColTextHi);
    if (subtitle.empty()) {
        return y + h1 + 20;
    }
    DrawText(renderer, subtitle_font, subtitle, x, y + h1 + 6, kColTextDim);
    return y + h1 + 6 + h2 + 20;
}

void DrawLeftPanel(SDL_Renderer* renderer, TTF_Font* section_font, TTF_Font* item_font,
                   std::vector<NavItem> const& items, int active_panel, int mouse_x, int mouse_y) {
    FillRect(renderer, {0, 0, kNavWidth, kNavHeight}, kColPanelContent);
    int const hs = FontHeightOr(section_font, 16);
    for (int i = 0; i < static_cast<int>(items.size()); ++i) {
        NavItem const& item = items[i];
        int const row_y = 10 + kNavRowHeight * i;
        if (item.kind == 0) {
            FillRect(renderer, {0, row_y, kNavWidth, kNavRowHeight}, kColPanelTile);
            DrawText(renderer, section_font, item.label, 10, row_y + (kNavRowHeight - hs) / 2,
                     kColTextDim);
            continue;
        }
        bool const hovered = mouse_x >= 0 && mouse_x <= kNavWidth - 1 && mouse_y >= row_y &&
                             mouse_y <= row_y + kNavRowHeight - 1;
        DrawNavItem(renderer, item_font, item, row_y, item.panel_id == active_panel, hovered);
    }
    SetDrawColor(renderer, kColPanelOutline);
    SDL_RenderDrawLine(renderer, kNavWidth, 0, kNavWidth, kNavHeight);
}

void DrawBottomBar(SDL_Renderer* renderer, TTF_Font* font, SDL_Rect const& cancel_rect,
                   SDL_Rect const& apply_rect, int mouse_x, int mouse_y) {
    FillRect(renderer, {0, 436, 820, 56}, kColPanelFooter);
    SetDrawColor(renderer, kColPanelOutline);
    SDL_RenderDrawLine(renderer, 0, 436, 820, 436);
    DrawButton(renderer, font, cancel_rect, "Cancel", IsInRect(mouse_x, mouse_y, cancel_rect));
    DrawButton(renderer, font, apply_rect, "Apply", IsInRect(mouse_x, mouse_y, apply_rect));
}

}  // namespace zorvane::frontend::gui
