#include <gtest/gtest.h>
#include <png.h>

#include <array>
#include <cstdint>

#include "base/HostError.h"
#include "outputs/PngWriter.h"
#include "support/TempFolder.h"

namespace host {
namespace {

TEST(PngWriter, WritesEveryPixelFromTheTop) {
  const testing_support::TempFolder folder;
  const std::string path = folder.Path("picture.png");
  WritePng(path, {2, 2, {0xFF0000, 0x00FF00, 0x0000FF, 0x123456}});

  png_image image = {};
  image.version = PNG_IMAGE_VERSION;
  ASSERT_NE(png_image_begin_read_from_file(&image, path.c_str()), 0) << image.message;
  ASSERT_EQ(2u, image.width);
  ASSERT_EQ(2u, image.height);
  image.format = PNG_FORMAT_RGB;
  std::array<std::uint8_t, 12> bytes = {};
  ASSERT_NE(png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr), 0);
  EXPECT_EQ((std::array<std::uint8_t, 12>{0xFF, 0, 0, 0, 0xFF, 0,  //
                                          0, 0, 0xFF, 0x12, 0x34, 0x56}),
            bytes);
}

TEST(PngWriter, RefusesWhatCannotBeWritten) {
  const testing_support::TempFolder folder;
  EXPECT_THROW(WritePng(folder.Path("missing/a.png"), {1, 1, {0}}), HostError);
  EXPECT_THROW(WritePng(folder.Path("empty.png"), {}), HostError);
}

}  // namespace
}  // namespace host
