# SPDX-License-Identifier: MIT
# vemo_add_test(NAME [DPI 96 120 144] [SCALE 2] [X11|X11_ONLY] [DISPLAYS option...] [LOCALES de_DE ...]
#   [TIMEOUT SECONDS] [SOURCES file...] [LIBRARIES lib...] [INTERNALS] [PLAIN] [MEMORY] [ONCE]
#   [NEEDS target...] [UNIX_ONLY REASON])
#
# Builds NAME.cpp and registers a run for each logical dpi. SCALE adds a run at the first dpi for each
# device pixel ratio. The screen is measured once per process, so each needs its own run.
# X11 adds a run at the first dpi on a real X server with a window manager, X11_ONLY registers no
# other, and DISPLAYS adds one for each option of scripts/with-display. LOCALES adds a run at the first
# dpi for each system locale, which need not be installed because Qt has its own data. All other runs
# use en_US.
#
# INTERNALS is for tests of code that the libraries do not export: it links their object files instead
# of the libraries. None of the test's LIBRARIES may link the libraries.
# PLAIN is for tests that are left out under the sanitizers, which would not find anything new in them.
# MEMORY is for tests of lifetimes and hostile input, which the sanitizers judge: it gives their runs the label
# of that name, and .ci/run repeats none of them without sanitizers.
# ONCE is for tests that need no second run with the other version of Qt: the result does not depend on it, or the
# run takes too long. Without VEMO_BUILD_ALL_TESTS they are left out, and so are those of MEMORY, the other factors
# and the locales.
# NEEDS names targets of optional packages; the test links them, and is left out if one is missing.
# UNIX_ONLY is for tests that Windows can't build or run, with the reason: there they are registered as skipped.
#
# On Windows each test has one run at its first dpi, and one on the desktop, in real windows, in place of those on X11.
# Where Windows is not the system that builds, scripts/with-wine runs them.
function(vemo_add_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "X11;X11_ONLY;INTERNALS;PLAIN;MEMORY;ONCE" "TIMEOUT;UNIX_ONLY"
    "DPI;SCALE;SOURCES;LIBRARIES;DISPLAYS;LOCALES;NEEDS")
  if(arg_PLAIN AND ECM_ENABLE_SANITIZERS)
    return()
  endif()
  if((arg_ONCE OR arg_MEMORY) AND NOT VEMO_BUILD_ALL_TESTS)
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

  if(WIN32 AND arg_UNIX_ONLY)
    vemo_skip_test(${family}/${name} "${arg_UNIX_ONLY}")
    return()
  endif()

  add_executable(${name} ${name}.cpp ${arg_SOURCES})
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}" "${PROJECT_SOURCE_DIR}/tests")
  set_target_properties(${name} PROPERTIES VEMO_INTERNALS ${arg_INTERNALS})
  target_link_libraries(${name} PRIVATE VemoTestSupport ${arg_LIBRARIES} ${arg_NEEDS})
  vemo_reuse_precompiled(${name} VemoTestSupport)
  if(NOT arg_SOURCES MATCHES "\\.h(;|$)")
    # AUTOMOC would add a scan and an empty source to each of many programs.
    set_target_properties(${name} PROPERTIES AUTOMOC OFF)
    target_include_directories(${name} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}")
    foreach(source IN ITEMS ${name}.cpp ${arg_SOURCES})
      vemo_add_moc_file(${name} "${source}")
    endforeach()
  endif()
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
  elseif(WIN32)
    set(arg_DPI ${firstDpi})
    set(arg_SCALE "")
    set(arg_DISPLAYS "")
    set(arg_LOCALES "") # A program can't choose it.
  elseif(NOT VEMO_BUILD_ALL_TESTS)
    set(arg_DPI ${firstDpi})
    set(arg_LOCALES "")
  endif()
  if(arg_X11_ONLY)
    set(arg_X11 ON)
    set(arg_DPI "")
  endif()
  foreach(dpi IN LISTS arg_DPI)
    vemo_register_test(${family}/${name}@${dpi} ${dpi} 1 offscreen $<TARGET_FILE:${name}>)
  endforeach()
  foreach(scale IN LISTS arg_SCALE)
    vemo_register_test(${family}/${name}@${firstDpi}x${scale} ${firstDpi} ${scale} offscreen
      $<TARGET_FILE:${name}>)
  endforeach()
  if(arg_X11 AND WIN32) # also X11_ONLY
    vemo_register_test(${family}/${name}@desktop ${firstDpi} 1 windows $<TARGET_FILE:${name}>)
    set_property(TEST ${family}/${name}@desktop PROPERTY RESOURCE_LOCK desktop) # Only one window is active.
  elseif(arg_X11)
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

# For sources of the current folder that are linked to the libraries in one test, and to their object files in another:
# on Windows, calls of a DLL's functions are compiled differently, unless its import library passes them on. Not
# for the whole target, because its precompiled headers are used by others.
function(vemo_link_either_way)
  if(WIN32)
    set_property(SOURCE ${ARGN} APPEND PROPERTY COMPILE_DEFINITIONS VEMO_STATIC)
  endif()
endfunction()

