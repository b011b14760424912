// The list scrollbar and the forwarders to the utility library.
#include "frame/look.h"

#include <algorithm>

#include "zorvane/utils.h"

namespace zorvane::frontend::gui {

SimpleScrollbarLayout BuildSimpleScrollbarLayout(SDL_Rect const& area, int total, int visible,
                                                 int offset) {
    SimpleScrollbarLayout layout;
    layout.track = {area.x + area.w - 14, area.y + 2, 12, std::max(area.h - 4, 8)};
    layout.max_offset = std::max(total - visible, 0);
    if (total - visible <= 0) {
        layout.thumb = layout.track;
        return layout;
    }
    SDL_Rect& thumb = layout.thumb;
    thumb.x = layout.track.x;
    thumb.w = 12;
    thumb.h = std::max(visible * layout.track.h / std::max(visible, total), 24);
    int const clamped = std::clamp(offset, 0, layout.max_offset);
    float const travel = static_cast<float>(std::max(layout.track.h - thumb.h, 1));
    thumb.y = layout.track.y + static_cast<int>(static_cast<float>(clamped) /
                                                static_cast<float>(layout.max_offset) * travel);
    return layout;
}

void DrawSimpleScrollbar(SDL_Renderer* renderer, SimpleScrollbarLayout const& layout) {
    SDL_SetRenderDrawColor(renderer, 28, 32, 38, 255);
    SDL_RenderFillRect(renderer, &layout.track);
    SDL_SetRenderDrawColor(renderer, 70, 76, 84, 255);
    SDL_RenderDrawRect(renderer, &layout.track);
    SDL_SetRenderDrawColor(renderer, 92, 102, 116, 255);
    SDL_RenderFillRect(renderer, &layout.thumb);
    SDL_SetRenderDrawColor(renderer, 140, 150, 166, 255);
    SDL_RenderDrawRect(renderer, &layout.thumb);
}

std::string EllipsizeLeft(std::string const& text, unsigned long long max_length) {
    return zorvane::utils::ellipsize_left(text, max_length);
}

bool IsAllowedFilenameChar(char c) {
    return zorvane::utils::is_allowed_filename_char(c);
}

}  // namespace zorvane::frontend::gui
