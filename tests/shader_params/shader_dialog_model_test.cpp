// The window-free numbers of the shader parameter dialog: snapping, starting values,
// the pointer's value and row, window sizes and the scrollbar of each list length.
#include "shader_params/shader_dialog_model.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

namespace {

using namespace zorvane::frontend::gui;

ShaderParameterSpec Spec(float min_value, float max_value, float step, char const* name = "P") {
    return {name, "Label", 0.0f, min_value, max_value, step};
}

TEST(ShaderDialogModel, SnapCountsTheGridFromTheMinimum) {
    struct Case {
        ShaderParameterSpec spec;
        float in;
        float want;
    };
    Case const cases[] = {
        {Spec(0, 1, 0.25f), 0.3f, 0.25f},      {Spec(0, 1, 0.25f), 0.375f, 0.5f},
        {Spec(0, 1, 0.25f), 2.0f, 1.0f},       {Spec(0, 1, 0.25f), -1.0f, 0.0f},
        {Spec(-1, 1, 0.5f), 0.2f, 0.0f},       {Spec(0, 1, 0.4f), 1.0f, 1.0f},
        {Spec(0, 1, 0.3f), 1.0f, 0.3f * 3.0f}, {Spec(0, 1, 0.0f), 0.123f, 0.123f},
        {Spec(0, 1, 0.0f), 7.0f, 1.0f},        {Spec(2, 2, 0.5f), 5.0f, 2.0f},
        {Spec(1, 3, 0.5f), 1.25f, 1.5f},  // halves round away from zero
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(testing::Message() << c.spec.min_value << ".." << c.spec.max_value << " step "
                                        << c.spec.step << " value " << c.in);
        EXPECT_EQ(SnapToStep(c.spec, c.in), c.want);
    }
}

TEST(ShaderDialogModel, StartingValuesTakeTheFirstOverrideClampedAndSnapped) {
    std::vector<ShaderParameterSpec> specs = {Spec(0, 1, 0.0f, "A"), Spec(0, 1, 0.25f, "B"),
                                              Spec(0, 10, 1.0f, "C"), Spec(0, 1, 0.0f, "A")};
    specs[2].default_value = 12.0f;
    specs[3].default_value = 0.75f;
    auto const result = InitializeShaderDialogResult(
        specs, {{"Z", 0.5f}, {"A", 5.0f}, {"B", 0.3f}, {"A", 0.1f}, {"a", 0.2f}});
    EXPECT_FALSE(result.accepted);
    ASSERT_EQ(result.values.size(), 4u);
    EXPECT_EQ(result.values[0].name, "A");
    EXPECT_EQ(result.values[0].value, 1.0f);
    EXPECT_EQ(result.values[1].value, 0.25f);
    EXPECT_EQ(result.values[2].name, "C");
    EXPECT_EQ(result.values[2].value, 10.0f);
    EXPECT_EQ(result.values[3].value, 1.0f);  // same name, same first override

    auto const empty = InitializeShaderDialogResult({}, {{"A", 1.0f}});
    EXPECT_FALSE(empty.accepted);
    EXPECT_TRUE(empty.values.empty());
}

TEST(ShaderDialogModel, PointerXMapsOntoTheSliderAndYOntoRows) {
    ShaderDialogGeometry const g = BuildShaderDialogGeometry(3, 1.0f);
    ShaderParameterSpec const stepped = Spec(0, 1, 0.25f);
    EXPECT_EQ(ShaderDialogValueFromMouse(stepped, g, 260), 0.0f);
    EXPECT_EQ(ShaderDialogValueFromMouse(stepped, g, -5000), 0.0f);
    EXPECT_EQ(ShaderDialogValueFromMouse(stepped, g, 535), 1.0f);
    EXPECT_EQ(ShaderDialogValueFromMouse(stepped, g, 99999), 1.0f);
    EXPECT_EQ(ShaderDialogValueFromMouse(stepped, g, 260 + 100), 0.25f);  // 0.3636 snaps down
    EXPECT_EQ(ShaderDialogValueFromMouse(Spec(-2, 2, 0), g, 260 + 55), -2.0f + 4.0f * 0.2f);
    EXPECT_EQ(ShaderDialogValueFromMouse(Spec(3, 3, 0.1f), g, 400), 3.0f);
    ShaderDialogGeometry flat = g;
    flat.slider_width = 0;
    EXPECT_EQ(ShaderDialogValueFromMouse(stepped, flat, 400), 0.0f);

    struct RowCase {
        int y;
        int scroll_y;
        int want;
    };
    RowCase const rows[] = {
        {19, 0, -1}, {20, 0, 0},  {99, 0, 0},   {100, 0, 1},   {259, 0, 2},           {260, 0, -1},
        {20, 30, 0}, {70, 30, 1}, {-10, 30, 0}, {-11, 30, -1}, {INT_MAX, INT_MAX, -1}};
    for (RowCase const& r : rows) {
        EXPECT_EQ(FindShaderDialogParamAtY(g, r.y, r.scroll_y, 3), r.want)
            << "y " << r.y << " scroll " << r.scroll_y;
    }
    ShaderDialogGeometry squashed = g;
    squashed.row_height = 0;
    EXPECT_EQ(FindShaderDialogParamAtY(squashed, 22, 0, 3), 2);
}

TEST(ShaderDialogModel, WindowHeightAndScrollbarFollowTheListLength) {
    struct Case {
        int count;
        int window_height;  // the height the dialog opens at
        int list_height;
        int max_scroll;
        int thumb_height;  // 0: the thumb is the track
    };
    Case const cases[] = {
        {0, 280, 192, 0, 0},    {1, 280, 192, 0, 0},       {2, 280, 192, 0, 0},
        {3, 330, 242, 18, 225}, {4, 410, 322, 18, 304},    {5, 490, 402, 18, 384},
        {6, 500, 412, 88, 339}, {20, 500, 412, 1208, 104}, {1000, 500, 412, 79608, 20},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(testing::Message() << c.count << " parameters");
        ShaderDialogGeometry const g = BuildShaderDialogGeometry(c.count, 3.0f);
        EXPECT_EQ(g.window_width, 900);
        EXPECT_EQ(g.content_height, 90 + 80 * c.count);
        ASSERT_EQ(g.window_height, c.window_height);
        std::vector<ShaderParameterSpec> const specs(c.count, Spec(0, 1, 0));
        ShaderDialogSession session;
        session.specs = &specs;
        session.geometry = &g;
        ShaderDialogLayout const at_top = BuildShaderDialogLayout(session, 900, g.window_height);
        EXPECT_EQ(at_top.list_top, 36);
        EXPECT_EQ(at_top.list_height, c.list_height);
        EXPECT_EQ(at_top.max_scroll, c.max_scroll);
        EXPECT_EQ(at_top.scrollbar_track.x, 882);
        EXPECT_EQ(at_top.scrollbar_track.y, 36);
        EXPECT_EQ(at_top.scrollbar_track.w, 14);
        EXPECT_EQ(at_top.scrollbar_track.h, c.list_height);
        SDL_Rect const& thumb = at_top.scrollbar_thumb;
        if (c.thumb_height == 0) {
            EXPECT_EQ(thumb.y, 36);
            EXPECT_EQ(thumb.h, c.list_height);
            continue;
        }
        EXPECT_EQ(thumb.h, c.thumb_height);
        EXPECT_EQ(thumb.y, 36);
        session.scroll_y = c.max_scroll;
        EXPECT_EQ(BuildShaderDialogLayout(session, 900, g.window_height).scrollbar_thumb.y,
                  36 + c.list_height - c.thumb_height);
    }
}

TEST(ShaderDialogModel, FooterButtonsAndTinyWindows) {
    ShaderDialogGeometry const g = BuildShaderDialogGeometry(6, 1.0f);
    std::vector<ShaderParameterSpec> const specs(6, Spec(0, 1, 0));
    ShaderDialogSession session;
    session.specs = &specs;
    session.geometry = &g;
    session.scroll_y = 44;
    ShaderDialogLayout const layout = BuildShaderDialogLayout(session, 900, 500);
    EXPECT_EQ(layout.cancel_button.x, 708);
    EXPECT_EQ(layout.cancel_button.y, 461);
    EXPECT_EQ(layout.apply_button.x, 802);
    EXPECT_EQ(layout.apply_button.y, 461);
    EXPECT_EQ(layout.apply_button.w, 78);
    EXPECT_EQ(layout.apply_button.h, 26);
    EXPECT_EQ(layout.scrollbar_thumb.y, 36 + 36);  // truncated 36.5

    for (int height : {88, 20, 0, -50}) {
        ShaderDialogLayout const tiny = BuildShaderDialogLayout(session, 10, height);
        EXPECT_EQ(tiny.list_height, 1);
        EXPECT_EQ(tiny.max_scroll, 499);
        EXPECT_EQ(tiny.scrollbar_thumb.h, 20);
    }
    EXPECT_EQ(BuildShaderDialogGeometry(-3, 1.0f).window_height, 280);
    EXPECT_EQ(BuildShaderDialogGeometry(INT_MAX, 1.0f).window_height, 500);
}

}  // namespace
