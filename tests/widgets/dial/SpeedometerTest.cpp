#include "render/Canvas.h"
#include "sensors/Sensor.h"
#include "widgets/ViewTest.h"

namespace ferolin {

namespace {

constexpr COLORREF BLACK = RGB(0, 0, 0);
constexpr COLORREF RED = RGB(255, 0, 0);        // needle and maximum
constexpr COLORREF GREEN = RGB(0, 255, 0);      // average
constexpr COLORREF BLUE = RGB(0, 0, 255);       // north
constexpr COLORREF CYAN = RGB(0, 255, 255);     // speed
constexpr COLORREF MAGENTA = RGB(255, 0, 255);  // odometer
// 0x80 on a scale of 31 steps is 16, which reads as 132.
constexpr COLORREF ACCELERATION = RGB(132, 255, 0);
constexpr COLORREF FASTEST = RGB(0, 255, 132);

class SpeedometerTest : public ViewTest {
 protected:
  void DrawAt(double kmh, double course = 0) {
    Drive("120000", kmh, course);
    ShowBars(FEROLIN_VIEW_SPEEDOMETER, false);
    Draw(FEROLIN_VIEW_SPEEDOMETER);
  }

  COLORREF At(int x, int y) const { return GetPixel(theCanvas.GetDrawingDC(), x, y); }

  int Count(COLORREF color) const {
    const RECT frame = theCanvas.GetFrameRect();
    int count = 0;
    for (int y = 0; y < frame.bottom; ++y) {
      for (int x = 0; x < frame.right; ++x) {
        count += At(x, y) == color ? 1 : 0;
      }
    }
    return count;
  }

  /// The first row from that one on with a pixel of that colour; the frame's height without one.
  int FirstRow(COLORREF color, int row) const {
    const RECT frame = theCanvas.GetFrameRect();
    for (; row < frame.bottom; ++row) {
      for (int x = 0; x < frame.right; ++x) {
        if (At(x, row) == color) {
          return row;
        }
      }
    }
    return row;
  }

