# SPDX-License-Identifier: MIT
# Options, language level, warnings and tools for every target.

# As part of another project the library uses that project's settings and does not change them:
# the settings below only apply to this project's folder.
if(PROJECT_IS_TOP_LEVEL)
  option(BUILD_SHARED_LIBS "Build shared libraries" ON)
elseif(NOT DEFINED BUILD_SHARED_LIBS)
  set(BUILD_SHARED_LIBS ON)
endif()
option(VEMO_INSTALL "Install the library" ${PROJECT_IS_TOP_LEVEL})
option(VEMO_DARK_THEME "Embed the dark twin of the default theme" ON)
option(VEMO_BUILD_GALLERY "Build the gallery" ${PROJECT_IS_TOP_LEVEL})
option(VEMO_BUILD_EXAMPLES "Build the examples" ${PROJECT_IS_TOP_LEVEL})
# A plug-in with a static copy of the library would initialise it in addition to the application's copy.
set(canBuildDesigner OFF)
if(PROJECT_IS_TOP_LEVEL AND BUILD_SHARED_LIBS)
  find_package(${VEMO_QT}UiPlugin QUIET)
  set(canBuildDesigner ${${VEMO_QT}UiPlugin_FOUND})
endif()
option(VEMO_BUILD_DESIGNER "Build the Qt Designer plug-in" ${canBuildDesigner})
option(VEMO_BUILD_TESTS "Build the tests" ${PROJECT_IS_TOP_LEVEL})
option(VEMO_BUILD_ALL_TESTS "Also build the tests whose result is the same with Qt 5 and Qt 6" ON)
option(VEMO_BUILD_BENCHMARKS "Build the benchmarks" OFF)
option(VEMO_BUILD_FUZZER "Build the fuzz targets with libFuzzer (preset fuzz)" OFF)
option(VEMO_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" OFF)
option(VEMO_PRECOMPILE_QT "Read Qt's headers precompiled everywhere, for a quicker build" OFF)
set(VEMO_KNOWLEDGEBASE_URL "https://knowledgebase.vemo.invalid" CACHE STRING
  "Knowledge-base endpoint of help windows whose host names none")

find_package(ECM 5.100 REQUIRED NO_MODULE)
list(APPEND CMAKE_MODULE_PATH "${ECM_MODULE_PATH}")
set(VEMO_PLAIN_CXX_FLAGS "${CMAKE_CXX_FLAGS}") # without sanitizers
include(ECMEnableSanitizers)
include(GNUInstallDirs)

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_UNITY_BUILD OFF) # Sources use the same names for their file-local constants and helpers.

add_compile_options(-Wall -Wextra -Wpedantic)
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  add_compile_options(-Wno-gnu-zero-variadic-macro-arguments) # Qt's logging macros
endif()
if(VEMO_WARNINGS_AS_ERRORS)
  add_compile_options(-Werror)
endif()
if(ECM_ENABLE_SANITIZERS MATCHES "undefined")
  string(APPEND CMAKE_CXX_FLAGS " -fsanitize=float-cast-overflow -fno-sanitize-recover=undefined")
endif()
add_compile_definitions(QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING)

# All checkouts share one compiler cache: paths below the source folder are ignored.
find_program(VEMO_CCACHE ccache)
if(PROJECT_IS_TOP_LEVEL AND VEMO_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
    CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=true
    CCACHE_SLOPPINESS=pch_defines,time_macros ${VEMO_CCACHE})
endif()

# Precompiles these headers for the target and all that reuse them, which halves the build time of a test.
# Applies to the library only with VEMO_PRECOMPILE_QT, as in the release preset: by default each of its
# files must include what it uses.
function(vemo_precompile_qt target)
  target_precompile_headers(${target} PRIVATE ${ARGN})
  vemo_keep_precompiled(${target})
endfunction()

function(vemo_reuse_precompiled target source)
  target_precompile_headers(${target} REUSE_FROM ${source})
  vemo_keep_precompiled(${target})
endfunction()

# Required by ccache.
function(vemo_keep_precompiled target)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${target} PRIVATE -fpch-preprocess)
  endif()
endfunction()

# What most sources include. All of <QtWidgets> takes twice as long to load.
set(VEMO_FREQUENT_HEADERS <QApplication> <QBoxLayout> <QComboBox> <QLabel> <QLineEdit> <QPainter>
  <QPointer> <QPushButton> <QStyle>)

# Sets OUTVAR to the DLLs of the compiler mingw-w64 that every program needs.
function(vemo_find_runtime outVar)
  set(files "")
  foreach(name IN ITEMS libgcc_s_seh-1.dll libstdc++-6.dll libwinpthread-1.dll)
    execute_process(COMMAND "${CMAKE_CXX_COMPILER}" -print-file-name=${name}
      OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE)
    cmake_path(NORMAL_PATH file)
    if(IS_ABSOLUTE "${file}")
      list(APPEND files "${file}")
    endif()
  endforeach()
  set(${outVar} ${files} PARENT_SCOPE)
endfunction()

# For the current folder: tests and gallery are not instrumented. They are then compiled by the same
# commands with and without sanitizers, so the compiler cache serves both builds.
macro(vemo_without_sanitizers)
  if(ECM_ENABLE_SANITIZERS)
    set(CMAKE_CXX_FLAGS "${VEMO_PLAIN_CXX_FLAGS}")
    list(TRANSFORM ECM_ENABLE_SANITIZERS PREPEND "-fsanitize=" OUTPUT_VARIABLE sanitizers)
    add_link_options(${sanitizers})
  endif()
endmacro()
