# Objects of src/ for the handheld (ARMv4T, soft float): proof that the engine stays within what the device can do.
set(CMAKE_POSITION_INDEPENDENT_CODE OFF)
# Small code is fast code on processors with little cache.
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
add_compile_options(-marm -march=armv4t -mfloat-abi=soft -mno-unaligned-access -fno-short-enums
  -fno-unwind-tables -fno-asynchronous-unwind-tables -fno-threadsafe-statics -ffunction-sections
  -fdata-sections)
add_library(handheld INTERFACE)
target_include_directories(handheld INTERFACE ${CMAKE_SOURCE_DIR}/platform/api)
add_subdirectory(src)
include(${CMAKE_SOURCE_DIR}/cmake/DeviceLibrary.cmake)
