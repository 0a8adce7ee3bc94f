#include <algorithm>

#include "gps/FixRecord.h"
#include "render/Canvas.h"
#include "render/Picture.h"
#include "sensors/Sensor.h"
#include "widgets/ViewTest.h"

namespace ferolin {

namespace {

const COLORREF BACKGROUND = Seen(0x00C0C0C0);
constexpr COLORREF LOW = RGB(255, 0, 0);
constexpr COLORREF MID = RGB(255, 255, 0);
const COLORREF HIGH = Seen(0x0000C000);
const COLORREF BORDER = Seen(0x00202020);
const COLORREF SHADOW = Seen(0x00404040);
const COLORREF LINES = Seen(0x00606060);

class SatellitesTest : public ViewTest {
 protected:
  SatellitesTest() { RemovePicture("SatBackGround.png"); }

  void Put(std::size_t slot, const SatelliteInfo& satellite) {
    satellites.at(slot) = satellite;
    Receive(satellites);
  }

  void DrawPlain() {
    Drive("120000", 50);
    ShowBars(FEROLIN_VIEW_SATELLITES, false);
    Draw(FEROLIN_VIEW_SATELLITES);
  }

  static std::vector<COLORREF> Pixels(const RECT& rect) {
    std::vector<COLORREF> pixels;
    for (LONG y = rect.top; y < rect.bottom; ++y) {
      for (LONG x = rect.left; x < rect.right; ++x) {
        pixels.push_back(FrameAt(x, y));
      }
    }
    return pixels;
  }

  static int Count(COLORREF color, const RECT& rect) {
    const std::vector<COLORREF> pixels = Pixels(rect);
    return static_cast<int>(std::ranges::count(pixels, color));
  }