  void Set(int sensor, const char* state) {
    EXPECT_EQ(1, engine->GetSensors().Get(sensor)->SetRegistryString(state));
  }
};

// Portrait, 240 x 320: the dial's centre is (120, 145), its radius 120.

TEST_F(SpeedometerTest, PointsLeftAndDownAtZero) {
  Open(240, 320);
  DrawAt(0);
  // 197.5 degrees: half way to (120 - 114, 145 + 36).
  EXPECT_EQ(RED, At(63, 163));
}

TEST_F(SpeedometerTest, PointsUpAtHalfOfTheScale) {
  Open(240, 320);
  DrawAt(110);
  EXPECT_EQ(RED, At(120, 60));
}

TEST_F(SpeedometerTest, PointsRightAndDownAtTheEndOfTheScale) {
  Open(240, 320);
  DrawAt(220);
  // -17.5 degrees: half way to (120 + 114, 145 + 36).
  EXPECT_EQ(RED, At(177, 163));
}

TEST_F(SpeedometerTest, MovesNoNeedleBeyondTheScaleButShowsTheNumber) {
  Open(240, 320);
  DrawAt(221);
  EXPECT_EQ(0, Count(RED)) << "no needle, and no mark of the maximum either";
  const RECT number = Bounds(CYAN);
  EXPECT_GE(number.top, 97);  // 145 - 1.2 * 40
  EXPECT_LE(number.bottom, 137);
  EXPECT_NEAR(120, (number.left + number.right) / 2, 3);
  EXPECT_GT(number.right - number.left, 40) << "three figures";
}

TEST_F(SpeedometerTest, MarksTheMaximumBehindTheNeedle) {
  Open(240, 320);
  DrawAt(220);
  DrawAt(0);
  // The mark runs from 96 to 120 from the centre at -17.5 degrees: at 108 it is (223, 177).
  EXPECT_EQ(RED, At(223, 177));
  EXPECT_NE(RED, At(177, 163)) << "nothing nearer to the centre";
}

TEST_F(SpeedometerTest, MarksTheAverage) {
  Open(240, 320);
  Drive("120000", 0);
  Set(FEROLIN_SENSOR_AVERAGE_SPEED, "110;3600");
  Draw(FEROLIN_VIEW_SPEEDOMETER);
  // 110 km in one hour: straight up, from 96 to 120.
  EXPECT_EQ(GREEN, At(120, 145 - 108));
  EXPECT_EQ(GREEN, At(122, 145 - 108));
  EXPECT_NE(GREEN, At(120, 145 - 90));
}

TEST_F(SpeedometerTest, PutsTheOdometerOnTheCentreInPortrait) {
  Open(240, 320);
  Set(FEROLIN_SENSOR_DISTANCE, "123.4");
  DrawAt(220);
  const RECT text = Bounds(MAGENTA);
  EXPECT_GE(text.top, 145);
  EXPECT_LE(text.bottom, 145 + 28);
  EXPECT_NEAR(120, (text.left + text.right) / 2, 5);
}

TEST_F(SpeedometerTest, RaisesTheNumberLessInLandscape) {
  Open(320, 240);
  DrawAt(188);
  // Centre (113, 128): 128 - 1.1 * 40 = 84.
  const RECT number = Bounds(CYAN);
  EXPECT_GE(number.top, 84);
  EXPECT_LE(number.bottom, 124);
}

TEST_F(SpeedometerTest, DoesNotPresentWithoutADial) {
  RemovePicture("speedometer.png");
  Open(240, 320);
  Drive("120000", 50);
  ShowBars(FEROLIN_VIEW_FULL_SCREEN_SPEED, false);
  Draw(FEROLIN_VIEW_FULL_SCREEN_SPEED);
  const auto before = Shown().rows;
  ShowBars(FEROLIN_VIEW_SPEEDOMETER, false);
  Draw(FEROLIN_VIEW_SPEEDOMETER);
  EXPECT_EQ(before, Shown().rows);
  EXPECT_EQ(BLACK, At(120, 160)) << "the back buffer was cleared all the same";
}

TEST_F(SpeedometerTest, DrawsItsButtonsWithoutADial) {
  RemovePicture("speedometer.png");
  Open(240, 320);
  Drive("120000", 50);
  ShowBars(FEROLIN_VIEW_FULL_SCREEN_SPEED, false);
  Draw(FEROLIN_VIEW_FULL_SCREEN_SPEED);
  const auto before = Shown().rows;
  ShowBars(FEROLIN_VIEW_SPEEDOMETER, true);
  Draw(FEROLIN_VIEW_SPEEDOMETER);
  EXPECT_NE(before, Shown().rows);
}

// Landscape, 240 high: the dial ends at 226, the compass needs 65. In 320 x 240 it is centred on
// (287, 207).

TEST_F(SpeedometerTest, PointsTheCompassNorth) {
  Open(320, 240);
  DrawAt(50, 0);
  EXPECT_EQ(BLUE, At(287, 207 - 20));
  EXPECT_EQ(RED, At(287, 207 + 20));
}

TEST_F(SpeedometerTest, TurnsTheCompassAgainstTheCourse) {
  Open(320, 240);
  DrawAt(50, 90);
  EXPECT_EQ(BLUE, At(287 - 20, 207)) << "heading east, north lies to the left";
  EXPECT_EQ(RED, At(287 + 20, 207));
}

TEST_F(SpeedometerTest, HasNoCompassWithoutRoomForIt) {
  Open(290, 240);
  DrawAt(50);
  EXPECT_EQ(0, Count(BLUE));
  Open(291, 240);
  DrawAt(50);
  EXPECT_GT(Count(BLUE), 20);
}

TEST_F(SpeedometerTest, HasNoCompassInPortrait) {
  Open(240, 320);
  DrawAt(50);
  EXPECT_EQ(0, Count(BLUE));
}

TEST_F(SpeedometerTest, HasNoCompassWithoutItsPicture) {
  RemovePicture("compass.png");
  Open(320, 240);
  DrawAt(50);
  EXPECT_EQ(0, Count(BLUE));
}

struct TargetCase {
  int sensor;
  const char* state;
  bool isShown;
};

class Acceleration : public SpeedometerTest, public testing::WithParamInterface<TargetCase> {};

TEST_P(Acceleration, IsShownForTargetsThatMatter) {
  Open(800, 480);
  DrawAt(0);
  const auto without = Shown().rows;
  Set(GetParam().sensor, GetParam().state);
  Draw(FEROLIN_VIEW_SPEEDOMETER);
  EXPECT_EQ(GetParam().isShown, without != Shown().rows);
}

INSTANTIATE_TEST_SUITE_P(Targets, Acceleration,
                         testing::Values(TargetCase{FEROLIN_SENSOR_ACCEL_10, "10;1.5", false},
                                         TargetCase{FEROLIN_SENSOR_ACCEL_30, "30;3.5", false},
                                         TargetCase{FEROLIN_SENSOR_ACCEL_30, "49.9;3.5", false},
                                         TargetCase{FEROLIN_SENSOR_ACCEL_60, "60;6.5", true},
                                         TargetCase{FEROLIN_SENSOR_ACCEL_60, "50;6.5", true},
                                         TargetCase{FEROLIN_SENSOR_ACCEL_150, "180;30", true},
                                         TargetCase{FEROLIN_SENSOR_ACCEL_150, "181;30", false},
                                         TargetCase{FEROLIN_SENSOR_ACCEL_200, "60;30", false}));

TEST_F(SpeedometerTest, ShowsNoAccelerationThatWasNotRun) {
  Open(800, 480);
  DrawAt(0);
  EXPECT_EQ(0, Count(ACCELERATION));
}

// Landscape, 320 x 240: columns of 5 * 226 / 24 = 47 from 5 * 226 / 32 + 2 = 37 on; labels at
// 230 - 25 = 205.

TEST_F(SpeedometerTest, BracketsTheFastestTimesInLandscape) {
  Open(320, 240);
  DrawAt(0);
  const Font font = theCanvas.MakeFontA("Times New Roman", 14, 0);
  const int bracket = 205 + static_cast<int>(theCanvas.MeasureText(font.get(), TEXT("100")).cy);
  for (int column = 0; column < 3; ++column) {
    const int left = 37 + 47 * column;
    const int right = left + 43;
    for (int y = bracket - 1; y < bracket + 3; ++y) {
      EXPECT_EQ(FASTEST, At(left, y)) << column << ", " << y;
      EXPECT_EQ(FASTEST, At(right, y)) << column << ", " << y;
    }
    EXPECT_NE(FASTEST, At(left, bracket + 3)) << column;
    EXPECT_EQ(FASTEST, At(left + 10, bracket + 1)) << column;
    EXPECT_NE(FASTEST, At(left + 10, bracket)) << column;
  }
}

TEST_F(SpeedometerTest, ShowsDistancesAndTimesInPortraitBelowTheDial) {
  Open(240, 320);
  DrawAt(0);
  const RECT bounds = Bounds(FASTEST);
  EXPECT_GE(bounds.left, 0);
  EXPECT_LE(bounds.right, 240);
  EXPECT_LE(bounds.bottom, 269) << "clear of the buttons";
}

/// 480 x 800: the face ends at 25 + 240 + 165 = 430. Text of 480 / 10 = 48 pixels fills the columns.
TEST_F(SpeedometerTest, ShowsDistancesAndTimesLargeInTallFrames) {
  Open(480, 800);
  DrawAt(0);
  // The clock, in the same colour, ends at 265 + 28 + 4 + 32 = 329.
  const int top = FirstRow(FASTEST, 329);
  EXPECT_GE(top, 434);
  EXPECT_LT(top, 434 + 24);
  const Font font = theCanvas.MakeFontA("Times New Roman", 48, 0);
  const int bracket = 434 + static_cast<int>(theCanvas.MeasureText(font.get(), TEXT("100")).cy);
  EXPECT_EQ(FASTEST, At(20, bracket + 1));
}

TEST_F(SpeedometerTest, LeavesNothingBehindFromFrameToFrame) {
  Open(320, 240);
  DrawAt(100);
  const int objects = handheld::GdiObjectsAlive();
  for (int frame = 0; frame < 20; ++frame) {
    Draw(FEROLIN_VIEW_SPEEDOMETER);
  }
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
}

}  // namespace

}  // namespace ferolin
