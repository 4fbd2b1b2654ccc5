# SPDX-License-Identifier: MIT
# Installation in four components: Runtime, Development, Designer and Gallery; by mingw-w64 for Windows in a fifth one,
# Foundation: the DLLs of Qt and the compiler, which Windows does not have.
# The installed folder may be moved as a whole: no file in it contains the prefix.

include(CMakePackageConfigHelpers)

set(package VemoWidgets${VEMO_NAME_SUFFIX})
set(packageDir ${CMAKE_INSTALL_LIBDIR}/cmake/${package})
set(dataDir ${CMAKE_INSTALL_DATADIR}/vemowidgets${VEMO_FILE_SUFFIX})

# Sets OUTVAR to the relative path from one folder of the installation to another.
function(vemo_way_to outVar from to)
  cmake_path(ABSOLUTE_PATH from BASE_DIRECTORY "/prefix")
  cmake_path(ABSOLUTE_PATH to BASE_DIRECTORY "/prefix")
  cmake_path(RELATIVE_PATH to BASE_DIRECTORY "${from}")
  string(REGEX REPLACE "/$" "" to "${to}")
  set(${outVar} "${to}" PARENT_SCOPE)
endfunction()

set_target_properties(VemoTheme PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS VemoWidgets VemoTheme EXPORT VemoWidgetsTargets
  RUNTIME COMPONENT Runtime
  LIBRARY COMPONENT Runtime NAMELINK_COMPONENT Development
  ARCHIVE COMPONENT Development)
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/licenses/vemowidgets${VEMO_FILE_SUFFIX} COMPONENT Runtime)

install(FILES ${VEMO_HEADERS} ${VEMO_FORWARDING_HEADERS}
  DESTINATION ${VEMO_INCLUDE_DIR}/vemo COMPONENT Development)
install(DIRECTORY "${VEMO_THEME_FOLDER}/" "${VEMO_THEME_DRAWINGS}"
  DESTINATION ${dataDir}/theme COMPONENT Development)
install(FILES theme/README.md DESTINATION ${dataDir}/theme COMPONENT Development)
if(VEMO_DARK_THEME)
  install(DIRECTORY "${VEMO_DARK_THEME_FOLDER}/" "${VEMO_DARK_THEME_DRAWINGS}"
    DESTINATION ${dataDir}/theme-dark COMPONENT Development)
endif()

# CMake
install(EXPORT VemoWidgetsTargets FILE ${package}Targets.cmake NAMESPACE Vemo:: DESTINATION ${packageDir} COMPONENT Development)
configure_package_config_file(cmake/VemoWidgetsConfig.cmake.in
  "${CMAKE_CURRENT_BINARY_DIR}/${package}Config.cmake" INSTALL_DESTINATION ${packageDir})
install(
  FILES "${CMAKE_CURRENT_BINARY_DIR}/${package}Config.cmake"
    "${CMAKE_CURRENT_BINARY_DIR}/${package}ConfigVersion.cmake"
  DESTINATION ${packageDir} COMPONENT Development)

# pkg-config and qmake
set(staticDefine "")
set(pkgConfigDefine "")
if(NOT BUILD_SHARED_LIBS)
  set(staticDefine "VEMO_STATIC")
  set(pkgConfigDefine "-DVEMO_STATIC")
endif()
vemo_way_to(pkgConfigToPrefix "${CMAKE_INSTALL_LIBDIR}/pkgconfig" "")
vemo_way_to(dataToInclude "${dataDir}" "${VEMO_INCLUDE_DIR}")
vemo_way_to(dataToLib "${dataDir}" "${CMAKE_INSTALL_LIBDIR}")
foreach(file IN ITEMS .pc -theme.pc .pri)
  configure_file(cmake/vemowidgets${file}.in
    "${CMAKE_CURRENT_BINARY_DIR}/vemowidgets${VEMO_FILE_SUFFIX}${file}" @ONLY)
endforeach()
install(
  FILES "${CMAKE_CURRENT_BINARY_DIR}/vemowidgets${VEMO_FILE_SUFFIX}.pc"
    "${CMAKE_CURRENT_BINARY_DIR}/vemowidgets${VEMO_FILE_SUFFIX}-theme.pc"
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT Development)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/vemowidgets${VEMO_FILE_SUFFIX}.pri"
  DESTINATION ${dataDir} COMPONENT Development)

