# The engine as a library of desktop Windows, on the system's own API: Ferolin.dll and the programs that test it.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
# The system has all API; what the compiler brings along (its run-time libraries) goes into each module.
add_link_options(-static)

include(CTest)

add_subdirectory(platform/windows)
add_subdirectory(src)
add_subdirectory(app)

# Without a console. The entry takes wide text.
add_executable(ferolin-app WIN32 $<TARGET_OBJECTS:app-entry>)
target_link_libraries(ferolin-app PRIVATE app-parts)
target_link_options(ferolin-app PRIVATE -municode)
set_target_properties(ferolin-app PROPERTIES OUTPUT_NAME Ferolin)

if(BUILD_TESTING)
  add_subdirectory(/usr/src/googletest googletest EXCLUDE_FROM_ALL)
  include(cmake/FerolinTest.cmake)
  add_subdirectory(tests/api)
  add_subdirectory(tests/e2e)
  add_subdirectory(tests/app)
  add_subdirectory(tests/gdi)
  add_subdirectory(tests/drawing)
endif()