 private:
  Satellites satellites;
};

TEST_F(SatellitesTest, IsCalledSattelites) {
  Load();
  EXPECT_STREQ("Sattelites", View(FEROLIN_VIEW_SATELLITES).GetName());
}

// Portrait, 240 x 320: the sky's centre is (120, 125), its radius 110.

TEST_F(SatellitesTest, DrawsThreeRingsAndACross) {
  Open(240, 320);
  DrawPlain();
  EXPECT_EQ(BACKGROUND, FrameAt(180, 200));
  for (const int radius : {110, 73, 36}) {
    // At 30 degrees, beside letters and cross: r * 0.866 to the right, r / 2 up.
    const int x = 120 + (radius * 866 + 500) / 1000;
    const int y = 125 - (radius + 1) / 2;
    EXPECT_GT(Count(LINES, {x - 1, y - 1, x + 2, y + 2}), 0) << radius;
  }
  EXPECT_EQ(LINES, FrameAt(60, 125));
  EXPECT_EQ(LINES, FrameAt(180, 125));
  EXPECT_EQ(LINES, FrameAt(120, 60));
  EXPECT_EQ(LINES, FrameAt(120, 190));
}

struct SignalCase {
  int snr;
  COLORREF color;
};

class SatelliteSignal : public SatellitesTest, public testing::WithParamInterface<SignalCase> {};

TEST_P(SatelliteSignal, ColoursDotAndBar) {
  const auto [snr, color] = GetParam();
  Open(320, 240);
  // South-west of the zenith and in the third row.
  Put(2, {7, 45, 225, snr});
  DrawPlain();
  // 45 * 110 / 90 = 55, 55 * 0.7071 = 38.9: (125 - 38.9, 120 + 38.9).
  EXPECT_EQ(color, FrameAt(86, 158));
  EXPECT_EQ(color, FrameAt(272, 48)) << "the row runs from 41 to 59";
}

INSTANTIATE_TEST_SUITE_P(Bands, SatelliteSignal,
                         testing::Values(SignalCase{20, LOW}, SignalCase{21, MID},
                                         SignalCase{49, MID}, SignalCase{50, HIGH},
                                         SignalCase{99, HIGH}, SignalCase{150, HIGH}));

TEST_F(SatellitesTest, PlotsASatelliteWithoutSignalButGivesItNoBar) {
  Open(320, 240);
  Put(2, {7, 45, 225, 0});
  DrawPlain();
  EXPECT_EQ(LOW, FrameAt(86, 158));
  EXPECT_EQ(0, Count(LOW, {250, 0, 320, 240}));
  EXPECT_EQ(0, Count(BORDER, {270, 0, 320, 240}));
}

TEST_F(SatellitesTest, DrawsBarsWithBorderAndShadowInRows) {
  Open(320, 240);
  Put(0, {7, 45, 225, 50});
  DrawPlain();
  // The bar is {270, 1, 295, 16}, its shadow {270, 4, 292, 19}.
  EXPECT_EQ(BORDER, FrameAt(270, 1));
  EXPECT_EQ(BORDER, FrameAt(294, 15));
  EXPECT_EQ(HIGH, FrameAt(293, 14));
  EXPECT_EQ(BACKGROUND, FrameAt(295, 8));
  EXPECT_EQ(SHADOW, FrameAt(280, 16));
  EXPECT_EQ(SHADOW, FrameAt(291, 18));
  EXPECT_EQ(BACKGROUND, FrameAt(292, 18));
  EXPECT_EQ(BACKGROUND, FrameAt(280, 19));
}

TEST_F(SatellitesTest, DrawsBarsWithBorderAndShadowInColumns) {
  Open(240, 320);
  Put(0, {7, 45, 225, 50});
  DrawPlain();
  // The bar is {1, 275, 16, 300}, its shadow {4, 278, 19, 300}.
  EXPECT_EQ(BORDER, FrameAt(1, 275));
  EXPECT_EQ(BORDER, FrameAt(15, 299));
  EXPECT_EQ(HIGH, FrameAt(2, 276));
  EXPECT_EQ(BACKGROUND, FrameAt(8, 274));
  EXPECT_EQ(SHADOW, FrameAt(16, 290));
  EXPECT_EQ(SHADOW, FrameAt(18, 278));
  EXPECT_EQ(BACKGROUND, FrameAt(18, 277));
  EXPECT_EQ(BACKGROUND, FrameAt(19, 290));
}

TEST_F(SatellitesTest, CutsBarsAtTheStripsEdge) {
  Open(240, 320);
  Put(0, {7, 45, 225, 150});
  DrawPlain();
  EXPECT_EQ(BORDER, FrameAt(1, 250));
  EXPECT_EQ(BACKGROUND, FrameAt(3, 249));
}

class UnknownSatellite : public SatellitesTest,
                         public testing::WithParamInterface<SatelliteInfo> {};

TEST_P(UnknownSatellite, IsNotShown) {
  Open(320, 240);
  DrawPlain();
  const auto without = Shown().rows;
  Put(2, {7, 45, 225, 30});
  Draw(FEROLIN_VIEW_SATELLITES);
  EXPECT_NE(without, Shown().rows);
  Put(2, GetParam());
  Draw(FEROLIN_VIEW_SATELLITES);
  EXPECT_EQ(without, Shown().rows);
}

INSTANTIATE_TEST_SUITE_P(Values, UnknownSatellite,
                         testing::Values(SatelliteInfo(MISSING_VALUE, 45, 225, 30),
                                         SatelliteInfo(7, MISSING_VALUE, 225, 30),
                                         SatelliteInfo(7, 45, MISSING_VALUE, 30),
                                         SatelliteInfo(7, 45, 225, MISSING_VALUE)));

TEST_F(SatellitesTest, DrawsDotsOverTheZenithAndTheHorizon) {
  Open(240, 320);
  Put(0, {1, 90, 77, 30});
  Put(11, {32, 0, 90, 60});
  DrawPlain();
  EXPECT_EQ(MID, FrameAt(118, 123));
  EXPECT_EQ(HIGH, FrameAt(228, 123));
  // Border of the dots: the ellipses span {115, 120, 125, 130} and {225, 120, 235, 130}.
  EXPECT_EQ(BORDER, FrameAt(120, 120));
  EXPECT_EQ(BORDER, FrameAt(234, 125));
}

TEST_F(SatellitesTest, FitsItsBackgroundIntoTheArea) {
  std::filesystem::copy_file(folder.Path("Pics/speedometer.png"),
                             folder.Path("Pics/SatBackGround.png"));
  Open(240, 320);
  DrawPlain();
  // A strip between two rings, beside the cross and across the lower edge of the picture's face.
  const RECT rect = {102, 206, 118, 233};
  const auto drawn = Pixels(rect);
  theCanvas.FillBackground(0x00C0C0C0);
  EXPECT_NE(Pixels(rect), drawn);
  // 480 x 456 becomes 240 x 228, which leaves 11 above and below.
  LoadPicture(folder.DevicePath("Pics/SatBackGround.png"))
      ->DrawBlended(theCanvas.GetDrawingDC(), {0, 11, 240, 239}, 255);
  EXPECT_EQ(Pixels(rect), drawn);
}

TEST_F(SatellitesTest, LeavesTheStripAndTheRestAloneWithoutABackground) {
  Open(240, 320);
  DrawPlain();
  EXPECT_EQ(BACKGROUND, FrameAt(120, 300));
  EXPECT_EQ(BACKGROUND, FrameAt(150, 100));
}

TEST_F(SatellitesTest, PostsTheCodesOfTheNavigationButtons) {
  Open(240, 320);
  engine->GetRedraw().SetCurRenderWidget(FEROLIN_VIEW_SATELLITES);
  Drive("120000", 50);
  ShowBars(FEROLIN_VIEW_SATELLITES, true);
  TakePosted();
  for (const int x : {210, 150, 90, 30}) {
    View(FEROLIN_VIEW_SATELLITES).OnMouseDown(window, {x, 294});
    View(FEROLIN_VIEW_SATELLITES).OnMouseUp(window, {x, 294});
  }
  EXPECT_EQ((std::vector<LPARAM>{FEROLIN_BUTTON_NEXT_VIEW, FEROLIN_BUTTON_FLIP_HORIZONTALLY,
                                 FEROLIN_BUTTON_ROTATE_SCREEN, FEROLIN_BUTTON_PREVIOUS_VIEW}),
            TakePosted());
}

TEST_F(SatellitesTest, LeavesNothingBehindFromFrameToFrame) {
  Open(320, 240);
  for (int slot = 0; slot < 12; ++slot) {
    Put(static_cast<std::size_t>(slot), {slot + 1, 7 * slot, 30 * slot, 9 * slot});
  }
  DrawPlain();
  const int objects = handheld::GdiObjectsAlive();
  for (int frame = 0; frame < 20; ++frame) {
    Draw(FEROLIN_VIEW_SATELLITES);
  }
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
}

TEST_F(SatellitesTest, SurvivesAWindowWithoutRoom) {
  for (const auto& [width, height] : {std::pair(1, 1), std::pair(60, 50), std::pair(50, 60)}) {
    Open(width, height);
    Put(0, {7, 45, 225, 50});
    DrawPlain();
  }
}

}  // namespace

}  // namespace ferolin
