// Small checks shared by dialog tests: the colour of a pixel of a presented frame,
// and the failure of a dialog's window or renderer.
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

// Makes the next window creation fail, or else every renderer of the window.
inline void FailWindowOrRenderer(bool no_window) {
    Faults().fail_window_creation = no_window;
    Faults().fail_accelerated_renderer = true;
    Faults().fail_software_renderer = true;
}

}  // namespace ztest
