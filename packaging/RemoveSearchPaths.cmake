# Packages put libraries where the system looks for them.
file(GLOB_RECURSE FILES ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*)
list(FILTER FILES INCLUDE REGEX "/bin/ferolin-host$|\\.so[.0-9]*$")
foreach(file ${FILES})
  if(NOT IS_SYMLINK ${file})
    file(RPATH_REMOVE FILE ${file})
  endif()
endforeach()
