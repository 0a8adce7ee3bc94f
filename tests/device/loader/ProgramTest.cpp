// A new user of the handheld's program: chooses port and rate by touch, sees the speed, sets a limit,
// mirrors the picture, chooses a theme, quits, and finds all of it kept.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <handheld.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <thread>
#include <vector>

#include "CoreDll.h"
#include "Program.h"
#include "e2e/Device.h"

namespace {

using testing::HasSubstr;

/// Numbers of messages that have a name.
constexpr UINT FIRST_REGISTERED = 0xC000;

// High enough for all rows of every page that is used here.
constexpr int WIDTH = 240;
constexpr int HEIGHT = 700;
constexpr int HEADER = 48;
constexpr int ROW = 48;
constexpr int GAP = 12;

// Rows of the pages, gaps included.
enum WaitingRow { WAITING_RECEIVER = 2 };
enum SettingsRow { LIMITS, PICTURE = 4, QUIT = 11 };
enum PictureRow { MIRROR, DAY = 7 };
enum ReceiverRow { SERIAL = 1, PORT = 3, BAUD_RATE = 4 };

constexpr std::string_view SENTENCE_BODY =
    "GPRMC,120000,A,4807.038,N,01131.000,E,030.0,084.4,230324,,";

std::string Sentence() {
  unsigned checksum = 0;
  for (const char character : SENTENCE_BODY) {
    checksum ^= static_cast<unsigned char>(character);
  }
  char ending[8];
  std::snprintf(ending, sizeof ending, "*%02X\r\n", checksum);
  return "$" + std::string(SENTENCE_BODY) + ending;
}

/// The engine begins lines with a blank, those of a theme have none.
std::string WithoutBlanks(std::string text) {
  std::erase(text, ' ');
  return text;
}

/// The program on a thread of its own, and a finger on its screen.
class ProgramTest : public testing::Test {
 protected:
  ProgramTest() : device(e2e::Device::Make()), receiver(device->Connect("COM1")) {
    handheld::SetScreen(WIDTH, HEIGHT, 96);
    constexpr double SOMEWHAT_FASTER = 5;
    device->SetTimeRate(SOMEWHAT_FASTER);
    Install("Pics");
    Install("themes");
  }

  /// The files of a folder, beside the engine.
  void Install(const std::string& folder) {
    for (const auto& entry : std::filesystem::directory_iterator(ASSETS_FOLDER "/" + folder)) {
      if (entry.is_regular_file()) {
        std::ifstream file(entry.path(), std::ios::binary);
        device->WriteFile(folder + "/" + entry.path().filename().string(),
                          std::string(std::istreambuf_iterator<char>(file), {}));
      }
    }
  }

  void Start() {
    image = std::make_unique<PeImage>(DEVICE_PROGRAM, FindDeviceFunction);
    thread = std::thread([this] { exitCode = RunProgram(*image); });
    ASSERT_TRUE(WaitUntil([] { return FindWindowW(u"FerolinApplication", nullptr) != nullptr; }));
    window = FindWindowW(u"FerolinApplication", nullptr);
    ASSERT_TRUE(WaitUntil([&] { return !device->GetPicture(window).pixels.empty(); }));
  }

  /// Sends positions until the program is told of one: before it has opened the port they are lost.
  void SendPosition() {
    handheld::ForgetMessagesPosted();
    ASSERT_TRUE(WaitUntil([&] {
      receiver->Send(Sentence());
      const std::vector<MSG> posted = handheld::MessagesPosted();
      return std::any_of(posted.begin(), posted.end(), [](const MSG& message) {
        return message.message >= FIRST_REGISTERED && message.lParam == 0;
      });
    }));
  }

  /// Waits for the end of the program.
  void AwaitEnd() {
    thread.join();
    EXPECT_EQ(0, exitCode);
    image.reset();
  }

  static bool WaitUntil(const std::function<bool()>& isSo) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!isSo() && std::chrono::steady_clock::now() < deadline) {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return isSo();
  }

  // Touches and keys come in the order in which they are posted: nothing waits for their effects.

  void Tap(int x, int y) const {
    const LPARAM point = y << 16 | x;
    PostMessageW(window, WM_LBUTTONDOWN, 0, point);
    PostMessageW(window, WM_LBUTTONUP, 0, point);
  }
  void TapRow(int row, int gapsBefore = 0) const {
    Tap(WIDTH / 2, HEADER + (row - gapsBefore) * ROW + gapsBefore * GAP + ROW / 2);
  }
  void TapBack() const { Tap(24, 24); }

  std::string ReadIni() const { return device->ReadFile("TachyMo.ini"); }

  std::unique_ptr<e2e::Device> device;
  std::unique_ptr<e2e::Receiver> receiver;
  std::unique_ptr<PeImage> image;
  std::thread thread;
  int exitCode = -1;
  HWND window = nullptr;
};

TEST_F(ProgramTest, IsSetUpByTouchAndKeepsIt) {
  Start();
  TapRow(WAITING_RECEIVER, 1);
  TapRow(SERIAL);
  TapRow(PORT, 1);
  TapRow(0);
  TapBack();
  TapRow(BAUD_RATE, 1);
  TapRow(0);
  TapBack();
  TapBack();
  ASSERT_TRUE(WaitUntil([&] { return receiver->GetBaudRate() == 4800; }));
  SendPosition();
  PostMessageW(window, WM_KEYDOWN, VK_RETURN, 0);
  TapRow(LIMITS);
  TapRow(0);
  Tap(WIDTH - 33, HEADER + ROW + ROW / 2);  // "+" of the limit
  TapBack();
  TapRow(PICTURE);
  TapRow(MIRROR);
  TapRow(DAY);
  TapBack();
  TapRow(QUIT);
  AwaitEnd();
  const std::string kept = ReadIni();
  EXPECT_THAT(kept, HasSubstr("Port=COM1"));
  EXPECT_THAT(kept, HasSubstr("BaudRate=4800"));
  EXPECT_THAT(kept, HasSubstr("UseGpsApi=0"));
  EXPECT_THAT(kept, HasSubstr("Mirror=1"));
  EXPECT_THAT(kept, HasSubstr("Limit1=65"));
  EXPECT_THAT(kept, HasSubstr("ThemeTaken=day"));
  EXPECT_THAT(kept, HasSubstr("PathColor=11534336"));
  EXPECT_THAT(kept, HasSubstr("UseSound1=true"));

  Start();
  SendPosition();
  PostMessageW(window, WM_CLOSE, 0, 0);
  AwaitEnd();
  EXPECT_EQ(WithoutBlanks(kept), WithoutBlanks(ReadIni()));
}

TEST_F(ProgramTest, DrawsItsWaitingPageAndAView) {
  device->WriteFile("TachyMo.ini",
                    "[Application]\r\nUseGpsApi=0\r\nPort=COM1\r\nBaudRate=4800\r\n");
  Start();
  const auto waiting = device->GetPicture(window);
  EXPECT_EQ(WIDTH, waiting.width);
  EXPECT_EQ(HEIGHT, waiting.height);
  SendPosition();
  // No page has a black corner.
  EXPECT_NE(0U, waiting.pixels.front());
  EXPECT_TRUE(WaitUntil([&] { return device->GetPicture(window).pixels.front() == 0; }));
  PostMessageW(window, WM_CLOSE, 0, 0);
  AwaitEnd();
}

}  // namespace
