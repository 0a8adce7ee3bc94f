// A picture file in the PNG format.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace handheld {

/// Size of a picture, and where it is.
struct PngFile {
  std::string path;
  unsigned width = 0;
  unsigned height = 0;

  /// Reads the file's head. Nothing when it cannot be read or is no PNG.
  static std::optional<PngFile> Open(const std::string& path);

  /// Decodes the file, whatever kind of PNG it is: rows from the top, bytes B, G, R, A, colours not multiplied by alpha.
  /// Nothing when the file is damaged or has changed its size.
  std::optional<std::vector<std::uint8_t>> Decode() const;
};

}  // namespace handheld
