// A picture file in the PNG format.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace handheld {

/// Path and size of a picture.
struct PngFile {
  std::string path;
  unsigned width = 0;
  unsigned height = 0;

  /// Reads the head of the file. No value when it cannot be read, is no PNG, or has a side
  /// of more than 4096 pixels.
  static std::optional<PngFile> Open(const std::string& path);

  /// Decodes any kind of PNG to rows from the top, bytes B, G, R, A, colours not multiplied by
  /// alpha. No value when the file is damaged or its size has changed.
  std::optional<std::vector<std::uint8_t>> Decode() const;
};

}  // namespace handheld
