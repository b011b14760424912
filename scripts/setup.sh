#!/usr/bin/env bash
# Installs what the build, the demo host and the tests need on Debian 12, and
# fetches the UI fonts into data/ttf. Safe to run again. --windows adds the mingw-w64
# cross compilers, Wine and what builds the Windows libraries from Debian's sources;
# --libcxx adds LLVM's libc++; --valgrind adds valgrind, for the instruction counts
# of the benchmarks.
set -euo pipefail
cd "$(dirname "$0")/.."

packages=(
    build-essential cmake pkg-config clang libclang-rt-14-dev
    libsdl2-dev libsdl2-ttf-dev libsdl2-image-dev
    libgtest-dev libgmock-dev libbenchmark-dev
    fonts-dejavu-core woff2
    xvfb xauth
)

for arg in "$@"; do
    case "$arg" in
        --windows) packages+=(g++-mingw-w64-x86-64-posix wine64 libz-mingw-w64-dev dpkg-dev ninja-build
                              imagemagick) ;;
        --libcxx) packages+=(libc++-dev libc++abi-dev) ;;
        --valgrind) packages+=(valgrind) ;;
        *) echo "unknown option: $arg" >&2; exit 2 ;;
    esac
done

# npm only fetches the fonts; a machine that has it from elsewhere keeps its own.
command -v npm >/dev/null 2>&1 || packages+=(npm)

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ "${#missing[@]}" -gt 0 ]; then
    sudo_cmd=""
    [ "$(id -u)" -ne 0 ] && sudo_cmd="sudo"
    $sudo_cmd apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo_cmd apt-get install -y -qq "${missing[@]}" >/dev/null
fi

bash scripts/fetch_fonts.sh
