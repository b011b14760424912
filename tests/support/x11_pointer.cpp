// XTest button events on a connection of our own to the display SDL uses.
#include "support/x11_pointer.h"

#include <SDL.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

namespace ztest {

namespace {

// Opened on first use and kept for the life of the process.
Display* TestDisplay() {
    static Display* const display = XOpenDisplay(nullptr);
    return display;
}

}  // namespace

bool SetRealPointerButton(bool down, unsigned int button) {
    Display* display = TestDisplay();
    if (display == nullptr) {
        return false;
    }
    int event_base = 0;
    int error_base = 0;
    int major = 0;
    int minor = 0;
    if (!XTestQueryExtension(display, &event_base, &error_base, &major, &minor)) {
        return false;
    }
    XTestFakeButtonEvent(display, button, down ? True : False, CurrentTime);
    XSync(display, False);
    return true;
}

bool PumpEventsUntil(std::function<bool()> const& done, unsigned int timeout_ms) {
    Uint32 const deadline = SDL_GetTicks() + timeout_ms;
    while (!done()) {
        if (SDL_TICKS_PASSED(SDL_GetTicks(), deadline)) {
            return false;
        }
        SDL_Delay(10);
        SDL_PumpEvents();
    }
    return true;
}

}  // namespace ztest
