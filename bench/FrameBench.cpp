// How long a frame of each view takes, as it is presented (upright, turned), and its parts. 800 x 480.

#include <benchmark/benchmark.h>
#include <handheld.h>
#include <windows.h>

#include "ProgramFolder.h"
#include "engine/Engine.h"
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
    engine.renderWindow = window;
    engine.OnUpdate("$GPRMC,120000,A,4807.038,N,01131.000,E,0.0,084.4,230324,,*00");
    engine.OnUpdate("$GPRMC,120009,A,4807.138,N,01131.100,E,70.4,084.4,230324,,*00");
  }

  void Draw(int view) { engine.GetWidget(view)->Draw(window); }

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
BENCHMARK(Frame)->ArgNames({"view", "turned"})->ArgsProduct({{0, 1}, {0, 1}});

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

void Text(benchmark::State& state) {
  Stage& stage = TheStage();
  Canvas canvas;
  canvas.BeginFrame(stage.window);
  const HFONT font = canvas.MakeFont(TEXT("LCD"), 170, 0);
  for (auto _ : state) {
    canvas.DrawText(font, TEXT("128"), 100, 100, RGB(255, 255, 255));
  }
  DeleteObject(font);
  canvas.ReleaseAll();
}
BENCHMARK(Text);

}  // namespace

}  // namespace ferolin
