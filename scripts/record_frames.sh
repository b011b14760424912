#!/usr/bin/env bash
# Draws the reference pictures of tests/library/references anew on this machine. A
# picture changes only in a commit whose message says why the dialog looks different.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/setup.sh
build=build/tests
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$build" -j"$(nproc)" --target library_tests
ZORVANE_RECORD_FRAMES=1 ctest --test-dir "$build" -R "^Dialogs/DialogStates\." -j"$(nproc)" \
    --output-on-failure
git status --short tests/library/references
