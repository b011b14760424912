// Font file search, owned font handles, the font cache and the dialogs' font sets.
#include "frame/ui_fonts.h"

#include <cmath>

namespace zorvane::frontend::gui {

namespace {

// Opens the first path of `paths` that SDL_ttf accepts and gives it `style`.
template <std::size_t N>
SdlUiFontHandle OpenFirstFont(std::array<char const*, N> const& paths, int point_size, int style) {
    for (char const* path : paths) {
        if (TTF_Font* font = TTF_OpenFont(path, point_size)) {
            TTF_SetFontStyle(font, style);
            return SdlUiFontHandle(font);
        }
    }
    return nullptr;
}

int ScaledPointSize(float factor, float scale) {
    return static_cast<int>(std::lroundf(factor * scale));
}

int ScaledPointSize(float factor, float scale, int lower_limit) {
    int const size = ScaledPointSize(factor, scale);
    return size < lower_limit ? lower_limit : size;
}

}  // namespace

SdlUiFontHandle OpenSdlUiFontHandle(int point_size, bool bold, SdlUiFontKind kind) {
    if (point_size < 1) {
        return nullptr;
    }
    if (TTF_WasInit() == 0 && TTF_Init() != 0) {
        return nullptr;
    }
    int const bold_style = bold ? TTF_STYLE_BOLD : TTF_STYLE_NORMAL;
    if (!bold && kind == kRegular) {
        if (auto font = OpenFirstFont(kRegularFontPaths, point_size, TTF_STYLE_NORMAL)) {
            return font;
        }
    }
    if (auto font = OpenFirstFont(kSemiBoldFontPaths, point_size, bold_style)) {
        return font;
    }
    if (!bold) {
        if (auto font = OpenFirstFont(kRegularFontPaths, point_size, TTF_STYLE_NORMAL)) {
            return font;
        }
    }
    return OpenFirstFont(kSystemFontPaths, point_size, bold_style);
}

std::vector<CachedSdlUiFont>& GetCachedSdlUiFonts() {
    static std::vector<CachedSdlUiFont> cache;
    return cache;
}

TTF_Font* GetCachedSdlUiFont(int point_size, bool bold, SdlUiFontKind kind) noexcept {
    // Only the kind values 0 and 1 exist; any other asks for the semi-bold family,
    // and is kept under that key.
    if (kind != kRegular) {
        kind = kSemiBold;
    }
    auto& cache = GetCachedSdlUiFonts();
    for (CachedSdlUiFont const& entry : cache) {
        if (entry.point_size == point_size && entry.bold == bold && entry.kind == kind) {
            return entry.font.get();
        }
    }
    // A failed request is stored as well, so the same key does not search again.
    cache.push_back({point_size, bold, kind, OpenSdlUiFontHandle(point_size, bold, kind)});
    return cache.back().font.get();
}

void ShutdownSdlUiCachedFonts() {
    auto& cache = GetCachedSdlUiFonts();
    for (CachedSdlUiFont& entry : cache) {
        entry.font.reset();
    }
    cache.clear();
}

SdlMessageBoxFonts OpenSdlMessageBoxFonts(float scale) {
    SdlMessageBoxFonts fonts;
    fonts.icon = OpenSdlUiFontHandle(ScaledPointSize(18.0f, scale, 16), true, kSemiBold);
    fonts.title = OpenSdlUiFontHandle(ScaledPointSize(14.0f, scale, 14), true, kSemiBold);
    fonts.message = OpenSdlUiFontHandle(ScaledPointSize(14.0f, scale, 14), false, kSemiBold);
    fonts.button = OpenSdlUiFontHandle(ScaledPointSize(14.0f, scale, 14), false, kSemiBold);
    return fonts;
}

AboutDialogFonts OpenAboutDialogFonts(float scale) {
    AboutDialogFonts fonts;
    fonts.title = OpenSdlUiFontHandle(ScaledPointSize(20.0f, scale), true, kSemiBold);
    fonts.contact = OpenSdlUiFontHandle(ScaledPointSize(14.0f, scale), false, kSemiBold);
    fonts.label = OpenSdlUiFontHandle(ScaledPointSize(13.0f, scale), true, kSemiBold);
    fonts.info = OpenSdlUiFontHandle(ScaledPointSize(14.0f, scale), false, kSemiBold);
    fonts.link = OpenSdlUiFontHandle(ScaledPointSize(14.0f, scale), true, kSemiBold);
    fonts.footer = OpenSdlUiFontHandle(ScaledPointSize(13.0f, scale), false, kSemiBold);
    return fonts;
}

TTF_Font* EnsureScreenshotDialogFont() {
    return GetCachedSdlUiFont(16, false, kSemiBold);
}

int FontHeightOr(TTF_Font* font, int fallback) {
    return font != nullptr ? TTF_FontHeight(font) : fallback;
}

}  // namespace zorvane::frontend::gui
