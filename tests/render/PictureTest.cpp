#include <handheld.h>
#include <objbase.h>
#include <png.h>

#include <array>
#include <vector>

#include "FrameTest.h"
#include "render/Picture.h"
#include "support/TempFolder.h"

namespace ferolin {

namespace {

using testing_support::TempFolder;

struct Rgba {
  BYTE r, g, b, a;
};

class PictureTest : public FrameTest {
 protected:
  PictureTest() { CoInitializeEx(nullptr, COINIT_MULTITHREADED); }
  ~PictureTest() override { CoUninitialize(); }

  /// Writes a picture file with rows of `width` pixels. Returns its path on the device.
  WideString Write(const std::vector<Rgba>& pixels, unsigned width) const {
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = width;
    image.height = static_cast<png_uint_32>(pixels.size()) / width;
    image.format = PNG_FORMAT_RGBA;
    png_image_write_to_file(&image, folder.Path("picture.png").c_str(), 0, pixels.data(), 0,
                            nullptr);
    return folder.DevicePath("picture.png");
  }

  /// Colour that results from drawing a pixel over `background`.
  COLORREF Drawn(const Rgba& pixel, COLORREF background) {
    Picture picture;
    EXPECT_TRUE(picture.Load(Write({pixel}, 1)));
    Open(240, 320);
    theCanvas.FillBackground(background);
    picture.Draw(theCanvas.GetPresentDC(), {0, 0, 4, 4});
    return GetPixel(theCanvas.GetPresentDC(), 1, 1);
  }

