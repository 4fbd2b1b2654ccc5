# SPDX-License-Identifier: MIT
# Writes the resource list QRC over THEMES, each a "PREFIX=FOLDER".

set(groups "")
foreach(theme IN LISTS THEMES)
  string(REPLACE "=" ";" theme "${theme}")
  list(POP_FRONT theme prefix folder)
  file(GLOB_RECURSE files RELATIVE "${folder}" "${folder}/*")
  set(entries "")
  foreach(file IN LISTS files)
    string(APPEND entries "  <file alias=\"${file}\">${folder}/${file}</file>\n")
  endforeach()
  string(APPEND groups "<qresource prefix=\"${prefix}\">\n${entries}</qresource>\n")
endforeach()
file(WRITE "${QRC}" "<RCC>\n${groups}</RCC>\n")
