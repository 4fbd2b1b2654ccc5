# SPDX-License-Identifier: MIT
# Copies the theme's data files next to its drawn pictures and replaces the names of colours (@accent@)
# by those of PALETTE. Those in style-dark go into the folder style, too. The drawings are copied to
# DRAWINGS in the same way, for users who install the theme to change it.

file(READ "${PALETTE}" palette)
string(JSON count LENGTH "${palette}")
math(EXPR last "${count} - 1")

function(copy_with_colours from to)
  file(READ "${from}" text)
  foreach(i RANGE ${last})
    string(JSON name MEMBER "${palette}" ${i})
    string(JSON colour GET "${palette}" ${name})
    string(REPLACE "@${name}@" "${colour}" text "${text}")
  endforeach()
  if(text MATCHES "@([a-z-]+)@")
    message(FATAL_ERROR "${from}: \"${CMAKE_MATCH_1}\" is not a colour of the palette")
  endif()
  file(WRITE "${to}" "${text}")
endfunction()

foreach(file IN LISTS DATA)
  string(REPLACE "style-dark/" "style/" target "${file}")
  copy_with_colours("${SOURCE}/${file}" "${FOLDER}/${target}")
endforeach()
configure_file("${PALETTE}" "${FOLDER}/palette.json" COPYONLY)

foreach(file IN LISTS PICTURES)
  cmake_path(GET file FILENAME name)
  copy_with_colours("${file}" "${DRAWINGS}/${name}")
endforeach()
