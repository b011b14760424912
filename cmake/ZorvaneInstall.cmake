# Install rules of the dialog library: the library, its public headers, a CMake
# package giving zorvane::sdl_ui, and a pkg-config file. The sibling stand-ins are
# inside the library; tests, benchmarks and the demo host have no install rules.

include(CMakePackageConfigHelpers)

set(ZORVANE_SDL_UI_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/zorvane_sdl_ui")

install(TARGETS zorvane_sdl_ui
    EXPORT zorvane_sdl_ui_targets
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/gui"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
    FILES_MATCHING PATTERN "*.h")

install(EXPORT zorvane_sdl_ui_targets
    NAMESPACE zorvane::
    FILE zorvane_sdl_uiTargets.cmake
    DESTINATION "${ZORVANE_SDL_UI_CMAKE_DIR}")
configure_package_config_file(
    "${CMAKE_CURRENT_LIST_DIR}/zorvane_sdl_uiConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/zorvane_sdl_uiConfig.cmake"
    INSTALL_DESTINATION "${ZORVANE_SDL_UI_CMAKE_DIR}")
# The soname changes with the major version, and so does compatibility.
write_basic_package_version_file(
    "${PROJECT_BINARY_DIR}/zorvane_sdl_uiConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/zorvane_sdl_uiConfig.cmake"
    "${PROJECT_BINARY_DIR}/zorvane_sdl_uiConfigVersion.cmake"
    DESTINATION "${ZORVANE_SDL_UI_CMAKE_DIR}")

# The pkg-config file finds its prefix from its own place, so the installed tree can
# be moved and `cmake --install --prefix` works whatever prefix was configured.
file(RELATIVE_PATH zorvane_pc_up "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
string(REGEX REPLACE "/$" "" zorvane_pc_up "${zorvane_pc_up}")
foreach(dir LIBDIR INCLUDEDIR)
    if(IS_ABSOLUTE "${CMAKE_INSTALL_${dir}}")
        set(zorvane_pc_${dir} "${CMAKE_INSTALL_${dir}}")
    else()
        set(zorvane_pc_${dir} "\${prefix}/${CMAKE_INSTALL_${dir}}")
    endif()
endforeach()
configure_file("${CMAKE_CURRENT_LIST_DIR}/zorvane_sdl_ui.pc.in"
    "${PROJECT_BINARY_DIR}/zorvane_sdl_ui.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/zorvane_sdl_ui.pc"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
