# SPDX-License-Identifier: MIT
# Finds Qt 5 or Qt 6. VEMO_QT is "Qt5" or "Qt6". What is built with Qt 6 has names of its own, so that both
# may be installed into the same folder: VEMO_NAME_SUFFIX ends the names of libraries and of the CMake package,
# VEMO_FILE_SUFFIX those of folders, programs and other files.

if(NOT VEMO_QT_VERSION_MAJOR)
  set(major 5)
  if(NOT TARGET Qt5::Core)
    if(NOT TARGET Qt6::Core)
      find_package(Qt5 5.15 QUIET COMPONENTS Widgets)
    endif()
    if(NOT Qt5_FOUND)
      set(major 6)
    endif()
  endif()
  set(VEMO_QT_VERSION_MAJOR ${major} CACHE STRING
    "Qt's major version; by default that of the surrounding project, otherwise 5 if it is installed, otherwise 6")
endif()

set(VEMO_QT Qt${VEMO_QT_VERSION_MAJOR})
if(VEMO_QT_VERSION_MAJOR EQUAL 5)
  set(VEMO_QT_MINIMUM 5.15)
  set(VEMO_NAME_SUFFIX "")
  set(VEMO_FILE_SUFFIX "")
elseif(VEMO_QT_VERSION_MAJOR EQUAL 6)
  set(VEMO_QT_MINIMUM 6.4)
  set(VEMO_NAME_SUFFIX "Qt6")
  set(VEMO_FILE_SUFFIX "-qt6")
else()
  message(FATAL_ERROR "VEMO_QT_VERSION_MAJOR is \"${VEMO_QT_VERSION_MAJOR}\"; it may be 5 or 6.")
endif()
find_package(${VEMO_QT} ${VEMO_QT_MINIMUM} REQUIRED COMPONENTS Core Gui Widgets Network Svg)
