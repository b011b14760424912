// The shared dark look of the dialogs: text colours, the recurring fills of the
// panel look and of the form look, the list scrollbar, and two text helpers.
#pragma once

#include "frame/draw.h"
#include "frame/hit_test.h"

#include <string>

namespace zorvane::frontend::gui {

inline constexpr SDL_Color kColTextHi{232, 237, 244, 255};
inline constexpr SDL_Color kColTextMid{170, 178, 192, 255};
inline constexpr SDL_Color kColTextDim{100, 108, 122, 255};
inline constexpr SDL_Color kColAccentFg{106, 166, 255, 255};

// Panel look: settings, message box, About.
inline constexpr SDL_Color kColPanelWindowBg{18, 21, 27, 255};
inline constexpr SDL_Color kColPanelOutline{52, 58, 70, 255};
inline constexpr SDL_Color kColPanelContent{24, 27, 34, 255};
inline constexpr SDL_Color kColPanelFooter{22, 25, 32, 255};
inline constexpr SDL_Color kColPanelTile{20, 23, 30, 255};
inline constexpr SDL_Color kColPanelButtonOutline{84, 92, 108, 255};

// Form look: pickers, screenshot dialog, disk image dialog.
inline constexpr SDL_Color kColFormWindowBg{20, 23, 27, 255};
inline constexpr SDL_Color kColFormHeader{32, 36, 42, 255};
inline constexpr SDL_Color kColFormFieldFill{46, 52, 60, 255};
inline constexpr SDL_Color kColFormFieldOutline{80, 86, 96, 255};
inline constexpr SDL_Color kColFormFocusOutline{160, 176, 210, 255};
inline constexpr SDL_Color kColFormButtonFill{56, 64, 74, 255};
inline constexpr SDL_Color kColFormButtonOutline{95, 104, 116, 255};
inline constexpr SDL_Color kColFormListFill{28, 32, 38, 255};
inline constexpr SDL_Color kColFormSelectedRow{52, 66, 90, 255};
inline constexpr SDL_Color kColFormText{232, 236, 240, 255};
inline constexpr SDL_Color kColFormTextSecondary{170, 178, 190, 255};

// One vertical scrollbar at the right edge of a list area.
struct SimpleScrollbarLayout {
    SDL_Rect track{};
    SDL_Rect thumb{};
    int max_offset{};  // the highest scroll offset, 0 when everything fits
};

// `total`, `visible` and `offset` share one unit (rows or pixels).
SimpleScrollbarLayout BuildSimpleScrollbarLayout(SDL_Rect const& area, int total, int visible,
                                                 int offset);
void DrawSimpleScrollbar(SDL_Renderer* renderer, SimpleScrollbarLayout const& layout);

// Forwarders to the utility library.
std::string EllipsizeLeft(std::string const& text, unsigned long long max_length);
bool IsAllowedFilenameChar(char c);

}  // namespace zorvane::frontend::gui
