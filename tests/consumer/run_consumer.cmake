# cmake -P driver of the consumer test. Installs the library this build tree made into
# a fresh prefix, configures and builds the other kind (static or shared) of the
# library alone on the side and installs it too, then builds the host in app/ against
# each prefix and runs it. The host is also compiled once from pkg-config's flags
# against the static prefix.

set(ENV{SDL_VIDEODRIVER} dummy)
set(config_args "")
if(CONFIG)
    set(config_args --config "${CONFIG}")
endif()

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc)
    if(NOT rc EQUAL 0)
        message(FATAL_ERROR "exit ${rc}: ${ARGN}")
    endif()
endfunction()

# Installs `build` into an empty `prefix`; only the library, its headers and its two
# package files may come out.
function(install_checked build prefix)
    file(REMOVE_RECURSE "${prefix}")
    run("${CMAKE_COMMAND}" --install "${build}" --prefix "${prefix}" ${config_args})
    file(GLOB_RECURSE installed RELATIVE "${prefix}" "${prefix}/*")
    foreach(file IN LISTS installed)
        if(NOT file MATCHES "^(${LIBDIR}/((cmake/zorvane_sdl_ui|pkgconfig)/)?|${INCLUDEDIR}/gui/)[^/]+$")
            message(FATAL_ERROR "installed beyond the library: ${file}")
        endif()
    endforeach()
endfunction()

function(build_and_run_host prefix dir)
    file(REMOVE_RECURSE "${dir}")
    run("${CMAKE_COMMAND}" -S "${HOST_DIR}" -B "${dir}" "-DCMAKE_BUILD_TYPE=${CONFIG}"
        "-DCMAKE_CXX_COMPILER=${CXX_COMPILER}" "-DCMAKE_PREFIX_PATH=${prefix}"
        "-DWANTED_VERSION=${VERSION}")
    run("${CMAKE_COMMAND}" --build "${dir}" ${config_args})
    execute_process(COMMAND "${dir}/app" WORKING_DIRECTORY "${dir}" RESULT_VARIABLE rc)
    if(NOT rc EQUAL 0)
        message(FATAL_ERROR "host against ${prefix} failed: ${rc}")
    endif()
endfunction()

if(TREE_TYPE STREQUAL "STATIC_LIBRARY")
    set(tree_kind static)
    set(side_kind shared)
    set(side_shared ON)
else()
    set(tree_kind shared)
    set(side_kind static)
    set(side_shared OFF)
endif()

install_checked("${BINARY_DIR}" "${WORK_DIR}/prefix-${tree_kind}")
build_and_run_host("${WORK_DIR}/prefix-${tree_kind}" "${WORK_DIR}/host-${tree_kind}")

# The side build is kept between runs, so a later run only rebuilds what changed.
set(side "${WORK_DIR}/library-${side_kind}")
run("${CMAKE_COMMAND}" -S "${SOURCE_DIR}" -B "${side}" "-DCMAKE_BUILD_TYPE=${CONFIG}"
    "-DCMAKE_C_COMPILER=${C_COMPILER}" "-DCMAKE_CXX_COMPILER=${CXX_COMPILER}"
    "-DCMAKE_INSTALL_LIBDIR=${LIBDIR}" "-DCMAKE_INSTALL_INCLUDEDIR=${INCLUDEDIR}"
    -DBUILD_SHARED_LIBS=${side_shared} -DZORVANE_SDL_UI_INSTALL=ON
    -DZORVANE_SDL_UI_BUILD_TESTS=OFF -DZORVANE_SDL_UI_BUILD_EXAMPLES=OFF
    -DZORVANE_SDL_UI_BUILD_BENCHMARKS=OFF -DZORVANE_SDL_UI_BUILD_FUZZERS=OFF)
run("${CMAKE_COMMAND}" --build "${side}" ${config_args} --parallel 2)
install_checked("${side}" "${WORK_DIR}/prefix-${side_kind}")
build_and_run_host("${WORK_DIR}/prefix-${side_kind}" "${WORK_DIR}/host-${side_kind}")

# pkg-config's flags alone must be enough to link a host against the static archive.
if(PKG_CONFIG)
    set(ENV{PKG_CONFIG_PATH} "${WORK_DIR}/prefix-static/${LIBDIR}/pkgconfig")
    execute_process(COMMAND "${PKG_CONFIG}" --cflags --libs zorvane_sdl_ui
        OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE rc)
    if(NOT rc EQUAL 0)
        message(FATAL_ERROR "pkg-config does not know zorvane_sdl_ui")
    endif()
    separate_arguments(flags UNIX_COMMAND "${flags}")
    set(app "${WORK_DIR}/host-pkg-config")
    run("${CXX_COMPILER}" -std=c++17 "${HOST_DIR}/main.cpp" ${flags} -o "${app}")
    run("${app}")
endif()
