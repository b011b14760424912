// The screenshot, disk image and About dialogs as the demo host uses them: what a
// host does with each result.
#pragma once

#include "host_machine.h"

namespace demo {

// Grabs the host's current frame, asks where and how to save it (starting at the
// host's capture folder), and writes it there as PNG, JPEG or BMP.
void SaveHostScreenshot(Host& host);

// Asks for a new disk image and prints what the host would create; creates nothing.
void AskForDiskImage(Host& host);

void ShowAbout(Host& host);

}  // namespace demo
