// Redraws on their own thread, after updates and touches.

#include <ferolin.h>

#include <atomic>
#include <functional>
#include <utility>

#include "render/Canvas.h"
#include "widgets/ViewTest.h"

namespace ferolin {

namespace {

constexpr int NO_PRIORITY = -1;

/// Called once, right before the next thread is started.
std::function<void()> beforeNextThread;
/// The thread started last, and its priority.
std::atomic<HANDLE> lastThread = nullptr;
std::atomic<int> lastPriority = NO_PRIORITY;
/// Number of redraws so far. Only redraw threads are given a priority.
std::atomic<int> redraws = 0;

}  // namespace

// The linker sends the program's calls through here. It prescribes the names.
extern "C" {

HANDLE WINAPI __real_CreateThread(SECURITY_ATTRIBUTES* attributes, DWORD stackSize,
                                  LPTHREAD_START_ROUTINE procedure, LPVOID argument, DWORD flags,
                                  LPDWORD threadId);
BOOL WINAPI __real_SetThreadPriority(HANDLE thread, int priority);

HANDLE WINAPI __wrap_CreateThread(SECURITY_ATTRIBUTES* attributes, DWORD stackSize,
                                  LPTHREAD_START_ROUTINE procedure, LPVOID argument, DWORD flags,
                                  LPDWORD threadId) {
  if (beforeNextThread) {
    std::exchange(beforeNextThread, nullptr)();
  }
  lastPriority = NO_PRIORITY;
  lastThread = __real_CreateThread(attributes, stackSize, procedure, argument, flags, threadId);
  return lastThread;
}

BOOL WINAPI __wrap_SetThreadPriority(HANDLE thread, int priority) {
  ++redraws;
  if (thread == lastThread) {
    lastPriority = priority;
  }
  return __real_SetThreadPriority(thread, priority);
}
}

namespace {

class Redrawing : public ViewTest {
 protected:
  void Redraw() {
    engine->RequestRedraw();
    engine->StopCallBack();
    engine->StartCallBack(window);
  }

  std::uint64_t Version() const { return handheld::WindowPixelsVersion(window); }

  bool HasButtons() {
    TakePosted();
    ::OnMouseDown(window, 210, 26);
    ::OnMouseUp(window, 210, 26);
    return !TakePosted().empty();
  }
};

class RedrawTest : public Redrawing {
 protected:
  RedrawTest() {
    Open(240, 320);
    Drive("120000", 50);
    engine->GetRedraw().SetCurRenderWidget(FEROLIN_VIEW_FULL_SCREEN_SPEED);
    Redraw();
  }

