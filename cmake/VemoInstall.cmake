# SPDX-License-Identifier: MIT
# What leaves the build tree: libraries, headers, pkg-config file, CMake package.

include(CMakePackageConfigHelpers)
include(ECMGeneratePkgConfigFile)

install(TARGETS VemoWidgets VemoTheme EXPORT VemoWidgetsTargets)
install(FILES ${VEMO_HEADERS} ${VEMO_FORWARDING_HEADERS}
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vemo)
install(EXPORT VemoWidgetsTargets NAMESPACE Vemo::
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VemoWidgets)

configure_package_config_file(cmake/VemoWidgetsConfig.cmake.in
  "${CMAKE_CURRENT_BINARY_DIR}/VemoWidgetsConfig.cmake"
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VemoWidgets)
install(
  FILES "${CMAKE_CURRENT_BINARY_DIR}/VemoWidgetsConfig.cmake"
    "${CMAKE_CURRENT_BINARY_DIR}/VemoWidgetsConfigVersion.cmake"
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VemoWidgets)

ecm_generate_pkgconfig_file(BASE_NAME vemowidgets LIB_NAME VemoWidgets
  DEPS "Qt5Widgets Qt5Network" INCLUDE_INSTALL_DIR ${CMAKE_INSTALL_INCLUDEDIR}
  DESCRIPTION "${PROJECT_DESCRIPTION}" INSTALL)
