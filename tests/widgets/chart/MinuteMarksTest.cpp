#include "render/Canvas.h"
#include "widgets/ViewTest.h"
#include "widgets/chart/MinuteMarks.h"

namespace ferolin {

namespace {

constexpr LONG LEFT = 5;
constexpr LONG RIGHT = 235;

class MinuteMarksTest : public ViewTest {
 protected:
  MinuteMarksTest() {
    Open(240, 320);
    theCanvas.BeginFrame(window);
    font = theCanvas.MakeFontA("Times New Roman", 13, 0);
    width = theCanvas.MeasureText(font.get(), TEXT("12:34")).cx;
    marks.Begin(theCanvas, font.get(), LEFT, RIGHT);
  }

  static TrackPoint At(int hour, int minute, int second) {
    TrackPoint point = {};
    point.time.wHour = static_cast<WORD>(hour);
    point.time.wMinute = static_cast<WORD>(minute);
    point.time.wSecond = static_cast<WORD>(second);
    return point;
  }

  void Add(LONG x, const std::vector<TrackPoint>& points) { marks.Add(x, points); }

  Font font;
  LONG width = 0;
  MinuteMarks marks;
};

TEST_F(MinuteMarksTest, StandWhereAMinuteBegins) {
  Add(120, {At(12, 33, 59), At(12, 34, 0), At(12, 34, 1)});
  ASSERT_EQ(1U, marks.Get().size());
  const MinuteMarks::Mark& mark = marks.Get().front();
  EXPECT_EQ(120, mark.x);
  EXPECT_EQ(WideString(TEXT("12:34")), mark.label.data());
  EXPECT_EQ(120 - width / 2, mark.labelLeft) << "centred";
}

TEST_F(MinuteMarksTest, WriteTwoFigures) {
  Add(120, {At(3, 7, 0)});
  EXPECT_EQ(WideString(TEXT("03:07")), marks.Get().front().label.data());
}

TEST_F(MinuteMarksTest, KeepTheirLabelsInsideTheFrame) {
  Add(RIGHT - 1, {At(12, 35, 0)});
  Add(LEFT + 1, {At(12, 34, 0)});
  ASSERT_EQ(2U, marks.Get().size());
  EXPECT_EQ(RIGHT - width, marks.Get()[0].labelLeft);
  EXPECT_EQ(RIGHT - 1, marks.Get()[0].x) << "the mark stays where it is";
  EXPECT_EQ(LEFT, marks.Get()[1].labelLeft);
}

TEST_F(MinuteMarksTest, GiveWayToTheNewerLabel) {
  Add(200, {At(12, 35, 0)});
  const LONG newer = 200 - width / 2;
  // Its right edge would stand exactly 5 pixels left of the newer label's left one.
  const LONG touching = newer - 5 - width + width / 2;
  Add(touching, {At(12, 34, 0)});
  EXPECT_EQ(1U, marks.Get().size());
  Add(touching - 1, {At(12, 33, 0)});
  ASSERT_EQ(2U, marks.Get().size());
  EXPECT_EQ(WideString(TEXT("12:33")), marks.Get()[1].label.data());
}

TEST_F(MinuteMarksTest, TakeTheNewestMinuteOfAColumn) {
  Add(120, {At(12, 33, 0), At(12, 34, 0), At(12, 34, 30)});
  ASSERT_EQ(1U, marks.Get().size());
  EXPECT_EQ(WideString(TEXT("12:34")), marks.Get().front().label.data());
}

TEST_F(MinuteMarksTest, NeverOverlapHoweverDenseTheyAre) {
  for (LONG x = RIGHT - 1; x > LEFT; --x) {
    Add(x, {At(static_cast<int>(x) / 60, static_cast<int>(x) % 60, 0)});
  }
  ASSERT_GT(marks.Get().size(), 4U);
  LONG newer = RIGHT + 6;
  for (const MinuteMarks::Mark& mark : marks.Get()) {
    const LONG right = mark.labelLeft + theCanvas.MeasureText(font.get(), mark.label.data()).cx;
    EXPECT_LT(right, newer - 5);
    newer = mark.labelLeft;
  }
}

TEST_F(MinuteMarksTest, StartOver) {
  Add(120, {At(12, 34, 0)});
  marks.Begin(theCanvas, font.get(), LEFT, RIGHT);
  EXPECT_TRUE(marks.Get().empty());
  Add(220, {At(12, 35, 0)});
  EXPECT_EQ(1U, marks.Get().size());
}

TEST_F(MinuteMarksTest, SurviveTimesThatAreNone) {
  Add(120, {At(65535, 65535, 0)});
  EXPECT_EQ(WideString(TEXT("35:35")), marks.Get().front().label.data());
}

}  // namespace

}  // namespace ferolin