  TempFolder folder;
};

TEST_F(PictureTest, MultipliesColoursByAlphaOver256) {
  std::array<BYTE, 16> pixels = {255, 255, 255, 255,  //
                                 200, 100, 50,  128,  //
                                 255, 128, 1,   0,    //
                                 10,  20,  30,  255};
  PremultiplyAlpha(pixels.data(), 4);
  // 200 * 128 / 256 = 100; 10 * 255 / 256 = 9.96, 20: 19.9, 30: 29.9.
  const std::array<BYTE, 16> expected = {254, 254, 254, 255,  //
                                         100, 50,  25,  128,  //
                                         0,   0,   0,   0,    //
                                         9,   19,  29,  255};
  EXPECT_EQ(expected, pixels);
}

TEST_F(PictureTest, StoresOpaqueWhiteAs254) {
  EXPECT_EQ(RGB(254, 254, 254), Drawn({255, 255, 255, 255}, BLACK));
}

TEST_F(PictureTest, KeepsRedGreenAndBlueApart) {
  EXPECT_EQ(RGB(199, 99, 49), Drawn({200, 100, 50, 255}, BLACK));
}

TEST_F(PictureTest, IgnoresAlphaWhenDrawnOpaque) {
  EXPECT_EQ(RGB(100, 0, 50), Drawn({200, 0, 100, 128}, WHITE));
}

TEST_F(PictureTest, HasNothingToDrawBeforeItIsLoaded) {
  Open(240, 320);
  const Picture picture;
  EXPECT_EQ(0, picture.GetSize().cx);
  EXPECT_EQ(0, picture.GetSize().cy);
  picture.Draw(theCanvas.GetDrawingDC(), {0, 0, 100, 100});
  picture.DrawBlended(theCanvas.GetDrawingDC(), {0, 0, 100, 100}, 255);
  EXPECT_EQ(0, CountInk());
}

TEST_F(PictureTest, CannotLoadWhatIsNotThere) {
  Picture picture;
  EXPECT_FALSE(picture.Load(folder.DevicePath("missing.png")));
  EXPECT_FALSE(picture.Load(WideString()));
  EXPECT_EQ(nullptr, LoadPicture(folder.DevicePath("missing.png")));
}

TEST_F(PictureTest, CannotLoadWhatIsNoPicture) {
  folder.Write("picture.png", "This is no picture.");
  EXPECT_EQ(nullptr, LoadPicture(folder.DevicePath("picture.png")));
}

TEST_F(PictureTest, CountsAsLoadedWhenItsPixelsCannotBeDecoded) {
  Write(std::vector<Rgba>(64 * 64, {255, 0, 0, 255}), 64);
  const std::string whole = folder.Read("picture.png");
  folder.Write("picture.png", std::string_view(whole).substr(0, whole.size() / 2));
  Picture picture;
  ASSERT_TRUE(picture.Load(folder.DevicePath("picture.png")));
  EXPECT_EQ(64, picture.GetSize().cx);
  Open(240, 320);
  theCanvas.FillBackground(BLUE);
  picture.DrawBlended(theCanvas.GetDrawingDC(), {0, 0, 64, 64}, 255);
  EXPECT_EQ(BLUE, At(32, 60));
}

TEST_F(PictureTest, LoadsTheNextFileInPlaceOfTheLast) {
  Picture picture;
  const int objects = handheld::GdiObjectsAlive();
  ASSERT_TRUE(picture.Load(Write(std::vector<Rgba>(6, {1, 2, 3, 255}), 3)));
  EXPECT_EQ(3, picture.GetSize().cx);
  EXPECT_EQ(2, picture.GetSize().cy);
  const int withOne = handheld::GdiObjectsAlive();
  ASSERT_TRUE(picture.Load(Write(std::vector<Rgba>(20, {1, 2, 3, 255}), 4)));
  EXPECT_EQ(4, picture.GetSize().cx);
  EXPECT_EQ(5, picture.GetSize().cy);
  EXPECT_EQ(withOne, handheld::GdiObjectsAlive());
  EXPECT_FALSE(picture.Load(folder.DevicePath("missing.png")));
  EXPECT_EQ(0, picture.GetSize().cx) << "what it held is gone";
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
}

TEST_F(PictureTest, ReleasesWhatItHolds) {
  const int objects = handheld::GdiObjectsAlive();
  {
    Picture picture;
    ASSERT_TRUE(picture.Load(Write({{1, 2, 3, 255}}, 1)));
    EXPECT_LT(objects, handheld::GdiObjectsAlive());
  }
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
}

TEST_F(PictureTest, FillsItsRectangle) {
  Picture picture;
  ASSERT_TRUE(picture.Load(Write({{255, 0, 0, 255}, {0, 0, 255, 255}}, 2)));
  Open(240, 320);
  picture.Draw(theCanvas.GetDrawingDC(), {10, 20, 30, 25});
  EXPECT_EQ(20 * 5, CountInk());
  EXPECT_EQ(RED, At(10, 20));
  EXPECT_EQ(RED, At(19, 24));
  EXPECT_EQ(BLUE, At(20, 20));
  EXPECT_EQ(BLUE, At(29, 24));
}

TEST_F(PictureTest, BlendsByItsAlphaAndTheOneGiven) {
  Picture picture;
  ASSERT_TRUE(picture.Load(Write({{255, 255, 255, 255}}, 1)));
  Open(240, 320);
  const HDC dc = theCanvas.GetPresentDC();
  picture.DrawBlended(dc, {0, 0, 2, 2}, 192);
  // 254 * 192 / 255 = 191.2
  EXPECT_NEAR(191, GetRValue(GetPixel(dc, 0, 0)), 1);
  picture.DrawBlended(dc, {10, 10, 12, 12}, 0);
  EXPECT_EQ(BLACK, GetPixel(dc, 10, 10));
}

TEST_F(PictureTest, LetsTheBackgroundThroughWhereItIsTransparent) {
  Picture picture;
  ASSERT_TRUE(picture.Load(Write({{255, 255, 255, 0}, {0, 0, 0, 128}}, 2)));
  Open(240, 320);
  theCanvas.FillBackground(WHITE);
  picture.DrawBlended(theCanvas.GetDrawingDC(), {0, 0, 2, 1}, 255);
  EXPECT_EQ(WHITE, At(0, 0));
  // Half of 255 on a scale of 31 steps.
  EXPECT_NEAR(127, GetRValue(At(1, 0)), 8);
}

}  // namespace

}  // namespace ferolin
