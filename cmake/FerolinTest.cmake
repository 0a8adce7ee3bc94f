# ferolin_test(<name> SOURCES <file>... [LIBS <target>...] [LABELS <label>...])
# One GoogleTest program, found by CTest case by case.
include(GoogleTest)

function(ferolin_test name)
  cmake_parse_arguments(PARSE_ARGV 1 TEST "" "" "SOURCES;LIBS;LABELS")
  add_executable(${name} ${TEST_SOURCES})
  target_compile_options(${name} PRIVATE -O0)  # tests are compiled more often than they are run
  target_link_libraries(${name} PRIVATE ${TEST_LIBS} GTest::gtest GTest::gmock GTest::gtest_main)
  gtest_discover_tests(${name}
    TEST_PREFIX ${name}.
    PROPERTIES TIMEOUT 60 LABELS "${TEST_LABELS}"
    DISCOVERY_TIMEOUT 30)
endfunction()
