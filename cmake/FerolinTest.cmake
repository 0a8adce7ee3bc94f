# ferolin_test(<name> SOURCES <file>... [LIBS <target>...] [LABELS <label>...] [COST <seconds>])
# One GoogleTest program; CTest runs it suite by suite, those that COST most first.

# GoogleTest's header takes more than half of the time in which a test compiles, so it is compiled
# once for each set of options: src/ and app/ have their own, which their libraries pass on. A
# compiler cache would store nothing that uses it, and few tests are built for Windows.
function(ferolin_test_header name)
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/${name}.cpp CONTENT "int main() {}\n")
  add_executable(${name} EXCLUDE_FROM_ALL ${CMAKE_BINARY_DIR}/${name}.cpp)
  target_compile_options(${name} PRIVATE -O0)
  target_link_libraries(${name} PRIVATE ${ARGN} GTest::gtest)
  target_precompile_headers(${name} PRIVATE <gtest/gtest.h>)
endfunction()

if(NOT CMAKE_CXX_COMPILER_LAUNCHER AND FEROLIN_HOME STREQUAL "linux")
  ferolin_test_header(test-header)
  ferolin_test_header(engine-test-header ferolin-options)
endif()

# ferolin_test_part(<target>)
# Has it compiled as the tests are.
function(ferolin_test_part name)
  target_compile_options(${name} PRIVATE -O0)  # tests are compiled more often than they are run
  if(TARGET test-header)
    get_target_property(libs ${name} LINK_LIBRARIES)
    set(header test-header)
    if(libs MATCHES "(^|;)(app|ferolin|view)-")
      set(header engine-test-header)
    endif()
    target_precompile_headers(${name} REUSE_FROM ${header})
    # A header that was compiled for programs serves no library: a part becomes one of programs.
    get_target_property(type ${name} TYPE)
    if(NOT type STREQUAL "EXECUTABLE")
      set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE OFF)
      target_compile_options(${name} PRIVATE -fPIE)
    endif()
  endif()
endfunction()

function(ferolin_test name)
  cmake_parse_arguments(PARSE_ARGV 1 TEST "" "COST" "SOURCES;LIBS;LABELS")
  add_executable(${name} ${TEST_SOURCES})
  target_link_libraries(${name} PRIVATE ${TEST_LIBS} GTest::gtest GTest::gmock GTest::gtest_main)
  ferolin_test_part(${name})
  # Two dozen sources share the time that GoogleTest's templates take.
  set_target_properties(${name} PROPERTIES UNITY_BUILD_BATCH_SIZE 24)

  set(folder ${CMAKE_CURRENT_BINARY_DIR})
  set(labels "${TEST_LABELS}")
  set(cost ${TEST_COST})
  if(NOT cost)
    set(cost 0)
  endif()
  set(program "$<TARGET_FILE:${name}>")
  set(start "${CMAKE_CROSSCOMPILING_EMULATOR}")
  configure_file(${CMAKE_CURRENT_FUNCTION_LIST_DIR}/TestSuites.cmake.in ${name}.cmake.in @ONLY)
  file(GENERATE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cmake
    INPUT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cmake.in)
  set_property(DIRECTORY APPEND PROPERTY
    TEST_INCLUDE_FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.cmake)
endfunction()
