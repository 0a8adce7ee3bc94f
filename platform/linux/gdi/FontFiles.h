// Font file of a face name.
#pragma once

#include <string>
#include <tuple>

namespace handheld::gdi {

struct FontFile {
  std::string path;
  /// Face within the file.
  long index = 0;

  bool operator<(const FontFile& other) const {
    return std::tie(path, index) < std::tie(other.path, other.index);
  }
};

enum class FontWeight { REGULAR, BOLD };

/// File of the face with this name: one added with AddFontResourceW, whatever its weight, else the closest
/// one installed. Empty path without any font. The caller holds FontLock.
FontFile FindFontFile(const std::u16string& faceName, FontWeight weight);

}  // namespace handheld::gdi
