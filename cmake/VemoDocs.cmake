# SPDX-License-Identifier: MIT
# The API reference, built only by the target "docs": build/PRESET/api/html/index.html, vemowidgets.qch
# for Qt Assistant and Qt Creator, and vemowidgets.tags for the references of other projects. The last
# two are installed if they have been built.

find_package(Doxygen QUIET)
get_target_property(qmake ${VEMO_QT}::qmake LOCATION)
cmake_path(GET qmake PARENT_PATH qtTools)
find_program(VEMO_QHELPGENERATOR qhelpgenerator HINTS "${qtTools}" "${qtTools}/../libexec")

set(VEMO_API_FOLDER "${PROJECT_BINARY_DIR}/api")
set(VEMO_API_QCH NO)
if(VEMO_QHELPGENERATOR)
  set(VEMO_API_QCH YES)
endif()
configure_file(docs/api/Doxyfile.in "${PROJECT_BINARY_DIR}/Doxyfile" @ONLY)

if(DOXYGEN_FOUND)
  add_custom_target(docs
    COMMAND ${CMAKE_COMMAND} -E rm -rf "${VEMO_API_FOLDER}"
    COMMAND ${CMAKE_COMMAND} -E make_directory "${VEMO_API_FOLDER}"
    COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen "XDG_RUNTIME_DIR=${VEMO_API_FOLDER}"
      "${DOXYGEN_EXECUTABLE}" "${PROJECT_BINARY_DIR}/Doxyfile"
    COMMAND ${CMAKE_COMMAND} "-DFILE=${VEMO_API_FOLDER}/vemowidgets.tags"
      "-DFOLDER=${PROJECT_SOURCE_DIR}/include/" -P "${PROJECT_SOURCE_DIR}/docs/api/relative.cmake"
    COMMENT "Writing the API reference"
    VERBATIM)
else()
  add_custom_target(docs
    COMMAND ${CMAKE_COMMAND} -E echo "Doxygen is missing: install the packages of the group docs in scripts/packages and configure again."
    COMMAND ${CMAKE_COMMAND} -E false
    VERBATIM)
endif()

if(VEMO_INSTALL)
  install(FILES "${VEMO_API_FOLDER}/vemowidgets.qch" "${VEMO_API_FOLDER}/vemowidgets.tags"
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/vemowidgets${VEMO_FILE_SUFFIX} COMPONENT Development OPTIONAL)
endif()
