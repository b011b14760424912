// The gallery: every dialog in each of its states worth seeing, played through by a
// script that acts as the user from inside the heartbeat, and saved as PNG files.
#pragma once

#include <filesystem>

#include "host_machine.h"

namespace demo {

// Opens every dialog over the host's window, saves a picture of each state into
// `folder` (created if needed) and prints each path. Every dialog is left without
// saving or creating anything, so only the pictures land in `folder`. Needs SDL's
// dummy video driver, whose windows keep their last frame in their surface.
// Returns 0 when every picture was saved and every dialog closed as scripted.
int RunGallery(Host& host, std::filesystem::path const& folder);

}  // namespace demo
