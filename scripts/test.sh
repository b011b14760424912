#!/usr/bin/env bash
# Installs what is needed, builds the library with its tests and benchmarks, and runs
# every test. With --sanitize the same suite runs under AddressSanitizer and
# UndefinedBehaviorSanitizer (clang), and any report fails the run. With --windows it
# is cross-built for 64-bit Windows (mingw-w64, libraries from Debian's sources) and
# runs under Wine, headless, with a Western code page; with --libcxx it is built with
# clang and libc++.
set -euo pipefail
cd "$(dirname "$0")/.."

mode=plain
for arg in "$@"; do
    case "$arg" in
        --sanitize) mode=sanitize ;;
        --windows) mode=windows ;;
        --libcxx) mode=libcxx ;;
        *) echo "unknown option: $arg" >&2; exit 2 ;;
    esac
done

case "$mode" in
    windows | libcxx) bash scripts/setup.sh "--$mode" ;;
    *) bash scripts/setup.sh ;;
esac
jobs=$(nproc)

case "$mode" in
    sanitize)
        build=build/sanitize
        cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Debug \
            -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
            -DZORVANE_SDL_UI_SANITIZE=ON -DZORVANE_SDL_UI_BUILD_BENCHMARKS=OFF >/dev/null
        export ASAN_OPTIONS="detect_leaks=1:abort_on_error=1:strict_string_checks=1"
        export LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp:print_suppressions=0"
        export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
        ;;
    windows)
        deps="${ZORVANE_WINDOWS_DEPS:-$PWD/build/windows-deps}"
        ZORVANE_WINDOWS_DEPS="$deps" bash scripts/windows_deps.sh
        build=build/windows
        cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
            -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/toolchains/mingw-w64-x86_64.cmake" \
            -DZORVANE_WINDOWS_PREFIX="$deps/prefix" -DZORVANE_SDL_UI_BUILD_BENCHMARKS=OFF >/dev/null
        source scripts/wine_env.sh "$deps"
        ;;
    libcxx)
        # GoogleTest from Debian's source package, built against libc++ as well.
        build=build/libcxx
        toolchain="$PWD/cmake/toolchains/clang-libcxx.cmake"
        gtest="$PWD/build/libcxx-deps"
        if [ ! -f "$gtest/prefix/lib/cmake/GTest/GTestConfig.cmake" ]; then
            cmake -S /usr/src/googletest -B "$gtest/build" -DCMAKE_BUILD_TYPE=Release \
                -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DBUILD_GMOCK=OFF \
                -DCMAKE_INSTALL_PREFIX="$gtest/prefix" >/dev/null
            cmake --build "$gtest/build" -j"$jobs" >/dev/null
            cmake --install "$gtest/build" >/dev/null
        fi
        cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
            -DCMAKE_PREFIX_PATH="$gtest/prefix" -DZORVANE_SDL_UI_BUILD_BENCHMARKS=OFF >/dev/null
        ;;
    *)
        build=build/tests
        cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
        ;;
esac

cmake --build "$build" -j"$jobs"
cd "$build"
ctest -j"$jobs" --output-on-failure --timeout 300
