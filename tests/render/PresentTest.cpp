#include <handheld.h>

#include "FrameTest.h"
#include "render/InvertFlags.h"

namespace ferolin {

namespace {

struct Flags {
  int vert, horz, orient;
};

/// The corners of the frame that show in the window's corners: top left, top right, bottom left,
/// bottom right. A and B are the frame's upper corners, C and D the lower ones.
struct PresentCase {
  Flags flags;
  const char* corners;
};

class Present : public FrameTest, public testing::WithParamInterface<PresentCase> {
 protected:
  /// Fills each quarter of the frame with a colour of its own.
  void DrawQuarters() {
    const RECT frame = theCanvas.GetFrameRect();
    const LONG x = frame.right / 2;
    const LONG y = frame.bottom / 2;
    Fill({0, 0, x, y}, RED);
    Fill({x, 0, frame.right, y}, GREEN);
    Fill({0, y, x, frame.bottom}, BLUE);
    Fill({x, y, frame.right, frame.bottom}, WHITE);
  }

  static void Fill(const RECT& rect, COLORREF color) {
    const HBRUSH brush = CreateSolidBrush(color);
    FillRect(theCanvas.GetDrawingDC(), &rect, brush);
    DeleteObject(brush);
  }

  static COLORREF ColorOf(char corner) {
    switch (corner) {
      case 'A':
        return RED;
      case 'B':
        return GREEN;
      case 'C':
        return BLUE;
      default:
        return WHITE;
    }
  }

  static COLORREF Inverted(COLORREF color) { return color ^ 0x00FFFFFF; }

  void SetFlags(const Flags& flags) {
    theInvertFlags.vert = static_cast<std::uint8_t>(flags.vert);
    theInvertFlags.horz = static_cast<std::uint8_t>(flags.horz);
    theInvertFlags.orient = static_cast<std::uint8_t>(flags.orient);
  }

