#!/usr/bin/env bash
# Builds the shader parameter parser fuzzers with clang, AddressSanitizer and
# UndefinedBehaviorSanitizer, and runs each for a bounded time (FUZZ_SECONDS, 60 by
# default). The corpus grows in the build folder, from the small seeds in fuzz/.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds="${FUZZ_SECONDS:-60}"
build="${FUZZ_BUILD_DIR:-build-fuzz}"

cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
    -DZORVANE_SDL_UI_BUILD_FUZZERS=ON -DZORVANE_SDL_UI_BUILD_TESTS=OFF \
    -DZORVANE_SDL_UI_BUILD_EXAMPLES=OFF -DZORVANE_SDL_UI_BUILD_BENCHMARKS=OFF >/dev/null
cmake --build "$build" -j2 --target shader_specs_fuzz glslp_overrides_fuzz

for pair in shader_specs_fuzz:specs glslp_overrides_fuzz:overrides; do
    target="${pair%%:*}"
    seeds="fuzz/shader_params/seeds/${pair##*:}"
    corpus="$build/corpus/$target"
    mkdir -p "$corpus"
    log="$build/$target.log"
    echo "== $target for ${seconds}s"
    if ! "$build/fuzz/shader_params/$target" -max_total_time="$seconds" -print_final_stats=1 \
        -max_len=65536 "$corpus" "$seeds" >"$log" 2>&1; then
        tail -n 60 "$log"
        echo "$target: fault found, see $log" >&2
        exit 1
    fi
    grep -E "^(Done|stat::number_of_executed_units|stat::peak_rss_mb)" "$log"
done
