# Three packages, made by `cpack` in the build folder.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ferolin)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The Ferolin maintainers <maintainers@ferolin.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL ferolin libferolin0 libferolin-dev)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/RemoveSearchPaths.cmake
  ${CMAKE_CURRENT_SOURCE_DIR}/OpenFolders.cmake)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
if(CMAKE_CROSSCOMPILING)
  # dpkg-shlibdeps takes the libraries that were linked, and their packages' own database.
  list(APPEND CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    ${CMAKE_SYSROOT}/usr/lib/${CMAKE_LIBRARY_ARCHITECTURE})
  file(CONFIGURE OUTPUT OtherMachine.cmake CONTENT [[
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE arm64)
set(ENV{DEB_HOST_ARCH} arm64)
set(ENV{DPKG_ADMINDIR} @CMAKE_SYSROOT@/var/lib/dpkg)
]] @ONLY)
  set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_BINARY_DIR}/OtherMachine.cmake)
endif()
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)

set(CPACK_DEBIAN_FEROLIN_PACKAGE_NAME ferolin)
set(CPACK_DEBIAN_FEROLIN_PACKAGE_SECTION misc)
set(CPACK_COMPONENT_FEROLIN_DESCRIPTION "GPS speedometer
Shows speed, trip, satellites, path and records from a GPS receiver in a
window, on the bare console or in a terminal, and keeps every drive.")
set(CPACK_DEBIAN_FEROLIN_PACKAGE_DEPENDS "libferolin0 (= ${PROJECT_VERSION}-1), fonts-liberation")
# A box without a desktop: SDL draws on the bare console through EGL, and the unit opens a session at its screen.
set(CPACK_DEBIAN_FEROLIN_PACKAGE_RECOMMENDS
  "libegl1, libgles2, libgl1-mesa-dri, default-logind | logind")
set(CPACK_DEBIAN_FEROLIN_PACKAGE_SUGGESTS gpsd)
set(CPACK_DEBIAN_FEROLIN_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_SOURCE_DIR}/ferolin/postinst
  ${CMAKE_CURRENT_SOURCE_DIR}/ferolin/prerm ${CMAKE_CURRENT_SOURCE_DIR}/ferolin/postrm)
set(CPACK_DEBIAN_FEROLIN_PACKAGE_CONTROL_STRICT_PERMISSION TRUE)

set(CPACK_DEBIAN_LIBFEROLIN0_PACKAGE_NAME libferolin0)
set(CPACK_DEBIAN_LIBFEROLIN0_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_LIBFEROLIN0_DESCRIPTION "engine of a GPS speedometer
Reads positions from a receiver, keeps 34 read-outs, draws five views,
writes tracks and warns at speed limits, for programs in any language.")
file(CONFIGURE OUTPUT triggers CONTENT "activate-noawait ldconfig\n")
file(CONFIGURE OUTPUT shlibs CONTENT
  "libferolin @PROJECT_VERSION_MAJOR@ libferolin0 (>= @PROJECT_VERSION@)
libferolin-device @PROJECT_VERSION_MAJOR@ libferolin0 (>= @PROJECT_VERSION@)\n" @ONLY)
set(CPACK_DEBIAN_LIBFEROLIN0_PACKAGE_CONTROL_EXTRA
  ${CMAKE_CURRENT_BINARY_DIR}/triggers ${CMAKE_CURRENT_BINARY_DIR}/shlibs)

set(CPACK_DEBIAN_LIBFEROLIN-DEV_PACKAGE_NAME libferolin-dev)
set(CPACK_DEBIAN_LIBFEROLIN-DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_LIBFEROLIN-DEV_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_LIBFEROLIN-DEV_PACKAGE_DEPENDS "libferolin0 (= ${PROJECT_VERSION}-1)")
set(CPACK_COMPONENT_LIBFEROLIN-DEV_DESCRIPTION "engine of a GPS speedometer, for programs' authors
Headers, files for pkg-config and CMake, and examples in C, C++ and Python.")

# What Debian wants of every package.
string(TIMESTAMP DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
foreach(package ${CPACK_COMPONENTS_ALL})
  set(PACKAGE_NAME ${package})
  configure_file(changelog.in debian/${package}/changelog @ONLY)
  execute_process(COMMAND gzip -9nf ${CMAKE_CURRENT_BINARY_DIR}/debian/${package}/changelog)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/debian/${package}/changelog.gz RENAME changelog.Debian.gz
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${package})
  install(FILES copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${package})
endforeach()
include(CPack)