  /// Pixels of the view's last frame. Touches alone do not change them.
  std::vector<COLORREF> Frame() {
    engine->StopCallBack();
    std::vector<COLORREF> pixels;
    for (int y = 0; y < 320; y += 3) {
      for (int x = 0; x < 240; x += 3) {
        pixels.push_back(GetPixel(theCanvas.GetDrawingDC(), x, y));
      }
    }
    return pixels;
  }
};

TEST_F(RedrawTest, DrawsTheCurrentView) {
  const auto speed = Shown().rows;
  engine->GetRedraw().SetCurRenderWidget(FEROLIN_VIEW_SPEEDOMETER);
  Redraw();
  EXPECT_NE(speed, Shown().rows);
}

TEST_F(RedrawTest, FollowsAnAcceptedUpdate) {
  const std::uint64_t version = Version();
  engine->OnUpdate("$GPRMC,120001,A,5545.000,N,03737.000,E,54.0,0.0,230324,,*00");
  engine->StopCallBack();
  EXPECT_NE(version, Version());
}

TEST_F(RedrawTest, DoesNotFollowASentenceThatChangesNothing) {
  const std::uint64_t version = Version();
  engine->OnUpdate("$GPZDA,120001,23,03,2024,00,00*00");
  engine->StopCallBack();
  EXPECT_EQ(version, Version());
}

TEST_F(RedrawTest, IsDroppedWhileTheWindowIsHidden) {
  ShowWindow(window, SW_HIDE);
  TakePosted();
  const std::uint64_t version = Version();
  const int handles = handheld::HandlesAlive();
  engine->RequestRedraw();
  EXPECT_EQ(handles, handheld::HandlesAlive()) << "no thread was started";
  engine->OnUpdate("$GPRMC,120001,A,5545.000,N,03737.000,E,54.0,0.0,230324,,*00");
  EXPECT_EQ(std::vector<LPARAM>{FEROLIN_BUTTON_NONE}, TakePosted())
      << "but the host hears of the update";
  ShowWindow(window, SW_SHOW);
  EXPECT_EQ(version, Version());
}

TEST_F(RedrawTest, IsDroppedWithoutAWindowOrAView) {
  const std::uint64_t version = Version();
  const int handles = handheld::HandlesAlive();
  engine->GetRedraw().SetCurRenderWidget(FEROLIN_VIEW_NONE);
  engine->RequestRedraw();
  engine->GetRedraw().SetCurRenderWidget(engine->GetWidgets().GetCount());
  engine->RequestRedraw();
  engine->GetRedraw().SetCurRenderWidget(FEROLIN_VIEW_SPEEDOMETER);
  engine->GetRedraw().SetRenderWindow(nullptr);
  engine->RequestRedraw();
  EXPECT_EQ(handles, handheld::HandlesAlive());
  EXPECT_EQ(version, Version());
}

TEST_F(RedrawTest, ShowsTheButtonsOfAnotherView) {
  ShowBars(FEROLIN_VIEW_SPEEDOMETER, false);
  engine->GetRedraw().SetCurRenderWidget(FEROLIN_VIEW_SPEEDOMETER);
  Redraw();
  EXPECT_TRUE(HasButtons());
}

TEST_F(RedrawTest, LeavesTheButtonsOfTheSameViewHidden) {
  ShowBars(FEROLIN_VIEW_FULL_SCREEN_SPEED, false);
  Redraw();
  EXPECT_FALSE(HasButtons());
}

TEST_F(RedrawTest, RemembersAViewThatWasHiddenWhenItsTurnCame) {
  ShowBars(FEROLIN_VIEW_SPEEDOMETER, false);
  engine->GetRedraw().SetCurRenderWidget(FEROLIN_VIEW_SPEEDOMETER);
  const std::uint64_t version = Version();
  beforeNextThread = [&] { ShowWindow(window, SW_HIDE); };
  Redraw();
  EXPECT_EQ(version, Version()) << "nothing to be seen, nothing drawn";
  ShowWindow(window, SW_SHOW);
  Redraw();
  EXPECT_NE(version, Version());
  EXPECT_FALSE(HasButtons());
}

TEST_F(RedrawTest, ShowsTheButtonsOfAViewThatIsComeBackTo) {
  engine->GetRedraw().SetCurRenderWidget(FEROLIN_VIEW_SPEEDOMETER);
  Redraw();
  engine->GetRedraw().SetCurRenderWidget(FEROLIN_VIEW_FULL_SCREEN_SPEED);
  ShowBars(FEROLIN_VIEW_FULL_SCREEN_SPEED, false);
  Redraw();
  EXPECT_TRUE(HasButtons());
}

TEST_F(RedrawTest, RunsAtTheLowestPriority) {
  constexpr int LOWEST = 5;
  engine->RequestRedraw();
  EXPECT_EQ(LOWEST, lastPriority);
}

class FirstRedraw : public Redrawing, public testing::WithParamInterface<int> {
 protected:
  FirstRedraw() {
    Open(240, 320);
    Drive("120000", 50);
    engine->GetRedraw().SetCurRenderWidget(GetParam());
    ForgetTheLastView();
  }

