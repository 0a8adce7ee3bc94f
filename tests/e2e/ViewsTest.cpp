// What the engine draws into the window, and what a stylus on it does.

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>

#include "EngineTest.h"

namespace e2e {

namespace {

using Picture = Device::Picture;

constexpr int WIDTH = 240;
constexpr int HEIGHT = 320;
/// Edge of a button; a bar lies one pixel from the edge of the window.
constexpr int BUTTON = 50;
constexpr int BAR_END = 1 + BUTTON;

constexpr std::uint32_t WHITE = 0x00FFFFFF;

/// `wanted(x, y)` tells which pixel of `picture` lies there.
Picture Rearranged(const Picture& picture, int width, int height,
                   const std::function<POINT(int, int)>& wanted) {
  Picture result = {width, height, {}};
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const POINT from = wanted(x, y);
      result.pixels.push_back(
          picture.pixels.at(static_cast<std::size_t>(from.y * picture.width + from.x)));
    }
  }
  return result;
}

Picture Mirrored(const Picture& picture) {
  return Rearranged(picture, picture.width, picture.height, [&](int x, int y) {
    return POINT{picture.width - 1 - x, y};
  });
}

Picture UpsideDown(const Picture& picture) {
  return Rearranged(picture, picture.width, picture.height, [&](int x, int y) {
    return POINT{x, picture.height - 1 - y};
  });
}

Picture TurnedClockwise(const Picture& picture) {
  return Rearranged(picture, picture.height, picture.width, [&](int x, int y) {
    return POINT{y, picture.height - 1 - x};
  });
}

Picture Inverted(Picture picture) {
  for (std::uint32_t& pixel : picture.pixels) {
    pixel ^= WHITE;
  }
  return picture;
}

bool HasSeveralColors(const Picture& picture) {
  return std::ranges::any_of(picture.pixels,
                             [&](std::uint32_t pixel) { return pixel != picture.pixels[0]; });
}

class Views : public EngineTest {
 protected:
  Views() { host = std::make_unique<HostWindow>(WIDTH, HEIGHT); }

  void StartWith(int view) {
    InstallPictures();
    Load();
    engine->SetRenderWindow(host->Get());
    engine->SetCurRenderWidget(view);
    Start();
  }

  /// The frame that an update draws.
  Picture Draw(const std::string& sentence = Rmc("120000", "A", "30")) {
    return FrameOf([&] { EXPECT_EQ(1U, Send(sentence)); });
  }

  /// Calls `act` and waits for the frame that follows from it.
  Picture FrameOf(const std::function<void()>& act) {
    const HWND window = engine->GetRenderWindow();
    const std::uint64_t before = device->GetPictureVersion(window);
    act();
    WaitFor([&] { return device->GetPictureVersion(window) != before; });
    EXPECT_NE(before, device->GetPictureVersion(window)) << "nothing was drawn";
    return device->GetPicture(window);
  }

  static void WaitFor(const std::function<bool()>& isDone) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!isDone() && std::chrono::steady_clock::now() < deadline) {
      Sleep(1);
    }
  }

  /// A frame without the buttons: flags do not transform these.
  Picture DrawBare() {
    Draw();
    engine->OnDoubleClick();
    return ShowAgain();
  }

  /// The last frame presented again with the current flags, by a touch beside all buttons.
  Picture ShowAgain() {
    engine->OnMouseDown(host->Get(), WIDTH / 2, HEIGHT / 2);
    engine->OnMouseUp(host->Get(), WIDTH / 2, HEIGHT / 2);
    return device->GetPicture(host->Get());
  }

  /// Strokes from one point to another and returns the codes posted to the host.
  std::vector<LPARAM> Stroke(POINT from, POINT to) {
    host->Take(engine->GetWndMessageID());
    engine->OnMouseDown(host->Get(), from.x, from.y);
    engine->OnMouseMove(host->Get(), to.x, to.y);
    engine->OnMouseUp(host->Get(), to.x, to.y);
    std::vector<LPARAM> codes;
    for (const Notification& notification : host->Take(engine->GetWndMessageID())) {
      EXPECT_EQ(0U, notification.wParam);
      codes.push_back(notification.lParam);
    }
    return codes;
  }

  std::vector<LPARAM> Tap(int x, int y) { return Stroke({x, y}, {x, y}); }

  void InstallPictures() {
    for (const auto& entry : std::filesystem::directory_iterator(ASSETS_FOLDER "/Pics")) {
      if (!entry.is_regular_file()) {
        continue;
      }
      std::ifstream file(entry.path(), std::ios::binary);
      device->WriteFile("Pics/" + entry.path().filename().string(),
                        std::string(std::istreambuf_iterator<char>(file), {}));
    }
  }
};

