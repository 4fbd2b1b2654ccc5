# SPDX-License-Identifier: MIT
# Toolchain for 64-bit Windows: Debian's mingw-w64, and the Qt that scripts/windows-qt builds or VEMO_WINDOWS_QT names.
# Programs for Windows are run by scripts/with-wine.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# The variant with POSIX threads: the other one has no std::condition_variable, which Qt's test library uses.
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

set(vemoWindowsQt "$ENV{VEMO_WINDOWS_QT}")
if(NOT vemoWindowsQt)
  set(cache "$ENV{XDG_CACHE_HOME}")
  if(NOT cache)
    set(cache "$ENV{HOME}/.cache")
  endif()
  set(vemoWindowsQt "${cache}/vemo-widgets/windows/qt")
endif()
set(VEMO_WINDOWS_QT "${vemoWindowsQt}" CACHE PATH "The Qt for Windows")

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 "${VEMO_WINDOWS_QT}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ECM_DIR /usr/share/ECM/cmake CACHE PATH "KDE's modules for CMake, which are the same for every system")

set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../scripts/with-wine")
