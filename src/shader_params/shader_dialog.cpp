// The shader parameter dialog: its entry point, the event loop with its handlers for
// wheel, press, release, motion and keys, and the drawing of one frame.
//
// [SECTION] Input: HandleShaderDialogWheel, HandleShaderDialogPress,
//           HandleShaderDialogRelease, HandleShaderDialogMotion, HandleShaderDialogEvent
// [SECTION] Drawing: RenderShaderDialogRow, RenderShaderDialog
// [SECTION] Loop and entry point: RunShaderParameterDialog, ShowShaderParameterDialog
#include "shader_params/shader_dialog.h"

#include "frame/look.h"
#include "frame/ui_fonts.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <iomanip>
#include <sstream>

namespace zorvane::frontend::gui {

namespace {

constexpr Uint32 kShaderDialogDelayMs = 12;
constexpr int kFooterHeight = 52;

constexpr SDL_Color kColBackground{18, 20, 26, 255};
constexpr SDL_Color kColHeader{26, 28, 36, 255};
constexpr SDL_Color kColBright{236, 241, 246, 255};
constexpr SDL_Color kColSoft{180, 188, 198, 255};
constexpr SDL_Color kColCardFill{32, 36, 44, 200};
constexpr SDL_Color kColCardOutline{58, 64, 74, 255};
constexpr SDL_Color kColBarFill{52, 56, 64, 255};
constexpr SDL_Color kColBarOutline{78, 86, 96, 255};
constexpr SDL_Color kColBarFilled{106, 156, 255, 255};
constexpr SDL_Color kColKnob{126, 176, 255, 255};
constexpr SDL_Color kColTrack{30, 33, 40, 255};
constexpr SDL_Color kColThumbFill{72, 80, 94, 255};
constexpr SDL_Color kColThumbOutline{96, 108, 128, 255};
constexpr SDL_Color kColFooter{26, 30, 38, 255};
constexpr SDL_Color kColFooterLine{60, 66, 78, 255};
constexpr SDL_Color kColButtonFill{48, 52, 60, 255};
constexpr SDL_Color kColButtonOutline{84, 92, 104, 255};

int ParameterCount(ShaderDialogSession const& session) {
    return static_cast<int>(std::min<std::size_t>(session.specs->size(), INT_MAX));
}

// Whether `row` has both a spec and a value to edit.
bool IsEditableRow(ShaderDialogSession const& session, int row) {
    return row >= 0 && static_cast<std::size_t>(row) < session.specs->size() &&
           static_cast<std::size_t>(row) < session.result->values.size();
}

bool IsInList(ShaderDialogLayout const& layout, int y) {
    return y >= layout.list_top && y < layout.list_top + layout.list_height;
}

void ClampScroll(ShaderDialogSession& session, ShaderDialogLayout const& layout) {
    session.scroll_y = std::clamp(session.scroll_y, 0, layout.max_scroll);
}

// The bar of a row's slider; the knob, taller than the bar, is not part of it.
SDL_Rect SliderBarRect(ShaderDialogGeometry const& geometry, int row_top) {
    return {geometry.slider_x, row_top + geometry.row_height / 2 - geometry.slider_height / 2,
            geometry.slider_width, geometry.slider_height};
}

// Builds the layout for the window's current size, which it stores in `width` and `height`.
ShaderDialogLayout LayoutForCurrentSize(ShaderDialogSession const& session, int& width,
                                        int& height) {
    width = 0;
    height = 0;
    SDL_GetWindowSize(session.window, &width, &height);
    return BuildShaderDialogLayout(session, width, height);
}

void ApplyShaderDialogValues(ShaderDialogSession& session,
                             ShaderDialogApplyCallback const& on_apply) {
    session.result->accepted = true;
    if (on_apply) {
        on_apply(session.result->values);
    }
}

// [SECTION] Input

void HandleShaderDialogWheel(ShaderDialogSession& session, ShaderDialogLayout const& layout,
                             int wheel_y) {
    if (wheel_y == 0 || SDL_GetMouseFocus() != session.window) {
        return;
    }
    int mouse_x = 0;
    int mouse_y = 0;
    SDL_GetMouseState(&mouse_x, &mouse_y);
    if (!IsInList(layout, mouse_y)) {
        return;
    }
    ShaderDialogGeometry const& geometry = *session.geometry;
    long long const scrolled =
        session.scroll_y - static_cast<long long>(wheel_y) * (geometry.row_height / 2);
    session.scroll_y = static_cast<int>(std::clamp<long long>(scrolled, 0, layout.max_scroll));
    int const row =
        FindShaderDialogParamAtY(geometry, mouse_y, session.scroll_y, ParameterCount(session));
    if (!IsEditableRow(session, row)) {
        return;
    }
    ShaderParameterSpec const& spec = (*session.specs)[row];
    float delta = spec.step > 0.0f ? spec.step : (spec.max_value - spec.min_value) * 0.02f;
    if (wheel_y < 0) {
        delta = -delta;
    }
    float& value = session.result->values[row].value;
    value = SnapToStep(spec, value + delta);
}

void HandleShaderDialogPress(ShaderDialogSession& session, ShaderDialogLayout const& layout, int x,
                             int y) {
    if (layout.max_scroll > 0 && IsPointInRect(layout.scrollbar_track, x, y)) {
        session.dragging_thumb = true;
        session.drag_start_y = y;
        session.drag_start_scroll = session.scroll_y;
        return;
    }
    if (!IsInList(layout, y)) {
        return;
    }
    ShaderDialogGeometry const& geometry = *session.geometry;
    int const row =
        FindShaderDialogParamAtY(geometry, y, session.scroll_y, ParameterCount(session));
    if (!IsEditableRow(session, row)) {
        return;
    }
    SDL_Rect const bar =
        SliderBarRect(geometry, ShaderDialogRowTop(geometry, row, session.scroll_y));
    if (!IsPointInRect(bar, x, y)) {
        return;
    }
    session.dragging_slider = true;
    session.active_row = row;
    session.result->values[row].value =
        ShaderDialogValueFromMouse((*session.specs)[row], geometry, x);
}

bool HandleShaderDialogRelease(ShaderDialogSession& session, ShaderDialogLayout const& layout,
                               int x, int y, ShaderDialogApplyCallback const& on_apply) {
    if (IsPointInRect(layout.cancel_button, x, y)) {
        session.result->accepted = false;
        return true;
    }
    if (IsPointInRect(layout.apply_button, x, y)) {
        ApplyShaderDialogValues(session, on_apply);
    }
    session.dragging_slider = false;
    session.active_row = -1;
    session.dragging_thumb = false;
    return false;
}

void HandleShaderDialogMotion(ShaderDialogSession& session, ShaderDialogLayout const& layout, int x,
                              int y) {
    if (session.dragging_slider && IsEditableRow(session, session.active_row)) {
        int const row = session.active_row;
        session.result->values[row].value =
            ShaderDialogValueFromMouse((*session.specs)[row], *session.geometry, x);
    }
    if (session.dragging_thumb && layout.max_scroll > 0) {
        int const free_px = std::max(layout.list_height - layout.scrollbar_thumb.h, 1);
        float const moved =
            std::trunc(static_cast<float>(y - session.drag_start_y) / static_cast<float>(free_px) *
                       static_cast<float>(layout.max_scroll));
        float const target = static_cast<float>(session.drag_start_scroll) + moved;
        session.scroll_y =
            static_cast<int>(std::clamp(target, 0.0f, static_cast<float>(layout.max_scroll)));
    }
}

bool HandleShaderDialogEvent(ShaderDialogSession& session, ShaderDialogLayout& layout,
                             SDL_Event const& event, Uint32 window_id,
                             ShaderDialogApplyCallback const& on_apply) {
    switch (event.type) {
        case SDL_QUIT:
            return true;
        case SDL_WINDOWEVENT:
            if (event.window.windowID != window_id) {
                return false;
            }
            if (event.window.event == SDL_WINDOWEVENT_CLOSE) {
                return true;
            }
            if (event.window.event == SDL_WINDOWEVENT_RESIZED) {
                int width = 0;
                int height = 0;
                layout = LayoutForCurrentSize(session, width, height);
                ClampScroll(session, layout);
            }
            return false;
        case SDL_MOUSEWHEEL:
            HandleShaderDialogWheel(session, layout, event.wheel.y);
            return false;
        case SDL_MOUSEBUTTONDOWN:
            if (event.button.button == SDL_BUTTON_LEFT) {
                HandleShaderDialogPress(session, layout, event.button.x, event.button.y);
            }
            return false;
        case SDL_MOUSEBUTTONUP:
            return event.button.button == SDL_BUTTON_LEFT &&
                   HandleShaderDialogRelease(session, layout, event.button.x, event.button.y,
                                             on_apply);
        case SDL_MOUSEMOTION:
            HandleShaderDialogMotion(session, layout, event.motion.x, event.motion.y);
            return false;
        case SDL_KEYDOWN:
            if (event.key.keysym.sym == SDLK_ESCAPE) {
                session.result->accepted = false;
                return true;
            }
            if (event.key.keysym.sym == SDLK_RETURN || event.key.keysym.sym == SDLK_KP_ENTER) {
                ApplyShaderDialogValues(session, on_apply);
            }
            return false;
        default:
            return false;
    }
}

// [SECTION] Drawing

std::string ValueText(float value) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(3) << value;
    return text.str();
}

std::string RangeText(ShaderParameterSpec const& spec) {
    std::string text =
        "min " + std::to_string(spec.min_value) + "  max " + std::to_string(spec.max_value);
    if (spec.step > 0.0f) {
        text += "  step " + std::to_string(spec.step);
    }
    return text;
}

// The first row whose bottom lies below the list's top edge.
int FirstVisibleRow(ShaderDialogGeometry const& geometry, ShaderDialogLayout const& layout,
                    int scroll_y) {
    int const row_height = std::max(geometry.row_height, 1);
    long long const hidden = static_cast<long long>(layout.list_top) - geometry.row_origin_y +
                             scroll_y - geometry.row_height;
    return hidden < 0 ? 0 : static_cast<int>(std::min<long long>(hidden / row_height + 1, INT_MAX));
}

void RenderShaderDialogRow(ShaderDialogSession const& session, int row, int top, int width,
                           SDL_Rect const& track) {
    SDL_Renderer* renderer = session.renderer;
    ShaderDialogGeometry const& geometry = *session.geometry;
    ShaderParameterSpec const& spec = (*session.specs)[row];
    float const value = session.result->values[row].value;

    SDL_Rect const card{12, top, width - track.w - 28, geometry.row_height - 6};
    FillRect(renderer, card, kColCardFill);
    OutlineRect(renderer, card, kColCardOutline);
    DrawShaderDialogText(renderer, session.body_font, spec.label.empty() ? spec.name : spec.label,
                         geometry.label_x, top + 5, kColBright);

    float const range = std::max(spec.max_value - spec.min_value, 0.0001f);
    float const t = std::clamp((value - spec.min_value) / range, 0.0f, 1.0f);
    SDL_Rect const bar = SliderBarRect(geometry, top);
    FillRect(renderer, bar, kColBarFill);
    OutlineRect(renderer, bar, kColBarOutline);
    SDL_Rect filled = bar;
    filled.w = static_cast<int>(std::roundf(static_cast<float>(geometry.slider_width) * t));
    FillRect(renderer, filled, kColBarFilled);
    SDL_Rect const knob{bar.x + filled.w - 6, bar.y - 4, 12, geometry.slider_height + 8};
    FillRect(renderer, knob, kColKnob);

    DrawShaderDialogText(renderer, session.body_font, ValueText(value), geometry.value_x, top + 4,
                         kColBright);
    DrawShaderDialogText(renderer, session.body_font, RangeText(spec), geometry.value_x, top + 19,
                         kColSoft);
}

void RenderShaderDialogList(ShaderDialogSession const& session, ShaderDialogLayout const& layout,
                            int width) {
    ShaderDialogGeometry const& geometry = *session.geometry;
    int const list_bottom = layout.list_top + layout.list_height;
    int const count = static_cast<int>(
        std::min({session.specs->size(), session.result->values.size(), std::size_t{INT_MAX}}));
    for (int row = FirstVisibleRow(geometry, layout, session.scroll_y); row < count; ++row) {
        int const top = ShaderDialogRowTop(geometry, row, session.scroll_y);
        if (top >= list_bottom) {
            break;
        }
        if (top + geometry.row_height > layout.list_top) {
            RenderShaderDialogRow(session, row, top, width, layout.scrollbar_track);
        }
    }
}

void RenderShaderDialogFooter(ShaderDialogSession const& session, ShaderDialogLayout const& layout,
                              int width, int height) {
    SDL_Renderer* renderer = session.renderer;
    FillRect(renderer, {0, height - kFooterHeight, width, kFooterHeight}, kColFooter);
    SetDrawColor(renderer, kColFooterLine);
    SDL_RenderDrawLine(renderer, 0, height - kFooterHeight, width, height - kFooterHeight);
    FillRect(renderer, layout.cancel_button, kColButtonFill);
    FillRect(renderer, layout.apply_button, kColButtonFill);
    OutlineRect(renderer, layout.cancel_button, kColButtonOutline);
    OutlineRect(renderer, layout.apply_button, kColButtonOutline);
    DrawShaderDialogText(renderer, session.body_font, "Cancel", layout.cancel_button.x + 10,
                         layout.cancel_button.y + 6, kColBright);
    DrawShaderDialogText(renderer, session.body_font, "Apply", layout.apply_button.x + 10,
                         layout.apply_button.y + 6, kColBright);
}

}  // namespace

