#include <ferolin.h>

#include <cstring>

#include "widgets/ViewTest.h"
#include "widgets/Widget.h"

namespace ferolin {

namespace {

using Codes = std::vector<LPARAM>;

class WidgetTest : public ViewTest {
 protected:
  void OpenAttached(int width, int height, int dpi = 96) {
    Open(width, height, dpi);
    engine->GetRedraw().SetCurRenderWidget(FEROLIN_VIEW_FULL_SCREEN_SPEED);
    Drive("120000", 50);
    ShowBars(FEROLIN_VIEW_FULL_SCREEN_SPEED, true);
    TakePosted();
  }

  /// Codes posted because of a tap.
  Codes Tap(int x, int y) {
    ::OnMouseDown(window, x, y);
    ::OnMouseUp(window, x, y);
    engine->StopCallBack();
    engine->StartCallBack(window);
    return TakePosted();
  }

  Codes Swipe(HWND touched, POINT from, POINT to) {
    ShowBars(FEROLIN_VIEW_FULL_SCREEN_SPEED, false);
    ::OnMouseDown(touched, from.x, from.y);
    ::OnMouseMove(touched, to.x, to.y);
    ::OnMouseUp(touched, to.x, to.y);
    return TakePosted();
  }
};

TEST_F(WidgetTest, ListsTheViewsInOrder) {
  Load();
  const char* const views[] = {"Speedometer", "Speed", "Sattelites", "Distance", "Speed chart"};
  ASSERT_EQ(std::size(views), static_cast<std::size_t>(GetWidgetsCount()));
  for (int index = 0; index < GetWidgetsCount(); ++index) {
    char name[64];
    EXPECT_EQ(std::strlen(views[index]),
              static_cast<std::size_t>(GetWidgetName(index, name, sizeof name)));
    EXPECT_STREQ(views[index], name);
  }
}

TEST_F(WidgetTest, GivesANameOnlyWhenItFits) {
  Load();
  char name[12] = "unchanged";
  EXPECT_EQ(0, GetWidgetName(0, name, 11));
  EXPECT_STREQ("unchanged", name);
  EXPECT_EQ(11, GetWidgetName(0, name, 12));
  EXPECT_EQ(0, GetWidgetName(-1, name, 12));
  EXPECT_EQ(0, GetWidgetName(GetWidgetsCount(), name, 12));
}

TEST_F(WidgetTest, PostsTheCodesOfTheButtonsInPortrait) {
  OpenAttached(240, 320);
  EXPECT_EQ(Codes{FEROLIN_BUTTON_RESET_ALL}, Tap(30, 26));
  EXPECT_EQ(Codes{FEROLIN_BUTTON_NONE}, Tap(90, 26)) << "the place of the SMS button";
  EXPECT_EQ(Codes{FEROLIN_BUTTON_OPTIONS}, Tap(150, 26));
  EXPECT_EQ(Codes{FEROLIN_BUTTON_CLOSE}, Tap(210, 26));
  EXPECT_EQ(Codes{FEROLIN_BUTTON_NEXT_VIEW}, Tap(210, 294));
  EXPECT_EQ(Codes{FEROLIN_BUTTON_FLIP_HORIZONTALLY}, Tap(150, 294));
  EXPECT_EQ(Codes{FEROLIN_BUTTON_ROTATE_SCREEN}, Tap(90, 294));
  EXPECT_EQ(Codes{FEROLIN_BUTTON_PREVIOUS_VIEW}, Tap(30, 294));
}

TEST_F(WidgetTest, PostsTheCodesOfTheButtonsInLandscape) {
  OpenAttached(320, 240);
  EXPECT_EQ(Codes{FEROLIN_BUTTON_RESET_ALL}, Tap(26, 210));
  EXPECT_EQ(Codes{FEROLIN_BUTTON_OPTIONS}, Tap(26, 90));
  EXPECT_EQ(Codes{FEROLIN_BUTTON_CLOSE}, Tap(26, 30));
  EXPECT_EQ(Codes{FEROLIN_BUTTON_NEXT_VIEW}, Tap(294, 210));
  EXPECT_EQ(Codes{FEROLIN_BUTTON_FLIP_HORIZONTALLY}, Tap(294, 150));
  EXPECT_EQ(Codes{FEROLIN_BUTTON_ROTATE_SCREEN}, Tap(294, 90));
  EXPECT_EQ(Codes{FEROLIN_BUTTON_PREVIOUS_VIEW}, Tap(294, 30));
}

TEST_F(WidgetTest, TakesASquareWindowForAnUprightOne) {
  OpenAttached(240, 240);
  EXPECT_EQ(Codes{FEROLIN_BUTTON_CLOSE}, Tap(210, 26));
  EXPECT_EQ(Codes{FEROLIN_BUTTON_PREVIOUS_VIEW}, Tap(30, 214));
}

TEST_F(WidgetTest, PostsTheEnginesMessageToTheHost) {
  OpenAttached(240, 320);
  ::OnMouseUp(window, 210, 26);
  const std::vector<MSG> posted = handheld::MessagesPosted();
  ASSERT_EQ(1u, posted.size());
  EXPECT_EQ(window, posted[0].hwnd);
  EXPECT_EQ(engine->GetMessageId(), posted[0].message);
  EXPECT_EQ(0u, posted[0].wParam);
  EXPECT_EQ(FEROLIN_BUTTON_CLOSE, posted[0].lParam);
}

TEST_F(WidgetTest, PostsAnEmptyMessageForThePlaceOfAMissingSmsLibrary) {
  OpenAttached(240, 320);
  ::OnMouseUp(window, 90, 26);
  const std::vector<MSG> posted = handheld::MessagesPosted();
  ASSERT_EQ(1u, posted.size());
  EXPECT_EQ(0u, posted[0].message);
}

TEST_F(WidgetTest, HasAnSmsButtonWithTheSmsLibrary) {
  std::filesystem::create_symlink(SMS_LIBRARY, folder.Path("libParlex.so"));
  OpenAttached(240, 320);
  EXPECT_EQ(Codes{FEROLIN_BUTTON_SEND_SMS}, Tap(90, 26));
}

TEST_F(WidgetTest, PostsNothingToAHostThatHasStopped) {
  OpenAttached(240, 320);
  engine->StopCallBack();
  ::OnMouseDown(window, 210, 26);
  ::OnMouseUp(window, 210, 26);
  engine->StopCallBack();
  EXPECT_TRUE(TakePosted().empty());
}

TEST_F(WidgetTest, HasNoButtonsBeforeTheFirstUpdate) {
  Open(240, 320);
  engine->GetRedraw().SetCurRenderWidget(FEROLIN_VIEW_FULL_SCREEN_SPEED);
  ShowBars(FEROLIN_VIEW_FULL_SCREEN_SPEED, true);
  EXPECT_TRUE(Tap(210, 26).empty());
}

TEST_F(WidgetTest, IsNotHitWhileItsBarsAreHidden) {
  OpenAttached(240, 320);
  ShowBars(FEROLIN_VIEW_FULL_SCREEN_SPEED, false);
  EXPECT_TRUE(Tap(210, 26).empty());
  EXPECT_TRUE(Tap(210, 26).empty()) << "a tap does not bring them back";
}

TEST_F(WidgetTest, DoubleClickTogglesBothBars) {
  OpenAttached(240, 320);
  ::OnDoubleClick();
  EXPECT_TRUE(Tap(210, 26).empty());
  EXPECT_TRUE(Tap(210, 294).empty());
  ::OnDoubleClick();
  EXPECT_EQ(Codes{FEROLIN_BUTTON_CLOSE}, Tap(210, 26));
  EXPECT_EQ(Codes{FEROLIN_BUTTON_NEXT_VIEW}, Tap(210, 294));
}

TEST_F(WidgetTest, ShowsTheBarsAgainAfterAButton) {
  OpenAttached(240, 320);
  for (int frame = 0; frame < 4; ++frame) {
    Draw(FEROLIN_VIEW_FULL_SCREEN_SPEED);
  }
  ASSERT_EQ(Codes{FEROLIN_BUTTON_CLOSE}, Tap(210, 26));
  // The redraw after the tap may come before or after that. Four frames are left in both cases.
  for (int frame = 0; frame < 3; ++frame) {
    Draw(FEROLIN_VIEW_FULL_SCREEN_SPEED);
  }
  EXPECT_EQ(Codes{FEROLIN_BUTTON_NEXT_VIEW}, Tap(210, 294));
}

TEST_F(WidgetTest, LiftingElsewherePostsWhatLiesThere) {
  OpenAttached(240, 320);
  ::OnMouseDown(window, 30, 26);
  ::OnMouseUp(window, 90, 294);
  EXPECT_EQ(Codes{FEROLIN_BUTTON_ROTATE_SCREEN}, TakePosted());
}

TEST_F(WidgetTest, DrawsAPressedButtonAtOnceAndReleasesIt) {
  OpenAttached(240, 320);
  Draw(FEROLIN_VIEW_FULL_SCREEN_SPEED);
  ShowBars(FEROLIN_VIEW_FULL_SCREEN_SPEED, true);
  ::OnMouseDown(window, 120, 200);
  const auto released = Shown().rows;
  ::OnMouseDown(window, 210, 26);
  const auto pressed = Shown().rows;
  EXPECT_NE(released, pressed);
  ::OnMouseUp(window, 120, 200);
  engine->StopCallBack();
  ShowBars(FEROLIN_VIEW_FULL_SCREEN_SPEED, true);
  ::OnMouseDown(window, 120, 200);
  EXPECT_EQ(released, Shown().rows);
}

TEST_F(WidgetTest, PresentsAnewWhenTheFingerIsLifted) {
  OpenAttached(240, 320);
  Draw(FEROLIN_VIEW_FULL_SCREEN_SPEED);
  ShowBars(FEROLIN_VIEW_FULL_SCREEN_SPEED, true);
  ::OnMouseDown(window, 120, 200);
  const auto withBars = Shown().rows;
  ::OnDoubleClick();
  EXPECT_EQ(withBars, Shown().rows);
  // No button was pressed, so there is no redraw.
  ::OnMouseUp(window, 120, 200);
  EXPECT_NE(withBars, Shown().rows);
}

struct SwipeCase {
  const char* name;
  POINT from, to;
  Codes expected;
};

class Swipes : public WidgetTest, public testing::WithParamInterface<SwipeCase> {};

TEST_P(Swipes, PostTheirDirection) {
  OpenAttached(240, 320);
  EXPECT_EQ(GetParam().expected, Swipe(window, GetParam().from, GetParam().to)) << GetParam().name;
}

INSTANTIATE_TEST_SUITE_P(
    All, Swipes,
    testing::Values(
        SwipeCase{"to the right", {20, 160}, {141, 160}, {FEROLIN_BUTTON_PREVIOUS_VIEW}},
        SwipeCase{"to the left", {220, 160}, {99, 160}, {FEROLIN_BUTTON_NEXT_VIEW}},
        SwipeCase{"exactly half of the width", {20, 160}, {140, 160}, {}},
        SwipeCase{"exactly half of it to the left", {220, 160}, {100, 160}, {}},
        SwipeCase{"as far down as across", {20, 80}, {200, 260}, {}},
        SwipeCase{"further down than across", {20, 20}, {200, 300}, {}},
        SwipeCase{
            "nearly as far up as across", {20, 270}, {200, 91}, {FEROLIN_BUTTON_PREVIOUS_VIEW}},
        SwipeCase{"a tap", {120, 160}, {120, 160}, {}}));

TEST_F(WidgetTest, MeasuresASwipeByTheWindowThatItIsMadeIn) {
  OpenAttached(240, 320);
  // Half of the render window is 120.
  for (const auto& [width, distance, expected] :
       {std::tuple(100, 51, Codes{FEROLIN_BUTTON_PREVIOUS_VIEW}), std::tuple(480, 141, Codes{})}) {
    const HWND touched = CreateWindowExW(0, TEXT("ViewTest"), TEXT(""), WS_VISIBLE, 0, 0, width,
                                         320, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(expected, Swipe(touched, {20, 160}, {20 + distance, 160})) << width;
    DestroyWindow(touched);
  }
}

TEST_F(WidgetTest, AButtonUnderTheFingersEndCountsMoreThanASwipe) {
  OpenAttached(240, 320);
  ::OnMouseDown(window, 10, 290);
  ::OnMouseUp(window, 210, 290);
  EXPECT_EQ(Codes{FEROLIN_BUTTON_NEXT_VIEW}, TakePosted())
      << "the right arrow, not a swipe to the right";
}

TEST_F(WidgetTest, OnClickDoesNothing) {
  OpenAttached(240, 320);
  Draw(FEROLIN_VIEW_FULL_SCREEN_SPEED);
  const auto before = Shown().rows;
  ::OnClick(window, 210, 26);
  EXPECT_TRUE(TakePosted().empty());
  EXPECT_EQ(before, Shown().rows);
}

TEST_F(WidgetTest, IgnoresTouchesWithoutACurrentView) {
  OpenAttached(240, 320);
  for (const int index : {-1, engine->GetWidgets().GetCount(), 1000}) {
    engine->GetRedraw().SetCurRenderWidget(index);
    EXPECT_TRUE(Tap(210, 26).empty());
    ::OnMouseMove(window, 1, 1);
    ::OnDoubleClick();
  }
}

TEST_F(WidgetTest, TakesTouchesOfAWindowThatIsGone) {
  OpenAttached(240, 320);
  const HWND gone = reinterpret_cast<HWND>(4711);
  ::OnMouseDown(gone, 210, 26);
  ::OnMouseUp(gone, 210, 26);
  EXPECT_TRUE(TakePosted().empty());
}

TEST_F(WidgetTest, DrawsNoBarsIntoAHiddenWindow) {
  OpenAttached(240, 320);
  ShowWindow(window, SW_HIDE);
  for (int frame = 0; frame < 20; ++frame) {
    Draw(FEROLIN_VIEW_FULL_SCREEN_SPEED);
  }
  ShowWindow(window, SW_SHOW);
  EXPECT_EQ(Codes{FEROLIN_BUTTON_CLOSE}, Tap(210, 26)) << "they have not counted down";
}

TEST_F(WidgetTest, KeepsItsButtonsFromUpdateToUpdate) {
  OpenAttached(240, 320);
  const int objects = handheld::GdiObjectsAlive();
  for (int update = 0; update < 10; ++update) {
    Drive("120001", 50);
  }
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
}

}  // namespace

}  // namespace ferolin
