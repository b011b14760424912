// The About dialog: its measures, the drawing of a frame and of a link row, and the
// modal run with the links that open on a press.
//
// [SECTION] Measures: BuildAboutDialogMetrics, AboutDialogWindowHeight
// [SECTION] Drawing: DrawLinkRow, RenderAboutDialogFrame
// [SECTION] Run: ShowSimpleAboutDialog
#include "about/about_dialog.h"

#include "frame/draw.h"
#include "frame/hit_test.h"
#include "gui/about.h"

#include <algorithm>
#include <cmath>

namespace zorvane::frontend::gui {

namespace {

constexpr SDL_Color kColTextHi{232, 237, 244, 255};
constexpr SDL_Color kColTextMid{170, 178, 192, 255};
constexpr SDL_Color kColTextDim{100, 108, 122, 255};
constexpr SDL_Color kColAccentFg{106, 166, 255, 255};

constexpr SDL_Color kWindowBackground{18, 21, 27, 255};
constexpr SDL_Color kOutline{52, 58, 70, 255};
constexpr SDL_Color kContent{24, 27, 34, 255};
constexpr SDL_Color kFooter{22, 25, 32, 255};
constexpr SDL_Color kTile{20, 23, 30, 255};
constexpr SDL_Color kTileHovered{40, 46, 60, 255};

constexpr Uint32 kAboutDialogDelayMs = 12;

constexpr char const* kContactLine = "Contact: contact@zorvane.org";
constexpr char const* kAuthorLine = "Written by the Zorvane developers";

// lroundf of `value` times `scale`, in float.
int Scaled(float value, float scale) {
    return static_cast<int>(std::lroundf(value * scale));
}

void SetColor(SDL_Renderer* renderer, SDL_Color color) {
    SDL_SetRenderDrawColor(renderer, color.r, color.g, color.b, color.a);
}

void DrawLabelled(SDL_Renderer* renderer, TTF_Font* font, int x, int value_x, int y,
                  char const* label, std::string const& value) {
    DrawSdlUiText(renderer, font, label, x, y, kColTextDim, nullptr);
    DrawSdlUiText(renderer, font, value, value_x, y, kColTextHi, nullptr);
}

// The panel of build facts: a heading and three rows in two columns.
void RenderAboutBuildPanel(SDL_Renderer* renderer, SDL_Rect const& panel,
                           AboutDialogFonts const& fonts, AboutDialogMetrics const& m,
                           AboutDialogInfoRows const& rows) {
    float const s = m.scale;
    FillRect(renderer, panel, kTile);
    OutlineRect(renderer, panel, kOutline);
    int const left = panel.x + m.build_padding_x;
    int const right = left + Scaled(24, s) + (panel.w - 2 * m.build_padding_x - Scaled(24, s)) / 2;
    int const left_value = left + Scaled(86, s);
    int const right_value = right + Scaled(72, s);
    int y = panel.y + m.build_padding_y;
    DrawSdlUiText(renderer, fonts.label.get(), "BUILD INFO", left, y, kColTextDim, nullptr);
    y += m.build_heading_gap + m.label_height;
    TTF_Font* info = fonts.info.get();
    DrawLabelled(renderer, info, left, left_value, y, "Version", rows.version);
    DrawLabelled(renderer, info, right, right_value, y, "Build date", rows.build_date);
    y += m.build_row_gap + m.info_height;
    DrawLabelled(renderer, info, left, left_value, y, "Compiler", rows.compiler);
    DrawLabelled(renderer, info, right, right_value, y, "Platform", rows.platform);
    y += m.build_row_gap + m.info_height;
    DrawLabelled(renderer, info, left, left_value, y, "Arch", rows.arch);
    DrawLabelled(renderer, info, right, right_value, y, "Flags", rows.flags);
}

// Frame rectangles from the margin and the footer's height.
struct AboutDialogFrameRects {
    SDL_Rect outer{};
    SDL_Rect content{};
    SDL_Rect footer{};
};

AboutDialogFrameRects BuildAboutDialogFrameRects(AboutDialogMetrics const& m, int height) {
    int const margin = m.outer_margin;
    int const f = m.footer_height;
    int const w = kAboutDialogWidth;
    AboutDialogFrameRects rects;
    rects.outer = {margin, margin, w - 2 * margin, height - 2 * margin};
    rects.content = {margin + 1, margin + 1, w - 2 - 2 * margin, height - 2 * margin - f - 1};
    rects.footer = {margin + 1, height - margin - f, w - 2 - 2 * margin, f - 1};
    return rects;
}

// What the run keeps from frame to frame.
struct AboutDialogRun {
    SDL_Window* window = nullptr;
    Uint32 window_id = 0;
    bool close_requested = false;
    bool shown = false;
    SDL_Rect video_rect{};
    SDL_Rect home_rect{};
};

// Drains the whole queue, also after a close request.
void HandleAboutDialogEvents(AboutDialogRun& run) {
    SDL_Event event;
    while (SDL_PollEvent(&event) != 0) {
        if (event.type == SDL_QUIT) {
            run.close_requested = true;
        } else if (event.type == SDL_WINDOWEVENT && event.window.windowID == run.window_id &&
                   event.window.event == SDL_WINDOWEVENT_CLOSE) {
            run.close_requested = true;
        } else if (event.type == SDL_KEYDOWN && event.key.keysym.sym == SDLK_ESCAPE) {
            run.close_requested = true;
        } else if (event.type == SDL_MOUSEBUTTONDOWN && event.button.button == SDL_BUTTON_LEFT) {
            if (IsPointInRect(run.video_rect, event.button.x, event.button.y)) {
                SDL_OpenURL(kAboutVideoUrl);
            }
            if (IsPointInRect(run.home_rect, event.button.x, event.button.y)) {
                SDL_OpenURL(kAboutHomepageUrl);
            }
        }
    }
}

void RunAboutDialogLoop(AboutDialogRun& run, SDL_Renderer* renderer, AboutDialogFonts const& fonts,
                        AboutDialogMetrics const& metrics, AboutDialogInfoRows const& rows,
                        int height) {
    AboutDialogFrameRects const rects = BuildAboutDialogFrameRects(metrics, height);
    while (!run.close_requested) {
        PumpModalDialogHeartbeat();
        HandleAboutDialogEvents(run);
        int mouse_x = -1;
        int mouse_y = -1;
        if (SDL_GetMouseFocus() == run.window) {
            SDL_GetMouseState(&mouse_x, &mouse_y);
        }
        RenderAboutDialogFrame(renderer, rects.outer, rects.content, rects.footer, fonts, metrics,
                               rows, mouse_x, mouse_y, &run.video_rect, &run.home_rect);
        SDL_RenderPresent(renderer);
        if (!run.shown) {
            SDL_ShowWindow(run.window);
            SDL_RaiseWindow(run.window);
            SDL_SetWindowInputFocus(run.window);
            run.shown = true;
        }
        SDL_Delay(kAboutDialogDelayMs);
    }
}

}  // namespace

// [SECTION] Measures

AboutDialogMetrics BuildAboutDialogMetrics(AboutDialogFonts const& fonts, float scale) {
    float const s = scale;
    AboutDialogMetrics m;
    m.outer_margin = Scaled(12, s);
    m.padding = Scaled(20, s);
    m.top_padding = Scaled(18, s);
    m.title_height = FontHeightOr(fonts.title.get(), Scaled(28, s));
    m.title_gap = Scaled(10, s);
    m.contact_height = FontHeightOr(fonts.contact.get(), Scaled(18, s));
    m.contact_gap = Scaled(5, s);
    m.divider_gap = Scaled(11, s);
    m.links_top_gap = Scaled(14, s);
    m.link_gap = Scaled(10, s);
    m.links_bottom_gap = Scaled(14, s);
    m.build_padding_x = Scaled(14, s);
    m.build_padding_y = Scaled(12, s);
    m.build_heading_gap = Scaled(10, s);
    m.build_row_gap = Scaled(9, s);
    m.label_height = FontHeightOr(fonts.label.get(), Scaled(17, s));
    m.info_height = FontHeightOr(fonts.info.get(), Scaled(18, s));
    m.link_height = FontHeightOr(fonts.link.get(), Scaled(18, s));
    m.footer_text_height = FontHeightOr(fonts.footer.get(), Scaled(16, s));
    m.link_row_height = std::max(m.label_height + 2 * Scaled(18, s) + m.link_height, Scaled(56, s));
    m.build_panel_height =
        m.label_height + 2 * Scaled(12, s) + Scaled(10, s) + 3 * m.info_height + 2 * Scaled(9, s);
    m.footer_height = m.footer_text_height + Scaled(24, s);
    m.scale = s;
    return m;
}

int AboutDialogWindowHeight(AboutDialogMetrics const& m) {
    return 2 * m.outer_margin + m.top_padding + m.title_height + m.title_gap +
           2 * m.contact_height + m.contact_gap + m.divider_gap + m.links_top_gap +
           2 * m.link_row_height + m.link_gap + m.links_bottom_gap + m.build_panel_height +
           m.footer_height + 24;
}

// [SECTION] Drawing

void DrawLinkRow(SDL_Renderer* renderer, TTF_Font* label_font, TTF_Font* value_font,
                 SDL_Rect const& rect, std::string const& label, std::string const& value,
                 bool hovered) {
    FillRect(renderer, rect, hovered ? kTileHovered : kTile);
    OutlineRect(renderer, rect, kOutline);
    int const lh = FontHeightOr(label_font, 14);
    int const vh = FontHeightOr(value_font, 16);
    int const d = rect.h - (lh + 4 + vh);
    int const top = d < 18 ? rect.y + 8 : rect.y + (d >> 1);
    DrawSdlUiText(renderer, label_font, label, rect.x + 12, top, kColTextDim, nullptr);
    DrawSdlUiText(renderer, value_font, value, rect.x + 12, top + lh + 4, kColAccentFg, nullptr);
}

void RenderAboutDialogFrame(SDL_Renderer* renderer, SDL_Rect const& outer, SDL_Rect const& content,
                            SDL_Rect const& footer, AboutDialogFonts const& fonts,
                            AboutDialogMetrics const& m, AboutDialogInfoRows const& rows,
                            int mouse_x, int mouse_y, SDL_Rect* video_rect, SDL_Rect* home_rect) {
    if (renderer == nullptr) {
        return;
    }
    SetColor(renderer, kWindowBackground);
    SDL_RenderClear(renderer);
    OutlineRect(renderer, outer, kOutline);
    FillRect(renderer, content, kContent);
    FillRect(renderer, footer, kFooter);
    SetColor(renderer, kOutline);
    SDL_RenderDrawLine(renderer, content.x, footer.y, content.x + content.w - 1, footer.y);

    int const x0 = content.x + m.padding;
    int const w = content.w - 2 * m.padding;
    int y = content.y + m.top_padding;
    DrawSdlUiText(renderer, fonts.title.get(), "Zorvane", x0, y, kColTextHi, nullptr);
    y += m.title_height + m.title_gap;
    DrawSdlUiText(renderer, fonts.contact.get(), kContactLine, x0, y, kColTextMid, nullptr);
    y += m.contact_height + m.contact_gap;
    DrawSdlUiText(renderer, fonts.contact.get(), kAuthorLine, x0, y, kColTextMid, nullptr);
    y += m.contact_height + m.divider_gap;
    SetColor(renderer, kOutline);
    SDL_RenderDrawLine(renderer, x0, y, x0 + w, y);

    y += m.links_top_gap;
    struct LinkRow {
        SDL_Rect* out;
        char const* label;
        char const* url;
    };
    for (LinkRow const& link : {LinkRow{video_rect, "YOUTUBE", kAboutVideoUrl},
                                LinkRow{home_rect, "HOMEPAGE", kAboutHomepageUrl}}) {
        SDL_Rect const row{x0, y, w, m.link_row_height};
        if (link.out != nullptr) {
            *link.out = row;
            DrawLinkRow(renderer, fonts.label.get(), fonts.link.get(), row, link.label, link.url,
                        IsPointInRect(row, mouse_x, mouse_y));
        }
        y += m.link_row_height + m.link_gap;
    }
    y += m.links_bottom_gap - m.link_gap;
    RenderAboutBuildPanel(renderer, {x0, y, w, m.build_panel_height}, fonts, m, rows);
    DrawSdlUiText(renderer, fonts.footer.get(), "ESC to close", outer.x + m.padding,
                  footer.y + (footer.h - m.footer_text_height) / 2, kColTextDim, nullptr);
}

// [SECTION] Run

void ShowSimpleAboutDialog(SDL_Window* parent, float /*scale*/) {
    AboutDialogFonts const fonts = OpenAboutDialogFonts(kAboutDialogScale);
    AboutDialogMetrics const metrics = BuildAboutDialogMetrics(fonts, kAboutDialogScale);
    AboutDialogInfoRows const rows = BuildAboutDialogInfoRows();
    int const height = AboutDialogWindowHeight(metrics);
    ModalWindowBundle const bundle =
        CreateModalWindowBundle(parent, "About Zorvane", 80, 80, kAboutDialogWidth, height,
                                SDL_WINDOW_HIDDEN, kPreferAccelerated);
    if (!bundle.window || !bundle.renderer) {
        return;
    }
    AboutDialogRun run;
    run.window = bundle.window.get();
    run.window_id = SDL_GetWindowID(run.window);
    RunAboutDialogLoop(run, bundle.renderer.get(), fonts, metrics, rows, height);
    RestoreModalParentFocus(parent);
}

}  // namespace zorvane::frontend::gui
