// Real pointer buttons under an X server, through XTest, for suites that need the
// button state SDL polls from the server.
#pragma once

namespace ztest {

// Presses or releases X pointer button `button` (1: left) on $DISPLAY and waits until
// the server has it; false without a display or XTest.
bool SetRealPointerButton(bool down, unsigned int button = 1);

}  // namespace ztest
