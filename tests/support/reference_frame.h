// Pixel-exact comparison of presented frames with committed reference pictures. A frame
// that differs fails with its first differing pixel and the count of differing pixels,
// and leaves the frame and a picture of the differences in the build folder.
#pragma once

#include "support/sdl_recorder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace ztest {

// Empty when frames can be compared here; otherwise why not: the references were drawn
// with the font files under data/ttf of the working directory and with particular SDL,
// SDL_ttf, FreeType and HarfBuzz versions, all listed beside the pictures.
std::string ReferenceFramesUnavailable();

// Compares `frame` with the reference picture `name`, leaving out the `ignored`
// rectangles (text that follows the build, such as its date). With
// ZORVANE_RECORD_FRAMES=1 in the environment the frame becomes the reference instead.
testing::AssertionResult MatchesReference(Frame const& frame, std::string const& name,
                                          std::vector<SDL_Rect> const& ignored = {});

}  // namespace ztest
