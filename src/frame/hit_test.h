// The one rectangle hit test of the dialogs, in the three argument orders they use.
// A point is inside from x and y up to, but not including, x + w and y + h.
#pragma once

#include <SDL.h>

namespace zorvane::frontend::gui {

inline bool IsPointInRect(SDL_Rect const& rect, int x, int y) {
    return x >= rect.x && x < rect.x + rect.w && y >= rect.y && y < rect.y + rect.h;
}

inline bool IsInside(SDL_Rect const& rect, int x, int y) {
    return IsPointInRect(rect, x, y);
}

inline bool IsInRect(int x, int y, SDL_Rect const& rect) {
    return IsPointInRect(rect, x, y);
}

}  // namespace zorvane::frontend::gui
