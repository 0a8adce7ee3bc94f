#include <dlfcn.h>
#include <ferolin-device.h>
#include <ferolin.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "handheld.h"
#include "platform/PseudoTerminal.h"
#include "support/TempFolder.h"

namespace {

using testing_support::TempFolder;

constexpr int PATIENCE_MS = 60000;

/// The engine as dlopen loads it.
class Engine {
 public:
  Engine() : library(dlopen(ENGINE_LIBRARY, RTLD_NOW)) {}
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;
  ~Engine() { Close(); }

  void Close() {
    if (library != nullptr) {
      dlclose(std::exchange(library, nullptr));
    }
  }

  template <class Function>
  Function* Find(const char* name) const {
    return reinterpret_cast<Function*>(dlsym(library, name));
  }

  int CountSensors() const { return Find<decltype(GetSensorsCount)>("GetSensorsCount")(); }

  void Keep(LPCWSTR value) const {
    Find<decltype(SetIniFileValue)>("SetIniFileValue")(u"Test", u"Key", value, u"");
  }

  std::string GetSpeed() const {
    char text[256] = {};
    Find<decltype(GetSensorValue)>("GetSensorValue")(FEROLIN_SENSOR_SPEED, text, sizeof text);
    return text;
  }

 private:
  void* library;
};

/// Each test has data folders of its own and a device on which no folder is chosen.
class HostingTest : public testing::Test {
 protected:
  HostingTest() {
    setenv("XDG_DATA_HOME", folder.Path().c_str(), 1);
    unsetenv("FEROLIN_FOLDER");
    ForgetFolder();
  }
  ~HostingTest() override { ForgetFolder(); }

  static void ForgetFolder() {
    handheld::SetModuleDirectory("");
    handheld::MapPath(u"\\Ferolin", "");
  }

  bool Keeps(const std::string& file, const std::string& value) const {
    return folder.Read(file).find("Key=" + value) != std::string::npos;
  }

