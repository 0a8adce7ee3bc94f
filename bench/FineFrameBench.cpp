// How long a frame of each view takes when it is drawn in the screen's own pixels, on larger
// screens.

#include <benchmark/benchmark.h>
#include <handheld.h>
#include <windows.h>

#include <algorithm>
#include <array>

#include "LongDrive.h"
#include "ProgramFolder.h"
#include "engine/Engine.h"
#include "gps/FixRecord.h"
#include "widgets/Widget.h"

namespace ferolin {

namespace {

struct Screen {
  int width;
  int height;
  int dpi;
};

constexpr std::array SCREENS = {Screen{800, 480, 192}, Screen{1280, 720, 288},
                                Screen{1920, 1080, 432}};

/// An engine that has driven that many seconds, with a window that fills the screen.
class FineStage {
 public:
  FineStage(const Screen& screen, int points, bool isFine) {
    handheld::SetScreen(screen.width, screen.height, screen.dpi);
    handheld::SetFineDrawing(isFine);
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = DefWindowProcW;
    windowClass.lpszClassName = TEXT("FineBench");
    RegisterClassW(&windowClass);
    window = CreateWindowExW(0, TEXT("FineBench"), TEXT(""), WS_POPUP | WS_VISIBLE, 0, 0,
                             screen.width, screen.height, nullptr, nullptr, nullptr, nullptr);
    engine.AttachModule(program.GetModule());
    engine.GetRedraw().SetRenderWindow(window);
    engine.OnUpdate("$GPRMC,120000,A,4807.038,N,01131.000,E,0.0,084.4,230324,,*00");
    engine.OnUpdate("$GPRMC,120009,A,4807.138,N,01131.100,E,70.4,084.4,230324,,*00");
    for (int count = 0; count < points; ++count) {
      GoOn(false);
    }
  }
  ~FineStage() {
    handheld::SetFineDrawing(false);
    DestroyWindow(window);
  }

  /// Adds the next second of the drive, or one that lies a little north-east of all before.
  void GoOn(bool isNewCountry) {
    constexpr float STEP = 0.005F;
    TrackPoint point = drive.Next();
    if (isNewCountry) {
      point.latitude = corner.latitude + STEP;
      point.longitude = corner.longitude + STEP;
    }
    corner.latitude = std::max(corner.latitude, point.latitude);
    corner.longitude = std::max(corner.longitude, point.longitude);
    engine.GetFix().GetTrack().Append(point);
  }

  void Draw(int view) {
    Widget& widget = *engine.GetWidgets().Get(view);
    widget.Attach();
    widget.Draw(window);
  }

 private:
  ProgramFolder program;
  HWND window = nullptr;
  Engine engine;
  LongDrive drive = LongDrive(1);
  /// The northernmost and the easternmost place so far.
  TrackPoint corner = {};
};

void FineFrame(benchmark::State& state) {
  FineStage stage(SCREENS.at(static_cast<std::size_t>(state.range(1))), 900, state.range(2) != 0);
  const int view = static_cast<int>(state.range(0));
  stage.Draw(view);
  for (auto _ : state) {
    stage.Draw(view);
  }
}
BENCHMARK(FineFrame)
    ->ArgNames({"view", "screen", "fine"})
    ->ArgsProduct({{0, 1, 2, 3, 4}, {0, 1, 2}, {0, 1}})
    ->Unit(benchmark::kMicrosecond);

void FinePath(benchmark::State& state) {
  constexpr int PATH = 3;
  FineStage stage(SCREENS[0], static_cast<int>(state.range(0)), true);
  stage.Draw(PATH);
  for (auto _ : state) {
    stage.GoOn(state.range(1) != 0);
    stage.Draw(PATH);
  }
}
BENCHMARK(FinePath)
    ->ArgNames({"points", "growing"})
    ->ArgsProduct({{100, 9'000}, {0, 1}})
    ->Iterations(200)
    ->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace ferolin
