// The window-free half of the shader parameter dialog: starting values, metrics,
// layout, snapping and the mapping of the pointer to values and rows.
#include "shader_params/shader_dialog_model.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <unordered_map>

namespace zorvane::frontend::gui {

namespace {

constexpr int kListTop = 36;
constexpr int kMinThumbHeight = 20;

int ClampToInt(long long value) {
    return static_cast<int>(std::clamp<long long>(value, INT_MIN, INT_MAX));
}

// Height of every row stacked from the origin: what the list scrolls through.
int ListContentHeight(ShaderDialogGeometry const& geometry, std::size_t parameter_count) {
    long long const rows = static_cast<long long>(std::min<std::size_t>(parameter_count, INT_MAX));
    return ClampToInt(rows * geometry.row_height + geometry.row_origin_y);
}

SDL_Rect ScrollbarThumb(SDL_Rect const& track, int content_height, int scroll_y, int max_scroll) {
    int const list_height = track.h;
    if (content_height - list_height <= 0) {
        return track;
    }
    long long const quotient = static_cast<long long>(list_height) * list_height / content_height;
    int const thumb_height = std::max(static_cast<int>(quotient), kMinThumbHeight);
    int const free_px = std::max(list_height - thumb_height, 1);
    float const moved =
        static_cast<float>(scroll_y) / static_cast<float>(max_scroll) * static_cast<float>(free_px);
    return {track.x, kListTop + static_cast<int>(std::trunc(moved)), track.w, thumb_height};
}

}  // namespace

float SnapToStep(ShaderParameterSpec const& spec, float value) {
    float const clamped = std::min(spec.max_value, std::max(spec.min_value, value));
    if (spec.step <= 0.0f) {
        return clamped;
    }
    float const stops = std::roundf((clamped - spec.min_value) / spec.step);
    float const snapped = spec.step * stops + spec.min_value;
    return std::min(spec.max_value, std::max(spec.min_value, snapped));
}

ShaderDialogResult InitializeShaderDialogResult(
    std::vector<ShaderParameterSpec> const& specs,
    std::vector<ShaderParameterValue> const& overrides) {
    // The first override of a name wins: emplace keeps what is already there.
    std::unordered_map<std::string, float> first_override;
    for (ShaderParameterValue const& entry : overrides) {
        first_override.emplace(entry.name, entry.value);
    }
    ShaderDialogResult result;
    result.values.reserve(specs.size());
    for (ShaderParameterSpec const& spec : specs) {
        auto const found = first_override.find(spec.name);
        float const start = found != first_override.end() ? found->second : spec.default_value;
        result.values.push_back({spec.name, SnapToStep(spec, start)});
    }
    return result;
}

ShaderDialogGeometry BuildShaderDialogGeometry(int parameter_count, float /*scale*/) {
    ShaderDialogGeometry geometry;
    long long const rows = std::max(parameter_count, 0);
    geometry.content_height = ClampToInt(90 + 80 * rows);
    geometry.window_height = std::max(std::min(geometry.content_height, 500), 280);
    return geometry;
}

ShaderDialogLayout BuildShaderDialogLayout(ShaderDialogSession const& session, int width,
                                           int height) {
    ShaderDialogGeometry const geometry =
        session.geometry != nullptr ? *session.geometry : ShaderDialogGeometry{};
    std::size_t const count = session.specs != nullptr ? session.specs->size() : 0;
    int const content_height = ListContentHeight(geometry, count);

    ShaderDialogLayout layout;
    layout.list_height = std::max(height - 88, 1);
    layout.max_scroll = std::max(content_height - layout.list_height, 0);
    int const button_y = height - geometry.button_height / 2 - 26;
    layout.cancel_button = {width - 2 * geometry.button_width - 36, button_y, geometry.button_width,
                            geometry.button_height};
    layout.apply_button = {width - geometry.button_width - 20, button_y, geometry.button_width,
                           geometry.button_height};
    layout.scrollbar_track = {width - 18, kListTop, 14, layout.list_height};
    layout.scrollbar_thumb =
        ScrollbarThumb(layout.scrollbar_track, content_height, session.scroll_y, layout.max_scroll);
    return layout;
}

float ShaderDialogValueFromMouse(ShaderParameterSpec const& spec,
                                 ShaderDialogGeometry const& geometry, int mouse_x) {
    if (geometry.slider_width <= 0 || !(spec.min_value < spec.max_value)) {
        return spec.min_value;
    }
    float t = static_cast<float>(static_cast<long long>(mouse_x) - geometry.slider_x) /
              static_cast<float>(geometry.slider_width);
    t = std::min(std::max(t, 0.0f), 1.0f);
    return SnapToStep(spec, (spec.max_value - spec.min_value) * t + spec.min_value);
}

int FindShaderDialogParamAtY(ShaderDialogGeometry const& geometry, int y, int scroll_y,
                             int parameter_count) {
    long long const offset = static_cast<long long>(y) + scroll_y - geometry.row_origin_y;
    if (offset < 0) {
        return -1;
    }
    long long const row = offset / std::max(geometry.row_height, 1);
    return row < parameter_count ? static_cast<int>(row) : -1;
}

int ShaderDialogRowTop(ShaderDialogGeometry const& geometry, int row, int scroll_y) {
    return ClampToInt(geometry.row_origin_y + static_cast<long long>(row) * geometry.row_height -
                      scroll_y);
}

}  // namespace zorvane::frontend::gui
