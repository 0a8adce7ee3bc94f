// Writes drives to a file.
#pragma once

#include <string>
#include <vector>

#include "drives/Drive.h"
#include "drives/DriveStore.h"

namespace host {

enum class TrackFormat { GPX, KML, CSV, GEOJSON };

/// Writes the drives as one file; "-" is standard output. Positions without a fix are left out; a
/// new segment begins behind them, and where the receiver's clock jumps. Throws HostError.
void ExportDrives(DriveStore& store, const std::vector<Drive>& drives, TrackFormat format,
                  const std::string& path);

}  // namespace host