# Runs moc on a source that includes its own output, such as #include "tst_vemobutton.moc".
function(vemo_add_moc_file target source)
  cmake_path(ABSOLUTE_PATH source)
  if(NOT EXISTS "${source}") # generated by the build
    return()
  endif()
  file(STRINGS "${source}" includes REGEX "^#include \".*\\.moc\"")
  if(NOT includes)
    return()
  endif()
  cmake_path(GET source STEM name)
  set(output "${CMAKE_CURRENT_BINARY_DIR}/${name}.moc")
  get_source_file_property(isGenerated "${output}" GENERATED)
  if(NOT isGenerated) # Several programs may share a source.
    cmake_language(CALL qt${VEMO_QT_VERSION_MAJOR}_generate_moc "${source}" "${output}")
  endif()
  target_sources(${target} PRIVATE "${output}")
endfunction()

# Registers a test that this system can't run, for which ctest then prints the reason.
function(vemo_skip_test test reason)
  add_test(NAME ${test} COMMAND ${CMAKE_COMMAND} -E echo "SKIP: ${reason}")
  set_tests_properties(${test} PROPERTIES SKIP_REGULAR_EXPRESSION "^SKIP")
endfunction()

# Registers one run of a test program; uses the caller's TIMEOUT and MEMORY.
# On X11 OpenGL is disabled, because its software driver is unloaded before its leaks can be identified, and so
# are Qt's warnings of X errors, which may arrive after their window has been destroyed.
function(vemo_register_test test dpi scale platform)
  set(options "")
  if(WIN32 AND ARGN MATCHES "tst_")
    set(options -o -,tap) # QtTest's plain text goes to the debugger.
  endif()
  add_test(NAME ${test} COMMAND ${VEMO_TEST_LAUNCHER} ${ARGN} ${options})
  set(highDpiScaling "unset:")
  if(VEMO_QT_VERSION_MAJOR EQUAL 6)
    set(highDpiScaling "set:0") # Otherwise QT_FONT_DPI would become a device pixel ratio.
  endif()
  math(EXPR timeout "3 * ${arg_TIMEOUT}") # It ends a run that hangs, and no other on a machine under load.
  if(arg_MEMORY)
    set_property(TEST ${test} PROPERTY LABELS memory)
  endif()
  # By default QtTest aborts a test function after 300 s, which the longest take on a machine under load.
  set_tests_properties(${test} PROPERTIES
    TIMEOUT ${timeout} COST ${arg_TIMEOUT} # The longest tests start first.
    ENVIRONMENT "QT_QPA_PLATFORM=${platform};QT_FONT_DPI=${dpi};QT_SCALE_FACTOR=${scale};QT_STYLE_OVERRIDE=fusion;QT_XCB_GL_INTEGRATION=none;QT_LOGGING_RULES=qt.qpa.xcb.warning=false;LC_ALL=en_US.UTF-8;XDG_RUNTIME_DIR=${PROJECT_BINARY_DIR}/runtime;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/leaks.supp:print_suppressions=0"
    ENVIRONMENT_MODIFICATION "LANGUAGE=unset:;QTEST_FUNCTION_TIMEOUT=set:${timeout}000;QT_ENABLE_HIGHDPI_SCALING=${highDpiScaling};QT_AUTO_SCREEN_SCALE_FACTOR=unset:;QT_SCREEN_SCALE_FACTORS=unset:")
  if(NOT WIN32) # There all runs share one desktop.
    set_property(TEST ${test} APPEND PROPERTY ENVIRONMENT_MODIFICATION "DISPLAY=unset:")
  endif()
  if(ECM_ENABLE_SANITIZERS)
    set_property(TEST ${test} APPEND PROPERTY ENVIRONMENT VEMO_SANITIZERS=1)
  endif()
  if(VEMO_TEST_LAUNCHER)
    set_property(TEST ${test} APPEND PROPERTY ENVIRONMENT
      "VEMO_WINE=${PROJECT_BINARY_DIR}/wine" "VEMO_WINE_PATH=${VEMO_DLL_FOLDERS}"
      "VEMO_WINE_FONTS=${PROJECT_BINARY_DIR}/fonts")
  endif()
endfunction()

set(VEMO_TEST_LAUNCHER "")
if(WIN32 AND CMAKE_CROSSCOMPILING)
  set(VEMO_TEST_LAUNCHER ${CMAKE_CROSSCOMPILING_EMULATOR})
  set(folders "${PROJECT_BINARY_DIR}" "${PROJECT_BINARY_DIR}/theme" "${VEMO_WINDOWS_QT}/bin")
  vemo_find_runtime(runtime)
  foreach(file IN LISTS runtime)
    cmake_path(GET file PARENT_PATH folder)
    list(APPEND folders "${folder}")
  endforeach()
  list(REMOVE_DUPLICATES folders)
  list(JOIN folders ":" VEMO_DLL_FOLDERS)
  # The default font is of the first family here. This is the one that tests have on Linux.
  file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/fonts")
  foreach(font DejaVuSans DejaVuSans-Bold DejaVuSansMono DejaVuSansMono-Bold)
    file(CREATE_LINK "/usr/share/fonts/truetype/dejavu/${font}.ttf" "${PROJECT_BINARY_DIR}/fonts/${font}.ttf" SYMBOLIC)
  endforeach()
endif()

file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/runtime")
file(CHMOD "${PROJECT_BINARY_DIR}/runtime" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
