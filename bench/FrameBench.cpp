// How long a frame of each view takes, as it is presented (upright, turned), and its parts. 800 x
// 480.

#include <benchmark/benchmark.h>
#include <handheld.h>
#include <windows.h>

#include <algorithm>
#include <vector>

#include "LongDrive.h"
#include "ProgramFolder.h"
#include "engine/Engine.h"
#include "gps/FixRecord.h"
#include "render/Canvas.h"
#include "render/InvertFlags.h"
#include "widgets/Widget.h"

namespace ferolin {

namespace {

/// An engine in the middle of a drive, with a window to draw into.
class Stage {
 public:
  Stage() {
    handheld::SetScreen(800, 480, 96);
    handheld::SetBattery(0, 65);
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = DefWindowProcW;
    windowClass.lpszClassName = TEXT("Bench");
    RegisterClassW(&windowClass);
    window = CreateWindowExW(0, TEXT("Bench"), TEXT(""), WS_POPUP | WS_VISIBLE, 0, 0, 800, 480,
                             nullptr, nullptr, nullptr, nullptr);
    engine.AttachModule(program.GetModule());
    engine.GetRedraw().SetRenderWindow(window);
    engine.OnUpdate("$GPRMC,120000,A,4807.038,N,01131.000,E,0.0,084.4,230324,,*00");
    engine.OnUpdate("$GPRMC,120009,A,4807.138,N,01131.100,E,70.4,084.4,230324,,*00");
  }

  void Draw(int view) { engine.GetWidgets().Get(view)->Draw(window); }

  ProgramFolder program;
  HWND window = nullptr;
  Engine engine;
};

Stage& TheStage() {
  static Stage stage;
  return stage;
}

void Frame(benchmark::State& state) {
  Stage& stage = TheStage();
  theInvertFlags.orient = static_cast<std::uint8_t>(state.range(1));
  for (auto _ : state) {
    stage.Draw(static_cast<int>(state.range(0)));
  }
  theInvertFlags.orient = 0;
}
BENCHMARK(Frame)->ArgNames({"view", "turned"})->ArgsProduct({{0, 1, 2, 3, 4}, {0, 1}});

/// The path view of an engine that has driven `points` seconds, on roads `roadLength` times as long
/// as those of the long drive.
class LongTrack {
 public:
  explicit LongTrack(int points, double roadLength = 1) : drive(roadLength) {
    Stage& stage = TheStage();
    engine.AttachModule(stage.program.GetModule());
    engine.GetRedraw().SetRenderWindow(stage.window);
    for (int count = 0; count < points; ++count) {
      GoOn();
      if (count % POINTS_AN_UPDATE == 0) {
        View().Attach();
      }
    }
    Frame();
  }

  /// Adds the next point. With `away` it lies this far north-east of all points so far.
  void GoOn(float away = 0) {
    TrackPoint point = drive.Next();
    if (away > 0) {
      point.latitude = north + away;
      point.longitude = east + away;
    } else {
      north = std::max(north, point.latitude);
      east = std::max(east, point.longitude);
    }
    engine.GetFix().GetTrack().Append(point);
  }

  Widget& View() { return *engine.GetWidgets().Get(PATH); }

  /// The sixth and the fifth of the eight buttons at the right edge, counted from the bottom.
  void ZoomIn() { Press({774, 451 - 5 * 53}); }
  void ZoomOut() { Press({774, 451 - 4 * 53}); }

  void Frame() {
    View().Attach();
    View().Draw(TheStage().window);
  }

 private:
  void Press(POINT button) {
    View().ShowBars();
    View().OnMouseUp(TheStage().window, button);
    View().ToggleBars();
  }

  static constexpr int PATH = 3;
  static constexpr int POINTS_AN_UPDATE = 16;  // fewer than in a drive, to save time

