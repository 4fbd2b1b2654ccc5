# SPDX-License-Identifier: MIT
# Debian packages, one per component, built by the target "package"; for Windows a zip file with the programs and
# all that they need.

set(VEMO_PACKAGE_CONTACT "Vemo Widgets developers <developers@vemo-widgets.example.org>"
  CACHE STRING "Maintainer of the packages")

if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME vemowidgets${VEMO_FILE_SUFFIX}-${PROJECT_VERSION}-win64)
  set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
  set(CPACK_STRIP_FILES ON)
  set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
  set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
  set(CPACK_COMPONENTS_ALL Runtime Gallery Foundation)
  set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY ON)
  include(CPack)
  return()
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vemowidgets${VEMO_FILE_SUFFIX})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_PACKAGE_CONTACT "${VEMO_PACKAGE_CONTACT}")
set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
  GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SOURCE vemowidgets)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}" "${PROJECT_BINARY_DIR}/theme")

set(runtime libvemowidgets${PROJECT_VERSION_MAJOR})
set(qtDevelopment "qtbase5-dev (>= 5.15)")
if(VEMO_QT_VERSION_MAJOR EQUAL 6)
  set(runtime libvemowidgetsqt6-${PROJECT_VERSION_MAJOR})
  set(qtDevelopment "qt6-base-dev (>= 6.4)")
endif()
set(sameVersion "(= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")

# vemo_package(COMPONENT NAME SECTION DEPENDS SUMMARY TEXT)
macro(vemo_package component name section depends summary text)
  string(TOUPPER ${component} key)
  list(APPEND CPACK_COMPONENTS_ALL ${component})
  set(CPACK_COMPONENT_${key}_DESCRIPTION "${summary}\n${about}\n\n${text}")
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${name})
  set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${section})
  set(CPACK_DEBIAN_${key}_PACKAGE_DEPENDS "${depends}")
endmacro()

set(CPACK_COMPONENTS_ALL "")
string(JOIN "\n" about
  "Vemo Widgets is a Qt library of styled widgets for desktop client"
  "utilities, and the resource services behind them: style sheets,"
  "pictures and strings that follow the screen's scale and the user's"
  "language.")
vemo_package(Runtime ${runtime} libs "" "styled Qt widgets - libraries"
  "This package holds the libraries.")
vemo_package(Development libvemowidgets${VEMO_FILE_SUFFIX}-dev libdevel
  "${runtime} ${sameVersion}, ${qtDevelopment}" "styled Qt widgets - development files"
"This package holds what is needed to build with it: headers, files for
CMake, pkg-config and qmake, and the sources of the default theme.")
if(TARGET VemoDesigner)
  vemo_package(Designer vemowidgets${VEMO_FILE_SUFFIX}-designer devel "${runtime} ${sameVersion}"
    "styled Qt widgets - plug-in for Qt Designer"
    "This package shows the widgets in Qt Designer.")
endif()
if(TARGET vemo-gallery)
  vemo_package(Gallery vemowidgets${VEMO_FILE_SUFFIX}-gallery devel "${runtime} ${sameVersion}"
    "styled Qt widgets - gallery and example"
"This package holds a gallery of all widgets and a small file browser
made of them.")
endif()

set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
# A trigger updates the linker's cache. The two scripts are named but never written: without their
# names CPack would add its own, which call ldconfig a second time.
set(controlFiles "${PROJECT_BINARY_DIR}/debian")
file(WRITE "${controlFiles}/triggers" "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA
  "${controlFiles}/triggers" "${controlFiles}/postinst" "${controlFiles}/postrm")
if(CMAKE_LIBRARY_ARCHITECTURE AND CMAKE_INSTALL_LIBDIR MATCHES "${CMAKE_LIBRARY_ARCHITECTURE}")
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_MULTIARCH same)
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_MULTIARCH same)
endif()

configure_file(cmake/VemoDebianFiles.cmake.in "${PROJECT_BINARY_DIR}/debian/files.cmake" @ONLY)
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_BINARY_DIR}/debian/files.cmake")
include(CPack)
