#include "outputs/PngWriter.h"

#include <png.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <vector>

#include "base/HostError.h"

namespace host {

namespace {

namespace fs = std::filesystem;

/// 0 when the file can be written, else the error number.
int FindError(const fs::path& file) {
  std::error_code ignored;
  if (fs::is_directory(file, ignored)) {
    return EISDIR;
  }
  if (access((file.parent_path() / ".").c_str(), W_OK | X_OK) != 0) {
    return errno;
  }
  return fs::exists(file, ignored) && access(file.c_str(), W_OK) != 0 ? errno : 0;
}

std::vector<std::uint8_t> ToRgb(const handheld::Pixels& pixels) {
  std::vector<std::uint8_t> bytes(pixels.rows.size() * 3);
  std::uint8_t* next = bytes.data();
  for (const std::uint32_t pixel : pixels.rows) {
    *next++ = static_cast<std::uint8_t>(pixel >> 16);
    *next++ = static_cast<std::uint8_t>(pixel >> 8);
    *next++ = static_cast<std::uint8_t>(pixel);
  }
  return bytes;
}

png_image DescribeImage(const handheld::Pixels& pixels) {
  png_image image = {};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(pixels.width);
  image.height = static_cast<png_uint_32>(pixels.height);
  image.format = PNG_FORMAT_RGB;
  return image;
}

}  // namespace

void CheckPngPath(const std::string& path) {
  if (const int error = FindError(path); error != 0) {
    throw HostError("cannot write " + path + ": " + std::strerror(error));
  }
}

void WritePng(const std::string& path, const handheld::Pixels& pixels) {
  png_image image = DescribeImage(pixels);
  const std::vector<std::uint8_t> bytes = ToRgb(pixels);
  if (png_image_write_to_file(&image, path.c_str(), 0, bytes.data(), 0, nullptr) == 0) {
    throw HostError("cannot write " + path + ": " + image.message);
  }
}

}  // namespace host
