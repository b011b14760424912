# Installs the library of this build tree into a fresh prefix, builds the other kind
# (static or shared) of the library alone on the side and installs it too, then
# builds and runs examples/minimal_host against each prefix, once more from pkg-config's
# flags alone against the static prefix, and once with the library's source tree
# added to the host's own build, where only SDL2 and SDL2_ttf may be looked for.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc)
    if(NOT rc EQUAL 0)
        message(FATAL_ERROR "exit ${rc}: ${ARGN}")
    endif()
endfunction()

# A toolchain file (cross builds, other C++ libraries) applies to every build here;
# cross-built hosts run under EMULATOR.
set(toolchain "")
if(TOOLCHAIN)
    set(toolchain "-DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN}")
endif()

# Only the library, its headers and its two package files may be installed, and on
# Windows the DLL of a shared library.
function(install_and_run_host build kind)
    set(prefix "${WORK_DIR}/prefix-${kind}")
    file(REMOVE_RECURSE "${prefix}" "${WORK_DIR}/host-${kind}")
    run("${CMAKE_COMMAND}" --install "${build}" --prefix "${prefix}" --config "${CONFIG}")
    file(GLOB_RECURSE installed RELATIVE "${prefix}" "${prefix}/*")
    foreach(file IN LISTS installed)
        if(NOT file MATCHES "^(${LIBDIR}/(libzorvane_sdl_ui[.]|(cmake/zorvane_sdl_ui|pkgconfig)/)|${INCLUDEDIR}/gui/)[^/]+$"
           AND NOT file MATCHES "^bin/[^/]+[.]dll$")
            message(FATAL_ERROR "installed beyond the library: ${file}")
        endif()
    endforeach()
    run("${CMAKE_COMMAND}" -S "${HOST_DIR}" -B "${WORK_DIR}/host-${kind}"
        "-DCMAKE_BUILD_TYPE=${CONFIG}" "-DCMAKE_CXX_COMPILER=${CXX_COMPILER}" ${toolchain}
        "-DCMAKE_PREFIX_PATH=${prefix}" "-DWANTED_VERSION=${VERSION}")
    run("${CMAKE_COMMAND}" --build "${WORK_DIR}/host-${kind}" --config "${CONFIG}")
    file(GLOB dlls "${prefix}/bin/*.dll")  # found beside the program on Windows
    file(COPY ${dlls} DESTINATION "${WORK_DIR}/host-${kind}")
    run(${EMULATOR} "${WORK_DIR}/host-${kind}/app${EXE_SUFFIX}")
endfunction()

if(TREE_TYPE STREQUAL "STATIC_LIBRARY")
    set(tree_kind static)
    set(side_kind shared)
else()
    set(tree_kind shared)
    set(side_kind static)
endif()
install_and_run_host("${BINARY_DIR}" ${tree_kind})

# The side build is kept between runs, so a later run only rebuilds what changed.
set(side "${WORK_DIR}/library-${side_kind}")
string(COMPARE EQUAL ${side_kind} shared side_shared)
run("${CMAKE_COMMAND}" -S "${SOURCE_DIR}" -B "${side}" "-DCMAKE_BUILD_TYPE=${CONFIG}" ${toolchain}
    "-DCMAKE_C_COMPILER=${C_COMPILER}" "-DCMAKE_CXX_COMPILER=${CXX_COMPILER}"
    "-DCMAKE_INSTALL_LIBDIR=${LIBDIR}" "-DCMAKE_INSTALL_INCLUDEDIR=${INCLUDEDIR}"
    -DBUILD_SHARED_LIBS=${side_shared} -DZORVANE_SDL_UI_INSTALL=ON
    -DZORVANE_SDL_UI_BUILD_TESTS=OFF -DZORVANE_SDL_UI_BUILD_EXAMPLES=OFF
    -DZORVANE_SDL_UI_BUILD_BENCHMARKS=OFF -DZORVANE_SDL_UI_BUILD_FUZZERS=OFF)
run("${CMAKE_COMMAND}" --build "${side}" --config "${CONFIG}" --parallel 2)
install_and_run_host("${side}" ${side_kind})

if(PKG_CONFIG)
    set(ENV{PKG_CONFIG_PATH} "${WORK_DIR}/prefix-static/${LIBDIR}/pkgconfig")
    execute_process(COMMAND "${PKG_CONFIG}" --cflags --libs zorvane_sdl_ui
        OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(flags UNIX_COMMAND "${CXX_FLAGS} ${flags}")
    run("${CXX_COMPILER}" -std=c++17 "${HOST_DIR}/main.cpp" ${flags} -o "${WORK_DIR}/host-pc")
    run("${WORK_DIR}/host-pc")
endif()

set(embedded "${WORK_DIR}/host-embedded")
run("${CMAKE_COMMAND}" -S "${HOST_DIR}" -B "${embedded}" --no-warn-unused-cli "-DEMBED=${SOURCE_DIR}"
    "-DCMAKE_C_COMPILER=${C_COMPILER}" "-DCMAKE_CXX_COMPILER=${CXX_COMPILER}" ${toolchain}
    -DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON -DCMAKE_DISABLE_FIND_PACKAGE_benchmark=ON
    -DCMAKE_DISABLE_FIND_PACKAGE_X11=ON -DCMAKE_DISABLE_FIND_PACKAGE_SDL2_image=ON
    -DCMAKE_DISABLE_FIND_PACKAGE_PNG=ON)
run("${CMAKE_COMMAND}" --build "${embedded}" --parallel 2)
run(${EMULATOR} "${embedded}/app${EXE_SUFFIX}")
