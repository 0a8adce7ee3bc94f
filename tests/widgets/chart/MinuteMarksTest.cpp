#include "render/Canvas.h"
#include "widgets/ViewTest.h"
#include "widgets/chart/MinuteMarks.h"

namespace ferolin {

namespace {

using Columns = std::vector<LONG>;
using Texts = std::vector<WideString>;

constexpr LONG PLOT_LEFT = 5;
constexpr LONG PLOT_RIGHT = 235;

class MinuteMarksTest : public ViewTest {
 protected:
  MinuteMarksTest() {
    Open(240, 320);
    theCanvas.BeginFrame(window);
    font = theCanvas.MakeFontA("Times New Roman", 13, 0);
    width = theCanvas.MeasureText(font.get(), TEXT("12:34")).cx;
    Begin();
  }

  void Begin() { marks.Begin(theCanvas, font.get(), PLOT_LEFT, PLOT_RIGHT); }

  static TrackPoint At(int hour, int minute, int second) {
    TrackPoint point = {};
    point.time.wHour = static_cast<WORD>(hour);
    point.time.wMinute = static_cast<WORD>(minute);
    point.time.wSecond = static_cast<WORD>(second);
    return point;
  }

  void Add(LONG x, const std::vector<TrackPoint>& points) { marks.Add(x, points); }

  Columns Lines() const {
    const auto lines = marks.GetLines();
    return {lines.begin(), lines.end()};
  }

  Texts LabelTexts() const {
    Texts texts;
    for (const MinuteMarks::Label& label : marks.GetLabels()) {
      texts.emplace_back(label.text.data());
    }
    return texts;
  }

  Font font;
  LONG width = 0;
  MinuteMarks marks;
};

TEST_F(MinuteMarksTest, StandWhereAMinuteBegins) {
  Add(120, {At(12, 33, 59), At(12, 34, 0), At(12, 34, 1)});
  EXPECT_EQ(Columns{120}, Lines());
  EXPECT_EQ(Texts{TEXT("12:34")}, LabelTexts());
  EXPECT_EQ(120 - width / 2, marks.GetLabels()[0].left) << "centred";
}

TEST_F(MinuteMarksTest, StandNowhereElse) {
  Add(121, {At(12, 34, 1)});
  Add(120, {At(12, 33, 59)});
  EXPECT_EQ(Columns{}, Lines());
  EXPECT_EQ(Texts{}, LabelTexts());
}

TEST_F(MinuteMarksTest, WriteTwoFigures) {
  Add(120, {At(3, 7, 0)});
  EXPECT_EQ(Texts{TEXT("03:07")}, LabelTexts());
}

TEST_F(MinuteMarksTest, KeepTheirLabelsInsideTheFrame) {
  Add(PLOT_RIGHT - 1, {At(12, 35, 0)});
  Add(PLOT_LEFT + 1, {At(12, 34, 0)});
  ASSERT_EQ(2U, marks.GetLabels().size());
  EXPECT_EQ(PLOT_RIGHT - width, marks.GetLabels()[0].left);
  EXPECT_EQ(PLOT_LEFT, marks.GetLabels()[1].left);
  EXPECT_EQ((Columns{PLOT_RIGHT - 1, PLOT_LEFT + 1}), Lines()) << "lines stay where they are";
}

TEST_F(MinuteMarksTest, LeaveOutALabelThatWouldTouchANewerOne) {
  Add(200, {At(12, 35, 0)});
  const LONG newer = 200 - width / 2;
  // Its right edge would stand exactly 5 pixels left of the newer label's left one.
  const LONG touching = newer - 5 - width + width / 2;
  Add(touching, {At(12, 34, 0)});
  EXPECT_EQ(Texts{TEXT("12:35")}, LabelTexts());
  Add(touching - 1, {At(12, 33, 0)});
  EXPECT_EQ((Texts{TEXT("12:35"), TEXT("12:33")}), LabelTexts());
}

TEST_F(MinuteMarksTest, KeepTheLineOfALabelLeftOut) {
  Add(200, {At(12, 35, 0)});
  Add(199, {At(12, 34, 0)});
  Add(198, {At(12, 33, 30)});
  Add(197, {At(12, 33, 0)});
  EXPECT_EQ((Columns{200, 199, 197}), Lines());
  EXPECT_EQ(Texts{TEXT("12:35")}, LabelTexts());
}

TEST_F(MinuteMarksTest, TakeTheNewestMinuteOfAColumn) {
  Add(120, {At(12, 33, 0), At(12, 34, 0), At(12, 34, 30)});
  EXPECT_EQ(Columns{120}, Lines()) << "one line for both";
  EXPECT_EQ(Texts{TEXT("12:34")}, LabelTexts());
}

TEST_F(MinuteMarksTest, NeverOverlapHoweverDenseTheyAre) {
  for (LONG x = PLOT_RIGHT - 1; x > PLOT_LEFT; --x) {
    Add(x, {At(static_cast<int>(x) / 60, static_cast<int>(x) % 60, 0)});
  }
  EXPECT_EQ(229U, marks.GetLines().size()) << "from 234 down to 6";
  ASSERT_GT(marks.GetLabels().size(), 4U);
  LONG newer = PLOT_RIGHT + 6;
  for (const MinuteMarks::Label& label : marks.GetLabels()) {
    const LONG right = label.left + theCanvas.MeasureText(font.get(), label.text.data()).cx;
    EXPECT_LT(right, newer - 5);
    newer = label.left;
  }
}

TEST_F(MinuteMarksTest, StartOver) {
  Add(120, {At(12, 34, 0)});
  Begin();
  EXPECT_EQ(Columns{}, Lines());
  EXPECT_EQ(Texts{}, LabelTexts());
  Add(220, {At(12, 35, 0)});
  EXPECT_EQ(Columns{220}, Lines());
  EXPECT_EQ(Texts{TEXT("12:35")}, LabelTexts()) << "the last label is forgotten";
}

TEST_F(MinuteMarksTest, SurviveTimesThatAreNone) {
  Add(120, {At(65535, 65535, 0)});
  EXPECT_EQ(Texts{TEXT("35:35")}, LabelTexts());
}

}  // namespace

}  // namespace ferolin
