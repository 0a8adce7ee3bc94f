# The engine as a library of desktop Windows, on the system's own API: Ferolin.dll and the programs that test it.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
# The system has all API; what the compiler brings along (its run-time libraries) goes into each module.
add_link_options(-static)

include(CTest)

add_subdirectory(platform/windows)
add_subdirectory(src)

if(BUILD_TESTING)
  # Programs of another system cannot be asked for their cases while they are built.
  set(CMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE PRE_TEST)
  add_subdirectory(/usr/src/googletest googletest EXCLUDE_FROM_ALL)
  include(cmake/FerolinTest.cmake)
  add_subdirectory(tests/api)
  add_subdirectory(tests/e2e)
  add_subdirectory(tests/gdi)
  add_subdirectory(tests/drawing)
endif()
