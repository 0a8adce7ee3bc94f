// Which font file stands for a face name.
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

/// File of the face with this name: one that was added with AddFontResourceW, else the nearest that the machine has.
/// Empty path when there is no font at all. To be called under the lock of the fonts.
FontFile FindFontFile(const std::u16string& faceName);

}  // namespace handheld::gdi
