# SPDX-License-Identifier: MIT
# vemo_add_test(NAME [DPI 96 120 144] [SCALE 2] [X11] [DISPLAYS option...] [LOCALES de_DE ...] [TIMEOUT SECONDS]
#   [SOURCES file...] [LIBRARIES lib...] [INTERNALS] [PLAIN] [NEEDS target...])
#
# Builds NAME.cpp and registers a run for each logical dpi. SCALE adds a run at the first dpi for each
# device pixel ratio. The screen is measured once per process, so each needs its own run.
# X11 adds a run at the first dpi on a real X server with a window manager, and DISPLAYS one for each
# option of scripts/with-display. LOCALES adds a run at the first dpi for each system locale, which need
# not be installed because Qt has its own data. All other runs use en_US.
#
# INTERNALS is for tests of code that the libraries do not export: it links their object files instead
# of the libraries. None of the test's LIBRARIES may link the libraries.
# PLAIN is for tests that are left out under the sanitizers, which would not find anything new in them.
# NEEDS names targets of optional packages; the test links them, and is left out if one is missing.
function(vemo_add_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "X11;INTERNALS;PLAIN" "TIMEOUT"
    "DPI;SCALE;SOURCES;LIBRARIES;DISPLAYS;LOCALES;NEEDS")
  if(arg_PLAIN AND ECM_ENABLE_SANITIZERS)
    return()
  endif()
  if(NOT arg_DPI)
    set(arg_DPI 96)
  endif()
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 60)
  endif()
  cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY "${PROJECT_SOURCE_DIR}/tests"
    OUTPUT_VARIABLE family)
  foreach(target IN LISTS arg_NEEDS)
    if(NOT TARGET ${target})
      message(STATUS "${family}/${name} is left out: ${target} was not found")
      return()
    endif()
  endforeach()

  add_executable(${name} ${name}.cpp ${arg_SOURCES})
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}" "${PROJECT_SOURCE_DIR}/tests")
  set_target_properties(${name} PROPERTIES VEMO_INTERNALS ${arg_INTERNALS})
  target_link_libraries(${name} PRIVATE VemoTestSupport ${arg_LIBRARIES} ${arg_NEEDS})
  target_precompile_headers(${name} REUSE_FROM VemoTestSupport)
  # Loading the precompiled headers takes a second, and this file is usually empty.
  set_source_files_properties("${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/mocs_compilation.cpp"
    PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
  foreach(source IN LISTS arg_SOURCES)
    cmake_path(IS_PREFIX PROJECT_SOURCE_DIR "${source}" isElsewhere)
    if(isElsewhere)
      # A source of the library: the tools of scripts/lint cannot read precompiled headers.
      set_source_files_properties("${source}" PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
    endif()
  endforeach()

  list(GET arg_DPI 0 firstDpi)
  if(ECM_ENABLE_SANITIZERS)
    # Their findings do not depend on the screen's factor or the locale.
    set(arg_DPI ${firstDpi})
    set(arg_SCALE "")
    set(arg_LOCALES "")
  endif()
  foreach(dpi IN LISTS arg_DPI)
    vemo_register_test(${family}/${name}@${dpi} ${dpi} 1 offscreen $<TARGET_FILE:${name}>)
  endforeach()
  foreach(scale IN LISTS arg_SCALE)
    vemo_register_test(${family}/${name}@${firstDpi}x${scale} ${firstDpi} ${scale} offscreen
      $<TARGET_FILE:${name}>)
  endforeach()
  if(arg_X11)
    vemo_register_test(${family}/${name}@x11 ${firstDpi} 1 xcb
      "${PROJECT_SOURCE_DIR}/scripts/with-display" $<TARGET_FILE:${name}>)
  endif()
  foreach(option IN LISTS arg_DISPLAYS)
    vemo_register_test(${family}/${name}@x11${option} ${firstDpi} 1 xcb
      "${PROJECT_SOURCE_DIR}/scripts/with-display" ${option} $<TARGET_FILE:${name}>)
  endforeach()
  foreach(locale IN LISTS arg_LOCALES)
    vemo_register_test(${family}/${name}@${locale} ${firstDpi} 1 offscreen $<TARGET_FILE:${name}>)
    set_property(TEST ${family}/${name}@${locale} APPEND PROPERTY
      ENVIRONMENT_MODIFICATION "LC_ALL=set:${locale}.UTF-8")
  endforeach()
endfunction()

# Registers one run of a test program; uses the caller's TIMEOUT.
# On X11 OpenGL is disabled, because its software driver is unloaded before its leaks can be identified, and so
# are Qt's warnings of X errors, which may arrive after their window has been destroyed.
function(vemo_register_test test dpi scale platform)
  add_test(NAME ${test} COMMAND ${ARGN})
  set_tests_properties(${test} PROPERTIES
    TIMEOUT ${arg_TIMEOUT} COST ${arg_TIMEOUT} # The longest tests start first.
    ENVIRONMENT "QT_QPA_PLATFORM=${platform};QT_FONT_DPI=${dpi};QT_SCALE_FACTOR=${scale};QT_STYLE_OVERRIDE=fusion;QT_XCB_GL_INTEGRATION=none;QT_LOGGING_RULES=qt.qpa.xcb.warning=false;LC_ALL=en_US.UTF-8;XDG_RUNTIME_DIR=${PROJECT_BINARY_DIR}/runtime;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/leaks.supp:print_suppressions=0"
    ENVIRONMENT_MODIFICATION "LANGUAGE=unset:;QT_ENABLE_HIGHDPI_SCALING=unset:;QT_AUTO_SCREEN_SCALE_FACTOR=unset:;QT_SCREEN_SCALE_FACTORS=unset:;DISPLAY=unset:")
endfunction()

file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/runtime")
file(CHMOD "${PROJECT_BINARY_DIR}/runtime" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
