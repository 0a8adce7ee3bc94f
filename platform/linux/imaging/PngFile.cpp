#include "imaging/PngFile.h"

#include <png.h>

#include <algorithm>

namespace handheld {

namespace {

/// Longest side in pixels, that of the largest screen. Decoded, pictures take four bytes a pixel.
constexpr unsigned MAX_SIDE = 4096;

/// The library's reading state, freed at the end of the scope.
class Reader {
 public:
  explicit Reader(const std::string& path) {
    image.version = PNG_IMAGE_VERSION;
    isOpen = png_image_begin_read_from_file(&image, path.c_str()) != 0;
  }
  ~Reader() { png_image_free(&image); }
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;

  png_image image = {};
  bool isOpen;
};

}  // namespace

std::optional<PngFile> PngFile::Open(const std::string& path) {
  const Reader reader(path);
  if (!reader.isOpen || std::max(reader.image.width, reader.image.height) > MAX_SIDE) {
    return std::nullopt;
  }
  return PngFile{path, reader.image.width, reader.image.height};
}

std::optional<std::vector<std::uint8_t>> PngFile::Decode() const {
  Reader reader(path);
  if (!reader.isOpen || reader.image.width != width || reader.image.height != height) {
    return std::nullopt;
  }
  reader.image.format = PNG_FORMAT_BGRA;
  std::vector<std::uint8_t> pixels(PNG_IMAGE_SIZE(reader.image));
  if (png_image_finish_read(&reader.image, nullptr, pixels.data(), 0, nullptr) == 0) {
    return std::nullopt;
  }
  return pixels;
}

}  // namespace handheld
