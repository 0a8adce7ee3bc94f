// The table of all drives.
#pragma once

#include <string>
#include <vector>

#include "base/Units.h"
#include "drives/Drive.h"

namespace host {

/// One line for each drive below a line of headings, with the start in the user's time zone,
/// duration, distance, highest and average speed, the average without standing, and the time stopped.
std::string ListDrives(const std::vector<Drive>& drives, Units units);

/// "drive 3 of 21 Nov, 47.2 km".
std::string DescribeDrive(const Drive& drive, Units units);

}  // namespace host
