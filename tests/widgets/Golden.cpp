#include "widgets/Golden.h"

#include <gtest/gtest.h>
#include <png.h>

#include <cstdlib>
#include <filesystem>
#include <optional>

namespace ferolin {

namespace {

using handheld::Pixels;

// Pixels are 0x00RRGGBB: bytes B, G, R and an unused one in memory.
constexpr png_uint_32 FORMAT = PNG_FORMAT_BGRA;
constexpr std::uint32_t COLORS = 0x00FFFFFF;

void Write(const std::string& path, const Pixels& picture) {
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
  // Rows of the file have three bytes a pixel, without alpha.
  std::vector<std::uint8_t> bytes;
  for (const std::uint32_t pixel : picture.rows) {
    for (const int shift : {16, 8, 0}) {
      bytes.push_back(static_cast<std::uint8_t>(pixel >> shift));
    }
  }
  png_image image = {};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(picture.width);
  image.height = static_cast<png_uint_32>(picture.height);
  image.format = PNG_FORMAT_RGB;
  png_image_write_to_file(&image, path.c_str(), 0, bytes.data(), 0, nullptr);
}

std::optional<Pixels> Read(const std::string& path) {
  png_image image = {};
  image.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_file(&image, path.c_str())) {
    return std::nullopt;
  }
  image.format = FORMAT;
  Pixels picture;
  picture.width = static_cast<int>(image.width);
  picture.height = static_cast<int>(image.height);
  picture.rows.resize(std::size_t{image.width} * image.height);
  if (!png_image_finish_read(&image, nullptr, picture.rows.data(), 0, nullptr)) {
    return std::nullopt;
  }
  for (std::uint32_t& pixel : picture.rows) {
    pixel &= COLORS;
  }
  return picture;
}

bool HasSizeOf(const Pixels& a, const Pixels& b) {
  return a.width == b.width && a.height == b.height;
}

Pixels Difference(const Pixels& expected, const Pixels& actual, int& count) {
  Pixels difference = actual;
  for (std::size_t index = 0; index < actual.rows.size(); ++index) {
    const bool differs = (expected.rows[index] & COLORS) != (actual.rows[index] & COLORS);
    count += differs ? 1 : 0;
    difference.rows[index] = differs ? COLORS : 0;
  }
  return difference;
}

std::string PathOf(const std::string& name) {
  return std::string(GOLDEN_FOLDER) + '/' + name + ".png";
}

}  // namespace

Pixels LoadGolden(const std::string& name) {
  const std::optional<Pixels> picture = Read(PathOf(name));
  EXPECT_TRUE(picture) << "there is no " << PathOf(name);
  return picture.value_or(Pixels{});
}

void ExpectGolden(const std::string& name, const Pixels& picture) {
  const std::string goldenPath = PathOf(name);
  const std::string failurePath = std::string(FAILURES_FOLDER) + '/' + name;
  if (std::getenv("FEROLIN_KEEP_PICTURES") != nullptr) {
    Write(goldenPath, picture);
    return;
  }
  const std::optional<Pixels> expected = Read(goldenPath);
  if (!expected || !HasSizeOf(*expected, picture)) {
    Write(failurePath + ".actual.png", picture);
    ADD_FAILURE() << (expected ? "other size than " : "there is no ") << goldenPath
                  << "; actual: " << failurePath << ".actual.png";
    return;
  }
  int count = 0;
  const Pixels difference = Difference(*expected, picture, count);
  if (count != 0) {
    Write(failurePath + ".actual.png", picture);
    Write(failurePath + ".difference.png", difference);
    ADD_FAILURE() << count << " pixels differ from " << goldenPath << "; actual: " << failurePath
                  << ".actual.png, difference: " << failurePath << ".difference.png";
  }
}

}  // namespace ferolin
