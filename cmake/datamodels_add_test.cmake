# datamodels_add_test(<name> SOURCES <file>... [LIBRARIES <target>...] [LABELS <label>...] [DISPLAY])
#
# One test program `tst_<name>`, linked with the library and the test kit. DISPLAY runs it in a real window under Xvfb,
# without a check for leaks; the others run on the offscreen platform.
function(datamodels_add_test name)
  cmake_parse_arguments(ARG "DISPLAY" "" "SOURCES;LIBRARIES;LABELS" ${ARGN})

  add_executable(tst_${name} ${ARG_SOURCES})
  target_link_libraries(tst_${name} PRIVATE datamodels::datamodels datamodels_test_support Qt5::Test
                        datamodels_options ${ARG_LIBRARIES})
  if(NOT ARG_LIBRARIES) # others have definitions that Qt Test's headers look at
    target_precompile_headers(tst_${name} REUSE_FROM datamodels_test_support)
  endif()

  if(ARG_DISPLAY)
    add_test(NAME ${name} COMMAND xvfb-run -a -s "-screen 0 1600x1000x24" $<TARGET_FILE:tst_${name}>)
    # xvfb-run probes for a free display number, which two of them at once get wrong.
    set_tests_properties(${name} PROPERTIES RESOURCE_LOCK display ENVIRONMENT "QT_QPA_PLATFORM=xcb")
    # Drivers and the session bus keep memory, and are gone from the process when leaks are told.
    set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT "ASAN_OPTIONS=detect_leaks=0")
  else()
    add_test(NAME ${name} COMMAND tst_${name})
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
  endif()
  set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT
               "LSAN_OPTIONS=print_suppressions=0:suppressions=${PROJECT_SOURCE_DIR}/cmake/leaks.supp")
  set_tests_properties(${name} PROPERTIES LABELS "${ARG_LABELS}" TIMEOUT 300)
endfunction()