TEST_F(Views, AnUpdateDrawsAFrameThatFillsTheWindow) {
  StartWith(FEROLIN_VIEW_SPEEDOMETER);
  EXPECT_EQ(0U, device->GetPicture(host->Get()).pixels.size());
  const Picture frame = Draw();
  EXPECT_EQ(WIDTH, frame.width);
  EXPECT_EQ(HEIGHT, frame.height);
  EXPECT_TRUE(HasSeveralColors(frame));
}

TEST_F(Views, AnUnloadFreesTheDrawingSurface) {
  const int before = device->GetDrawingObjectsAlive();
  StartWith(FEROLIN_VIEW_SPEEDOMETER);
  Draw();
  EXPECT_LT(before, device->GetDrawingObjectsAlive());
  Unload();
  EXPECT_EQ(before, device->GetDrawingObjectsAlive());
}

TEST_F(Views, EveryViewDraws) {
  StartWith(FEROLIN_VIEW_NONE);
  ASSERT_GE(engine->GetWidgetsCount(), 2);
  for (int view = 0; view < engine->GetWidgetsCount(); ++view) {
    engine->SetCurRenderWidget(view);
    EXPECT_TRUE(HasSeveralColors(Draw())) << engine->WidgetName(view);
  }
}

TEST_F(Views, AFrameFollowsTheSpeed) {
  StartWith(FEROLIN_VIEW_FULL_SCREEN_SPEED);
  const Picture slow = Draw(Rmc("120000", "A", "5.4"));     // 10 km/h
  const Picture fast = Draw(Rmc("120001", "A", "53.996"));  // 100 km/h
  EXPECT_NE(slow, fast);
}

TEST_F(Views, TheNextUpdateDrawsTheViewChosen) {
  StartWith(FEROLIN_VIEW_FULL_SCREEN_SPEED);
  const Picture number = Draw();
  const std::uint64_t version = device->GetPictureVersion(host->Get());
  engine->SetCurRenderWidget(FEROLIN_VIEW_SPEEDOMETER);
  EXPECT_EQ(version, device->GetPictureVersion(host->Get()));
  EXPECT_NE(number, Draw());
}

TEST_F(Views, NothingIsDrawnWithoutAView) {
  StartWith(FEROLIN_VIEW_NONE);
  EXPECT_EQ(1U, Send(Rmc("120000", "A", "30")));
  engine->SetCurRenderWidget(engine->GetWidgetsCount());
  EXPECT_EQ(1U, Send(Rmc("120001", "A", "30")));
  engine->StopCallBack();
  EXPECT_EQ(0U, device->GetPictureVersion(host->Get()));
}

TEST_F(Views, NothingIsDrawnIntoAHiddenWindow) {
  StartWith(FEROLIN_VIEW_SPEEDOMETER);
  ShowWindow(host->Get(), SW_HIDE);
  EXPECT_EQ(1U, Send(Rmc("120000", "A", "30")));
  engine->StopCallBack();
  EXPECT_EQ(0U, device->GetPictureVersion(host->Get()));
}

TEST_F(Views, AWindowThatIsGoneStopsNothing) {
  StartWith(FEROLIN_VIEW_SPEEDOMETER);
  auto shown = std::make_unique<HostWindow>(WIDTH, HEIGHT);
  engine->SetRenderWindow(shown->Get());
  Draw();
  shown.reset();
  EXPECT_EQ(1U, Send(Rmc("120001", "A", "30")));
  engine->SetRenderWindow(host->Get());
  EXPECT_TRUE(HasSeveralColors(Draw(Rmc("120002", "A", "30"))));
}

