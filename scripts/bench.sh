#!/usr/bin/env bash
# Builds the benchmarks and the demo host in Release into build/bench and runs them
# from the project root (where data/ttf holds the UI fonts) on the dummy video
# driver: first the dialog report, one row per dialog, with the demo host's idle
# CPU share under Xvfb, then every other benchmark program. With --quick every
# program makes a short run. With --instructions only the report's frames run,
# counted under callgrind (valgrind is installed for it).
set -euo pipefail
cd "$(dirname "$0")/.."

quick=0
instructions=0
for arg in "$@"; do
    case "$arg" in
        --quick) quick=1 ;;
        --instructions) instructions=1 ;;
        *) echo "unknown option: $arg" >&2; exit 2 ;;
    esac
done

if [ "$instructions" -eq 1 ]; then
    bash scripts/setup.sh --valgrind
else
    bash scripts/setup.sh
fi
build=build/bench
programs=(dialog_report_bench message_box_bench pickers_bench settings_bench shader_params_bench)

cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DZORVANE_SDL_UI_BUILD_BENCHMARKS=ON \
    -DZORVANE_SDL_UI_BUILD_TESTS=OFF -DZORVANE_SDL_UI_BUILD_EXAMPLES=ON >/dev/null
cmake --build "$build" -j"$(nproc)" --target "${programs[@]}" demo_host

export SDL_VIDEODRIVER=dummy
echo "load average: $(cut -d' ' -f1-3 /proc/loadavg)"
if [ "$instructions" -eq 1 ]; then
    exec "$build/bench/dialog_report_bench" --instructions
fi

# The report runs under Xvfb only so that the demo host it starts has a display.
report=("$build/bench/dialog_report_bench" --demo-host "$build/examples/demo_host/demo_host")
if [ "$quick" -eq 1 ]; then
    xvfb-run -a -s "-screen 0 1280x1024x24" "${report[@]}" --quick
    for p in "${programs[@]:1}"; do "$build/bench/$p" --benchmark_min_time=0.05; done
else
    xvfb-run -a -s "-screen 0 1280x1024x24" "${report[@]}"
    for p in "${programs[@]:1}"; do "$build/bench/$p"; done
fi
