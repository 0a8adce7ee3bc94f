# Ferolin.dll for the handheld: the engine's objects with the device's start-up code, linked by the bare-metal tools and
# wrapped by our own converter. It is linked a second time at another base: a test compares the two.
enable_language(ASM)
find_package(Python3 REQUIRED COMPONENTS Interpreter)

set(DEVICE ${CMAKE_SOURCE_DIR}/platform/device)
set(DEVICE_BUILD ${CMAKE_BINARY_DIR}/device)
# Behind everything else: the tree of std::map and the soft-float helpers.
set(CMAKE_CXX_STANDARD_LIBRARIES "-lstdc++ -lgcc")
set(EXPORT_LIST ${CMAKE_SOURCE_DIR}/src/engine/Ferolin.def)

file(STRINGS ${EXPORT_LIST} DEVICE_EXPORTS REGEX "^  [A-Z]")
list(TRANSFORM DEVICE_EXPORTS STRIP)
list(TRANSFORM DEVICE_EXPORTS REPLACE "(.+)" "EXPORT(\\1)\n")
list(JOIN DEVICE_EXPORTS "" DEVICE_EXPORTS)
file(CONFIGURE OUTPUT ${DEVICE_BUILD}/ExportNames.inc CONTENT "${DEVICE_EXPORTS}")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${EXPORT_LIST})

add_custom_command(OUTPUT ${DEVICE_BUILD}/Imports.S
  COMMAND Python3::Interpreter ${DEVICE}/make-imports ${DEVICE}/Imports.def > ${DEVICE_BUILD}/Imports.S
  DEPENDS ${DEVICE}/make-imports ${DEVICE}/Imports.def
  VERBATIM)

add_library(ferolin-device OBJECT
  ${DEVICE}/Crt.cpp
  ${DEVICE}/Edge.cpp
  ${DEVICE}/LateCalls.cpp
  ${DEVICE}/Layout.cpp
  ${DEVICE}/Runtime.cpp
  ${DEVICE}/StartUp.cpp
  ${DEVICE_BUILD}/Imports.S)
target_link_libraries(ferolin-device PRIVATE ferolin-options)
target_include_directories(ferolin-device PRIVATE ${DEVICE_BUILD})

# ferolin_device_image(<target> <base> <dll>)
function(ferolin_device_image target base dll)
  add_executable(${target}-elf)
  target_link_libraries(${target}-elf PRIVATE ferolin-device ferolin-exports)
  set_target_properties(${target}-elf PROPERTIES LINKER_LANGUAGE CXX LINK_DEPENDS ${DEVICE}/Ferolin.ld)
  target_link_options(${target}-elf PRIVATE
    -nostdlib -nostartfiles -T ${DEVICE}/Ferolin.ld -Wl,--defsym=IMAGE_BASE=${base}
    -Wl,-q -Wl,--gc-sections -Wl,--no-undefined -Wl,--no-enum-size-warning -Wl,-z,max-page-size=4096
    -Wl,-Map=${DEVICE_BUILD}/${target}.map)
  add_custom_command(OUTPUT ${dll}
    COMMAND Python3::Interpreter ${DEVICE}/elf-to-pe $<TARGET_FILE:${target}-elf> ${dll}
            --base ${base} --library Ferolin.dll --exports ${EXPORT_LIST} --imports ${DEVICE}/Imports.def
            --version ${PROJECT_VERSION}
    DEPENDS ${target}-elf ${DEVICE}/elf-to-pe ${EXPORT_LIST} ${DEVICE}/Imports.def
    VERBATIM)
  add_custom_target(${target} ALL DEPENDS ${dll})
endfunction()

ferolin_device_image(device-library 0x10000000 ${DEVICE_BUILD}/Ferolin.dll)
ferolin_device_image(device-library-moved 0x2A460000 ${DEVICE_BUILD}/moved/Ferolin.dll)
file(MAKE_DIRECTORY ${DEVICE_BUILD}/moved)
