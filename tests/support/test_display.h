// The display of a test process: SDL's video subsystem on the driver that the test
// executable asks for, with an Xvfb server started on demand for the x11 driver.
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace ztest {

// Starts SDL video on $SDL_VIDEODRIVER (dummy when unset). For x11 without a
// DISPLAY it first starts a private Xvfb and points DISPLAY at it.
void StartTestDisplay();
void StopTestDisplay();

// The video driver in use.
std::string VideoDriver();

// The usual fixture of a dialog test: a fresh recorder before, no heartbeat after.
class DialogTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;
};

}  // namespace ztest
