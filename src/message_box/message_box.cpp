// The message box: construction, the modal run, the loop, the layout and the drawing.
//
// [SECTION] Construction and Show: SdlMessageBox, Show
// [SECTION] Layout: VisualForMessageBoxType, WrapText, BuildSdlMessageBoxLayout
// [SECTION] Drawing: DrawSdlMessageBoxButton, RenderSdlMessageBoxFrame
// [SECTION] Loop: RunSdlMessageBoxLoop
#include "message_box/message_box_internal.h"

#include "frame/draw.h"
#include "frame/hit_test.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zorvane::frontend::gui {

namespace {

constexpr SDL_Color kColTextHi{232, 237, 244, 255};

constexpr Uint32 kMessageBoxDelayMs = 12;

// lroundf of `value` · `scale` in float, raised to `lower_limit`.
int Scaled(float value, float scale, int lower_limit) {
    return std::max(static_cast<int>(std::lroundf(value * scale)), lower_limit);
}

// Width and height of `text` in `font`, or 0, 0 when it cannot be measured.
std::pair<int, int> MeasureText(TTF_Font* font, char const* text) {
    int w = 0;
    int h = 0;
    if (font == nullptr || TTF_SizeUTF8(font, text, &w, &h) != 0) {
        return {0, 0};
    }
    return {w, h};
}

// The tallest window the box asks for: the usable height of its display, so that a
// huge message cannot demand a window far beyond any screen.
int MaxWindowHeight(SDL_Window* window, int min_height) {
    SDL_Rect usable{};
    int const display = SDL_GetWindowDisplayIndex(window);
    if (display < 0 || SDL_GetDisplayUsableBounds(display, &usable) != 0 || usable.h <= 0) {
        return std::max(min_height, 4096);
    }
    return std::max(min_height, usable.h);
}

}  // namespace

// [SECTION] Construction and Show

SdlMessageBox::SdlMessageBox(Config config) : config_(std::move(config)) {
    if (config_.buttons.empty()) {
        Button ok;
        ok.id = 1;
        ok.label = "OK";
        ok.is_default = true;
        ok.is_cancel = true;
        config_.buttons.push_back(std::move(ok));
    }
    if (config_.title.empty()) {
        config_.title = "Message";
    }
    config_.width = std::max(config_.width, 320);
    config_.height = std::max(config_.height, 140);
}

int SdlMessageBox::Show(SDL_Window* parent, float /*scale*/) noexcept {
    constexpr float kScale = 1.0f;
    ModalWindowBundle bundle = CreateModalWindowBundle(
        parent, config_.title.c_str(), 80, 80, std::max(config_.width, 320),
        std::max(config_.height, 180), SDL_WINDOW_HIDDEN, kPreferAccelerated);
    if (!bundle.window || !bundle.renderer) {
        return -1;
    }
    SdlMessageBoxFonts const fonts = OpenSdlMessageBoxFonts(kScale);
    if (!fonts.icon || !fonts.title || !fonts.message || !fonts.button) {
        return -1;
    }
    int const result = RunSdlMessageBoxLoop(bundle.window.get(), bundle.renderer.get(), config_,
                                            kScale, VisualForMessageBoxType(config_.type), fonts);
    RestoreModalParentFocus(parent);
    // The fonts go first (they were declared last), then the renderer, then the window.
    return result;
}

// [SECTION] Layout

MessageBoxTypeVisual VisualForMessageBoxType(SdlMessageBox::Type type) {
    switch (type) {
        case SdlMessageBox::Type::Question:
            return {{70, 148, 255, 255}, "?"};
        case SdlMessageBox::Type::Warning:
            return {{255, 180, 0, 255}, "\xE2\x9A\xA0"};  // U+26A0
        case SdlMessageBox::Type::Error:
            return {{255, 92, 92, 255}, "\xE2\x9C\x96"};  // U+2716
        case SdlMessageBox::Type::Critical:
            return {{255, 36, 36, 255}, "\xE2\x9D\x97"};  // U+2757
        case SdlMessageBox::Type::Success:
            return {{92, 204, 108, 255}, "\xE2\x9C\x94"};  // U+2714
        case SdlMessageBox::Type::Info:
        default:
            return {{86, 172, 255, 255}, "\xE2\x84\xB9"};  // U+2139
    }
}

