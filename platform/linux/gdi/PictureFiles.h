// Bitmaps that hold the pixels of picture files.
#pragma once

#include <string>

namespace handheld::gdi {

/// Notes that the pixels of that file were put into a bitmap's memory, so that a larger version of
/// the picture can stand in for it. Other memory is ignored.
void NotePictureFile(const void* pixels, const std::string& path);

}  // namespace handheld::gdi
