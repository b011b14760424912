// The pixel check shared by dialog tests: the colour at a point of a presented frame.
#pragma once

#include "support/sdl_recorder.h"

#include <gtest/gtest.h>

namespace ztest {

// Whether the pixel at (x, y) has the colour `want`, alpha aside; says what it found.
inline testing::AssertionResult HasColor(Frame const& frame, int x, int y, SDL_Color want) {
    SDL_Color const got = frame.At(x, y);
    if (got.r == want.r && got.g == want.g && got.b == want.b) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << "at " << x << "," << y << ": got " << int(got.r) << "," << int(got.g) << ","
           << int(got.b) << " want " << int(want.r) << "," << int(want.g) << "," << int(want.b);
}

}  // namespace ztest
