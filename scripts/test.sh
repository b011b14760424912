#!/usr/bin/env bash
# Installs what is needed, builds the library with its tests and benchmarks, and runs
# every test. With --sanitize the same suite runs under AddressSanitizer and
# UndefinedBehaviorSanitizer (clang), and any report fails the run.
set -euo pipefail
cd "$(dirname "$0")/.."

sanitize=0
for arg in "$@"; do
    case "$arg" in
        --sanitize) sanitize=1 ;;
        *) echo "unknown option: $arg" >&2; exit 2 ;;
    esac
done

bash scripts/setup.sh
jobs=$(nproc)

if [ "$sanitize" -eq 1 ]; then
    build=build/sanitize
    cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Debug \
        -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
        -DZORVANE_SDL_UI_SANITIZE=ON -DZORVANE_SDL_UI_BUILD_BENCHMARKS=OFF >/dev/null
    export ASAN_OPTIONS="detect_leaks=1:abort_on_error=1:strict_string_checks=1"
    export LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp:print_suppressions=0"
    export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
else
    build=build/tests
    cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
fi

cmake --build "$build" -j"$jobs"
cd "$build"
ctest -j"$jobs" --output-on-failure --timeout 300
