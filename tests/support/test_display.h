// SDL for a test process: video on the dummy driver (or $SDL_VIDEODRIVER) around all its
// tests, and the usual fixture of a dialog test.
#pragma once

#include <gtest/gtest.h>

namespace ztest {

// A fresh recorder before the test, no heartbeat and no queued event after it.
class DialogTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;
};

}  // namespace ztest
