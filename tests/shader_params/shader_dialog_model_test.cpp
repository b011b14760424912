// The window-free numbers of the shader parameter dialog: snapping, starting values,
// the pointer's value and row, window sizes and the scrollbar of each list length.
#include "shader_params/shader_dialog_model.h"

#include <gtest/gtest.h>

#include <climits>

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
    } const cases[] = {
        {Spec(0, 1, 0.25f), 0.3f, 0.25f},      {Spec(0, 1, 0.25f), 0.375f, 0.5f},
        {Spec(0, 1, 0.25f), 2.0f, 1.0f},       {Spec(0, 1, 0.25f), -1.0f, 0.0f},
        {Spec(-1, 1, 0.5f), 0.2f, 0.0f},       {Spec(0, 1, 0.4f), 1.0f, 1.0f},
        {Spec(0, 1, 0.3f), 1.0f, 0.3f * 3.0f}, {Spec(0, 1, 0.0f), 0.123f, 0.123f},
        {Spec(0, 1, 0.0f), 7.0f, 1.0f},        {Spec(1, 3, 0.5f), 1.25f, 1.5f},
    };
    for (Case const& c : cases) {
        EXPECT_EQ(SnapToStep(c.spec, c.in), c.want) << c.in << " step " << c.spec.step;
    }
}

TEST(ShaderDialogModel, StartingValuesTakeTheFirstOverrideClampedAndSnapped) {
    std::vector<ShaderParameterSpec> specs = {Spec(0, 1, 0, "A"), Spec(0, 1, 0.25f, "B"),
                                              Spec(0, 10, 1, "C"), Spec(0, 1, 0, "A")};
    specs[2].default_value = 12.0f;
    auto const result = InitializeShaderDialogResult(
        specs, {{"Z", 0.5f}, {"A", 5.0f}, {"B", 0.3f}, {"A", 0.1f}, {"a", 0.2f}});
    EXPECT_FALSE(result.accepted);
    ASSERT_EQ(result.values.size(), 4u);
    float const want[] = {1.0f, 0.25f, 10.0f, 1.0f};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(result.values[i].name, specs[i].name);
        EXPECT_EQ(result.values[i].value, want[i]) << i;
    }
    EXPECT_TRUE(InitializeShaderDialogResult({}, {{"A", 1.0f}}).values.empty());
}

TEST(ShaderDialogModel, PointerXMapsOntoTheSliderAndYOntoRows) {
    ShaderDialogGeometry const g = BuildShaderDialogGeometry(3, 1.0f);
    ShaderParameterSpec const quarter = Spec(0, 1, 0.25f);
    int const xs[] = {-5000, 260, 360, 535, 99999};
    float const want[] = {0.0f, 0.0f, 0.25f, 1.0f, 1.0f};  // 360: 0.36 snaps down
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(ShaderDialogValueFromMouse(quarter, g, xs[i]), want[i]) << xs[i];
    }
    EXPECT_EQ(ShaderDialogValueFromMouse(Spec(-2, 2, 0), g, 315), -2.0f + 4.0f * 0.2f);
    EXPECT_EQ(ShaderDialogValueFromMouse(Spec(3, 3, 0.1f), g, 400), 3.0f);

    int const rows[][3] = {
        {19, 0, -1}, {20, 0, 0},  {99, 0, 0},   {100, 0, 1},   {259, 0, 2},           {260, 0, -1},
        {20, 30, 0}, {70, 30, 1}, {-10, 30, 0}, {-11, 30, -1}, {INT_MAX, INT_MAX, -1}};
    for (auto const& r : rows) {
        EXPECT_EQ(FindShaderDialogParamAtY(g, r[0], r[1], 3), r[2]) << r[0] << " at " << r[1];
    }
}

TEST(ShaderDialogModel, WindowHeightAndScrollbarFollowTheListLength) {
    // count, opening height, list height, max scroll, thumb height (0: thumb = track)
    int const cases[][5] = {{0, 280, 192, 0, 0},       {2, 280, 192, 0, 0},
                            {3, 330, 242, 18, 225},    {4, 410, 322, 18, 304},
                            {5, 490, 402, 18, 384},    {6, 500, 412, 88, 339},
                            {20, 500, 412, 1208, 104}, {1000, 500, 412, 79608, 20}};
    for (auto const& c : cases) {
        SCOPED_TRACE(testing::Message() << c[0] << " parameters");
        ShaderDialogGeometry const g = BuildShaderDialogGeometry(c[0], 3.0f);
        ASSERT_EQ(g.window_height, c[1]);
        std::vector<ShaderParameterSpec> const specs(c[0], Spec(0, 1, 0));
        ShaderDialogSession session;
        session.specs = &specs;
        session.geometry = &g;
        ShaderDialogLayout const top = BuildShaderDialogLayout(session, 900, g.window_height);
        EXPECT_EQ(top.list_height, c[2]);
        EXPECT_EQ(top.max_scroll, c[3]);
        SDL_Rect const track{882, 36, 14, c[2]};
        EXPECT_TRUE(SDL_RectEquals(&top.scrollbar_track, &track));
        EXPECT_EQ(top.scrollbar_thumb.y, 36);
        EXPECT_EQ(top.scrollbar_thumb.h, c[4] == 0 ? c[2] : c[4]);
        session.scroll_y = c[3];
        EXPECT_EQ(BuildShaderDialogLayout(session, 900, g.window_height).scrollbar_thumb.y,
                  36 + (c[4] == 0 ? 0 : c[2] - c[4]));
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
    SDL_Rect const cancel{708, 461, 78, 26};
    SDL_Rect const apply{802, 461, 78, 26};
    EXPECT_TRUE(SDL_RectEquals(&layout.cancel_button, &cancel));
    EXPECT_TRUE(SDL_RectEquals(&layout.apply_button, &apply));
    EXPECT_EQ(layout.scrollbar_thumb.y, 36 + 36);  // 44 / 88 of 73, truncated
    for (int height : {88, 0, -50}) {
        ShaderDialogLayout const tiny = BuildShaderDialogLayout(session, 10, height);
        EXPECT_EQ(tiny.list_height, 1);
        EXPECT_EQ(tiny.max_scroll, 499);
        EXPECT_EQ(tiny.scrollbar_thumb.h, 20);
    }
    EXPECT_EQ(BuildShaderDialogGeometry(INT_MAX, 1.0f).window_height, 500);
}

}  // namespace
