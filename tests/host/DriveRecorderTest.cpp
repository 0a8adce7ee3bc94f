#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>

#include "TestFolder.h"
#include "drives/DriveRecorder.h"

namespace host {
namespace {

using namespace std::chrono_literals;

Fix At(std::int64_t timeMs, bool hasFix = true) {
  Fix fix;
  fix.timeMs = timeMs;
  fix.hasFix = hasFix;
  fix.latitude = 48;
  fix.longitude = 11;
  fix.speedKmh = 36;
  return fix;
}

class DriveRecorderTest : public testing::Test {
 protected:
  std::unique_ptr<DriveStore> Open() const {
    return std::make_unique<DriveStore>(folder.GetPath(), Database::Missing::CREATE);
  }

  std::unique_ptr<DriveRecorder> Record() const {
    return std::make_unique<DriveRecorder>(Open(), "gpsd");
  }

  /// True when the condition holds within ten seconds.
  template <class Condition>
  static bool Becomes(Condition condition) {
    const auto latest = std::chrono::steady_clock::now() + 10s;
    while (!condition()) {
      if (std::chrono::steady_clock::now() > latest) {
        return false;
      }
      std::this_thread::sleep_for(5ms);
    }
    return true;
  }

  std::size_t CountPositions() const {
    std::size_t count = 0;
    Open()->ForEachPosition(1, [&count](const Fix&) { ++count; });
    return count;
  }

  TestFolder folder;
};

TEST_F(DriveRecorderTest, KeepsADriveFromItsFirstPositionOn) {
  const auto recorder = Record();
  recorder->Take(At(0, false));
  for (int second = 1; second <= 11; ++second) {
    recorder->Take(At(second * 1000));
  }
  recorder->Finish();
  const std::optional<Drive> drive = recorder->GetDrive();
  ASSERT_TRUE(drive);
  EXPECT_EQ(1, drive->number);
  EXPECT_NEAR(0.1, drive->distanceKm, 1e-12);
  const Drive kept = Open()->List().at(0);
  EXPECT_TRUE(kept.isEnded);
  EXPECT_EQ("gpsd", kept.source);
  EXPECT_EQ(1000, kept.startMs);
  EXPECT_EQ(11000, kept.endMs);
  EXPECT_NEAR(0.1, kept.distanceKm, 1e-12);
  EXPECT_EQ(11u, CountPositions());
}

TEST_F(DriveRecorderTest, LeavesNoEntryOfADriveWithoutAPosition) {
  const auto recorder = Record();
  recorder->Take(At(0, false));
  recorder->Finish();
  EXPECT_FALSE(recorder->GetDrive());
  EXPECT_TRUE(Open()->List().empty());
}

TEST_F(DriveRecorderTest, WritesAlsoWhenNothingMoreComes) {
  const auto recorder = Record();
  recorder->Take(At(1000));
  EXPECT_TRUE(Becomes([this] { return CountPositions() == 1; }));
  EXPECT_FALSE(Open()->List().at(0).isEnded);
}

TEST_F(DriveRecorderTest, TakesTheComputersClockWhereTheReceiverHasNoDate) {
  Fix fix = At(0);
  fix.timeMs.reset();
  const auto recorder = Record();
  recorder->Take(fix);
  recorder->Finish();
  EXPECT_LT(1700000000000, Open()->List().at(0).startMs);
}

TEST_F(DriveRecorderTest, KeepsTheTripsAlsoWithoutADrive) {
  const KeptTrip trip = {"HostTrip", 3, {{6, "12.5"}}};
  const KeptTrip other = {"HostTripB", 2, {{6, "100"}}};
  const auto recorder = Record();
  recorder->TakeTrips({trip, other});
  EXPECT_TRUE(Becomes([&] { return Open()->GetTrip("HostTrip") == trip; }));
  EXPECT_EQ(other, Open()->GetTrip("HostTripB"));
  const KeptTrip later = {"HostTrip", 3, {{6, "13"}}};
  recorder->TakeTrips({later, other});
  recorder->Finish();
  EXPECT_EQ(later, Open()->GetTrip("HostTrip"));
}

TEST_F(DriveRecorderTest, AddsNothingForAGapOfReception) {
  const auto recorder = Record();
  recorder->Take(At(1000));
  recorder->Take(At(2000));  // 36 km/h for 1 s: 10 m
  recorder->Take(Fix());
  recorder->Take(At(62000));
  recorder->Finish();
  EXPECT_NEAR(0.010, recorder->GetDrive()->distanceKm, 1e-12);
  EXPECT_EQ(61000, recorder->GetDrive()->endMs - recorder->GetDrive()->startMs);
}

TEST_F(DriveRecorderTest, EndsADriveThatWasCutOff) {
  Open()->Add(Open()->Begin("gpsd", 1000), 1, At(5000));
  const auto recorder = Record();
  ASSERT_EQ(1u, recorder->GetEndedDrives().size());
  EXPECT_EQ(5000, recorder->GetEndedDrives()[0].endMs);
  EXPECT_TRUE(Open()->List().at(0).isEnded);
}

/// No file of this process grows beyond what the database has at present.
class DriveRecorderOnAFullDisk : public DriveRecorderTest {
 protected:
  DriveRecorderOnAFullDisk() {
    signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before);
  }
  ~DriveRecorderOnAFullDisk() override { Empty(); }

  void Fill() const {
    rlimit full = before;
    full.rlim_cur = 1;
    setrlimit(RLIMIT_FSIZE, &full);
  }
  void Empty() const { setrlimit(RLIMIT_FSIZE, &before); }

  rlimit before = {};
};

TEST_F(DriveRecorderOnAFullDisk, TellsOnceAndWritesLaterWhatItHolds) {
  const auto recorder = Record();
  Fill();
  recorder->Take(At(1000));
  std::vector<std::string> news;
  EXPECT_TRUE(Becomes([&] { return !(news = recorder->TakeNews()).empty(); }));
  ASSERT_EQ(1u, news.size());
  EXPECT_TRUE(news[0].starts_with("this drive cannot be kept at present: " + folder.GetPath() +
                                  "/drives.db: "));
  recorder->Take(At(2000));
  Empty();
  EXPECT_TRUE(Becomes([this] { return CountPositions() == 2; }));
  recorder->Finish();
  EXPECT_EQ(std::vector<std::string>{"this drive is kept again"}, recorder->TakeNews());
  EXPECT_EQ(0u, recorder->CountLost());
}

TEST_F(DriveRecorderOnAFullDisk, CountsWhatItCouldNotWrite) {
  const auto recorder = Record();
  Fill();
  recorder->Take(At(1000));
  recorder->Take(At(2000));
  recorder->Finish();
  EXPECT_EQ(1u, recorder->TakeNews().size());
  EXPECT_EQ(2u, recorder->CountLost());
  EXPECT_FALSE(recorder->GetDrive());
}

}  // namespace
}  // namespace host
