#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#include "drives/DriveList.h"

namespace host {
namespace {

// 21 November 2026, 17:42:03 UTC.
constexpr std::int64_t DRIVE_START_MS = (20778LL * 86400 + 63723) * 1000;

TEST(DriveList, HasALineForEachDrive) {
  setenv("TZ", "UTC0", 1);
  tzset();
  const Drive whole = {7,
                       "gpsd",
                       true,
                       DRIVE_START_MS,
                       DRIVE_START_MS + 2 * 3600000,
                       90.25,
                       131,
                       MovingTime::Sums{90, 90 * 60000, 30 * 60000}};
  const Drive open = {12, "gpsd", false, DRIVE_START_MS, DRIVE_START_MS, 0, 0, MovingTime::Sums()};
  const Drive old = {3, "gpsd", true, DRIVE_START_MS, DRIVE_START_MS + 3600000, 20, 50};
  EXPECT_EQ(
      "Drive             Start  Duration   Distance     Highest     Average      Moving   Stopped\n"
      "    3  2026-11-21 17:42   1:00:00    20.0 km   50.0 km/h   20.0 km/h\n"
      "    7  2026-11-21 17:42   2:00:00    90.2 km  131.0 km/h   45.1 km/h   60.0 km/h   0:30:00\n"
      "   12  2026-11-21 17:42   0:00:00        0 m    0.0 km/h    0.0 km/h               0:00:00"
      "  (not ended)\n",
      ListDrives({old, whole, open}, Units::KM));
  EXPECT_EQ("drive 7 of 21 Nov, 90.2 km", DescribeDrive(whole, Units::KM));
  EXPECT_EQ("drive 7 of 21 Nov, 56.1 mi", DescribeDrive(whole, Units::MI));
}

}  // namespace
}  // namespace host
