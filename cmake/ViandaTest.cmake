# vianda_test(<tst_class> [NO_DATABASE] [USES <rooms> ...] [QT <modules> ...] [SOURCES ...])
#
# The test program <tst_class>.cpp of the present folder, known to CTest as <folder>/<tst_class>. Every test runs on the offscreen platform, in the C.UTF-8 locale and
# Europe/Bratislava (a test sets another where that is its subject), with a settings store of its own, and with the
# database server of the CTest run: started by the fixture "database", one fresh database per program.
set(VIANDA_TEST_SERVER ${CMAKE_BINARY_DIR}/test-server)

function(vianda_test name)
  cmake_parse_arguments(TEST "NO_DATABASE" "" "USES;QT;SOURCES" ${ARGN})
  get_filename_component(room ${CMAKE_CURRENT_SOURCE_DIR} NAME)
  add_executable(${name} ${name}.cpp ${TEST_SOURCES})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  list(TRANSFORM TEST_USES PREPEND vianda_)
  list(TRANSFORM TEST_QT PREPEND Qt5::)
  target_link_libraries(${name} PRIVATE ${TEST_USES} vianda_testsupport Qt5::Test ${TEST_QT})
  vianda_warnings(${name})
  add_test(NAME ${room}/${name} COMMAND ${name})
  vianda_test_environment(${room}/${name} ${name})
  if(NOT TEST_NO_DATABASE)
    set_tests_properties(${room}/${name} PROPERTIES FIXTURES_REQUIRED database)
  endif()
endfunction()

function(vianda_test_environment test home)
  set(home ${CMAKE_BINARY_DIR}/test-homes/${home})
  file(MAKE_DIRECTORY ${home})
  set_tests_properties(${test} PROPERTIES
    TIMEOUT 120
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;LANGUAGE=;TZ=Europe/Bratislava;HOME=${home};XDG_CONFIG_HOME=${home};XDG_DATA_HOME=${home};VIANDA_TEST_SERVER=${VIANDA_TEST_SERVER};LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/support/leaks.supp:print_suppressions=0;UBSAN_OPTIONS=print_stacktrace=1;ASAN_OPTIONS=detect_leaks=1")
endfunction()
