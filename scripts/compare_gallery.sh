#!/usr/bin/env bash
# Renders the demo host's gallery with the Linux build and with the Windows build under
# Wine, from the same folder, and compares them picture by picture. The pictures that
# show the clock, this build or a temporary folder may differ; every other one must
# match pixel for pixel. Run after `scripts/test.sh --windows` (it needs build/windows);
# the Linux demo host comes from build/tests, or is built into build/demo.
set -euo pipefail
cd "$(dirname "$0")/.."

may_differ=(about host_window picker_floppy screenshot_png screenshot_jpeg screenshot_bmp
            screenshot_format_list)
deps="${ZORVANE_WINDOWS_DEPS:-$PWD/build/windows-deps}"
windows_host=build/windows/examples/demo_host/demo_host.exe
linux_host=build/tests/examples/demo_host/demo_host
if [ ! -x "$linux_host" ]; then
    cmake -S . -B build/demo -DCMAKE_BUILD_TYPE=Release \
        -DZORVANE_SDL_UI_BUILD_TESTS=OFF -DZORVANE_SDL_UI_BUILD_BENCHMARKS=OFF >/dev/null
    cmake --build build/demo -j"$(nproc)" --target demo_host >/dev/null
    linux_host=build/demo/examples/demo_host/demo_host
fi
[ -f "$windows_host" ] || { echo "no $windows_host: run scripts/test.sh --windows" >&2; exit 1; }

# Both write into out/gallery-compare, so the folder that the forms show is the same.
rm -rf out/gallery-compare out/gallery-linux out/gallery-windows
mkdir -p out
"$linux_host" --gallery out/gallery-compare >/dev/null
mv out/gallery-compare out/gallery-linux
(source scripts/wine_env.sh "$deps" && /usr/lib/wine/wine64 "$windows_host" --gallery out/gallery-compare \
    >/dev/null)
mv out/gallery-compare out/gallery-windows

same=0 differ=0 allowed=0
for picture in out/gallery-linux/*.png; do
    name=$(basename "$picture" .png)
    pixels=$(compare -metric AE "$picture" "out/gallery-windows/$name.png" null: 2>&1 || true)
    if [ "$pixels" = "0" ]; then
        same=$((same + 1))
    elif [[ " ${may_differ[*]} " == *" $name "* ]]; then
        allowed=$((allowed + 1))
        echo "$name: $pixels pixels differ (shows the clock, the build or a temporary folder)"
    else
        differ=$((differ + 1))
        echo "$name: $pixels pixels differ"
    fi
done
echo "gallery: $same passed, $differ failed, $allowed skipped"
[ "$differ" -eq 0 ] && [ "$same" -gt 0 ]