  TempFolder folder;
};

TEST_F(HostingTest, TheEngineIsThereOnceItIsLoaded) {
  const Engine engine;
  EXPECT_EQ(34, engine.CountSensors());
}

TEST_F(HostingTest, TheLastCloseDetachesTheEngine) {
  Engine first;
  Engine second;
  first.Keep(u"7");
  first.Close();
  EXPECT_FALSE(Keeps("libferolin/TachyMo.ini", "7"));
  EXPECT_EQ(34, second.CountSensors());
  second.Close();
  EXPECT_TRUE(Keeps("libferolin/TachyMo.ini", "7"));
}

TEST_F(HostingTest, TheEngineIsAttachedAgainWhenItIsLoadedAgain) {
  { const Engine engine; }
  const Engine again;
  EXPECT_EQ(34, again.CountSensors());
}

TEST_F(HostingTest, AHostChoosesTheFolder) {
  EXPECT_EQ(1, ferolin_set_folder(folder.Path("a/b").c_str()));
  Engine engine;
  engine.Keep(u"8");
  engine.Close();
  EXPECT_TRUE(Keeps("a/b/TachyMo.ini", "8"));
  EXPECT_FALSE(folder.Has("libferolin"));
}

TEST_F(HostingTest, TheFolderStaysWhileTheEngineIsLoaded) {
  const Engine engine;
  EXPECT_EQ(0, ferolin_set_folder(folder.Path("late").c_str()));
}

TEST_F(HostingTest, FoldersThatCannotBeWrittenToAreNotTaken) {
  EXPECT_EQ(0, ferolin_set_folder("/proc/none"));
  EXPECT_EQ(0, ferolin_set_folder(""));
  EXPECT_EQ(0, ferolin_set_folder(nullptr));
}

TEST_F(HostingTest, TheEnvironmentChoosesTheFolder) {
  setenv("FEROLIN_FOLDER", folder.Path("mine").c_str(), 1);
  Engine engine;
  engine.Keep(u"9");
  engine.Close();
  EXPECT_TRUE(Keeps("mine/TachyMo.ini", "9"));
}

TEST_F(HostingTest, SaysThatSettingsAreNotKept) {
  setenv("FEROLIN_FOLDER", "/proc/none", 1);
  testing::internal::CaptureStderr();
  const Engine engine;
  EXPECT_NE(std::string::npos,
            testing::internal::GetCapturedStderr().find(
                ": settings are not kept: cannot write to the folder /proc/none\n"));
  EXPECT_EQ(34, engine.CountSensors());
}

TEST_F(HostingTest, SaysNothingWhenAllIsThere) {
  testing::internal::CaptureStderr();
  { const Engine engine; }
  EXPECT_EQ("", testing::internal::GetCapturedStderr());
}

TEST_F(HostingTest, AWaitEndsWithoutANotification) {
  const HWND window = ferolin_create_window(0, 0);
  EXPECT_EQ(FEROLIN_TIMED_OUT, ferolin_wait(window, 0));
  PostMessageW(window, WM_CLOSE, 0, 0);
  EXPECT_EQ(FEROLIN_TIMED_OUT, ferolin_wait(window, 1));
  ferolin_destroy_window(window);
}

TEST_F(HostingTest, AWaitTellsWhatWasTouched) {
  const Engine engine;
  const HWND window = ferolin_create_window(240, 320);
  const UINT message = engine.Find<decltype(GetWndMessageID)>("GetWndMessageID")();
  PostMessageW(window, message, 0, FEROLIN_BUTTON_OPTIONS);
  PostMessageW(window, message, 0, FEROLIN_BUTTON_NONE);
  EXPECT_EQ(FEROLIN_BUTTON_OPTIONS, ferolin_wait(window, -1));
  EXPECT_EQ(FEROLIN_BUTTON_NONE, ferolin_wait(window, PATIENCE_MS));
  EXPECT_EQ(FEROLIN_TIMED_OUT, ferolin_wait(window, 0));
  ferolin_destroy_window(window);
}

/// 27 knots are 50.004 km/h.
TEST_F(HostingTest, AHostReadsAReceiverAndShowsAPicture) {
  PseudoTerminal receiver;
  ferolin_map_serial_port("COM7", receiver.DevicePath().c_str());
  ferolin_set_language("ENU");
  const HWND window = ferolin_create_window(120, 160);
  std::vector<std::uint32_t> pixels(120 * 160);
  EXPECT_EQ(0, ferolin_copy_picture(window, pixels.data(), 120, 160));
  Engine engine;
  engine.Find<decltype(SetUseGPSAPI)>("SetUseGPSAPI")(0);
  engine.Find<decltype(SetComPortName)>("SetComPortName")(u"COM7");
  engine.Find<decltype(SetRenderWindow)>("SetRenderWindow")(window);
  engine.Find<decltype(SetCurRenderWidget)>("SetCurRenderWidget")(FEROLIN_VIEW_SPEEDOMETER);
  ASSERT_EQ(1, engine.Find<decltype(StartCallBack)>("StartCallBack")(window));

  receiver.Send("$GPRMC,101500,A,5545.0,N,03737.0,E,27.0,90.0,211126,,,A*7F\r\n");
  ASSERT_EQ(FEROLIN_BUTTON_NONE, ferolin_wait(window, PATIENCE_MS));
  EXPECT_EQ("50.0 km/h", engine.GetSpeed());
  while (ferolin_copy_picture(window, pixels.data(), 120, 160) == 0) {
    ferolin_wait(window, 10);
  }
  std::ranges::sort(pixels);
  const auto rest = std::ranges::unique(pixels);
  EXPECT_GT(rest.begin() - pixels.begin(), 2);  // more than a background and one colour
  EXPECT_EQ(0, ferolin_copy_picture(window, pixels.data(), 160, 120));
  // The reader still runs.
  engine.Close();
  EXPECT_TRUE(folder.Has("libferolin/TachyMo.ini"));
  ferolin_destroy_window(window);
  ferolin_map_serial_port("COM7", "");
}

/// Runs in a process of its own, which takes the folder from the environment of the test's.
TEST_F(HostingTest, AProgramThatEndsDetachesTheEngine) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  constexpr const char* VARIABLE = "HOSTING_TEST_FOLDER";
  setenv(VARIABLE, folder.Path("end").c_str(), 0);
  const auto run = [] {
    ferolin_set_folder(std::getenv(VARIABLE));
    const Engine& engine = *new Engine;
    engine.Keep(u"10");
    std::exit(0);
  };
  EXPECT_EXIT(run(), testing::ExitedWithCode(0), "");
  EXPECT_TRUE(Keeps("end/TachyMo.ini", "10"));
}

}  // namespace
