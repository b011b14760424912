// The settings widgets and sliders drawn on a hidden canvas: what they report for
// a pointer at and around their edges, what value a slider writes, and what they draw.
#include "settings/settings_widgets.h"
#include "settings/settings_internal.h"
#include "settings_canvas.h"

#include <gtest/gtest.h>

namespace {

using namespace zset;

class SettingsWidgets : public Canvas {};

TEST_F(SettingsWidgets, CheckboxRowReachesLeftOfTheBoxAndIsHalfOpen) {
    int const rh = std::max(TTF_FontHeight(body_font_.get()), 16) + 10;
    struct Case {
        int mx, my;
        bool on_row;
    };
    Case const cases[] = {{243, 95, true},       {242, 95, false}, {825, 95, true},
                          {826, 95, false},      {243, 94, false}, {300, 95 + rh - 1, true},
                          {300, 95 + rh, false}, {-1, -1, false}};
    for (Case const& c : cases) {
        Clear();
        EXPECT_EQ(DrawCheckbox(renderer_, body_font_.get(), 247, 100, true, "Check", c.mx, c.my),
                  c.on_row)
            << c.mx << "," << c.my;
        EXPECT_TRUE(At(243, 95, c.on_row ? kHover : kCanvasClear));
    }
    // Without a font the row is 26 pixels high.
    EXPECT_TRUE(DrawCheckbox(renderer_, nullptr, 247, 100, false, "x", 300, 120));
    EXPECT_FALSE(DrawCheckbox(renderer_, nullptr, 247, 100, false, "x", 300, 121));

    Clear();
    DrawCheckbox(renderer_, body_font_.get(), 247, 100, true, "on", -1, -1);
    DrawCheckbox(renderer_, body_font_.get(), 247, 200, false, "off", -1, -1);
    EXPECT_TRUE(At(247, 100, kRing));
    EXPECT_TRUE(At(250, 103, kAccent));
    EXPECT_TRUE(At(259, 112, kAccent));
    EXPECT_TRUE(At(260, 113, kCanvasClear));
    EXPECT_TRUE(At(247, 200, kRing));
    EXPECT_TRUE(At(252, 205, kCanvasClear));
}

TEST_F(SettingsWidgets, RadioHitTestRowsAndLimits) {
    struct Case {
        int mx, my, count, row;
    };
    Case const cases[] = {
        {247, 100, 2, 0},  {246, 100, 2, -1}, {243, 110, 2, -1}, {807, 133, 2, 0},
        {808, 133, 2, -1}, {300, 134, 2, 1},  {300, 167, 2, 1},  {300, 168, 2, -1},
        {300, 99, 2, -1},  {300, 100, 0, -1}, {-1, -1, 4, -1},
    };
    for (Case const& c : cases) {
        EXPECT_EQ(HitTestRadioGroup(c.mx, c.my, 247, 100, c.count), c.row)
            << c.mx << "," << c.my << " of " << c.count;
    }
}

TEST_F(SettingsWidgets, RadioGroupDrawsRingsTheSelectedDotAndTheHoverBand) {
    std::vector<RadioOption> const options = {{"One", "1"}, {"Two", "2"}};
    DrawRadioGroup(renderer_, body_font_.get(), 100, 100, options, "2", 0);
    EXPECT_TRUE(At(96, 100, kHover));
    EXPECT_TRUE(At(678, 133, kHover));
    EXPECT_TRUE(At(679, 133, kCanvasClear));
    EXPECT_TRUE(At(96, 134, kCanvasClear));
    EXPECT_TRUE(At(108 + 8, 117, kRing));  // ring of row 0
    EXPECT_TRUE(At(108, 117, kHover));     // no dot in row 0
    EXPECT_TRUE(At(108, 151, kAccent));    // dot of row 1
    EXPECT_TRUE(At(108 + 4, 151, kAccent));
    EXPECT_TRUE(At(108 + 5, 151, kCanvasClear));  // between dot and ring

    Clear();
    DrawRadioGroup(renderer_, body_font_.get(), 100, 100, options, "20", -1);
    EXPECT_TRUE(At(108, 117, kCanvasClear));
    EXPECT_TRUE(At(108, 151, kCanvasClear));
}

TEST_F(SettingsWidgets, NavigationPanelShowsActiveRowHoverAndDivider) {
    std::vector<NavItem> const items = BuildSettingsNavItems();
    struct Case {
        int mx, my;
        SDL_Color font_mode_row;  // row 1, y 40
        SDL_Color display_row;    // row 0, y 10, a heading
    };
    Case const cases[] = {
        {100, 40, kHover, kSection}, {223, 69, kHover, kSection}, {224, 50, kNavBg, kSection},
        {100, 70, kNavBg, kSection}, {100, 15, kNavBg, kSection}, {-1, -1, kNavBg, kSection},
    };
    for (Case const& c : cases) {
        Clear();
        DrawLeftPanel(renderer_, title_font_.get(), body_font_.get(), items, 5, c.mx, c.my);
        EXPECT_TRUE(At(200, 41, c.font_mode_row)) << c.mx << "," << c.my;
        EXPECT_TRUE(At(200, 11, c.display_row)) << c.mx << "," << c.my;
        EXPECT_TRUE(At(200, 371, kNavActive));  // HDD Sounds, the active panel
        EXPECT_TRUE(At(2, 371, kAccent));
        EXPECT_TRUE(At(3, 371, kNavActive));
        EXPECT_TRUE(At(0, 0, kNavBg));
        EXPECT_TRUE(At(224, 0, kTrack));
        EXPECT_TRUE(At(224, 435, kTrack));
        EXPECT_TRUE(At(225, 100, kCanvasClear));
    }
    // An active row under the pointer keeps the active look.
    Clear();
    DrawLeftPanel(renderer_, title_font_.get(), body_font_.get(), items, 0, 200, 45);
    EXPECT_TRUE(At(200, 41, kNavActive));
    // No rows: the background and the divider all the same.
    Clear();
    DrawLeftPanel(renderer_, nullptr, nullptr, {}, -1, -1, -1);
    EXPECT_TRUE(At(200, 41, kNavBg));
    EXPECT_TRUE(At(224, 200, kTrack));
}

TEST_F(SettingsWidgets, PanelHeaderReturnsTheContentLine) {
    int const h1 = TTF_FontHeight(title_font_.get());
    int const h2 = TTF_FontHeight(body_font_.get());
    EXPECT_EQ(DrawPanelHeader(renderer_, title_font_.get(), body_font_.get(), 247, 20, "T", "S"),
              20 + h1 + 6 + h2 + 20);
    EXPECT_EQ(DrawPanelHeader(renderer_, title_font_.get(), body_font_.get(), 247, 20, "T", ""),
              20 + h1 + 20);
    EXPECT_EQ(DrawPanelHeader(renderer_, nullptr, nullptr, 247, 20, "T", "S"),
              20 + 17 + 6 + 16 + 20);
}

TEST_F(SettingsWidgets, BottomBarButtonsHoverHalfOpenAndLabelsAreCentred) {
    SettingsDialogButtons const b = BuildSettingsDialogButtons();
    struct Case {
        int mx, my;
        SDL_Color cancel, apply;
    };
    Case const cases[] = {
        {618, 449, kButtonHover, kButton}, {707, 478, kButtonHover, kButton},
        {708, 460, kButton, kButton},      {718, 449, kButton, kButtonHover},
        {807, 478, kButton, kButtonHover}, {808, 478, kButton, kButton},
        {750, 479, kButton, kButton},
    };
    for (Case const& c : cases) {
        Clear();
        DrawBottomBar(renderer_, body_font_.get(), b.cancel, b.apply, c.mx, c.my);
        EXPECT_TRUE(At(620, 451, c.cancel)) << c.mx << "," << c.my;
        EXPECT_TRUE(At(720, 451, c.apply)) << c.mx << "," << c.my;
        EXPECT_TRUE(At(618, 449, {84, 92, 108, 255}));
        EXPECT_TRUE(At(5, 480, kFooter));
        EXPECT_TRUE(At(5, 436, kTrack));
    }
    // "Apply" sits in the middle of its button, within a pixel.
    Clear();
    DrawBottomBar(renderer_, body_font_.get(), b.cancel, b.apply, -1, -1);
    auto const ink = InkColumns(719, 807, 451, 478, kButton);
    ASSERT_GT(ink.first, 719);
    EXPECT_LE(std::abs((ink.first - 719) - (806 - ink.second)), 2);
    // A label wider than its button runs out on both sides, unclipped.
    Clear();
    DrawButton(renderer_, body_font_.get(), {400, 200, 40, 30}, "A label far wider than 40", false);
    auto const wide = InkColumns(300, 540, 205, 225, kCanvasClear);
    EXPECT_LT(wide.first, 399);
    EXPECT_GT(wide.second, 440);
}

TEST_F(SettingsWidgets, SliderWritesThePointersColumnOnlyInsideItsBand) {
    struct Case {
        int mx, my;
        bool down;
        bool active;
        double value;
    };
    // Track from x 100, 200 wide, top y 200: the band is 92..307 by 198..217.
    Case const cases[] = {
        {92, 208, true, true, 0.0},   {91, 208, true, false, 0},    {100, 208, true, true, 0.0},
        {150, 208, true, true, 0.25}, {300, 208, true, true, 1.0},  {307, 208, true, true, 1.0},
        {308, 208, true, false, 0},   {150, 198, true, true, 0.25}, {150, 197, true, false, 0},
        {150, 217, true, true, 0.25}, {150, 218, true, false, 0},   {150, 208, false, false, 0},
        {-1, -1, true, false, 0},
    };
    for (Case const& c : cases) {
        double out = 42.0;
        EXPECT_EQ(
            DrawSlider(renderer_, body_font_.get(), 100, 200, 200, 0.5, c.mx, c.my, c.down, &out),
            c.active)
            << c.mx << "," << c.my;
        EXPECT_DOUBLE_EQ(out, c.active ? c.value : 42.0) << c.mx << "," << c.my;
    }
    EXPECT_TRUE(DrawSlider(renderer_, nullptr, 100, 200, 200, 0.5, 150, 208, true, nullptr));

    // Limits in either order; equal limits give a span of 0.0001.
    struct Range {
        double min, max;
        int mx;
        double value;
    };
    Range const ranges[] = {{3.0, 0.25, 100, 0.25},
                            {0.25, 3.0, 300, 3.0},
                            {3.0, 0.25, 200, 1.625},
                            {2.0, 2.0, 300, 2.0001}};
    for (Range const& r : ranges) {
        double out = 0.0;
        EXPECT_TRUE(DrawRangeSlider(renderer_, body_font_.get(), 100, 200, 200, 1.0, r.min, r.max,
                                    r.mx, 208, true, &out, "x"));
        EXPECT_NEAR(out, r.value, 1e-12) << r.min << ".." << r.max << " at " << r.mx;
    }
}

TEST_F(SettingsWidgets, SliderLabelsAndFilledPart) {
    EXPECT_EQ(FormatSliderPercent(0.5), "50%");
    EXPECT_EQ(FormatSliderPercent(1.5), "150%");
    EXPECT_EQ(FormatSliderPercent(-0.2), "-20%");
    EXPECT_EQ(FormatSliderPercent(0.005), "1%");
    EXPECT_EQ(FormatSliderPercent(-0.004), "0%");
    EXPECT_EQ(FormatRangeSliderValue(1.0, 0.25, 3.0, "x"), "1.00x");
    EXPECT_EQ(FormatRangeSliderValue(5.0, 3.0, 0.25, "x"), "3.00x");
    EXPECT_EQ(FormatRangeSliderValue(0.1, 0.25, 3.0, "x"), "0.25x");
    EXPECT_EQ(FormatRangeSliderValue(7.0, 2.0, 2.0, nullptr), "2.00");

    DrawSlider(renderer_, body_font_.get(), 100, 200, 200, 0.5, -1, -1, false, nullptr);
    EXPECT_TRUE(At(150, 206, kAccent));
    EXPECT_TRUE(At(250, 206, kTrack));
    EXPECT_TRUE(At(299, 205, kTrack));
    EXPECT_TRUE(At(200, 200, kAccent));  // the knob's top, centred on the fill's end
    EXPECT_TRUE(At(150, 204, kCanvasClear));

    struct Case {
        double value;
        int knob_x;
    };
    for (Case const c : {Case{1.5, 300}, Case{-0.2, 100}}) {
        Clear();
        DrawSlider(renderer_, body_font_.get(), 100, 200, 200, c.value, -1, -1, false, nullptr);
        EXPECT_TRUE(At(c.knob_x - 8, 208, kAccent)) << c.value;
        EXPECT_TRUE(At(c.knob_x + 8, 208, kAccent)) << c.value;
        EXPECT_TRUE(At(200, 206, c.value > 1 ? kAccent : kTrack)) << c.value;
    }
    Clear();
    DrawRangeSlider(renderer_, nullptr, 100, 200, 200, 9.0, 0.25, 3.0, -1, -1, false, nullptr,
                    nullptr);
    EXPECT_TRUE(At(299, 206, kAccent));
}

}  // namespace