std::vector<std::string> WrapText(TTF_Font* font, std::string const& text, int max_width) {
    int const limit = std::max(max_width, 40);
    std::vector<std::string> lines;
    std::string line;
    std::string word;

    auto end_word = [&] {
        if (word.empty()) {
            return;
        }
        std::string candidate = line.empty() ? word : line + " " + word;
        int w = 0;
        int h = 0;
        if (TTF_SizeUTF8(font, candidate.c_str(), &w, &h) == 0 && w <= limit) {
            line = std::move(candidate);
        } else {
            if (!line.empty()) {
                lines.push_back(std::move(line));
            }
            line = word;
        }
        word.clear();
    };

    for (char const c : text) {
        if (c == '\n') {
            end_word();
            lines.push_back(std::move(line));
            line.clear();
        } else if (c == ' ' || c == '\t') {
            end_word();
        } else {
            word.push_back(c);
        }
    }
    end_word();
    if (!line.empty()) {
        lines.push_back(std::move(line));
    }
    if (lines.empty()) {
        lines.emplace_back();
    }
    return lines;
}

SdlMessageBoxLayout BuildSdlMessageBoxLayout(SdlMessageBox::Config const& config, float scale,
                                             int window_width, int window_height,
                                             TTF_Font* title_font, TTF_Font* message_font) {
    int const W = window_width;
    int const H = window_height;
    int const n = static_cast<int>(std::min<std::size_t>(config.buttons.size(), 1u << 20));

    SdlMessageBoxLayout l;
    l.margin = Scaled(10.0f, scale, 6);
    l.padding = Scaled(20.0f, scale, 12);
    l.gap = Scaled(12.0f, scale, 8);
    l.icon_width = Scaled(42.0f, scale, 34);
    l.icon_height = Scaled(44.0f, scale, 34);
    l.button_height = Scaled(28.0f, scale, 28);
    l.button_gap = Scaled(8.0f, scale, 8);
    l.button_width = Scaled(84.0f, scale, 84);
    l.footer_height = Scaled(52.0f, scale, 44);

    int const row_width = n * l.button_width + std::max(n - 1, 0) * l.button_gap;
    l.buttons_x = std::max(W - l.margin - l.padding - row_width, l.margin + l.padding);
    l.buttons_y = H - l.margin - l.footer_height + (l.footer_height - l.button_height) / 2;

    l.outer = {l.margin, l.margin, W - 2 * l.margin, H - 2 * l.margin};
    l.content = {l.margin + 1, l.margin + 1, W - 2 * l.margin - 2,
                 std::max(H - 2 * l.margin - l.footer_height - 1, 1)};
    l.footer = {l.margin + 1, H - l.margin - l.footer_height, W - 2 * l.margin - 2,
                l.footer_height - 1};
    l.title_y = l.margin + 1 + l.padding;
    l.icon = {l.margin + 1 + l.padding, l.margin + 1 + l.padding, l.icon_width, l.icon_height};
    l.text_x = l.margin + 1 + l.padding + l.icon_width + l.gap;
    l.text_width = std::max(W - l.margin - 1 - l.padding - l.text_x, 40);

    l.title_height = std::max(MeasureText(title_font, config.title.c_str()).second, 16);
    int const head_height = std::max(l.icon_height, l.title_height);
    int const message_top = l.title_y + head_height + l.gap;
    int const content_bottom = l.content.y + l.content.h;
    l.message_rect = {l.text_x, message_top, l.text_width,
                      std::max(content_bottom - message_top - l.padding, 40)};
    l.line_height = std::max(MeasureText(message_font, "Ag").second, 14);

    if (config.message.empty()) {
        l.lines.emplace_back();
    } else if (message_font != nullptr) {
        l.lines = WrapText(message_font, config.message, l.text_width);
    }

    long long const content_height =
        2LL * (l.margin + l.padding) + head_height + l.gap +
        static_cast<long long>(l.line_height) * static_cast<long long>(l.lines.size()) + l.padding +
        l.footer_height;
    l.content_height = static_cast<int>(std::min<long long>(content_height, 1LL << 30));
    int const base_height = std::max(config.height, 160);
    l.min_height = std::max(Scaled(static_cast<float>(base_height), scale, 0), base_height);
    l.window_height = std::max(l.content_height, l.min_height);
    return l;
}

