#!/usr/bin/env bash
# Installs what is needed, builds the library and runs the demo host. On a desktop
# the host runs interactively (a key per dialog, listed on its screen); without a
# display it renders the gallery of every dialog into out/gallery/ and prints each
# picture's path. Arguments go to the host, e.g. --gallery DIR or a shader preset.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/setup.sh
cmake -S . -B build/demo -DCMAKE_BUILD_TYPE=Release \
    -DZORVANE_SDL_UI_BUILD_TESTS=OFF -DZORVANE_SDL_UI_BUILD_BENCHMARKS=OFF >/dev/null
cmake --build build/demo -j"$(nproc)" --target demo_host
if [ $# -eq 0 ] && [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
    set -- --gallery out/gallery
fi
./build/demo/examples/demo_host/demo_host "$@"
