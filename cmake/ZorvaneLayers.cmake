# The include layers of the library's sources, lowest first: the frame; the pickers and
# the message box on it; the settings, shader and About dialogs and the shared form loop;
# the two forms, which nest the folder picker. A source may include the headers of its
# own layer and of those below it, and a public header gui/NAME.h belongs to the folder
# NAME. Configuring stops at the first include that points upward.

set(zorvane_layers "frame" "message_box pickers" "settings shader_params about forms"
    "screenshot hdd_image")
set(zorvane_rank 0)
foreach(layer IN LISTS zorvane_layers)
    string(REPLACE " " ";" folders "${layer}")
    foreach(folder IN LISTS folders)
        set(zorvane_rank_${folder} ${zorvane_rank})
    endforeach()
    math(EXPR zorvane_rank "${zorvane_rank} + 1")
endforeach()

file(GLOB_RECURSE zorvane_layered_files RELATIVE "${PROJECT_SOURCE_DIR}/src"
    "${PROJECT_SOURCE_DIR}/src/*.h" "${PROJECT_SOURCE_DIR}/src/*.cpp")
foreach(file IN LISTS zorvane_layered_files)
    string(REGEX MATCH "^[a-z_]+" from "${file}")
    if(NOT DEFINED zorvane_rank_${from})
        message(FATAL_ERROR "src/${from} has no layer in cmake/ZorvaneLayers.cmake")
    endif()
    file(STRINGS "${PROJECT_SOURCE_DIR}/src/${file}" includes REGEX "^#include \"[a-z_]+/")
    foreach(include IN LISTS includes)
        string(REGEX REPLACE "^#include \"(gui/)?([a-z_]+).*" "\\2" to "${include}")
        if(DEFINED zorvane_rank_${to} AND zorvane_rank_${to} GREATER zorvane_rank_${from})
            message(FATAL_ERROR "src/${file}: ${include} reaches from ${from} up to ${to}")
        endif()
    endforeach()
endforeach()
