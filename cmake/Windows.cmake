# The engine as a library of desktop Windows, on the system's own API: Ferolin.dll and the programs that test it.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
# The system has all API; what the compiler brings along (its run-time libraries) goes into each module.
add_link_options(-static)

add_subdirectory(platform/windows)
add_subdirectory(src)

if(BUILD_TESTING AND EXISTS ${CMAKE_SOURCE_DIR}/tests/drawing/CMakeLists.txt)
  add_subdirectory(tests/drawing)
endif()
