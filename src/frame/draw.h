// The drawing steps that every dialog repeats: one colour for the next primitive,
// a filled rectangle and an outlined one.
#pragma once

#include <SDL.h>

namespace zorvane::frontend::gui {

inline void SetDrawColor(SDL_Renderer* renderer, SDL_Color color) {
    SDL_SetRenderDrawColor(renderer, color.r, color.g, color.b, color.a);
}

inline void FillRect(SDL_Renderer* renderer, SDL_Rect const& rect, SDL_Color color) {
    SetDrawColor(renderer, color);
    SDL_RenderFillRect(renderer, &rect);
}

inline void OutlineRect(SDL_Renderer* renderer, SDL_Rect const& rect, SDL_Color color) {
    SetDrawColor(renderer, color);
    SDL_RenderDrawRect(renderer, &rect);
}

}  // namespace zorvane::frontend::gui
