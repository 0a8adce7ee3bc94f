#include <ferolin.h>

#include "render/Canvas.h"
#include "widgets/BarCountdown.h"
#include "widgets/ButtonBar.h"
#include "widgets/ViewTest.h"

namespace ferolin {

namespace {

constexpr RECT CLIENT = {0, 0, 240, 320};

TEST(BarCountdown, FadesOverItsLastCounts) {
  BarCountdown countdown;
  for (const int alpha : {192, 192, 192, 192, 192, 144, 96, 48}) {
    EXPECT_EQ(alpha, countdown.GetAlpha());
    EXPECT_TRUE(countdown.TakeOne()) << alpha;
  }
  EXPECT_EQ(0, countdown.GetAlpha());
  EXPECT_FALSE(countdown.TakeOne());
}

TEST(BarCountdown, EndsAndRestarts) {
  BarCountdown countdown;
  countdown.End();
  EXPECT_FALSE(countdown.TakeOne());
  countdown.Restart();
  EXPECT_EQ(192, countdown.GetAlpha());
  EXPECT_TRUE(countdown.TakeOne());
}

class ButtonBarTest : public ViewTest {
 protected:
  ButtonBarTest() {
    Open(240, 320);
    theCanvas.BeginFrame(window);
    bar.Add(folder.DevicePath("Pics/BtnClose.png"), {1000, 0, FEROLIN_BUTTON_CLOSE});
    bar.Add(folder.DevicePath("Pics/BtnMissing.png"), {1000, 0, FEROLIN_BUTTON_FLIP_HORIZONTALLY});
    bar.Show();
  }

  void DrawBar() { bar.Draw(theCanvas.GetPresentDC(), CLIENT); }

  /// Draws frames until `bar` is hidden, and counts them.
  int CountFrames(ButtonBar* second = nullptr) {
    int frames = 0;
    while (bar.IsVisible()) {
      DrawBar();
      if (second != nullptr) {
        second->Draw(theCanvas.GetPresentDC(), CLIENT);
      }
      ++frames;
    }
    return frames;
  }

  /// Brightness of the bar's button over a black frame.
  int DrawnBrightness() {
    theCanvas.FillBackground(RGB(0, 0, 0));
    theCanvas.PresentTransformed();
    DrawBar();
    int sum = 0;
    for (int x = 5; x < 55; ++x) {
      sum += GetGValue(GetPixel(theCanvas.GetPresentDC(), x, 26)) +
             GetRValue(GetPixel(theCanvas.GetPresentDC(), x, 26));
    }
    return sum;
  }

