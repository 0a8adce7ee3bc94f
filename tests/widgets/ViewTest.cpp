#include "widgets/ViewTest.h"

#include <gpsapi.h>
#include <objbase.h>
#include <stdlib.h>

#include "base/Format.h"
#include "gps/FixRecord.h"
#include "render/Canvas.h"
#include "render/InvertFlags.h"

namespace ferolin {

namespace {

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return DefWindowProcW(window, message, wParam, lParam);
}

void CopyPictures(const testing_support::TempFolder& folder) {
  namespace fs = std::filesystem;
  folder.MakeFolder("Pics");
  for (const auto& entry : fs::directory_iterator(ASSETS_FOLDER "/Pics")) {
    fs::create_symlink(entry.path(), fs::path(folder.Path("Pics")) / entry.path().filename());
  }
  fs::create_symlink(ASSETS_FOLDER "/lcd-u.ttf", folder.Path("lcd-u.ttf"));
}

}  // namespace

COLORREF Seen(COLORREF color) {
  COLORREF seen = 0;
  for (const unsigned shift : {0U, 8U, 16U}) {
    const COLORREF step = color >> shift >> 3 & 31;
    seen |= (step << 3 | step >> 2) << shift;
  }
  return seen;
}

ViewTest::ViewTest(const char* language) {
  setenv("FONTCONFIG_FILE", FONTS_FILE, 1);
  CoInitializeEx(nullptr, COINIT_MULTITHREADED);
  handheld::SetLanguage(language);
  handheld::SetTimeZone("UTC0");
  handheld::SetBattery(0, 65);
  handheld::SetTimeRate(1000);
  WNDCLASSW windowClass = {};
  windowClass.lpfnWndProc = &OnMessage;
  windowClass.lpszClassName = TEXT("ViewTest");
  RegisterClassW(&windowClass);
  CopyPictures(folder);
}

ViewTest::~ViewTest() {
  Unload();
  theInvertFlags.vert = 0;
  theInvertFlags.horz = 0;
  theInvertFlags.color = 0;
  theInvertFlags.orient = 0;
  if (window != nullptr) {
    DestroyWindow(window);
  }
  handheld::SetBatteryFailing(false);
  handheld::SetTimeRate(1);
  handheld::SetModuleDirectory("");
  handheld::SetLibraryDirectory("");
  handheld::ForgetMessagesPosted();
  CoUninitialize();
}

void ViewTest::Open(int width, int height, int dpi) {
  if (window != nullptr) {
    DestroyWindow(window);
  }
  handheld::SetScreen(width, height, dpi);
  window = CreateWindowExW(0, TEXT("ViewTest"), TEXT(""), WS_VISIBLE, CW_USEDEFAULT, CW_USEDEFAULT,
                           CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, nullptr, nullptr);
  if (engine == nullptr) {
    Load();
  }
  engine->GetRedraw().SetRenderWindow(window);
  engine->SetUseGpsApi(0);
  engine->StartCallBack(window);
}

/// Any library in the folder will do: only its path counts.
void ViewTest::Load() {
  handheld::SetModuleDirectory(folder.Path());
  handheld::SetLibraryDirectory(folder.Path());
  const HMODULE module = LoadLibraryW(handheld::DevicePath(ANY_LIBRARY).c_str());
  engine = std::make_unique<Engine>();
  engine->AttachModule(module);
  FreeLibrary(module);
  theEngine = engine.get();
}

void ViewTest::Unload() {
  if (engine != nullptr) {
    engine->StopCallBack();
    theCanvas.ReleaseAll();
    engine->Shutdown();
  }
  theEngine = nullptr;
  engine.reset();
}

void ViewTest::RemovePicture(const std::string& name) const {
  std::filesystem::remove(folder.Path("Pics/" + name));
}

void ViewTest::Drive(const std::string& time, double kmh, double course) {
  // Without a current view there is no redraw thread: these tests draw by hand.
  const int current = engine->GetRedraw().GetCurRenderWidget();
  engine->GetRedraw().SetCurRenderWidget(FEROLIN_VIEW_NONE);
  const std::string sentence =
      Format("$GPRMC,%s,A,5545.000,N,03737.000,E,%.4f,%.1f,230324,,*00", time, kmh / 1.852, course);
  engine->OnUpdate(sentence.c_str());
  engine->GetRedraw().SetCurRenderWidget(current);
}

void ViewTest::Receive(GPS_POSITION position) {
  position.FixType = GPS_FIX_3D;
  engine->GetFix().ApplyGpsPosition(&position);
}

void ViewTest::Receive(const Satellites& satellites) {
  GPS_POSITION position = {};
  position.dwSatellitesInView = GPS_MAX_SATELLITES;
  for (std::size_t slot = 0; slot < satellites.size(); ++slot) {
    const SatelliteInfo& satellite = satellites[slot];
    if (!IsMissing(static_cast<float>(satellite.prn))) {
      position.rgdwSatellitesInViewPRNs[slot] = static_cast<DWORD>(satellite.prn);
      position.rgdwSatellitesInViewElevation[slot] = static_cast<DWORD>(satellite.elevation);
      position.rgdwSatellitesInViewAzimuth[slot] = static_cast<DWORD>(satellite.azimuth);
      position.rgdwSatellitesInViewSignalToNoiseRatio[slot] = static_cast<DWORD>(satellite.snr);
    }
  }
  Receive(position);
}

void ViewTest::SetSatellites(int count) {
  GPS_POSITION position = {};
  position.dwValidFields = GPS_VALID_SATELLITE_COUNT;
  position.dwSatelliteCount = static_cast<DWORD>(count);
  Receive(position);
}

void ViewTest::Draw(int index) {
  const LockGuard guard(engine->GetDataLock());
  View(index).Draw(window);
}

void ViewTest::ShowBars(int index, bool show) {
  const LockGuard guard(engine->GetDataLock());
  View(index).ShowBars();
  if (!show) {
    View(index).ToggleBars();
  }
}

COLORREF ViewTest::ShownAt(int x, int y) const {
  const handheld::Pixels pixels = Shown();
  if (x < 0 || y < 0 || x >= pixels.width || y >= pixels.height) {
    return CLR_INVALID;
  }
  const std::uint32_t pixel = pixels.rows[static_cast<std::size_t>(y * pixels.width + x)];
  return RGB(static_cast<BYTE>(pixel >> 16), static_cast<BYTE>(pixel >> 8),
             static_cast<BYTE>(pixel));
}

COLORREF ViewTest::FrameAt(int x, int y) {
  return GetPixel(theCanvas.GetDrawingDC(), x, y);
}

RECT ViewTest::Bounds(COLORREF color) {
  const RECT frame = theCanvas.GetFrameRect();
  RECT bounds = {frame.right, frame.bottom, 0, 0};
  for (LONG y = 0; y < frame.bottom; ++y) {
    for (LONG x = 0; x < frame.right; ++x) {
      if (FrameAt(x, y) == color) {
        bounds = {std::min(bounds.left, x), std::min(bounds.top, y), std::max(bounds.right, x + 1),
                  std::max(bounds.bottom, y + 1)};
      }
    }
  }
  return bounds;
}

std::vector<LPARAM> ViewTest::TakePosted() const {
  std::vector<LPARAM> codes;
  for (const MSG& message : handheld::MessagesPosted()) {
    codes.push_back(message.lParam);
  }
  handheld::ForgetMessagesPosted();
  return codes;
}

}  // namespace ferolin
