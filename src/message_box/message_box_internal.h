// Internals of the message box: the type visuals, the layout, the loop and the drawing.
#pragma once

#include "frame/ui_fonts.h"
#include "gui/message_box.h"

#include <string>
#include <vector>

namespace zorvane::frontend::gui {

struct MessageBoxTypeVisual {
    SDL_Color color{};       // the accent colour of the type
    char const* glyph = "";  // UTF-8 of static lifetime
};

// Rebuilt on every turn from the window's current size.
struct SdlMessageBoxLayout {
    int margin{};
    int padding{};
    int gap{};
    int icon_width{};
    int icon_height{};
    int button_height{};
    int button_gap{};
    int button_width{};
    int footer_height{};
    int buttons_x{};
    int buttons_y{};
    SDL_Rect outer{};
    SDL_Rect content{};
    SDL_Rect footer{};
    int title_y{};
    SDL_Rect icon{};
    int text_x{};
    int text_width{};
    int title_height{};
    SDL_Rect message_rect{};
    int line_height{};
    int content_height{};
    int min_height{};
    int window_height{};
    std::vector<std::string> lines;
};

MessageBoxTypeVisual VisualForMessageBoxType(SdlMessageBox::Type type);

int RunSdlMessageBoxLoop(SDL_Window* window, SDL_Renderer* renderer,
                         SdlMessageBox::Config const& config, float scale,
                         MessageBoxTypeVisual const& visual,
                         SdlMessageBoxFonts const& fonts) noexcept;

SdlMessageBoxLayout BuildSdlMessageBoxLayout(SdlMessageBox::Config const& config, float scale,
                                             int window_width, int window_height,
                                             TTF_Font* title_font, TTF_Font* message_font);

void RenderSdlMessageBoxFrame(SDL_Renderer* renderer, SdlMessageBox::Config const& config,
                              MessageBoxTypeVisual const& visual, SdlMessageBoxLayout const& layout,
                              TTF_Font* icon_font, TTF_Font* title_font, TTF_Font* message_font,
                              TTF_Font* button_font, int mouse_x, int mouse_y);

void DrawSdlMessageBoxButton(SDL_Renderer* renderer, TTF_Font* font, SDL_Rect const& rect,
                             std::string const& label, bool hovered);

// Wraps `text` at blanks, tabs and line feeds to lines no wider than
// max(`max_width`, 40) pixels in `font`; a longer word stands alone on its line.
std::vector<std::string> WrapText(TTF_Font* font, std::string const& text, int max_width);

// The rectangle of button `index` in the footer row.
SDL_Rect MessageBoxButtonRect(SdlMessageBoxLayout const& layout, int index);

}  // namespace zorvane::frontend::gui
