# What everything of ours is compiled with, and the one way to declare a room.

if(NOT CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(MELODARIO_CCACHE ccache)
    if(MELODARIO_CCACHE)
        set(CMAKE_C_COMPILER_LAUNCHER "${MELODARIO_CCACHE}")
        # Without the first two a second clone never hits the cache of the first, without the
        # third nothing is kept that is compiled with precompiled headers.
        set(CMAKE_CXX_COMPILER_LAUNCHER
            "${CMAKE_COMMAND}" -E env "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}" CCACHE_NOHASHDIR=1
            CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
            "${MELODARIO_CCACHE}")
    endif()
endif()

# A hundred tests are linked with GCC, each in a sixth of the time that GCC's own linker takes. The
# folder is where GCC looks for the name without a version.
if(CMAKE_BUILD_TYPE STREQUAL "Debug" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    find_program(MELODARIO_LLD ld.lld PATHS /usr/lib/llvm-14/bin NO_DEFAULT_PATH)
    if(MELODARIO_LLD)
        cmake_path(GET MELODARIO_LLD PARENT_PATH folder)
        add_link_options("-B${folder}" -fuse-ld=lld)
    endif()
endif()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTOUIC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_GLOBAL_AUTOGEN_TARGET ON)

add_library(melodario_flags INTERFACE)
target_compile_options(melodario_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
    -Woverloaded-virtual -Wold-style-cast -Wcast-align
    $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond;-Wlogical-op;-Wsuggest-override>)
target_compile_definitions(melodario_flags INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY
    QT_USE_QSTRINGBUILDER QT_NO_FOREACH QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)

# melodario_room(name SOURCES file... [LINKS target...])
# A room is a static library that links only what it may see: an include that points the wrong
# way does not even resolve. Includes are written from src/, as "room/File.h".
function(melodario_room name)
    cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS" ${ARGN})
    add_library(${name} STATIC ${ROOM_SOURCES})
    target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}/src")
    target_link_libraries(${name} PUBLIC ${ROOM_LINKS} PRIVATE melodario_flags)
endfunction()