void RenderShaderDialog(ShaderDialogSession* session, ShaderDialogLayout const& layout, int width,
                        int height) {
    SDL_Renderer* renderer = session->renderer;
    SetDrawColor(renderer, kColBackground);
    SDL_RenderClear(renderer);
    FillRect(renderer, {0, 0, width, layout.list_top}, kColHeader);
    DrawShaderDialogText(renderer, session->title_font, "Shader parameters:", 12, 4, kColSoft);
    DrawShaderDialogText(renderer, session->body_font, *session->path, 12, 18, kColBright);

    SDL_Rect const clip{0, layout.list_top, width, layout.list_height};
    SDL_RenderSetClipRect(renderer, &clip);
    RenderShaderDialogList(*session, layout, width);
    if (layout.max_scroll > 0) {
        FillRect(renderer, layout.scrollbar_track, kColTrack);
        FillRect(renderer, layout.scrollbar_thumb, kColThumbFill);
        OutlineRect(renderer, layout.scrollbar_thumb, kColThumbOutline);
    }
    SDL_RenderSetClipRect(renderer, nullptr);

    RenderShaderDialogFooter(*session, layout, width, height);
    SDL_RenderPresent(renderer);
    if (!session->shown) {
        SDL_ShowWindow(session->window);
        SDL_RaiseWindow(session->window);
        SDL_SetWindowInputFocus(session->window);
        session->shown = true;
    }
}

