// Internals of the About dialog: the build facts it shows, its measures, and the
// drawing of one frame and of a link row.
#pragma once

#include "frame/ui_fonts.h"

#include <string>

namespace zorvane::frontend::gui {

// The fixed scale that the dialog always runs at.
inline constexpr float kAboutDialogScale = 1.2f;
inline constexpr int kAboutDialogWidth = 860;

inline constexpr char const* kAboutVideoUrl = "https://www.youtube.com/@zorvane";
inline constexpr char const* kAboutHomepageUrl = "https://zorvane.org";

// The six texts of the build panel.
struct AboutDialogInfoRows {
    std::string version;     // "v" and the program's version
    std::string build_date;  // kProgramBuildDate
    std::string compiler;    // such as "GNU 12.2.0"
    std::string platform;    // such as "Linux"
    std::string arch;        // such as "x86_64 (64-bit)"
    std::string flags;       // such as "LTO OFF  PGO OFF  O2 ON  O3 OFF"
};

// Measures in pixels at a scale; font heights fall back on fixed values.
struct AboutDialogMetrics {
    int outer_margin{};
    int padding{};
    int top_padding{};
    int title_height{};
    int title_gap{};
    int contact_height{};
    int contact_gap{};
    int divider_gap{};
    int links_top_gap{};
    int link_gap{};
    int links_bottom_gap{};
    int build_padding_x{};
    int build_padding_y{};
    int build_heading_gap{};
    int build_row_gap{};
    int label_height{};
    int info_height{};
    int link_height{};
    int footer_text_height{};
    int link_row_height{};
    int build_panel_height{};
    int footer_height{};
    float scale = 1.0f;
};

AboutDialogMetrics BuildAboutDialogMetrics(AboutDialogFonts const& fonts, float scale);
AboutDialogInfoRows BuildAboutDialogInfoRows();

// The window's height, computed once from the content's measures.
int AboutDialogWindowHeight(AboutDialogMetrics const& m);

// Draws one frame; `video_rect` and `home_rect` receive the link rows, and a row
// whose pointer is null is not drawn. Does nothing without a renderer.
void RenderAboutDialogFrame(SDL_Renderer* renderer, SDL_Rect const& outer, SDL_Rect const& content,
                            SDL_Rect const& footer, AboutDialogFonts const& fonts,
                            AboutDialogMetrics const& metrics, AboutDialogInfoRows const& rows,
                            int mouse_x, int mouse_y, SDL_Rect* video_rect, SDL_Rect* home_rect);

void DrawLinkRow(SDL_Renderer* renderer, TTF_Font* label_font, TTF_Font* value_font,
                 SDL_Rect const& rect, std::string const& label, std::string const& value,
                 bool hovered);

}  // namespace zorvane::frontend::gui
