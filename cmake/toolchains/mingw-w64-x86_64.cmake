# Cross-builds for 64-bit Windows with Debian's mingw-w64 compilers (the POSIX-thread
# variant, so std::thread and std::mutex work). Libraries built for Windows are found
# under the prefixes listed in ZORVANE_WINDOWS_PREFIX (by default the one that
# scripts/windows_deps.sh fills) and in the compiler's own sysroot. Where Wine is
# installed, cross-built programs (tests included) run under wine64.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(zorvane_triple x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${zorvane_triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${zorvane_triple}-g++-posix)
set(CMAKE_RC_COMPILER ${zorvane_triple}-windres)

# The C and C++ runtimes go into each program and DLL; only libwinpthread-1.dll is
# shipped beside them. A DLL exports its own functions, not the runtimes' (which a
# program linking it has too).
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static-libgcc -static-libstdc++")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static-libgcc -static-libstdc++ -Wl,--exclude-libs,libgcc.a:libgcc_eh.a:libstdc++.a")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static-libgcc -static-libstdc++ -Wl,--exclude-libs,libgcc.a:libgcc_eh.a:libstdc++.a")

if(NOT DEFINED ZORVANE_WINDOWS_PREFIX)
    if(DEFINED ENV{ZORVANE_WINDOWS_PREFIX})
        set(ZORVANE_WINDOWS_PREFIX "$ENV{ZORVANE_WINDOWS_PREFIX}")
    else()
        get_filename_component(ZORVANE_WINDOWS_PREFIX
            "${CMAKE_CURRENT_LIST_DIR}/../../build/windows-deps/prefix" ABSOLUTE)
    endif()
endif()
# Prefixes given in CMAKE_PREFIX_PATH hold Windows packages too.
set(CMAKE_FIND_ROOT_PATH ${ZORVANE_WINDOWS_PREFIX} ${CMAKE_PREFIX_PATH} /usr/${zorvane_triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

find_program(ZORVANE_WINE64 NAMES wine64 PATHS /usr/lib/wine NO_CMAKE_FIND_ROOT_PATH)
if(ZORVANE_WINE64 AND NOT CMAKE_CROSSCOMPILING_EMULATOR)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${ZORVANE_WINE64})
endif()