  LongDrive drive;
  float north = 0;
  float east = 0;
  Engine engine;
};

/// One more second of driving over known roads.
void PathSteady(benchmark::State& state) {
  LongTrack track(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    track.GoOn();
    track.Frame();
  }
}

/// Drives into new country, so that the scale gets a little smaller with every frame.
void DriveIntoNewCountry(benchmark::State& state, double roadLength) {
  LongTrack track(static_cast<int>(state.range(0)), roadLength);
  for (int zoom = 1; zoom < state.range(1); zoom *= 2) {
    track.ZoomIn();
  }
  float away = 0;
  for (auto _ : state) {
    away += 0.005F;
    track.GoOn(away);
    track.Frame();
  }
}

void PathGrowing(benchmark::State& state) {
  DriveIntoNewCountry(state, 1);
}

/// The same after days in one town, whose roads are a fifth as long.
void PathOfATownGrowing(benchmark::State& state) {
  DriveIntoNewCountry(state, 0.2);
}

void Drag(benchmark::State& state, double roadLength) {
  LongTrack track(static_cast<int>(state.range(0)), roadLength);
  for (int zoom = 1; zoom < state.range(1); zoom *= 2) {
    track.ZoomIn();
  }
  const HWND window = TheStage().window;
  POINT finger = {300, 200};
  track.View().OnMouseDown(window, finger);
  int step = 2;
  for (auto _ : state) {
    finger.x += step;
    finger.y += step / 2;
    if (finger.x > 350 || finger.x < 250) {
      step = -step;
    }
    track.View().OnMouseMove(window, finger);
    track.Frame();
  }
  track.View().OnMouseUp(window, finger);
}

void PathDragged(benchmark::State& state) {
  Drag(state, 1);
}

void PathOfATownDragged(benchmark::State& state) {
  Drag(state, 0.2);
}

/// Goes to this zoom and half of it, in turn. The press of the button is not measured.
void PathZoomed(benchmark::State& state) {
  LongTrack track(static_cast<int>(state.range(0)));
  for (int zoom = 1; zoom < state.range(1); zoom *= 2) {
    track.ZoomIn();
  }
  bool isIn = true;
  for (auto _ : state) {
    state.PauseTiming();
    if (isIn) {
      track.ZoomOut();
    } else {
      track.ZoomIn();
    }
    isIn = !isIn;
    state.ResumeTiming();
    track.Frame();
  }
}

constexpr std::int64_t SHORT = 1'000;
constexpr std::int64_t LONG_DRIVE = 100'000;
constexpr std::int64_t LONGEST = 1'000'000;

BENCHMARK(PathSteady)
    ->ArgName("points")
    ->Arg(SHORT)
    ->Arg(LONG_DRIVE)
    ->Arg(LONGEST)
    ->Iterations(500);
BENCHMARK(PathGrowing)
    ->ArgNames({"points", "zoom"})
    ->ArgsProduct({{SHORT, LONG_DRIVE, LONGEST}, {1, 2, 4, 16}})
    ->Iterations(200);
BENCHMARK(PathOfATownGrowing)
    ->ArgNames({"points", "zoom"})
    ->ArgsProduct({{LONG_DRIVE, LONGEST}, {1, 2, 4, 16}})
    ->Iterations(200);
BENCHMARK(PathDragged)
    ->ArgNames({"points", "zoom"})
    ->ArgsProduct({{SHORT, LONG_DRIVE, LONGEST}, {1, 2, 4, 16, 64}})
    ->Iterations(200);
BENCHMARK(PathOfATownDragged)
    ->ArgNames({"points", "zoom"})
    ->ArgsProduct({{LONG_DRIVE, LONGEST}, {1, 2, 4, 16}})
    ->Iterations(200);
BENCHMARK(PathZoomed)
    ->ArgNames({"points", "zoom"})
    ->ArgsProduct({{SHORT, LONG_DRIVE, LONGEST}, {2, 4, 64}})
    ->Iterations(200);

void Background(benchmark::State& state) {
  Stage& stage = TheStage();
  Canvas canvas;
  canvas.BeginFrame(stage.window);
  for (auto _ : state) {
    canvas.FillBackground(RGB(1, 2, 3));
  }
  canvas.ReleaseAll();
}
BENCHMARK(Background);

void Present(benchmark::State& state) {
  Stage& stage = TheStage();
  Canvas canvas;
  canvas.BeginFrame(stage.window);
  for (auto _ : state) {
    canvas.PresentTransformed();
    canvas.FlushToWindow();
  }
  canvas.ReleaseAll();
}
BENCHMARK(Present);

/// What presenting can never be faster than: one copy of all pixels of a window.
void CopyOfTheWindow(benchmark::State& state) {
  constexpr std::size_t PIXELS = 800 * 480;
  const std::vector<std::uint32_t> from(PIXELS, 1);
  std::vector<std::uint32_t> to(PIXELS);
  for (auto _ : state) {
    std::copy(from.begin(), from.end(), to.begin());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(CopyOfTheWindow);

void Text(benchmark::State& state) {
  Stage& stage = TheStage();
  Canvas canvas;
  canvas.BeginFrame(stage.window);
  const Font font = canvas.MakeFont(TEXT("LCD"), 170, 0);
  for (auto _ : state) {
    canvas.DrawText(font.get(), TEXT("128"), 100, 100, RGB(255, 255, 255));
  }
  canvas.ReleaseAll();
}
BENCHMARK(Text);

}  // namespace

}  // namespace ferolin