  /// Tests that ran before in this process have drawn views. Redraws without a view once more.
  void ForgetTheLastView() {
    if (redraws > 0) {
      beforeNextThread = [&] { engine->GetRedraw().SetCurRenderWidget(FEROLIN_VIEW_NONE); };
      Redraw();
      engine->GetRedraw().SetCurRenderWidget(GetParam());
    }
  }
};

TEST_P(FirstRedraw, ShowsTheButtonsAlsoWhenTheyWereHiddenBefore) {
  ::OnDoubleClick();
  EXPECT_FALSE(HasButtons());
  Redraw();
  EXPECT_TRUE(HasButtons());
}

INSTANTIATE_TEST_SUITE_P(Views, FirstRedraw,
                         testing::Values(FEROLIN_VIEW_SPEEDOMETER, FEROLIN_VIEW_FULL_SCREEN_SPEED,
                                         FEROLIN_VIEW_SATELLITES, FEROLIN_VIEW_PATH,
                                         FEROLIN_VIEW_SPEED_CHART));

TEST_F(RedrawTest, FollowsAReleasedButtonButNoOtherTouch) {
  ShowBars(FEROLIN_VIEW_FULL_SCREEN_SPEED, true);
  const auto drawn = Frame();
  Drive("120001", 188);
  ::OnMouseDown(window, 120, 160);
  ::OnMouseUp(window, 120, 160);
  EXPECT_EQ(drawn, Frame()) << "a touch beside the buttons";
  ::OnMouseDown(window, 210, 26);
  EXPECT_EQ(drawn, Frame()) << "a button that is still held";
  ::OnMouseUp(window, 120, 160);
  EXPECT_NE(drawn, Frame());
}

TEST_F(RedrawTest, NeverRunsTwiceAtATime) {
  engine->GetRedraw().SetCurRenderWidget(FEROLIN_VIEW_SPEEDOMETER);
  Redraw();
  const int handles = handheld::HandlesAlive();
  const int objects = handheld::GdiObjectsAlive();
  struct Requests {
    static DWORD WINAPI Make(LPVOID engine) {
      for (int request = 0; request < 30; ++request) {
        static_cast<Engine*>(engine)->RequestRedraw();
      }
      return 0;
    }
  };
  const HANDLE reader = CreateThread(nullptr, 0, &Requests::Make, engine.get(), 0, nullptr);
  for (int touch = 0; touch < 30; ++touch) {
    const int view = touch % 2 == 0 ? FEROLIN_VIEW_SPEEDOMETER : FEROLIN_VIEW_FULL_SCREEN_SPEED;
    engine->GetRedraw().SetCurRenderWidget(view);
    ShowBars(view, true);
    ::OnMouseDown(window, 210, 26);
    ::OnMouseUp(window, 210, 26);
  }
  DWORD exitCode = STILL_ACTIVE;
  while (GetExitCodeThread(reader, &exitCode) && exitCode == STILL_ACTIVE) {
    Sleep(10);
  }
  CloseHandle(reader);
  engine->StopCallBack();
  EXPECT_EQ(handles, handheld::HandlesAlive());
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
}

TEST_F(RedrawTest, LeavesNothingBehindOverManyFrames) {
  engine->GetRedraw().SetCurRenderWidget(FEROLIN_VIEW_SPEEDOMETER);
  Redraw();
  const int objects = handheld::GdiObjectsAlive();
  for (int frame = 0; frame < 500; ++frame) {
    Draw(FEROLIN_VIEW_SPEEDOMETER);
    Draw(FEROLIN_VIEW_FULL_SCREEN_SPEED);
  }
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
}

TEST_F(RedrawTest, EndsBeforeStoppingReturnsAlsoWithoutAReader) {
  engine->StopCallBack();
  const int handles = handheld::HandlesAlive();
  engine->RequestRedraw();
  EXPECT_EQ(handles + 1, handheld::HandlesAlive());
  engine->StopCallBack();
  EXPECT_EQ(handles, handheld::HandlesAlive());
}

}  // namespace

}  // namespace ferolin
