# Packages let everybody into their folders, whatever the umask of who makes them.
file(GLOB_RECURSE FOLDERS LIST_DIRECTORIES true ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*)
foreach(folder ${CPACK_TEMPORARY_INSTALL_DIRECTORY} ${FOLDERS})
  if(IS_DIRECTORY ${folder} AND NOT IS_SYMLINK ${folder})
    file(CHMOD ${folder} PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
      GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
  endif()
endforeach()
