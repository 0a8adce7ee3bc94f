#include <gtest/gtest.h>
#include <pm.h>

#include <atomic>
#include <thread>
#include <vector>

#include "core/Handles.h"
#include "handheld.h"
#include "support/TempFolder.h"

namespace {

using testing_support::TempFolder;

class Probe : public handheld::KernelObject {
 public:
  void HandleClosed() override { ++closings; }
  std::atomic<int> closings{0};
};

TEST(Handles, AreNeitherNullNorInvalid) {
  const HANDLE handle = handheld::HandleTable::Instance().Add(std::make_shared<Probe>());
  EXPECT_NE(nullptr, handle);
  EXPECT_NE(INVALID_HANDLE_VALUE, handle);
  CloseHandle(handle);
}

TEST(Handles, ClosingTwiceFails) {
  const auto probe = std::make_shared<Probe>();
  const HANDLE handle = handheld::HandleTable::Instance().Add(probe);
  EXPECT_TRUE(CloseHandle(handle));
  EXPECT_FALSE(CloseHandle(handle));
  EXPECT_EQ(ERROR_INVALID_HANDLE, GetLastError());
  EXPECT_EQ(1, probe->closings);
}

TEST(Handles, ClosedNumbersAreNotUsedAgain) {
  auto& table = handheld::HandleTable::Instance();
  const HANDLE first = table.Add(std::make_shared<Probe>());
  CloseHandle(first);
  const HANDLE second = table.Add(std::make_shared<Probe>());
  EXPECT_NE(first, second);
  EXPECT_FALSE(CloseHandle(first));
  EXPECT_TRUE(CloseHandle(second));
}

TEST(Handles, CloseOnlyThroughTheCallOfTheirKind) {
  const TempFolder folder;
  folder.Write("a.txt", "");
  WIN32_FIND_DATAW found;
  const HANDLE search = FindFirstFileW(folder.DevicePath("a.txt").c_str(), &found);
  ASSERT_NE(INVALID_HANDLE_VALUE, search);
  char16_t backlight[] = u"BKL1:";
  const HANDLE power = SetPowerRequirement(backlight, D0, POWER_NAME, nullptr, 0);
  ASSERT_NE(nullptr, power);

  EXPECT_FALSE(CloseHandle(search));
  EXPECT_FALSE(CloseHandle(power));
  EXPECT_FALSE(FindClose(power));
  EXPECT_EQ(ERROR_INVALID_HANDLE, ReleasePowerRequirement(search));
  DWORD exitCode;
  EXPECT_FALSE(GetExitCodeThread(search, &exitCode));

  EXPECT_TRUE(FindClose(search));
  EXPECT_EQ(ERROR_SUCCESS, ReleasePowerRequirement(power));
}

TEST(Handles, AreCounted) {
  const int before = handheld::HandlesAlive();
  const HANDLE handle = handheld::HandleTable::Instance().Add(std::make_shared<Probe>());
  EXPECT_EQ(before + 1, handheld::HandlesAlive());
  CloseHandle(handle);
  EXPECT_EQ(before, handheld::HandlesAlive());
}

TEST(Handles, ClosedByManyThreadsCloseOnce) {
  const auto probe = std::make_shared<Probe>();
  const HANDLE handle = handheld::HandleTable::Instance().Add(probe);
  std::atomic<int> successes{0};
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] { successes += CloseHandle(handle); });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(1, successes);
  EXPECT_EQ(1, probe->closings);
}

}  // namespace
