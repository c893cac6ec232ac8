# Windows, 64 bits, with MinGW-w64 and POSIX threads, as Debian packs it. What is built before the
# program lies in the folder that MELODARIO_WINDOWS_PREFIX (or the environment's) names.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(triple x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triple}-g++-posix)
set(CMAKE_RC_COMPILER ${triple}-windres)
set(CMAKE_AR ${triple}-gcc-ar-posix)
set(CMAKE_RANLIB ${triple}-gcc-ranlib-posix)

if(NOT MELODARIO_WINDOWS_PREFIX)
    set(MELODARIO_WINDOWS_PREFIX "$ENV{MELODARIO_WINDOWS_PREFIX}")
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES MELODARIO_WINDOWS_PREFIX)

# Programs that run during the build are this computer's, everything else is Windows'.
set(CMAKE_FIND_ROOT_PATH /usr/${triple} "${MELODARIO_WINDOWS_PREFIX}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Qt's own tools (moc, uic, rcc) come from this computer's packages of the same version.
set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake)
