// How long a frame of the speed chart takes, by the length of the track and the zoom. 800 x 480.

#include <benchmark/benchmark.h>
#include <handheld.h>
#include <windows.h>

#include <cmath>
#include <cstring>

#include "ProgramFolder.h"
#include "engine/Engine.h"
#include "gps/FixRecord.h"
#include "widgets/Widget.h"

namespace ferolin {

namespace {

/// An engine that has driven so far, a point each second, up and down through all speeds.
class ChartStage {
 public:
  explicit ChartStage(int points) {
    handheld::SetScreen(800, 480, 96);
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = DefWindowProcW;
    windowClass.lpszClassName = TEXT("ChartBench");
    RegisterClassW(&windowClass);
    window = CreateWindowExW(0, TEXT("ChartBench"), TEXT(""), WS_POPUP | WS_VISIBLE, 0, 0, 800, 480,
                             nullptr, nullptr, nullptr, nullptr);
    engine.AttachModule(program.GetModule());
    engine.GetRedraw().SetRenderWindow(window);
    Chart().Attach();
    for (int second = 0; second < points; ++second) {
      Append(second);
    }
  }
  ~ChartStage() { DestroyWindow(window); }

  /// The list may grow before it.
  Widget& Chart() {
    for (int index = 0;; ++index) {
      Widget* widget = engine.GetWidgets().Get(index);
      if (std::strcmp(widget->GetName(), "Speed chart") == 0) {
        return *widget;
      }
    }
  }

  void ZoomOutTo(int zoom) {
    // The sixth button at the right edge, from the bottom up, 53 pixels each.
    for (int reached = 1; reached < zoom; reached *= 2) {
      Chart().ShowBars();
      Chart().OnMouseUp(window, {774, 480 - 5 * 53 - 26});
    }
  }

  void Draw() { Chart().Draw(window); }

 private:
  void Append(int second) {
    const double time = second;
    const double kmh = 55 + 40 * std::sin(time / 90) + 12 * std::sin(time / 7);
    TrackPoint point = {
        100, 3737, 5545 + static_cast<float>(second % 100000) / 1000, 0, static_cast<float>(kmh),
        {}};
    point.time.wHour = static_cast<WORD>(second / 3600 % 24);
    point.time.wMinute = static_cast<WORD>(second / 60 % 60);
    point.time.wSecond = static_cast<WORD>(second % 60);
    engine.GetFix().GetTrack().Append(point);
  }

  ProgramFolder program;
  HWND window = nullptr;
  Engine engine;
};

void SpeedChart(benchmark::State& state) {
  ChartStage stage(static_cast<int>(state.range(0)));
  stage.ZoomOutTo(static_cast<int>(state.range(1)));
  for (auto _ : state) {
    stage.Draw();
  }
}
BENCHMARK(SpeedChart)
    ->ArgNames({"points", "zoom"})
    ->ArgsProduct({{1'000, 10'000, 100'000, 1'000'000}, {1, 128}})
    ->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace ferolin
