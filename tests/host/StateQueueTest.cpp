#include <gtest/gtest.h>

#include "TestFolder.h"
#include "drives/DriveStore.h"
#include "drives/StateQueue.h"

namespace host {
namespace {

constexpr std::size_t ALL = 100;

class StateQueueTest : public testing::Test {
 protected:
  /// "3 c, 4 d" for the states behind a number.
  static std::string Describe(StateQueue& queue, std::int64_t behind = 0, std::size_t most = ALL) {
    std::string text;
    for (const StateQueue::State& state : queue.Read(behind, most)) {
      text += (text.empty() ? "" : ", ") + std::to_string(state.number) + " " + state.text;
    }
    return text;
  }

  TestFolder folder;
};

TEST_F(StateQueueTest, GivesStatesBackInTheirOrder) {
  StateQueue queue(folder.GetPath());
  EXPECT_EQ("", Describe(queue));
  EXPECT_EQ(0, queue.Add({"a", "b"}, 0));
  EXPECT_EQ(0, queue.Add({"c"}, 0));
  EXPECT_EQ("1 a, 2 b, 3 c", Describe(queue));
  EXPECT_EQ("2 b", Describe(queue, 1, 1));
  EXPECT_EQ(3, queue.Count());
}

TEST_F(StateQueueTest, RemovesWhatWasTakenAndNeverUsesItsNumberAgain) {
  std::string series;
  {
    StateQueue queue(folder.GetPath());
    series = queue.GetSeries();
    queue.Add({"a", "b", "c"}, 0);
    queue.Add({}, 2);
    EXPECT_EQ("3 c", Describe(queue));
    queue.Add({}, 3);
    EXPECT_EQ(0, queue.Count());
  }
  StateQueue queue(folder.GetPath());
  EXPECT_EQ(series, queue.GetSeries());
  queue.Add({"d"}, 3);
  EXPECT_EQ("4 d", Describe(queue));
}

TEST_F(StateQueueTest, GivesTheOldestUpWhenThereAreTooMany) {
  StateQueue queue(folder.GetPath(), 3);
  EXPECT_EQ(0, queue.Add({"a", "b", "c"}, 0));
  EXPECT_EQ(2, queue.Add({"d", "e"}, 0));
  EXPECT_EQ("3 c, 4 d, 5 e", Describe(queue));
  EXPECT_EQ(0, queue.Add({"f", "g"}, 4));
  EXPECT_EQ("5 e, 6 f, 7 g", Describe(queue));
}

/// 14 hours of driving at a state every 5 s.
TEST_F(StateQueueTest, KeepsTenThousand) {
  StateQueue queue(folder.GetPath());
  EXPECT_EQ(1, queue.Add(std::vector<std::string>(10001, "a"), 0));
  EXPECT_EQ(10000, queue.Count());
}

TEST_F(StateQueueTest, HasAnotherSeriesInEveryNewFile) {
  const TestFolder other;
  const std::string series = StateQueue(folder.GetPath()).GetSeries();
  EXPECT_EQ(8u, series.size());
  EXPECT_NE(series, StateQueue(other.GetPath()).GetSeries());
}

TEST_F(StateQueueTest, SharesTheFileWithTheDrives) {
  DriveStore drives(folder.GetPath(), Database::Missing::CREATE);
  StateQueue queue(folder.GetPath());
  queue.Add({"a"}, 0);
  EXPECT_EQ(1, drives.Begin("gpsd", 0));
  EXPECT_EQ("1 a", Describe(queue));
}

}  // namespace
}  // namespace host
