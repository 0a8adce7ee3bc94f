# Libraries and programs for the handheld: objects with the device's start-up code, linked by the bare-metal tools and
# wrapped by our own converter. Each is linked a second time at another base: a test compares the two.
enable_language(ASM)
find_package(Python3 REQUIRED COMPONENTS Interpreter)

set(DEVICE ${CMAKE_SOURCE_DIR}/platform/device)
set(DEVICE_BUILD ${CMAKE_BINARY_DIR}/device)
set(MOVED_BASE 0x2A460000)
file(MAKE_DIRECTORY ${DEVICE_BUILD}/moved)
# Behind everything else: the tree of std::map and the soft-float helpers.
set(CMAKE_CXX_STANDARD_LIBRARIES "-lstdc++ -lgcc")

add_custom_command(OUTPUT ${DEVICE_BUILD}/Imports.S
  COMMAND Python3::Interpreter ${DEVICE}/make-imports ${DEVICE}/Imports.def > ${DEVICE_BUILD}/Imports.S
  DEPENDS ${DEVICE}/make-imports ${DEVICE}/Imports.def
  VERBATIM)

add_library(device-common OBJECT
  ${DEVICE}/Crt.cpp
  ${DEVICE}/Edge.cpp
  ${DEVICE}/Layout.cpp
  ${DEVICE}/Runtime.cpp
  ${DEVICE}/Statics.cpp
  ${DEVICE_BUILD}/Imports.S)
target_link_libraries(device-common PUBLIC ferolin-options)

# ferolin_device_image(<target> <base> <file> LINK <target>... CONVERT <option>...)
function(ferolin_device_image target base file)
  cmake_parse_arguments(PARSE_ARGV 3 IMAGE "" "" "LINK;CONVERT")
  add_executable(${target}-elf)
  target_link_libraries(${target}-elf PRIVATE ${IMAGE_LINK} device-common)
  set_target_properties(${target}-elf PROPERTIES LINKER_LANGUAGE CXX LINK_DEPENDS ${DEVICE}/Device.ld)
  target_link_options(${target}-elf PRIVATE
    -nostdlib -nostartfiles -T ${DEVICE}/Device.ld -Wl,--defsym=IMAGE_BASE=${base}
    -Wl,-q -Wl,--gc-sections -Wl,--no-undefined -Wl,--no-enum-size-warning -Wl,-z,max-page-size=4096
    -Wl,-Map=${DEVICE_BUILD}/${target}.map)
  add_custom_command(OUTPUT ${file}
    COMMAND Python3::Interpreter ${DEVICE}/elf-to-pe $<TARGET_FILE:${target}-elf> ${file}
            --base ${base} --imports ${DEVICE}/Imports.def --version ${PROJECT_VERSION} ${IMAGE_CONVERT}
    DEPENDS ${target}-elf ${DEVICE}/elf-to-pe ${DEVICE}/Imports.def
    VERBATIM)
  add_custom_target(${target} ALL DEPENDS ${file})
endfunction()

# ferolin_device_library(<target> <base> <file name> EXPORTS <list> HEADER <declares them> DESCRIPTION <text>
#                        SOURCES <file>... LIBS <target>...)
function(ferolin_device_library target base name)
  cmake_parse_arguments(PARSE_ARGV 3 LIBRARY "" "EXPORTS;HEADER;DESCRIPTION" "SOURCES;LIBS")
  file(STRINGS ${LIBRARY_EXPORTS} names REGEX "^  [A-Z]")
  list(TRANSFORM names STRIP)
  list(TRANSFORM names REPLACE "(.+)" "EXPORT(\\1)\n")
  list(JOIN names "" names)
  file(CONFIGURE OUTPUT ${DEVICE_BUILD}/${target}/ExportNames.inc CONTENT "${names}")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${LIBRARY_EXPORTS})

  add_library(${target}-objects OBJECT ${DEVICE}/LibraryEntry.cpp ${DEVICE}/LibraryExports.cpp ${LIBRARY_SOURCES})
  target_include_directories(${target}-objects PRIVATE ${DEVICE_BUILD}/${target})
  target_compile_definitions(${target}-objects PRIVATE EXPORT_HEADER=<${LIBRARY_HEADER}>)
  target_link_libraries(${target}-objects PRIVATE ferolin-options)

  set(options LINK ${target}-objects ${LIBRARY_LIBS}
    CONVERT --name ${name} --exports ${LIBRARY_EXPORTS} --description ${LIBRARY_DESCRIPTION})
  ferolin_device_image(${target} ${base} ${DEVICE_BUILD}/${name} ${options})
  ferolin_device_image(${target}-moved ${MOVED_BASE} ${DEVICE_BUILD}/moved/${name} ${options})
endfunction()

# ferolin_device_program(<target> <file name> DESCRIPTION <text> LIBS <target>...)
# The device loads every program at the same place.
function(ferolin_device_program target name)
  cmake_parse_arguments(PARSE_ARGV 2 PROGRAM "" "DESCRIPTION" "LIBS")
  add_library(${target}-objects OBJECT ${DEVICE}/ProgramEntry.cpp ${DEVICE}/WindowProcedures.cpp)
  target_link_libraries(${target}-objects PRIVATE ferolin-options)
  set(options LINK ${target}-objects ${PROGRAM_LIBS}
    CONVERT --name ${name} --program --description ${PROGRAM_DESCRIPTION})
  ferolin_device_image(${target} 0x10000 ${DEVICE_BUILD}/${name} ${options})
  ferolin_device_image(${target}-moved ${MOVED_BASE} ${DEVICE_BUILD}/moved/${name} ${options})
endfunction()

ferolin_device_library(device-library 0x10000000 Ferolin.dll
  EXPORTS ${CMAKE_SOURCE_DIR}/src/engine/Ferolin.def HEADER ferolin.h DESCRIPTION "GPS speedometer engine"
  SOURCES ${DEVICE}/LateCalls.cpp LIBS ferolin-exports)

ferolin_device_library(device-dastrel 0x12000000 Dastrel.dll
  EXPORTS ${CMAKE_SOURCE_DIR}/siblings/handheld/Dastrel.def HEADER handheld/Dastrel.h
  DESCRIPTION "Positions of the system's GPS service for Ferolin"
  SOURCES ${CMAKE_SOURCE_DIR}/siblings/handheld/Dastrel.cpp ${CMAKE_SOURCE_DIR}/siblings/handheld/GpsService.cpp)
target_include_directories(device-dastrel-objects PRIVATE ${CMAKE_SOURCE_DIR}/siblings)

ferolin_device_library(device-parlex 0x13000000 Parlex.dll
  EXPORTS ${CMAKE_SOURCE_DIR}/siblings/handheld/Parlex.def HEADER handheld/Parlex.h
  DESCRIPTION "Messages of Ferolin through the system"
  SOURCES ${CMAKE_SOURCE_DIR}/siblings/handheld/Parlex.cpp ${CMAKE_SOURCE_DIR}/siblings/handheld/TextMessaging.cpp
  LIBS ferolin-base)
target_include_directories(device-parlex-objects PRIVATE ${CMAKE_SOURCE_DIR}/siblings)

ferolin_device_program(device-program Ferolin.exe DESCRIPTION "GPS speedometer"
  LIBS app-entry app-parts)
