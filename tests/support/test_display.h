// The display of a test process: SDL's video subsystem on the driver that the test
// executable asks for. An x11 suite finds its private Xvfb in DISPLAY (with_xvfb.sh).
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace ztest {

// Starts SDL video on $SDL_VIDEODRIVER, dummy when unset; ends the process when it
// cannot. Windows has no X server: there an x11 suite runs on the dummy driver and its
// tests skip themselves.
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
