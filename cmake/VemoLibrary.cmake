# SPDX-License-Identifier: MIT
# The library's target; each folder adds its sources and public headers.

set(VEMO_INCLUDE_DIR ${CMAKE_INSTALL_INCLUDEDIR}) # where the folder "vemo" of the headers is installed
if(VEMO_FILE_SUFFIX)
  string(APPEND VEMO_INCLUDE_DIR /vemowidgets${VEMO_FILE_SUFFIX})
endif()
add_library(VemoWidgets)
add_library(Vemo::Widgets ALIAS VemoWidgets)
target_include_directories(VemoWidgets
  PUBLIC
    "$<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/include>"
    "$<BUILD_INTERFACE:${CMAKE_CURRENT_BINARY_DIR}/include>"
    "$<INSTALL_INTERFACE:${VEMO_INCLUDE_DIR}>"
  PRIVATE
    "${CMAKE_CURRENT_SOURCE_DIR}")
target_link_libraries(VemoWidgets PUBLIC ${VEMO_QT}::Widgets ${VEMO_QT}::Network)
target_compile_definitions(VemoWidgets PRIVATE VEMO_BUILD_LIBRARY)
if(NOT BUILD_SHARED_LIBS)
  target_compile_definitions(VemoWidgets PUBLIC VEMO_STATIC)
endif()
set_target_properties(VemoWidgets PROPERTIES
  OUTPUT_NAME VemoWidgets${VEMO_NAME_SUFFIX}
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR}
  EXPORT_NAME Widgets)

# vemo_add_headers(NAME...): every exported name has a forwarding header, such as <vemo/VemoButton>,
# which includes vemobutton.h. "A,B" means that B is declared in the header of A.
set_property(GLOBAL PROPERTY VEMO_HEADER_NAMES "")
function(vemo_add_headers)
  set_property(GLOBAL APPEND PROPERTY VEMO_HEADER_NAMES ${ARGN})
endfunction()
