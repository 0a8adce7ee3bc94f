// Picture files through the imaging library of the device.

#include <gtest/gtest.h>
#include <handheld.h>
#include <imaging.h>
#include <png.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <vector>

#include "support/TempFolder.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

class Imaging : public testing::Test {
 protected:
  Imaging() {
    EXPECT_EQ(S_OK, CoCreateInstance(CLSID_ImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                     IID_IImagingFactory, reinterpret_cast<LPVOID*>(&factory)));
  }
  ~Imaging() override { factory->Release(); }

  std::string Path() const { return folder.Path() + "/picture.png"; }

  /// A picture of 2 x 1.
  void Write(png_uint_32 format, const Bytes& pixels, const void* colors = nullptr,
             unsigned colorCount = 0) const {
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = 2;
    image.height = 1;
    image.format = format;
    image.colormap_entries = colorCount;
    ASSERT_NE(0, png_image_write_to_file(&image, Path().c_str(), 0, pixels.data(), 0, colors));
  }

  /// Decoded bytes B, G, R, A; empty when the file opens but does not decode.
  Bytes Read() const {
    IImage* image = nullptr;
    const HRESULT opened =
        factory->CreateImageFromFile(handheld::DevicePath(Path()).c_str(), &image);
    EXPECT_EQ(S_OK, opened);
    if (opened != S_OK) {
      return {0};
    }
    ImageInfo info = {};
    EXPECT_EQ(S_OK, image->GetImageInfo(&info));
    EXPECT_EQ(2U, info.Width);
    EXPECT_EQ(1U, info.Height);
    IBitmapImage* bitmap = nullptr;
    Bytes pixels;
    if (factory->CreateBitmapFromImage(image, 2, 1, PixelFormat32bppARGB, InterpolationHintDefault,
                                       &bitmap) == S_OK) {
      pixels.resize(8);
      BitmapData data = {2, 1, 8, PixelFormat32bppARGB, pixels.data(), 0};
      const RECT whole = {0, 0, 2, 1};
      EXPECT_EQ(S_OK, bitmap->LockBits(&whole, ImageLockModeRead | ImageLockModeUserInputBuf,
                                       PixelFormat32bppARGB, &data));
      EXPECT_EQ(S_OK, bitmap->UnlockBits(&data));
      bitmap->Release();
    }
    image->Release();
    return pixels;
  }

  HRESULT Open(const std::string& path) const {
    IImage* image = nullptr;
    const HRESULT result = factory->CreateImageFromFile(handheld::DevicePath(path).c_str(), &image);
    EXPECT_EQ(SUCCEEDED(result), image != nullptr);
    if (image != nullptr) {
      image->Release();
    }
    return result;
  }

  testing_support::TempFolder folder;
  IImagingFactory* factory = nullptr;
};

TEST_F(Imaging, DecodesColoursWithAlphaUnmultiplied) {
  Write(PNG_FORMAT_RGBA, {255, 128, 0, 64, 1, 2, 3, 255});
  EXPECT_EQ((Bytes{0, 128, 255, 64, 3, 2, 1, 255}), Read());
}

TEST_F(Imaging, DecodesColoursWithoutAlphaAsOpaque) {
  Write(PNG_FORMAT_RGB, {255, 128, 0, 1, 2, 3});
  EXPECT_EQ((Bytes{0, 128, 255, 255, 3, 2, 1, 255}), Read());
}

TEST_F(Imaging, DecodesShadesOfGrey) {
  Write(PNG_FORMAT_GRAY, {7, 200});
  EXPECT_EQ((Bytes{7, 7, 7, 255, 200, 200, 200, 255}), Read());
}

TEST_F(Imaging, DecodesPalettesWithAlpha) {
  const std::array<std::uint8_t, 8> colors = {10, 20, 30, 0, 255, 0, 0, 128};
  Write(PNG_FORMAT_RGBA_COLORMAP, {1, 0}, colors.data(), 2);
  EXPECT_EQ((Bytes{0, 0, 255, 128, 30, 20, 10, 0}), Read());
}

TEST_F(Imaging, OpensNoFileThatIsMissingOrNoPicture) {
  EXPECT_TRUE(FAILED(Open(Path())));
  std::ofstream(Path()) << "GIF89a, perhaps";
  EXPECT_TRUE(FAILED(Open(Path())));
  EXPECT_TRUE(FAILED(Open(folder.Path())));
  const std::vector<std::string> files = handheld::UnreadableFiles();
  EXPECT_EQ(1, std::ranges::count(files, Path()));
  EXPECT_EQ(1, std::ranges::count(files, folder.Path()));
}

TEST_F(Imaging, ACutOffFileOpensButDoesNotDecode) {
  Write(PNG_FORMAT_RGBA, {255, 128, 0, 64, 1, 2, 3, 255});
  // Into the pixels: the end marker takes the last 12 bytes.
  std::filesystem::resize_file(Path(), std::filesystem::file_size(Path()) - 20);
  EXPECT_TRUE(Read().empty());
  const std::vector<std::string> files = handheld::UnreadableFiles();
  EXPECT_EQ(1, std::ranges::count(files, Path()));
}

TEST_F(Imaging, KnowsNoOtherClass) {
  LPVOID object = &object;
  CLSID other = CLSID_ImagingFactory;
  ++other.Data1;
  EXPECT_EQ(REGDB_E_CLASSNOTREG,
            CoCreateInstance(other, nullptr, CLSCTX_INPROC_SERVER, IID_IImagingFactory, &object));
  EXPECT_EQ(nullptr, object);
}

}  // namespace
