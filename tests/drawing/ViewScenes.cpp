// All views of an engine in the middle of a drive, under all flags.

#include <objbase.h>

#include <cmath>
#include <iterator>
#include <string>
#include <vector>

#include "Home.h"
#include "Scene.h"
#include "base/Format.h"
#include "engine/Engine.h"
#include "render/Canvas.h"
#include "render/InvertFlags.h"
#include "sensors/Sensor.h"
#include "widgets/Widget.h"

namespace drawing {

namespace {

using ferolin::Engine;
using ferolin::Format;

constexpr int FLAGS = 16;
constexpr SIZE SIZES[] = {{480, 800}, {800, 480}, {240, 320}, {320, 240}};

HWND OpenWindow(const SIZE& size) {
  return CreateWindowExW(0, TEXT("DrawingScenes"), TEXT(""), WS_POPUP | WS_VISIBLE, 0, 0, size.cx,
                         size.cy, nullptr, nullptr, nullptr, nullptr);
}

/// An engine after ten minutes on the road, with a window of each size.
class Stage {
 public:
  Stage() {
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = &DefWindowProcW;
    windowClass.lpszClassName = TEXT("DrawingScenes");
    RegisterClassW(&windowClass);
    engine.AttachModule(PrepareHome());
    for (std::size_t i = 0; i < std::size(SIZES); ++i)
      windows[i] = OpenWindow(SIZES[i]);
    engine.GetRedraw().SetRenderWindow(windows[0]);
    Drive();
  }

  /// Bits of `flags`: vertical, horizontal, colour, orientation.
  void Draw(int view, std::size_t size, int flags, bool withBars) {
    ferolin::theInvertFlags.vert = static_cast<std::uint8_t>(flags & 1);
    ferolin::theInvertFlags.horz = static_cast<std::uint8_t>(flags >> 1 & 1);
    ferolin::theInvertFlags.color = static_cast<std::uint8_t>(flags >> 2 & 1);
    ferolin::theInvertFlags.orient = static_cast<std::uint8_t>(flags >> 3 & 1);
    engine.GetRedraw().SetRenderWindow(windows[size]);
    const ferolin::LockGuard guard(engine.GetDataLock());
    ferolin::Widget& widget = *engine.GetWidgets().Get(view);
    widget.Attach();
    widget.ShowBars();
    if (!withBars)
      widget.ToggleBars();
    widget.Draw(windows[size]);
  }

  int GetViewCount() { return engine.GetWidgets().GetCount(); }

 private:
  /// A fix a second on a winding road, under moving satellites.
  void Drive() {
    constexpr int SECONDS = 600;
    for (int second = 0; second < SECONDS; ++second) {
      if (second % 10 == 0)
        SeeSatellites(second / 10);
      const double knots = 35 + 30 * std::sin(second * 0.02) + 5 * std::sin(second * 0.31);
      const int minutes = 5000 + 3 * second;
      const std::string sentence =
          Format("$GPRMC,14%02i%02i,A,5545.%04i,N,03737.%04i,E,%.1f,%.1f,230324,,*00", second / 60,
                 second % 60, minutes - 2000, 2000 + 1000 * (second / 120) + 3 * second, knots,
                 std::fmod(second * 0.9, 360));
      engine.OnUpdate(sentence.c_str());
    }
  }

  void SeeSatellites(int minute) {
    engine.OnUpdate(Format("$GPGGA,143000,5545.000,N,03737.000,E,1,%02i,1.2,1%02i.5,M,14.0,M,,*00",
                           7 + minute % 5, minute)
                        .c_str());
    engine.OnUpdate("$GPGSA,A,3,03,07,08,11,16,19,27,,,,,,2.1,1.2,1.7*00");
    for (int part = 1; part <= 3; ++part) {
      std::string sentence = Format("$GPGSV,3,%i,12", part);
      for (int satellite = 0; satellite < 4; ++satellite) {
        const int number = (part - 1) * 4 + satellite;
        sentence += Format(",%02i,%02i,%03i,%02i", 3 + 2 * number, 5 + 7 * number,
                           (37 * number + minute) % 360, number % 6 == 5 ? 0 : 18 + 2 * number);
      }
      engine.OnUpdate((sentence + "*00").c_str());
    }
  }

  Engine engine;
  HWND windows[std::size(SIZES)] = {};
};

/// Lives as long as the process.
Stage& TheStage() {
  static Stage& stage = *new Stage;
  return stage;
}

SIZE SizeOf(HDC dc) {
  // Selecting another bitmap for a moment returns the one that was selected.
  const HBITMAP other = CreateCompatibleBitmap(dc, 1, 1);
  const HGDIOBJ shown = SelectObject(dc, other);
  BITMAP description = {};
  GetObjectW(shown, sizeof(description), &description);
  SelectObject(dc, shown);
  DeleteObject(other);
  return {description.bmWidth, description.bmHeight};
}

void KeepCopy(Scene& scene, HDC dc, Paper::Kind kind, const char* part) {
  const SIZE size = SizeOf(dc);
  const Paper copy(kind, size.cx, size.cy);
  scene.Note(BitBlt(copy.GetDC(), 0, 0, size.cx, size.cy, dc, 0, 0, SRCCOPY));
  scene.Keep(copy, part);
}

void DrawView(Scene& scene, int view) {
  const int flags = scene.index % FLAGS;
  const auto size = static_cast<std::size_t>(scene.index / FLAGS);
  Stage& stage = TheStage();
  stage.Draw(view, size, flags, false);
  KeepCopy(scene, ferolin::theCanvas.GetDrawingDC(), Paper::BOTTOM_UP_16, "back");
  KeepCopy(scene, ferolin::theCanvas.GetPresentDC(), Paper::TOP_DOWN_32, "present");
  stage.Draw(view, size, flags, true);
  KeepCopy(scene, ferolin::theCanvas.GetPresentDC(), Paper::TOP_DOWN_32, "bars");
}

}  // namespace

std::vector<Family> ViewFamilies() {
  std::vector<Family> families;
  for (int view = 0; view < TheStage().GetViewCount(); ++view) {
    families.push_back({"view" + std::to_string(view), FLAGS * static_cast<int>(std::size(SIZES)),
                        [view](Scene& scene) { DrawView(scene, view); }});
  }
  return families;
}

}  // namespace drawing
