# What both widths have in common, for the processor that CMAKE_SYSTEM_PROCESSOR names: cross-compiles
# for Windows with Debian's MinGW-w64.
set(CMAKE_SYSTEM_NAME Windows)
set(tools ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32)
set(CMAKE_CXX_COMPILER ${tools}-g++-posix)
set(CMAKE_C_COMPILER ${tools}-gcc-posix)
set(CMAKE_RC_COMPILER ${tools}-windres)
set(KEYSCOUT_WIDL ${tools}-widl)
set(CMAKE_FIND_ROOT_PATH /usr/${tools})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# The system type library that ours refers to; the same for both widths.
set(KEYSCOUT_STDOLE_DIR /usr/lib/x86_64-linux-gnu/wine/x86_64-windows)
