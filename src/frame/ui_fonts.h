// UI fonts: the font file search, owned font handles, the process-wide font cache,
// the font sets of the message box and the About dialog, and one-line text drawing.
#pragma once

#include "frame/modal_window.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane::frontend::gui {

enum SdlUiFontKind : int {
    kSemiBold = 0,  // the semi-bold family, used for nearly all UI text
    kRegular = 1,   // the regular family; every other value acts like 0
};

// Owning handle of one font; null when no font could be opened.
using SdlUiFontHandle = std::unique_ptr<TTF_Font, TtfFontDeleter>;

// Font files, tried from first to last, relative ones against the working directory.
inline constexpr std::array<char const*, 3> kRegularFontPaths = {
    "./data/ttf/IBMPlexSans-Regular.ttf",
    "data/ttf/IBMPlexSans-Regular.ttf",
    ".\\data\\ttf\\IBMPlexSans-Regular.ttf",
};
inline constexpr std::array<char const*, 3> kSemiBoldFontPaths = {
    "./data/ttf/IBMPlexSans-SemiBold.ttf",
    "data/ttf/IBMPlexSans-SemiBold.ttf",
    ".\\data\\ttf\\IBMPlexSans-SemiBold.ttf",
};
inline constexpr std::array<char const*, 10> kSystemFontPaths = {
    "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf",
    "/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf",
    "/usr/share/fonts/TTF/DejaVuSans.ttf",
    "/usr/share/fonts/TTF/DejaVuSansMono.ttf",
    "/System/Library/Fonts/Courier New.ttf",
    "/Library/Fonts/Courier New.ttf",
    "/Library/Fonts/Arial.ttf",
    "C:\\Windows\\Fonts\\cour.ttf",
    "C:\\Windows\\Fonts\\COURIER.TTF",
    "C:\\Windows\\Fonts\\arial.ttf",
};

// One entry of the font cache; (point_size, bold, kind) is the key.
struct CachedSdlUiFont {
    int point_size{};
    bool bold = false;
    SdlUiFontKind kind = kSemiBold;
    SdlUiFontHandle font;
};

// The cache itself, created on first use; no limit, no eviction, no lock.
std::vector<CachedSdlUiFont>& GetCachedSdlUiFonts();

// The fonts of the message box. Members that could not be opened stay null.
struct SdlMessageBoxFonts {
    SdlUiFontHandle icon;
    SdlUiFontHandle title;
    SdlUiFontHandle message;
    SdlUiFontHandle button;
};

// The fonts of the About dialog. Members that could not be opened stay null.
struct AboutDialogFonts {
    SdlUiFontHandle title;
    SdlUiFontHandle contact;
    SdlUiFontHandle label;
    SdlUiFontHandle info;
    SdlUiFontHandle link;
    SdlUiFontHandle footer;
};

// Opens a new font that the caller owns; null below 1 point or when nothing opens.
SdlUiFontHandle OpenSdlUiFontHandle(int point_size, bool bold, SdlUiFontKind kind);

// A font that the cache keeps owning, or null. A failed key stays null until
// ShutdownSdlUiCachedFonts.
TTF_Font* GetCachedSdlUiFont(int point_size, bool bold, SdlUiFontKind kind) noexcept;

SdlMessageBoxFonts OpenSdlMessageBoxFonts(float scale);
AboutDialogFonts OpenAboutDialogFonts(float scale);

// The font of the screenshot and disk image forms: cached, 16 points, not bold.
TTF_Font* EnsureScreenshotDialogFont();

// TTF_FontHeight of `font`, or `fallback` for a null font.
int FontHeightOr(TTF_Font* font, int fallback);

// Draws one line of UTF-8 with its top-left corner at (`x`, `y`). `out_rect`, if not
// null, receives the drawn rectangle, and only when something was drawn.
void DrawSdlUiText(SDL_Renderer* renderer, TTF_Font* font, std::basic_string_view<char> text, int x,
                   int y, SDL_Color color, SDL_Rect* out_rect);

// Thin forms of DrawSdlUiText for the dialogs.
void DrawText(SDL_Renderer* renderer, TTF_Font* font, std::string const& text, int x, int y,
              SDL_Color color);
void DrawShaderDialogText(SDL_Renderer* renderer, TTF_Font* font, std::string const& text, int x,
                          int y, SDL_Color color);
void DrawSimpleModalText(SDL_Renderer* renderer, char const* text, int x, int y, SDL_Color color);
void DrawHddCreateDialogText(SDL_Renderer* renderer, char const* text, int x, int y,
                             SDL_Color color);
void DrawScreenshotDialogText(SDL_Renderer* renderer, char const* text, int x, int y,
                              SDL_Color color);

}  // namespace zorvane::frontend::gui