// [SECTION] Loop and entry point

void RunShaderParameterDialog(ShaderDialogSession* session,
                              ShaderDialogApplyCallback const& on_apply) {
    if (session == nullptr || session->window == nullptr || session->renderer == nullptr ||
        session->geometry == nullptr || session->specs == nullptr || session->result == nullptr ||
        session->path == nullptr) {
        return;
    }
    for (;;) {
        PumpModalDialogHeartbeat();
        int width = 0;
        int height = 0;
        ShaderDialogLayout layout = LayoutForCurrentSize(*session, width, height);
        Uint32 const window_id = SDL_GetWindowID(session->window);
        SDL_Event event;
        while (SDL_PollEvent(&event) != 0) {
            if (HandleShaderDialogEvent(*session, layout, event, window_id, on_apply)) {
                return;
            }
        }
        // The frame's layout keeps the thumb of the scroll position before the clamp.
        layout = LayoutForCurrentSize(*session, width, height);
        ClampScroll(*session, layout);
        RenderShaderDialog(session, layout, width, height);
        SDL_Delay(kShaderDialogDelayMs);
    }
}

ShaderDialogResult ShowShaderParameterDialog(SDL_Window* parent, std::string const& path,
                                             float /*scale*/, ShaderDialogApplyCallback on_apply,
                                             std::vector<ShaderParameterValue> const& overrides) {
    std::vector<ShaderParameterSpec> const specs = ParseShaderParameterSpecs(path);
    ShaderDialogResult result = InitializeShaderDialogResult(specs, overrides);
    if (specs.empty()) {
        SDL_ShowSimpleMessageBox(SDL_MESSAGEBOX_INFORMATION, "Shader Parameters",
                                 "No #pragma parameter lines were found in the selected shader "
                                 "file.",
                                 parent);
        return result;
    }
    int const count = static_cast<int>(std::min<std::size_t>(specs.size(), INT_MAX));
    ShaderDialogGeometry const geometry = BuildShaderDialogGeometry(count, 1.0f);
    ModalWindowBundle bundle = CreateModalWindowBundle(
        parent, "Shader Parameters", 60, 60, geometry.window_width, geometry.window_height,
        SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE, kSoftwareOnly);
    if (!bundle.window || !bundle.renderer) {
        return result;
    }
    // Declared after the bundle, so they close first: body, title, renderer, window.
    SdlUiFontHandle title_font = OpenSdlUiFontHandle(16, true, kSemiBold);
    SdlUiFontHandle body_font = OpenSdlUiFontHandle(15, false, kRegular);
    if (!title_font || !body_font) {
        SDL_ShowSimpleMessageBox(SDL_MESSAGEBOX_ERROR, "Shader Parameters",
                                 "Unable to load a font via SDL_ttf.", parent);
        return result;
    }
    ShaderDialogSession session;
    session.window = bundle.window.get();
    session.renderer = bundle.renderer.get();
    session.title_font = title_font.get();
    session.body_font = body_font.get();
    session.path = &path;
    session.specs = &specs;
    session.geometry = &geometry;
    session.result = &result;
    RunShaderParameterDialog(&session, on_apply);
    RestoreModalParentFocus(parent);
    return result;
}

}  // namespace zorvane::frontend::gui
