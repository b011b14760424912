#!/usr/bin/env bash
# Cross-builds for 64-bit Windows what the library, its tests and the demo host link:
# SDL2, FreeType, HarfBuzz, SDL2_ttf (shaping with HarfBuzz, as Debian builds it),
# SDL2_image, libpng and GoogleTest, each from Debian's own source package with
# Debian's patches, at the version the Linux build uses where the archive still has
# it. Everything goes below build/windows-deps (or $ZORVANE_WINDOWS_DEPS): sources,
# builds and the install prefix. A package already built is not built again.
# Needs the mingw-w64 compilers, cmake, ninja and dpkg-source (scripts/setup.sh
# --windows installs them).
set -euo pipefail
cd "$(dirname "$0")/.."

root="${ZORVANE_WINDOWS_DEPS:-$PWD/build/windows-deps}"
prefix="$root/prefix"
toolchain="$PWD/cmake/toolchains/mingw-w64-x86_64.cmake"
jobs="${JOBS:-$(nproc)}"
mkdir -p "$root/apt/lists/partial" "$root/src" "$root/stamps" "$prefix"

# A private source list: the machine's apt configuration stays as it is.
apt_opts=(-o Dir::Etc::SourceList=/dev/null -o "Dir::Etc::SourceParts=$root/apt"
          -o "Dir::State::Lists=$root/apt/lists" -o APT::Sandbox::User=root)
lists_ready=0
apt_lists() {
    [ "$lists_ready" -eq 1 ] && return
    sed 's/^Types: deb$/Types: deb-src/' /etc/apt/sources.list.d/debian.sources \
        >"$root/apt/debian-src.sources"
    apt-get "${apt_opts[@]}" update -qq
    lists_ready=1
}

# fetch SOURCE DEV_PACKAGE: unpacks the source package into $root/src/SOURCE with
# Debian's patches applied. It takes the version of the installed Linux package
# DEV_PACKAGE when the archive has it, else the newest version that downloads.
fetch() {
    local source="$1" dev="$2" dir="$root/src/$1"
    [ -f "$dir/.unpacked" ] && return
    apt_lists
    local wanted versions version
    wanted=$(dpkg-query -W -f='${source:Version}' "$dev" 2>/dev/null || true)
    versions=$(apt-cache "${apt_opts[@]}" showsrc "$source" | sed -n 's/^Version: //p' |
               sort -r -V | uniq)
    rm -rf "$root/download" "$dir"
    mkdir -p "$root/download"
    for version in $wanted $versions; do
        if (cd "$root/download" &&
            apt-get "${apt_opts[@]}" source --download-only -qq "$source=$version" \
                >/dev/null 2>&1); then
            # apt checked the files against the signed archive; dpkg-source has no keys.
            dpkg-source --no-check -x "$root/download/${source}_${version#*:}.dsc" "$dir" \
                >/dev/null
            rm -f "$root/src/${source}_"*  # the tarballs that dpkg-source copied beside it
            echo "$source $version" >"$dir/.unpacked"
            echo "== $source $version from Debian's source"
            return
        fi
        rm -rf "${root:?}/download"/*
    done
    echo "cannot fetch the source package $source" >&2
    exit 1
}

# build NAME SOURCE_SUBDIR CMAKE_ARGS...: configures, builds and installs one package.
build() {
    local name="$1" source="$2"
    shift 2
    [ -f "$root/stamps/$name" ] && return
    echo "== building $name for Windows"
    rm -rf "$root/build/$name"
    cmake -S "$source" -B "$root/build/$name" -G Ninja \
        -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DZORVANE_WINDOWS_PREFIX="$prefix" \
        -DCMAKE_INSTALL_PREFIX="$prefix" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_C_FLAGS_RELEASE="-O2 -DNDEBUG" -DCMAKE_CXX_FLAGS_RELEASE="-O2 -DNDEBUG" \
        "$@" >"$root/build-$name.log" 2>&1 ||
        { tail -n 40 "$root/build-$name.log"; exit 1; }
    cmake --build "$root/build/$name" -j"$jobs" >>"$root/build-$name.log" 2>&1 &&
        cmake --install "$root/build/$name" >>"$root/build-$name.log" 2>&1 ||
        { tail -n 40 "$root/build-$name.log"; exit 1; }
    touch "$root/stamps/$name"
}

fetch libsdl2 libsdl2-dev
fetch freetype libfreetype-dev
fetch harfbuzz libharfbuzz-dev
fetch libsdl2-ttf libsdl2-ttf-dev
fetch libsdl2-image libsdl2-image-dev
fetch libpng1.6 libpng-dev
fetch googletest libgtest-dev

# SDL2: video, rendering and events; no audio, input devices or Direct3D.
build sdl2 "$root/src/libsdl2" -DSDL_SHARED=ON -DSDL_STATIC=OFF -DSDL_TEST=OFF \
    -DSDL_AUDIO=OFF -DSDL_JOYSTICK=OFF -DSDL_HAPTIC=OFF -DSDL_HIDAPI=OFF -DSDL_SENSOR=OFF \
    -DSDL_POWER=OFF -DSDL_DIRECTX=OFF -DSDL_RENDER_D3D=OFF -DSDL_VULKAN=OFF
# FreeType as Debian configures it: no bzip2 and no HarfBuzz inside FreeType.
build freetype "$root/src/freetype" -DBUILD_SHARED_LIBS=ON -DFT_DISABLE_BZIP2=ON \
    -DFT_DISABLE_HARFBUZZ=ON -DFT_DISABLE_ZLIB=ON -DFT_DISABLE_PNG=ON -DFT_DISABLE_BROTLI=ON
build harfbuzz "$root/src/harfbuzz" -DBUILD_SHARED_LIBS=ON -DHB_HAVE_FREETYPE=ON \
    -DHB_BUILD_UTILS=OFF -DHB_BUILD_SUBSET=OFF -DHB_HAVE_GLIB=OFF -DHB_HAVE_ICU=OFF
build sdl2_ttf "$root/src/libsdl2-ttf" -DBUILD_SHARED_LIBS=ON -DSDL2TTF_VENDORED=OFF \
    -DSDL2TTF_HARFBUZZ=ON -DSDL2TTF_SAMPLES=OFF
# SDL2_image reads and writes PNG and JPEG with its built-in coders (so it is "vendored":
# its package file then asks for no libpng or libjpeg).
build sdl2_image "$root/src/libsdl2-image" -DBUILD_SHARED_LIBS=ON -DSDL2IMAGE_VENDORED=ON \
    -DSDL2IMAGE_BACKEND_STB=ON -DSDL2IMAGE_DEPS_SHARED=OFF -DSDL2IMAGE_SAMPLES=OFF \
    -DSDL2IMAGE_AVIF=OFF -DSDL2IMAGE_JXL=OFF -DSDL2IMAGE_TIF=OFF -DSDL2IMAGE_WEBP=OFF
# libpng against Debian's Windows zlib, linked in statically.
build libpng "$root/src/libpng1.6" -DPNG_SHARED=OFF -DPNG_STATIC=ON -DPNG_TESTS=OFF \
    -DPNG_EXECUTABLES=OFF -DZLIB_LIBRARY=/usr/x86_64-w64-mingw32/lib/libz.a \
    -DZLIB_INCLUDE_DIR=/usr/x86_64-w64-mingw32/include
build googletest "$root/src/googletest" -DBUILD_GMOCK=OFF -DINSTALL_GTEST=ON
