// The settings dialog as the demo host uses it: over the host's own settings record.
#pragma once

#include "host_machine.h"

namespace demo {

// Opens the settings dialog on a copy of the host's record. Every Apply replaces the
// record, which the machine follows at once (its frame rate, for one); closing the
// dialog keeps what was applied.
void OpenSettings(Host& host);

}  // namespace demo
