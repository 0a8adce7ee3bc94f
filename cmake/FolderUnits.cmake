# A folder's sources are compiled as one unit: their headers take most of the time in which each
# compiles by itself. Names in unnamed namespaces are therefore unique in a folder. The other homes
# and the fuzzers compile source by source, which finds a missing include. So does a build with a
# compiler cache, which keeps single sources better.
if(NOT DEFINED CMAKE_UNITY_BUILD AND FEROLIN_HOME STREQUAL "linux"
   AND NOT CMAKE_CXX_COMPILER_LAUNCHER AND NOT FEROLIN_FUZZ)
  set(CMAKE_UNITY_BUILD ON CACHE BOOL "Compile the sources of a folder together")
endif()

# What most sources of a part include is compiled once for the part, in the same builds: a compiler
# cache would store nothing that uses it.
if(FEROLIN_HOME STREQUAL "linux" AND NOT CMAKE_CXX_COMPILER_LAUNCHER AND NOT FEROLIN_FUZZ)
  option(CMAKE_DISABLE_PRECOMPILE_HEADERS "Compile common headers with each source" OFF)
else()
  set(CMAKE_DISABLE_PRECOMPILE_HEADERS ON)
endif()

# ferolin_folder_units(<target>...)
# Call it when all sources are added. Other targets compile eight sources together.
function(ferolin_folder_units)
  foreach(target ${ARGN})
    get_target_property(sources ${target} SOURCES)
    foreach(source ${sources})
      cmake_path(GET source PARENT_PATH folder)
      cmake_path(GET folder FILENAME folder)
      set_source_files_properties(${source} TARGET_DIRECTORY ${target} PROPERTIES UNITY_GROUP "${folder}")
    endforeach()
    set_target_properties(${target} PROPERTIES UNITY_BUILD_MODE GROUP)
  endforeach()
endfunction()
