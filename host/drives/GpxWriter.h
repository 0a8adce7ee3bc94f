// Drives as GPX.
#pragma once

#include "drives/TextFile.h"
#include "drives/TrackWriter.h"

namespace host {

/// GPX 1.1 with a track for each drive. Speeds and courses stand in the usual extension for track
/// points, for GPX 1.1 itself has none.
class GpxWriter : public TrackWriter {
 public:
  /// The file outlives the writer.
  explicit GpxWriter(TextFile& file) : file(file) {}

  void Begin() override;
  void BeginDrive(const Drive& drive) override;
  void AddSegment(const TrackSegment& segment) override;
  void EndDrive() override;
  void End() override;

 private:
  TextFile& file;
};

}  // namespace host
