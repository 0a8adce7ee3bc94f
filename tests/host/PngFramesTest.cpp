#include <gtest/gtest.h>
#include <png.h>

#include <cstdint>
#include <random>
#include <vector>

#include "web/PngFrames.h"

namespace host {
namespace {

constexpr int WIDTH = 37;
/// No whole number of bands.
constexpr int HEIGHT = 100;

handheld::Pixels MakeBlack() {
  return {WIDTH, HEIGHT, std::vector<std::uint32_t>(WIDTH * HEIGHT)};
}

std::uint32_t& PixelAt(handheld::Pixels& pixels, int x, int y) {
  return pixels.rows.at(static_cast<std::size_t>(y) * WIDTH + static_cast<std::size_t>(x));
}

/// What a reader of files sees; damage is told, too. libpng checks the sums of chunks and of the
/// whole content.
std::vector<std::uint32_t> Decode(const std::string& png, int width, int height) {
  png_image image = {};
  image.version = PNG_IMAGE_VERSION;
  EXPECT_NE(png_image_begin_read_from_memory(&image, png.data(), png.size()), 0) << image.message;
  EXPECT_EQ(static_cast<png_uint_32>(width), image.width);
  EXPECT_EQ(static_cast<png_uint_32>(height), image.height);
  image.format = PNG_FORMAT_RGB;
  std::vector<std::uint8_t> bytes(PNG_IMAGE_SIZE(image));
  EXPECT_NE(png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr), 0) << image.message;
  EXPECT_EQ(0U, image.warning_or_error) << image.message;
  std::vector<std::uint32_t> pixels;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    pixels.push_back(std::uint32_t{bytes[i]} << 16 | std::uint32_t{bytes[i + 1]} << 8 |
                     bytes[i + 2]);
  }
  return pixels;
}

std::vector<std::uint32_t> DecodeLast(PngFrames& frames) {
  return Decode(frames.GetPng(), frames.GetWidth(), frames.GetHeight());
}

TEST(PngFrames, HasNoPictureBeforeTheFirstFrame) {
  PngFrames frames;
  EXPECT_EQ("", frames.GetPng());
  EXPECT_EQ(0, frames.GetWidth());
}

TEST(PngFrames, ShowsEveryPixelFromTheTop) {
  PngFrames frames;
  EXPECT_TRUE(frames.Take({2, 2, {0xFF0000, 0x00FF00, 0x0000FF, 0x123456}}));
  EXPECT_EQ((std::vector<std::uint32_t>{0xFF0000, 0x00FF00, 0x0000FF, 0x123456}),
            DecodeLast(frames));
}

TEST(PngFrames, ShowsEachOfManyFrames) {
  PngFrames frames;
  handheld::Pixels pixels = MakeBlack();
  for (int y = 0; y < HEIGHT; ++y) {
    PixelAt(pixels, y % WIDTH, y) = 0x80FF01;
    ASSERT_TRUE(frames.Take(pixels)) << y;
    ASSERT_EQ(pixels.rows, DecodeLast(frames)) << y;
  }
}

TEST(PngFrames, ShowsWhatChangedInFramesThatNobodyAskedFor) {
  PngFrames frames;
  handheld::Pixels pixels = MakeBlack();
  frames.Take(pixels);
  DecodeLast(frames);
  for (const int y : {0, 50, HEIGHT - 1}) {
    PixelAt(pixels, 5, y) = 0xFFFFFF;
    frames.Take(pixels);
  }
  EXPECT_EQ(pixels.rows, DecodeLast(frames));
}

TEST(PngFrames, TakesTheSameFrameForNoOther) {
  PngFrames frames;
  EXPECT_TRUE(frames.Take(MakeBlack()));
  const std::string png = frames.GetPng();
  EXPECT_FALSE(frames.Take(MakeBlack()));
  EXPECT_EQ(png, frames.GetPng());
}

TEST(PngFrames, ShowsNoise) {
  PngFrames frames;
  std::minstd_rand random(1);
  handheld::Pixels pixels = MakeBlack();
  for (int frame = 0; frame < 3; ++frame) {
    for (std::uint32_t& pixel : pixels.rows) {
      pixel = static_cast<std::uint32_t>(random()) & 0xFFFFFF;
    }
    frames.Take(pixels);
    EXPECT_EQ(pixels.rows, DecodeLast(frames));
  }
}

TEST(PngFrames, FollowsTheSize) {
  PngFrames frames;
  frames.Take(MakeBlack());
  DecodeLast(frames);
  for (const auto& [width, height] : {std::pair(HEIGHT, WIDTH), {WIDTH, 1}, {1, HEIGHT}, {1, 1}}) {
    const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    EXPECT_TRUE(frames.Take({width, height, std::vector<std::uint32_t>(count, 0x445566)}));
    EXPECT_EQ(std::vector<std::uint32_t>(count, 0x445566), DecodeLast(frames));
  }
}

}  // namespace
}  // namespace host