# Sets OUTVAR to the file packaging/NAME.KIND, or to a copy for the Qt 6 program of that name.
function(vemo_name_file outVar name kind)
  set(file "${PROJECT_SOURCE_DIR}/packaging/${name}.${kind}")
  if(VEMO_FILE_SUFFIX)
    file(READ "${file}" text)
    string(REPLACE "${name}" "${name}${VEMO_FILE_SUFFIX}" text "${text}")
    string(REGEX REPLACE "(^|\n)(Name=[^\n]*)" "\\1\\2 (Qt ${VEMO_QT_VERSION_MAJOR})" text "${text}")
    set(file "${CMAKE_CURRENT_BINARY_DIR}/${name}${VEMO_FILE_SUFFIX}.${kind}")
    file(CONFIGURE OUTPUT "${file}" CONTENT "${text}" @ONLY)
  endif()
  set(${outVar} "${file}" PARENT_SCOPE)
endfunction()

# vemo_install_host(TARGET NAME): installs the program NAME with its desktop entry.
function(vemo_install_host target name)
  if(NOT TARGET ${target})
    return()
  endif()
  vemo_way_to(libraries ${CMAKE_INSTALL_BINDIR} ${CMAKE_INSTALL_LIBDIR})
  set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN/${libraries}")
  set_target_properties(${target} PROPERTIES OUTPUT_NAME ${name}${VEMO_FILE_SUFFIX})
  install(TARGETS ${target} RUNTIME COMPONENT Gallery)
  if(WIN32)
    set_target_properties(${target} PROPERTIES WIN32_EXECUTABLE ON) # without a console
    return()
  endif()
  foreach(kind IN ITEMS desktop svg 1)
    vemo_name_file(file ${name} ${kind})
    list(APPEND files "${file}")
  endforeach()
  list(POP_FRONT files entry icon manual)
  install(FILES "${entry}" DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT Gallery)
  install(FILES "${icon}"
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT Gallery)
  install(FILES "${manual}" DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT Gallery)
endfunction()

vemo_install_host(vemo-gallery vemo-gallery)
vemo_install_host(filebrowser vemo-filebrowser)

# Next to the programs, where Windows looks for them, and Qt for its plug-ins.
if(MINGW)
  vemo_find_runtime(files)
  foreach(module IN ITEMS Core Gui Widgets Network Svg)
    list(APPEND files $<TARGET_FILE:${VEMO_QT}::${module}>)
  endforeach()
  install(FILES ${files} DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Foundation)
  # Debian's libstdc++ has its debugging symbols, which are most of it.
  install(CODE "execute_process(COMMAND \"${CMAKE_STRIP}\" \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/libstdc++-6.dll\")"
    COMPONENT Foundation)
  foreach(plugin IN ITEMS platforms/qwindows platforms/qoffscreen styles/qwindowsvistastyle
      imageformats/qgif imageformats/qico imageformats/qsvg)
    cmake_path(GET plugin PARENT_PATH kind)
    install(FILES "${VEMO_WINDOWS_QT}/plugins/${plugin}.dll"
      DESTINATION ${CMAKE_INSTALL_BINDIR}/${kind} COMPONENT Foundation)
  endforeach()
  # Their licences ask for it. Another Qt than that of scripts/windows-qt may have none there.
  set(licenses ${CMAKE_INSTALL_DATADIR}/licenses)
  install(DIRECTORY "${VEMO_WINDOWS_QT}/licenses/" DESTINATION ${licenses}/qt COMPONENT Foundation OPTIONAL)
  install(FILES /usr/share/doc/gcc-mingw-w64-x86-64-posix-runtime/copyright
    DESTINATION ${licenses}/gcc COMPONENT Foundation OPTIONAL)
  install(FILES /usr/share/doc/mingw-w64-common/copyright
    DESTINATION ${licenses}/mingw-w64 COMPONENT Foundation OPTIONAL)
endif()

# The plug-in goes where the Qt of the same prefix looks for it; any other Qt needs QT_PLUGIN_PATH.
if(TARGET VemoDesigner)
  set(pluginDir ${CMAKE_INSTALL_LIBDIR}/qt${VEMO_QT_VERSION_MAJOR}/plugins/designer)
  vemo_way_to(libraries ${pluginDir} ${CMAKE_INSTALL_LIBDIR})
  set_target_properties(VemoDesigner PROPERTIES INSTALL_RPATH "$ORIGIN/${libraries}")
  install(TARGETS VemoDesigner LIBRARY DESTINATION ${pluginDir} COMPONENT Designer)
endif()
