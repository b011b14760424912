#!/usr/bin/env bash
# Builds the benchmarks in Release into build/bench and runs them from the project
# root (where data/ttf holds the UI fonts) on the dummy video driver: first the
# dialog report, one row per dialog, then every other benchmark program. With
# --quick every program makes a short run.
set -euo pipefail
cd "$(dirname "$0")/.."

quick=0
for arg in "$@"; do
    case "$arg" in
        --quick) quick=1 ;;
        *) echo "unknown option: $arg" >&2; exit 2 ;;
    esac
done

bash scripts/setup.sh
build=build/bench
programs=(dialog_report_bench message_box_bench pickers_bench settings_bench shader_params_bench)

cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DZORVANE_SDL_UI_BUILD_BENCHMARKS=ON \
    -DZORVANE_SDL_UI_BUILD_TESTS=OFF -DZORVANE_SDL_UI_BUILD_EXAMPLES=OFF >/dev/null
cmake --build "$build" -j"$(nproc)" --target "${programs[@]}"

export SDL_VIDEODRIVER=dummy
echo "load average: $(cut -d' ' -f1-3 /proc/loadavg)"
if [ "$quick" -eq 1 ]; then
    "$build/bench/dialog_report_bench" --quick
    for p in "${programs[@]:1}"; do "$build/bench/$p" --benchmark_min_time=0.05; done
else
    for p in "${programs[@]}"; do "$build/bench/$p"; done
fi
