// The half-open hit test and the list scrollbar's geometry.
#include "frame/look.h"

#include <gtest/gtest.h>

namespace {

using namespace zorvane::frontend::gui;

TEST(Look, HitTestExcludesRightAndBottomEdges) {
    SDL_Rect const r{10, 20, 30, 40};
    struct Case {
        int x, y;
        bool inside;
    };
    Case const cases[] = {
        {10, 20, true}, {39, 59, true},  {40, 20, false}, {10, 60, false},
        {9, 30, false}, {20, 19, false}, {25, 35, true},
    };
    for (Case const& c : cases) {
        EXPECT_EQ(IsPointInRect(r, c.x, c.y), c.inside) << c.x << "," << c.y;
        EXPECT_EQ(IsInside(r, c.x, c.y), c.inside);
        EXPECT_EQ(IsInRect(c.x, c.y, r), c.inside);
    }
    EXPECT_FALSE(IsPointInRect({5, 5, 0, 10}, 5, 6));
    EXPECT_FALSE(IsPointInRect({5, 5, -3, 10}, 4, 6));
}

TEST(Look, ScrollbarGeometry) {
    struct Case {
        SDL_Rect area;
        int total, visible, offset;
        SDL_Rect track, thumb;
        int max_offset;
    };
    Case const cases[] = {
        // Everything fits: the thumb fills the track.
        {{8, 56, 764, 240}, 10, 10, 0, {758, 58, 12, 236}, {758, 58, 12, 236}, 0},
        // A tiny share still gives a thumb of 24 pixels.
        {{0, 0, 100, 304}, 1000, 1, 0, {86, 2, 12, 300}, {86, 2, 12, 24}, 999},
        // Offsets beyond either end are held at the ends.
        {{0, 0, 100, 304}, 1000, 1, 5000, {86, 2, 12, 300}, {86, 278, 12, 24}, 999},
        {{0, 0, 100, 304}, 1000, 1, -7, {86, 2, 12, 300}, {86, 2, 12, 24}, 999},
        // Half way: 20 rows, 10 visible, offset 5 of 10.
        {{0, 0, 100, 204}, 20, 10, 5, {86, 2, 12, 200}, {86, 52, 12, 100}, 10},
        // A track never gets below 8 pixels.
        {{0, 0, 50, 6}, 4, 1, 0, {36, 2, 12, 8}, {36, 2, 12, 24}, 3},
    };
    for (Case const& c : cases) {
        SimpleScrollbarLayout const l =
            BuildSimpleScrollbarLayout(c.area, c.total, c.visible, c.offset);
        EXPECT_TRUE(SDL_RectEquals(&l.track, &c.track))
            << l.track.x << "," << l.track.y << "," << l.track.w << "," << l.track.h;
        EXPECT_TRUE(SDL_RectEquals(&l.thumb, &c.thumb))
            << l.thumb.x << "," << l.thumb.y << "," << l.thumb.w << "," << l.thumb.h;
        EXPECT_EQ(l.max_offset, c.max_offset);
    }
}

}  // namespace
