# SPDX-License-Identifier: MIT
# Copies the theme's data files beside its drawn pictures and writes the resource list over them all.

foreach(file IN LISTS DATA)
  configure_file("${SOURCE}/${file}" "${FOLDER}/${file}" COPYONLY)
endforeach()

file(GLOB_RECURSE files RELATIVE "${FOLDER}" "${FOLDER}/*")
set(entries "")
foreach(file IN LISTS files)
  string(APPEND entries "  <file alias=\"${file}\">${FOLDER}/${file}</file>\n")
endforeach()
file(WRITE "${QRC}" "<RCC>\n<qresource prefix=\"/vemo/theme\">\n${entries}</qresource>\n</RCC>\n")
