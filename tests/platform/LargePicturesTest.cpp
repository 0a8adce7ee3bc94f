#include <gtest/gtest.h>
#include <png.h>

#include <cstdint>
#include <vector>

#include "imaging/PngFile.h"
#include "support/TempFolder.h"

namespace {

using handheld::PngFile;
using testing_support::TempFolder;

void WriteGray(const std::string& path, unsigned width, unsigned height) {
  png_image image = {};
  image.version = PNG_IMAGE_VERSION;
  image.width = width;
  image.height = height;
  image.format = PNG_FORMAT_GRAY;
  const std::vector<std::uint8_t> pixels(PNG_IMAGE_SIZE(image));
  ASSERT_NE(0, png_image_write_to_file(&image, path.c_str(), 0, pixels.data(), 0, nullptr));
}

/// A file of a few kilobytes can hold a picture of gigabytes.
TEST(LargePicturesTest, WithSidesOfMoreThan4096PixelsAreRefused) {
  const TempFolder folder;
  const std::string path = folder.Path("large.png");
  WriteGray(path, 4096, 4096);
  EXPECT_TRUE(PngFile::Open(path));
  WriteGray(path, 1, 4097);
  EXPECT_FALSE(PngFile::Open(path));
  WriteGray(path, 4097, 1);
  EXPECT_FALSE(PngFile::Open(path));
}

}  // namespace
