// One line of UTF-8 text drawn through a fresh surface and texture, and its thin forms.
#include "frame/ui_fonts.h"

namespace zorvane::frontend::gui {

namespace {

// The forms that take NUL-terminated text touch no font when there is nothing to draw.
void DrawCachedFontText(SDL_Renderer* renderer, int point_size, char const* text, int x, int y,
                        SDL_Color color) {
    if (renderer == nullptr || text == nullptr || text[0] == '\0') {
        return;
    }
    DrawSdlUiText(renderer, GetCachedSdlUiFont(point_size, false, kSemiBold), text, x, y, color,
                  nullptr);
}

}  // namespace

void DrawSdlUiText(SDL_Renderer* renderer, TTF_Font* font, std::basic_string_view<char> text, int x,
                   int y, SDL_Color color, SDL_Rect* out_rect) {
    if (font == nullptr || text.empty() || renderer == nullptr) {
        return;
    }
    std::string const terminated(text);
    SdlSurfaceHandle surface(TTF_RenderUTF8_Blended(font, terminated.c_str(), color));
    if (!surface) {
        return;
    }
    SdlTextureHandle texture(SDL_CreateTextureFromSurface(renderer, surface.get()));
    if (!texture) {
        return;
    }
    SDL_Rect const rect{x, y, surface->w, surface->h};
    if (out_rect != nullptr) {
        *out_rect = rect;
    }
    SDL_RenderCopy(renderer, texture.get(), nullptr, &rect);
    texture.reset();
}

void DrawText(SDL_Renderer* renderer, TTF_Font* font, std::string const& text, int x, int y,
              SDL_Color color) {
    DrawSdlUiText(renderer, font, text, x, y, color, nullptr);
}

void DrawShaderDialogText(SDL_Renderer* renderer, TTF_Font* font, std::string const& text, int x,
                          int y, SDL_Color color) {
    DrawSdlUiText(renderer, font, text, x, y, color, nullptr);
}

void DrawSimpleModalText(SDL_Renderer* renderer, char const* text, int x, int y, SDL_Color color) {
    DrawCachedFontText(renderer, 15, text, x, y, color);
}

void DrawHddCreateDialogText(SDL_Renderer* renderer, char const* text, int x, int y,
                             SDL_Color color) {
    DrawCachedFontText(renderer, 16, text, x, y, color);
}

void DrawScreenshotDialogText(SDL_Renderer* renderer, char const* text, int x, int y,
                              SDL_Color color) {
    DrawCachedFontText(renderer, 16, text, x, y, color);
}

}  // namespace zorvane::frontend::gui