TEST_F(Views, FlippedFramesAreMirrorImages) {
  StartWith(FEROLIN_VIEW_NONE);
  for (int view = 0; view < engine->GetWidgetsCount(); ++view) {
    engine->SetCurRenderWidget(view);
    const Picture upright = DrawBare();
    EXPECT_TRUE(HasSeveralColors(upright)) << view;
    engine->SetInvertHorz(1);
    EXPECT_EQ(Mirrored(upright), ShowAgain()) << view;
    engine->SetInvertVert(1);
    EXPECT_EQ(UpsideDown(Mirrored(upright)), ShowAgain()) << view;
    engine->SetInvertHorz(0);
    EXPECT_EQ(UpsideDown(upright), ShowAgain()) << view;
    engine->SetInvertVert(0);
  }
}

TEST_F(Views, InvertedFramesAreTheNegative) {
  StartWith(FEROLIN_VIEW_SPEEDOMETER);
  const Picture upright = DrawBare();
  engine->SetInvertColor(1);
  EXPECT_EQ(Inverted(upright), ShowAgain());
  engine->SetInvertVert(1);
  EXPECT_EQ(Inverted(UpsideDown(upright)), ShowAgain());
}

TEST_F(Views, ATurnedFrameIsTheUprightOneTurnedClockwise) {
  HostWindow lying(HEIGHT, WIDTH);
  StartWith(FEROLIN_VIEW_FULL_SCREEN_SPEED);
  const Picture upright = DrawBare();
  engine->SetRenderWindow(lying.Get());
  engine->SetInvertOrient(1);
  const Picture turned = Draw();
  EXPECT_EQ(HEIGHT, turned.width);
  EXPECT_EQ(TurnedClockwise(upright), turned);
  engine->SetInvertHorz(1);
  EXPECT_EQ(Mirrored(TurnedClockwise(upright)), Draw());
}

TEST_F(Views, ButtonsShowForAWhileAndUntilADoubleClick) {
  StartWith(FEROLIN_VIEW_FULL_SCREEN_SPEED);
  const Picture withBars = Draw();
  engine->OnDoubleClick();
  const Picture bare = ShowAgain();
  const auto differ = [&](int firstRow, int lastRow) {
    const auto first = static_cast<std::ptrdiff_t>(firstRow) * WIDTH;
    const auto last = static_cast<std::ptrdiff_t>(lastRow) * WIDTH;
    return !std::equal(bare.pixels.begin() + first, bare.pixels.begin() + last,
                       withBars.pixels.begin() + first);
  };
  EXPECT_TRUE(differ(0, BAR_END));
  EXPECT_FALSE(differ(BAR_END, HEIGHT - BAR_END));
  EXPECT_TRUE(differ(HEIGHT - BAR_END, HEIGHT));
}

/// Four buttons to a bar of 240 pixels: each stands in the middle of 60.
TEST_F(Views, ATapOnAButtonPostsItsCode) {
  StartWith(FEROLIN_VIEW_SPEEDOMETER);
  Draw();
  constexpr int TOP = BAR_END / 2;
  constexpr int BOTTOM = HEIGHT - BAR_END / 2;
  EXPECT_EQ(std::vector<LPARAM>{FEROLIN_BUTTON_RESET_ALL}, Tap(30, TOP));
  EXPECT_EQ(std::vector<LPARAM>{FEROLIN_BUTTON_OPTIONS}, Tap(150, TOP));
  EXPECT_EQ(std::vector<LPARAM>{FEROLIN_BUTTON_CLOSE}, Tap(210, TOP));
  EXPECT_EQ(std::vector<LPARAM>{FEROLIN_BUTTON_NEXT_VIEW}, Tap(210, BOTTOM));
  EXPECT_EQ(std::vector<LPARAM>{FEROLIN_BUTTON_FLIP_HORIZONTALLY}, Tap(150, BOTTOM));
  EXPECT_EQ(std::vector<LPARAM>{FEROLIN_BUTTON_ROTATE_SCREEN}, Tap(90, BOTTOM));
  EXPECT_EQ(std::vector<LPARAM>{FEROLIN_BUTTON_PREVIOUS_VIEW}, Tap(30, BOTTOM));
}

