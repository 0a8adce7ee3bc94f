#include "drives/DriveList.h"

#include <array>

#include "base/DisplayText.h"
#include "drives/DriveTexts.h"

namespace host {

namespace {

/// Widths of the columns that are aligned at their right, and the blanks before each.
constexpr std::array<std::size_t, 8> WIDTHS = {5, 18, 10, 11, 12, 12, 12, 10};

using Row = std::array<std::string, WIDTHS.size()>;

std::string Line(const Row& row) {
  std::string line;
  for (std::size_t i = 0; i < row.size(); ++i) {
    line += PadLeft(row[i], WIDTHS[i]);
  }
  line.resize(line.find_last_not_of(' ') + 1);
  return line;
}

double AverageKmh(const Drive& drive) {
  const double hours = static_cast<double>(drive.endMs - drive.startMs) / MS_PER_HOUR;
  return hours > 0 ? drive.distanceKm / hours : 0;
}

/// Empty for a drive without a motion, or of an older version; so is the time stopped.
std::string DescribeMovingAverage(const Drive& drive, Units units) {
  const std::optional<double> kmh = drive.moving ? drive.moving->GetAverageKmh() : std::nullopt;
  return kmh ? DescribeSpeed(*kmh, units) : std::string();
}

std::string DescribeStop(const Drive& drive) {
  return drive.moving ? DescribeDuration(drive.moving->stoppedMs) : std::string();
}

}  // namespace

std::string ListDrives(const std::vector<Drive>& drives, Units units) {
  std::string list =
      Line({"Drive", "Start", "Duration", "Distance", "Highest", "Average", "Moving", "Stopped"}) +
      "\n";
  for (const Drive& drive : drives) {
    list += Line({std::to_string(drive.number), DescribeMoment(drive.startMs),
                  DescribeDuration(drive.endMs - drive.startMs),
                  DescribeDistance(drive.distanceKm, units), DescribeSpeed(drive.highestKmh, units),
                  DescribeSpeed(AverageKmh(drive), units), DescribeMovingAverage(drive, units),
                  DescribeStop(drive)}) +
            (drive.isEnded ? "" : "  (not ended)") + "\n";
  }
  return list;
}

std::string DescribeDrive(const Drive& drive, Units units) {
  return "drive " + std::to_string(drive.number) + " of " + DescribeDay(drive.startMs) + ", " +
         DescribeDistance(drive.distanceKm, units);
}

}  // namespace host
