// Real pointer buttons under an X server, pressed and released through XTest, for
// tests that need the button state that SDL polls from the server, and a wait for
// the server's answer to reach SDL.
#pragma once

#include <functional>

namespace ztest {

// Pumps SDL's events until `done` holds, for at most `timeout_ms`. Returns `done()`.
bool PumpEventsUntil(std::function<bool()> const& done, unsigned int timeout_ms = 1000);

// Presses (`down`) or releases X pointer button `button` (1 is the left one) on the
// display of $DISPLAY and waits until the server has processed it. Returns false
// when there is no display or no XTest extension.
bool SetRealPointerButton(bool down, unsigned int button = 1);

}  // namespace ztest
