// XTest button events on a connection of our own to the display SDL uses.
#include "support/x11_pointer.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

namespace ztest {

bool SetRealPointerButton(bool down, unsigned int button) {
    static Display* const display = XOpenDisplay(nullptr);  // kept for the process
    int unused[4] = {0, 0, 0, 0};
    if (display == nullptr ||
        !XTestQueryExtension(display, &unused[0], &unused[1], &unused[2], &unused[3])) {
        return false;
    }
    XTestFakeButtonEvent(display, button, down ? True : False, CurrentTime);
    XSync(display, False);
    return true;
}

}  // namespace ztest
