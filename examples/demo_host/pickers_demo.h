// The four pickers as the demo host uses them: where each one starts and what the
// host does with the path picked.
#pragma once

#include "host_machine.h"

namespace demo {

// A folder for captures, starting at the current one; screenshots default to it.
void PickCaptureFolder(Host& host);
// A font for the host's screen, starting at the current one; the screen uses it.
void PickFont(Host& host);
// A floppy image, starting at the one in drive A: (else floppies/); it is inserted.
void PickFloppy(Host& host);
// A shader or preset, starting at the current one; P then tunes its parameters.
void PickShader(Host& host);

}  // namespace demo
