# Objects of src/ for the handheld (ARMv4T, soft float): proof that the engine stays within what the device can do.
set(CMAKE_POSITION_INDEPENDENT_CODE OFF)
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
add_compile_options(-marm -march=armv4t -mfloat-abi=soft -mno-unaligned-access -fno-short-enums
  -fno-unwind-tables -fno-asynchronous-unwind-tables -fno-threadsafe-statics -ffunction-sections
  -fdata-sections)
add_library(handheld INTERFACE)
target_include_directories(handheld INTERFACE ${CMAKE_SOURCE_DIR}/platform/api)
add_subdirectory(src)
# Small instead of fast: what runs once in a while, or calls the system most of the time. Left out is what runs over and
# over at each update, for each point or for each column of pixels.
foreach(part settings sms events render widgets widgets-dial widgets-speed widgets-satellites engine exports)
  target_compile_options(ferolin-${part} PRIVATE -Os)
endforeach()
add_subdirectory(app)
# Pages run at a finger's pace: of them only what goes over pixels is to be fast. Clones of functions for one source
# (-fipa-sra) would be copies of the same templates in many.
target_compile_options(app-parts PRIVATE -Os -fno-ipa-sra)
set(PIXELS ${CMAKE_SOURCE_DIR}/app/drawing/PixelBitmap.cpp ${CMAKE_SOURCE_DIR}/app/drawing/Shapes.cpp)
set_property(SOURCE ${PIXELS} TARGET_DIRECTORY app-parts APPEND PROPERTY COMPILE_OPTIONS -O2)
include(${CMAKE_SOURCE_DIR}/cmake/DeviceModules.cmake)
