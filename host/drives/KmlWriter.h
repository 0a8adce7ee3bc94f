// Drives as KML.
#pragma once

#include "drives/TextFile.h"
#include "drives/TrackWriter.h"

namespace host {

/// KML with a gx:MultiTrack for each drive, whose points have times and speeds.
class KmlWriter : public TrackWriter {
 public:
  /// The file outlives the writer.
  explicit KmlWriter(TextFile& file) : file(file) {}

  void Begin() override;
  void BeginDrive(const Drive& drive) override;
  void AddSegment(const TrackSegment& segment) override;
  void EndDrive() override;
  void End() override;

 private:
  TextFile& file;
};

}  // namespace host
