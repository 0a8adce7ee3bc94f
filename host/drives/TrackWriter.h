// Drives as a file of some format.
#pragma once

#include <vector>

#include "drives/Drive.h"
#include "sources/Fix.h"

namespace host {

/// Positions without a gap of reception between them. Each has a fix, a time and coordinates.
using TrackSegment = std::vector<Fix>;

/// Called in the order of the file: Begin, then for each drive BeginDrive, its segments and
/// EndDrive, then End.
class TrackWriter {
 public:
  virtual ~TrackWriter() = default;

  virtual void Begin() {}
  virtual void BeginDrive(const Drive& drive) = 0;
  virtual void AddSegment(const TrackSegment& segment) = 0;
  virtual void EndDrive() {}
  virtual void End() {}
};

}  // namespace host
