#include <gtest/gtest.h>
#include <objbase.h>

#include <thread>

namespace {

TEST(Com, StartsOncePerThread) {
  EXPECT_EQ(0, CoInitializeEx(nullptr, COINIT_MULTITHREADED));
  EXPECT_EQ(1, CoInitializeEx(nullptr, COINIT_MULTITHREADED));
  std::thread([] {
    EXPECT_EQ(0, CoInitializeEx(nullptr, COINIT_MULTITHREADED));
    CoUninitialize();
  }).join();
  CoUninitialize();
  CoUninitialize();
  EXPECT_EQ(0, CoInitializeEx(nullptr, COINIT_MULTITHREADED));
  CoUninitialize();
}

TEST(Com, KeepsItsThreadingModel) {
  CoInitializeEx(nullptr, COINIT_MULTITHREADED);
  EXPECT_LT(CoInitializeEx(nullptr, 2), 0);
  CoUninitialize();
}

TEST(Com, SurvivesAStopTooMany) {
  CoUninitialize();
  EXPECT_EQ(0, CoInitializeEx(nullptr, COINIT_MULTITHREADED));
  CoUninitialize();
}

}  // namespace
