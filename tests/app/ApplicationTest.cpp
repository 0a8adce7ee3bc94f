#include "ApplicationTest.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "base/CodePage.h"
#include "base/ModuleFunction.h"
#include "engine/ColorTheme.h"

namespace app {

namespace {

constexpr int HEADER = 48;
constexpr int ROW = 48;
constexpr int GAP = 12;
constexpr int STEP_BUTTON = 50;
constexpr int SECOND_MS = 1000;

LPARAM PackPoint(int x, int y) {
  return static_cast<LPARAM>(static_cast<DWORD>(y & 0xFFFF) << 16 | static_cast<DWORD>(x & 0xFFFF));
}

int MiddleOfRow(int row, int gapsBefore) {
  return HEADER + (row - gapsBefore) * ROW + gapsBefore * GAP + ROW / 2;
}

}  // namespace

std::string Sentence(std::string_view body) {
  unsigned checksum = 0;
  for (const char character : body) {
    checksum ^= static_cast<unsigned char>(character);
  }
  char ending[8];
  std::snprintf(ending, sizeof ending, "*%02X\r\n", checksum);
  return "$" + std::string(body) + ending;
}

std::string Rmc(std::string_view time, std::string_view status, std::string_view knots) {
  return Sentence("GPRMC," + std::string(time) + "," + std::string(status) +
                  ",4807.038,N,01131.000,E," + std::string(knots) + ",084.4,230324,,");
}

ApplicationTest::ApplicationTest() : device(e2e::Device::Make()) {
  // The faster time runs, the sooner is the receiver taken to be silent.
  device->SetTimeRate(1);
  for (const auto& entry : std::filesystem::directory_iterator(ASSETS_FOLDER "/Pics")) {
    if (!entry.is_regular_file()) {
      continue;
    }
    std::ifstream file(entry.path(), std::ios::binary);
    device->WriteFile("Pics/" + entry.path().filename().string(),
                      std::string(std::istreambuf_iterator<char>(file), {}));
  }
  receiver = device->Connect("COM1");
}

ApplicationTest::~ApplicationTest() {
  Quit();
}

void ApplicationTest::Start(int width, int height) {
  engine = std::make_unique<LoadedEngine>();
  application = RunningApplication::Start(*engine);
  ASSERT_NE(nullptr, application);
  MoveWindow(GetWindow(), 0, 0, width, height, TRUE);
  Pump();
}

void ApplicationTest::StartWithPosition(int width, int height) {
  device->WriteFile("TachyMo.ini",
                    "[Application]\r\nUseGpsApi=0\r\nPort=COM1\r\nBaudRate=4800\r\n");
  Start(width, height);
  SendPosition("120000", "12:00:00");
  ASSERT_TRUE(WaitUntil([&] { return GetEngine().GetCurRenderWidget() != FEROLIN_VIEW_NONE; }));
}

void ApplicationTest::Quit() {
  if (IsRunning()) {
    Post(WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsRunning());
  }
  application.reset();
  if (engine == nullptr) {
    return;
  }
  const WideString folder = engine->GetFolder();
  const WideString theme = FindNewTheme(*engine);
  engine.reset();
  if (!theme.empty()) {
    TakeTheme(folder, theme);
  }
}

void ApplicationTest::Pump() {
  if (application != nullptr) {
    application->Pump();
  }
}

bool ApplicationTest::WaitUntil(const std::function<bool()>& isSo, int longestMs) {
  using Clock = std::chrono::steady_clock;
  const auto deadline = Clock::now() + std::chrono::milliseconds(longestMs);
  Pump();
  while (!isSo() && Clock::now() < deadline) {
    MsgWaitForMultipleObjectsEx(0, nullptr, 20, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    Pump();
  }
  return isSo();
}

void ApplicationTest::Post(UINT message, WPARAM wParam, LPARAM lParam) {
  PostMessageW(GetWindow(), message, wParam, lParam);
  Pump();
}

void ApplicationTest::PostMouse(UINT message, int x, int y) {
  Post(message, 0, PackPoint(x, y));
}

void ApplicationTest::Tap(int x, int y) {
  PostMessageW(GetWindow(), WM_LBUTTONDOWN, 0, PackPoint(x, y));
  Release(x, y);
}

void ApplicationTest::DoubleTap(int x, int y) {
  Tap(x, y);
  PostMessageW(GetWindow(), WM_LBUTTONDBLCLK, 0, PackPoint(x, y));
  Release(x, y);
}

void ApplicationTest::TapRow(int row, int gapsBefore) {
  Tap(WIDTH / 2, MiddleOfRow(row, gapsBefore));
}

void ApplicationTest::TapStep(int row, int direction, int gapsBefore) {
  const int x = WIDTH - STEP_BUTTON / 2 - 8 - (direction < 0 ? STEP_BUTTON + 4 : 0);
  Tap(x, MiddleOfRow(row, gapsBefore));
}

void ApplicationTest::OpenSettings() {
  if (GetEngine().GetCurRenderWidget() == FEROLIN_VIEW_NONE) {
    TapRow(rows::WAITING_SETTINGS, 1);
  } else {
    Key(VK_RETURN);
  }
}

void ApplicationTest::OpenPage(int settingsRow) {
  OpenSettings();
  TapRow(settingsRow);
}

bool ApplicationTest::AreViewsShown() const {
  using GetWindowCall = HWND WINAPI();
  const HMODULE module = LoadLibraryW(TEXT("Ferolin.dll"));
  GetWindowCall* getRenderWindow = nullptr;
  ferolin::FindEntry(module, TEXT("GetRenderWindow"), getRenderWindow);
  const bool areShown =
      getRenderWindow() == GetWindow() && GetEngine().GetCurRenderWidget() != FEROLIN_VIEW_NONE;
  FreeLibrary(module);
  return areShown;
}

std::uint32_t ApplicationTest::GetPixel(int x, int y) const {
  const e2e::Device::Picture picture = GetPicture();
  return picture.pixels.at(static_cast<std::size_t>(y * picture.width + x));
}

void ApplicationTest::SendPosition(std::string_view time, const std::string& shownTime,
                                   std::string_view knots) {
  constexpr int SENDINGS = 10;
  bool isShown = false;
  for (int sending = 0; sending < SENDINGS && !isShown; ++sending) {
    Send(Rmc(time, "A", knots));
    isShown =
        WaitUntil([&] { return GetValue(FEROLIN_SENSOR_CURRENT_TIME) == shownTime; }, SECOND_MS);
  }
  EXPECT_TRUE(isShown);
}

std::string ApplicationTest::GetPortName() const {
  return ferolin::Narrow(GetEngine().GetPortName());
}

std::string ApplicationTest::GetSmsText() const {
  return ferolin::Narrow(GetEngine().GetSmsText());
}

std::string ApplicationTest::GetRecipients() const {
  return ferolin::Narrow(GetEngine().GetSmsRecipients());
}

std::string ApplicationTest::GetValue(int sensor) const {
  char text[256] = {};
  GetEngine().GetSensorValue(sensor, text, sizeof text);
  return text;
}

}  // namespace app