TEST_F(Views, ATapBesideTheButtonsOrOnHiddenOnesPostsNothing) {
  StartWith(FEROLIN_VIEW_SPEEDOMETER);
  Draw();
  EXPECT_EQ(std::vector<LPARAM>{}, Tap(WIDTH / 2, HEIGHT / 2));
  engine->OnDoubleClick();
  EXPECT_EQ(std::vector<LPARAM>{}, Tap(30, BAR_END / 2));
}

TEST_F(Views, ATapPostsNothingToAHostThatHasStopped) {
  StartWith(FEROLIN_VIEW_SPEEDOMETER);
  Draw();
  constexpr int TOP = BAR_END / 2;
  EXPECT_EQ(std::vector<LPARAM>{FEROLIN_BUTTON_OPTIONS}, Tap(150, TOP));
  EXPECT_EQ(1, engine->StartCallBack(nullptr));
  EXPECT_EQ(std::vector<LPARAM>{}, Tap(150, TOP));
  EXPECT_EQ(1, engine->StartCallBack(host->Get()));
  EXPECT_EQ(std::vector<LPARAM>{FEROLIN_BUTTON_OPTIONS}, Tap(150, TOP));
  EXPECT_EQ(1, engine->StopCallBack());
  EXPECT_EQ(std::vector<LPARAM>{}, Tap(150, TOP));
}

TEST_F(Views, ASwipeAcrossMoreThanHalfOfTheWindowTurnsTheView) {
  StartWith(FEROLIN_VIEW_SPEEDOMETER);
  Draw();
  EXPECT_EQ(std::vector<LPARAM>{FEROLIN_BUTTON_NEXT_VIEW}, Stroke({200, 160}, {79, 160}));
  EXPECT_EQ(std::vector<LPARAM>{FEROLIN_BUTTON_PREVIOUS_VIEW}, Stroke({40, 160}, {161, 160}));
  EXPECT_EQ(std::vector<LPARAM>{}, Stroke({200, 160}, {80, 160}));
  EXPECT_EQ(std::vector<LPARAM>{}, Stroke({200, 100}, {70, 240}));
}

/// A path moved with the finger equals one drawn at its new place.
TEST_F(Views, ThePathFollowsTheFinger) {
  StartWith(FEROLIN_VIEW_PATH);
  for (int second = 0; second < 60; ++second) {
    // A winding road: a hundredth of a minute to the east each second, up and down. The buttons
    // are hidden at its end.
    const auto two = [](int value) { return (value < 10 ? "0" : "") + std::to_string(value); };
    Draw(Sentence("GPRMC,1200" + two(second) + ",A,4807." + two(38 + second * second % 29) +
                  "0,N,01131." + two(second) + "0,E,36.0,084.4,230324,,"));
  }
  const Picture before = ShowAgain();
  engine->OnMouseDown(host->Get(), 100, 80);
  Picture dragged;
  for (const POINT to : {POINT{104, 81}, POINT{125, 100}, POINT{120, 97}}) {
    dragged = FrameOf([&] { engine->OnMouseMove(host->Get(), to.x, to.y); });
  }
  engine->OnMouseUp(host->Get(), 120, 97);
  EXPECT_NE(before, dragged);

  // Zooming in and out again draws the whole path anew.
  constexpr int UPPER_ROW = HEIGHT - BAR_END - BUTTON / 2;
  engine->OnDoubleClick();
  EXPECT_EQ(std::vector<LPARAM>{FEROLIN_BUTTON_ZOOM_IN}, Tap(150, UPPER_ROW));
  EXPECT_EQ(std::vector<LPARAM>{FEROLIN_BUTTON_ZOOM_OUT}, Tap(210, UPPER_ROW));
  engine->OnDoubleClick();
  WaitFor([&] { return ShowAgain() == dragged; });
  EXPECT_EQ(dragged, ShowAgain());
}

}  // namespace

}  // namespace e2e