  BarCountdown countdown;
  ButtonBar bar{BarSide::TOP, countdown};
};

TEST_F(ButtonBarTest, IsVisibleFromTheStart) {
  EXPECT_TRUE(ButtonBar(BarSide::TOP, countdown).IsVisible());
}

TEST_F(ButtonBarTest, HidesInTheFrameAfterItsCountdownRanOut) {
  // Eight frames take the countdown from 8 to 0, the ninth hides the bar.
  EXPECT_EQ(9, CountFrames());
}

TEST_F(ButtonBarTest, SharesItsCountdownWithTheOtherBars) {
  ButtonBar second(BarSide::BOTTOM, countdown);
  // Two counts a frame: 8 to 0 in four frames, both hide in the fifth.
  EXPECT_EQ(5, CountFrames(&second));
  EXPECT_FALSE(second.IsVisible());
}

TEST_F(ButtonBarTest, DoesNotCountWhileHidden) {
  ButtonBar hidden(BarSide::BOTTOM, countdown);
  hidden.Hide();
  bar.Show();
  EXPECT_EQ(9, CountFrames(&hidden));
}

TEST_F(ButtonBarTest, HidingEndsTheCountdownOfAll) {
  ButtonBar other(BarSide::BOTTOM, countdown);
  other.Hide();
  EXPECT_EQ(1, CountFrames());
}

TEST_F(ButtonBarTest, StaysUpWhenItIsTouched) {
  for (int frame = 0; frame < 7; ++frame) {
    DrawBar();
  }
  EXPECT_EQ(ButtonBar::NO_BUTTON, bar.HitTest(window, 120, 200)) << "beside all buttons";
  EXPECT_EQ(9, CountFrames());
}

TEST_F(ButtonBarTest, IsNotHitWhileHidden) {
  bar.Hide();
  EXPECT_EQ(ButtonBar::NO_BUTTON, bar.HitTest(window, 30, 30));
  EXPECT_FALSE(bar.IsVisible());
  bar.Show();
  bar.Hide();
  ButtonBar other(BarSide::TOP, countdown);
  other.Draw(theCanvas.GetPresentDC(), CLIENT);
  EXPECT_FALSE(other.IsVisible()) << "the touch did not start the countdown";
}

TEST_F(ButtonBarTest, IsHitOnItsEdgesAndWithoutPicture) {
  EXPECT_EQ(0, bar.HitTest(window, 5, 1));
  EXPECT_EQ(0, bar.HitTest(window, 55, 51));
  EXPECT_EQ(ButtonBar::NO_BUTTON, bar.HitTest(window, 56, 51));
  EXPECT_EQ(1, bar.HitTest(window, 65, 51)) << "an empty place can be tapped";
  EXPECT_EQ(ButtonBar::NO_BUTTON, bar.HitTest(window, 130, 20));
}

TEST_F(ButtonBarTest, HasTheSizeOfButtonsThatTheScreenAsksFor) {
  Open(480, 640, 192);
  // 100 x 100, 480 / 100 = 4 a line, 120 each.
  EXPECT_EQ(0, bar.HitTest(window, 10, 1));
  EXPECT_EQ(0, bar.HitTest(window, 110, 101));
  EXPECT_EQ(ButtonBar::NO_BUTTON, bar.HitTest(window, 111, 101));
}

TEST_F(ButtonBarTest, IsHitNowhereInAWindowThatIsGone) {
  EXPECT_EQ(ButtonBar::NO_BUTTON, bar.HitTest(reinterpret_cast<HWND>(12345), 30, 30));
}

TEST_F(ButtonBarTest, ForgetsPressedButtonsAtOnce) {
  EXPECT_FALSE(bar.ReleaseButtons());
  bar.Press(1);
  bar.Press(ButtonBar::NO_BUTTON);
  bar.Press(2);
  EXPECT_TRUE(bar.GetButton(1)->pressed);
  EXPECT_TRUE(bar.ReleaseButtons());
  EXPECT_FALSE(bar.ReleaseButtons());
}

TEST_F(ButtonBarTest, KnowsNoButtonOutOfRange) {
  EXPECT_EQ(nullptr, bar.GetButton(-1));
  EXPECT_EQ(nullptr, bar.GetButton(2));
  EXPECT_EQ(FEROLIN_BUTTON_CLOSE, bar.GetButton(0)->message.lParam);
  EXPECT_EQ(nullptr, bar.GetButton(1)->picture);
}

TEST_F(ButtonBarTest, DrawsPressedButtonsAtFullStrength) {
  const int released = DrawnBrightness();
  bar.Press(0);
  EXPECT_GT(DrawnBrightness(), released);
}

TEST_F(ButtonBarTest, DrawsItsLastFramesFainter) {
  const int full = DrawnBrightness();
  ASSERT_GT(full, 0);
  for (int countdown = 7; countdown >= 4; --countdown) {
    EXPECT_EQ(full, DrawnBrightness()) << countdown;
  }
  for (int countdown = 3; countdown >= 0; --countdown) {
    EXPECT_NEAR(countdown / 4.0, double(DrawnBrightness()) / full, 0.05) << countdown;
  }
}

}  // namespace

}  // namespace ferolin
