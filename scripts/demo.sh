#!/usr/bin/env bash
# Installs what is needed, builds the library and runs the demo host. Without a
# display the host answers its dialogs itself and saves a PNG of each.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/setup.sh
cmake -S . -B build/demo -DCMAKE_BUILD_TYPE=Release \
    -DZORVANE_SDL_UI_BUILD_TESTS=OFF -DZORVANE_SDL_UI_BUILD_BENCHMARKS=OFF >/dev/null
cmake --build build/demo -j"$(nproc)" --target demo_host
./build/demo/examples/demo_host/demo_host "$@"