  void ExpectCorners(const char* corners, bool inverted, int width, int height) {
    const int quarterX = width / 4;
    const int quarterY = height / 4;
    const POINT places[] = {{quarterX, quarterY},
                            {width - quarterX, quarterY},
                            {quarterX, height - quarterY},
                            {width - quarterX, height - quarterY}};
    for (int corner = 0; corner < 4; ++corner) {
      const COLORREF color = ColorOf(corners[corner]);
      EXPECT_EQ(inverted ? Inverted(color) : color, WindowAt(places[corner].x, places[corner].y))
          << "corner " << corner;
    }
  }
};

TEST_P(Present, PutsTheCornersWhereTheFlagsSay) {
  SetFlags(GetParam().flags);
  Open(240, 320);
  DrawQuarters();
  FrameTest::Present();
  ExpectCorners(GetParam().corners, false, 240, 320);
}

TEST_P(Present, InvertsTheColoursInTheSamePlaces) {
  SetFlags(GetParam().flags);
  theInvertFlags.color = 1;
  Open(320, 240);
  DrawQuarters();
  FrameTest::Present();
  ExpectCorners(GetParam().corners, true, 320, 240);
}

TEST_P(Present, ScalesToTheWindow) {
  SetFlags(GetParam().flags);
  Open(480, 640, 192);
  DrawQuarters();
  FrameTest::Present();
  ExpectCorners(GetParam().corners, false, 480, 640);
}

/// At 96 and at 192 dpi: one and two pixels of the window for one of the frame.
TEST_P(Present, KnowsWhatPixelOfTheFrameIsShown) {
  SetFlags(GetParam().flags);
  for (const auto& [width, height, dpi] : {std::tuple(60, 40, 96), std::tuple(120, 80, 192)}) {
    Open(width, height, dpi);
    for (const POINT& point : {POINT{0, 0}, POINT{width - 1, 0}, POINT{3, height - 1},
                               POINT{width / 2 + 1, height / 3}}) {
      const POINT inFrame = theCanvas.ToFrame(point);
      SetPixel(theCanvas.GetDrawingDC(), inFrame.x, inFrame.y, RED);
      FrameTest::Present();
      EXPECT_EQ(RED, WindowAt(point.x, point.y)) << point.x << ' ' << point.y << " at " << dpi;
      SetPixel(theCanvas.GetDrawingDC(), inFrame.x, inFrame.y, RGB(0, 0, 0));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Flags, Present,
    testing::Values(PresentCase{{0, 0, 0}, "ABCD"}, PresentCase{{1, 0, 0}, "CDAB"},
                    PresentCase{{0, 1, 0}, "BADC"}, PresentCase{{1, 1, 0}, "DCBA"},
                    PresentCase{{0, 0, 1}, "CADB"}, PresentCase{{1, 0, 1}, "DBCA"},
                    PresentCase{{0, 1, 1}, "ACBD"}, PresentCase{{1, 1, 1}, "BDAC"}));

using PresentTest = FrameTest;

TEST_F(PresentTest, CopiesPixelForPixelAt96Dpi) {
  Open(240, 320);
  SetPixel(theCanvas.GetDrawingDC(), 0, 0, RED);
  SetPixel(theCanvas.GetDrawingDC(), 239, 319, GREEN);
  SetPixel(theCanvas.GetDrawingDC(), 17, 211, BLUE);
  Present();
  EXPECT_EQ(RED, WindowAt(0, 0));
  EXPECT_EQ(GREEN, WindowAt(239, 319));
  EXPECT_EQ(BLUE, WindowAt(17, 211));
  EXPECT_EQ(BLACK, WindowAt(18, 211));
}

TEST_F(PresentTest, MirrorsPixelForPixel) {
  theInvertFlags.vert = 1;
  theInvertFlags.horz = 1;
  Open(240, 320);
  SetPixel(theCanvas.GetDrawingDC(), 0, 0, RED);
  SetPixel(theCanvas.GetDrawingDC(), 17, 211, BLUE);
  Present();
  EXPECT_EQ(RED, WindowAt(239, 319));
  EXPECT_EQ(BLUE, WindowAt(239 - 17, 319 - 211));
}

TEST_F(PresentTest, TurnsPixelForPixel) {
  theInvertFlags.orient = 1;
  Open(320, 240);
  ASSERT_EQ(240, theCanvas.GetFrameRect().right);
  SetPixel(theCanvas.GetDrawingDC(), 0, 0, RED);
  SetPixel(theCanvas.GetDrawingDC(), 10, 20, BLUE);
  Present();
  // Pixel (x, y) of a frame 320 high goes to (319 - y, x).
  EXPECT_EQ(RED, WindowAt(319, 0));
  EXPECT_EQ(BLUE, WindowAt(299, 10));
}

TEST_F(PresentTest, TurnsAFrameOfOddWidthWithoutShearingIt) {
  theInvertFlags.orient = 1;
  Open(201, 101);
  ASSERT_EQ(101, theCanvas.GetFrameRect().right);
  theCanvas.DrawThinLine(RED, 50, 0, 50, 201);
  Present();
  for (int x = 0; x < 201; ++x) {
    ASSERT_EQ(RED, WindowAt(x, 50)) << x;
  }
}

TEST_F(PresentTest, TurnsABlackFrameWhite) {
  theInvertFlags.color = 1;
  Open(240, 320);
  Present();
  EXPECT_EQ(WHITE, WindowAt(100, 100));
}

TEST_F(PresentTest, LeavesNothingBehindWhenItTurns) {
  theInvertFlags.orient = 1;
  Open(320, 240);
  Present();
  const int objects = handheld::GdiObjectsAlive();
  theCanvas.FillBackground(RED);
  Present();
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
  EXPECT_EQ(RED, At(5, 5)) << "the back buffer is selected again";
}

TEST_F(PresentTest, WhatIsDrawnIntoThePresentBufferStaysUpright) {
  theInvertFlags.vert = 1;
  theInvertFlags.color = 1;
  Open(240, 320);
  theCanvas.PresentTransformed();
  SetPixel(theCanvas.GetPresentDC(), 3, 4, RED);
  theCanvas.FlushToWindow();
  EXPECT_EQ(RED, WindowAt(3, 4));
}

TEST_F(PresentTest, AnyByteButZeroIsOn) {
  theInvertFlags.color = 2;
  Open(240, 320);
  Present();
  EXPECT_EQ(WHITE, WindowAt(0, 0));
}

}  // namespace

}  // namespace ferolin