SDL_Rect MessageBoxButtonRect(SdlMessageBoxLayout const& layout, int index) {
    return {layout.buttons_x + index * (layout.button_width + layout.button_gap), layout.buttons_y,
            layout.button_width, layout.button_height};
}

// [SECTION] Drawing

void DrawSdlMessageBoxButton(SDL_Renderer* renderer, TTF_Font* font, SDL_Rect const& rect,
                             std::string const& label, bool hovered) {
    FillRect(renderer, rect, hovered ? SDL_Color{68, 76, 92, 255} : SDL_Color{48, 54, 68, 255});
    OutlineRect(renderer, rect, {84, 92, 108, 255});
    auto const [text_w, text_h] = MeasureText(font, label.c_str());
    int const dw = rect.w - text_w;
    int const dh = rect.h - text_h;
    int const offset_x = dw < 14 ? 6 : (dw >> 1);
    int const offset_y = dh < 10 ? 4 : (dh >> 1);
    DrawSdlUiText(renderer, font, label, rect.x + offset_x, rect.y + offset_y, kColTextHi, nullptr);
}

void RenderSdlMessageBoxFrame(SDL_Renderer* renderer, SdlMessageBox::Config const& config,
                              MessageBoxTypeVisual const& visual, SdlMessageBoxLayout const& layout,
                              TTF_Font* icon_font, TTF_Font* title_font, TTF_Font* message_font,
                              TTF_Font* button_font, int mouse_x, int mouse_y) {
    constexpr SDL_Color kOutline{52, 58, 70, 255};
    SDL_Rect const& outer = layout.outer;

    SDL_SetRenderDrawColor(renderer, 18, 21, 27, 255);
    SDL_RenderClear(renderer);
    OutlineRect(renderer, outer, kOutline);
    FillRect(renderer, layout.content, {24, 27, 34, 255});
    FillRect(renderer, layout.footer, {22, 25, 32, 255});
    int const footer_line_y = outer.y + outer.h - layout.footer_height;
    SDL_SetRenderDrawColor(renderer, kOutline.r, kOutline.g, kOutline.b, kOutline.a);
    SDL_RenderDrawLine(renderer, outer.x + 1, footer_line_y, outer.x + outer.w - 2, footer_line_y);

    // The icon tile with its accent strip and the type's glyph centred in it.
    FillRect(renderer, layout.icon, {20, 23, 30, 255});
    OutlineRect(renderer, layout.icon, kOutline);
    FillRect(renderer, {layout.icon.x, layout.icon.y, 4, layout.icon.h}, visual.color);
    auto const [glyph_w, glyph_h] = MeasureText(icon_font, visual.glyph);
    DrawSdlUiText(renderer, icon_font, visual.glyph, layout.icon.x + (layout.icon.w - glyph_w) / 2,
                  layout.icon.y + (layout.icon.h - glyph_h) / 2, visual.color, nullptr);

    int title_top = layout.title_y;
    if (layout.icon_height - layout.title_height > 1) {
        title_top += (layout.icon_height - layout.title_height) / 2;
    }
    DrawSdlUiText(renderer, title_font, config.title, layout.text_x, title_top, kColTextHi,
                  nullptr);

    // Lines are drawn while they fit; the first one that does not ends the text.
    SDL_Rect const& area = layout.message_rect;
    int line_top = area.y;
    int drawn = 0;
    for (std::string const& line : layout.lines) {
        if (line_top + layout.line_height > area.y + area.h) {
            break;
        }
        DrawSdlUiText(renderer, message_font, line, area.x, line_top, kColTextHi, nullptr);
        line_top += layout.line_height;
        ++drawn;
    }
    if (drawn == 0) {
        DrawSdlUiText(renderer, message_font, config.message, area.x, area.y, kColTextHi, nullptr);
    }

    int const count = static_cast<int>(config.buttons.size());
    for (int i = 0; i < count; ++i) {
        SDL_Rect const rect = MessageBoxButtonRect(layout, i);
        DrawSdlMessageBoxButton(renderer, button_font, rect, config.buttons[i].label,
                                IsPointInRect(rect, mouse_x, mouse_y));
    }
}

// [SECTION] Loop

int RunSdlMessageBoxLoop(SDL_Window* window, SDL_Renderer* renderer,
                         SdlMessageBox::Config const& config, float scale,
                         MessageBoxTypeVisual const& visual,
                         SdlMessageBoxFonts const& fonts) noexcept {
    Uint32 const window_id = SDL_GetWindowID(window);
    int const button_count = static_cast<int>(config.buttons.size());
    int result = -1;
    bool close_requested = false;
    bool shown = false;

    while (true) {
        PumpModalDialogHeartbeat();

        // Layout from the current size; the window grows or shrinks to fit the text,
        // and the new size counts from the next turn on.
        int width = 0;
        int height = 0;
        SDL_GetWindowSize(window, &width, &height);
        SdlMessageBoxLayout const layout = BuildSdlMessageBoxLayout(
            config, scale, width, height, fonts.title.get(), fonts.message.get());
        int const wanted_height =
            std::min(layout.window_height, MaxWindowHeight(window, layout.min_height));
        if (std::abs(wanted_height - height) > 1) {
            SDL_SetWindowSize(window, width, wanted_height);
            SDL_GetWindowSize(window, &width, &height);
        }

        SDL_Event event;
        while (SDL_PollEvent(&event) != 0) {
            if (event.type == SDL_QUIT) {
                close_requested = true;
                break;
            }
            if (event.type == SDL_WINDOWEVENT && event.window.windowID == window_id &&
                event.window.event == SDL_WINDOWEVENT_CLOSE) {
                close_requested = true;
                break;
            }
            if (event.type == SDL_KEYDOWN && event.key.keysym.sym == SDLK_ESCAPE &&
                config.close_on_escape) {
                auto const cancel =
                    std::find_if(config.buttons.begin(), config.buttons.end(),
                                 [](SdlMessageBox::Button const& b) { return b.is_cancel; });
                if (cancel != config.buttons.end()) {
                    result = cancel->id;
                    if (cancel->on_click) {
                        cancel->on_click();
                    }
                }
                close_requested = true;
                break;
            }
            if (event.type == SDL_MOUSEBUTTONUP && event.button.button == SDL_BUTTON_LEFT) {
                // A click does not stop the reading: a later queued click wins.
                for (int i = 0; i < button_count; ++i) {
                    if (IsPointInRect(MessageBoxButtonRect(layout, i), event.button.x,
                                      event.button.y)) {
                        result = config.buttons[i].id;
                        if (config.buttons[i].on_click) {
                            config.buttons[i].on_click();
                        }
                        close_requested = true;
                        break;
                    }
                }
            }
        }

        int mouse_x = -1;
        int mouse_y = -1;
        if (SDL_GetMouseFocus() == window) {
            SDL_GetMouseState(&mouse_x, &mouse_y);
        }
        RenderSdlMessageBoxFrame(renderer, config, visual, layout, fonts.icon.get(),
                                 fonts.title.get(), fonts.message.get(), fonts.button.get(),
                                 mouse_x, mouse_y);
        SDL_RenderPresent(renderer);
        if (!shown) {
            SDL_ShowWindow(window);
            SDL_RaiseWindow(window);
            SDL_SetWindowInputFocus(window);
            shown = true;
        }
        SDL_Delay(kMessageBoxDelayMs);
        if (close_requested) {
            return result;
        }
    }
}

}  // namespace zorvane::frontend::gui
