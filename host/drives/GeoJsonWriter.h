// Drives as GeoJSON.
#pragma once

#include <string>

#include "drives/TextFile.h"
#include "drives/TrackWriter.h"

namespace host {

/// One feature for each drive: a MultiLineString with a line for each segment. Its properties have
/// the arrays coordTimes and speeds (km/h, null when missing), nested as the coordinates are.
class GeoJsonWriter : public TrackWriter {
 public:
  /// The file outlives the writer.
  explicit GeoJsonWriter(TextFile& file) : file(file) {}

  void Begin() override;
  void BeginDrive(const Drive& drive) override;
  void AddSegment(const TrackSegment& segment) override;
  void EndDrive() override;
  void End() override;

 private:
  TextFile& file;
  bool isFirstDrive = true;
  // Elements of the arrays of the present drive.
  std::string lines;
  std::string times;
  std::string speeds;
};

}  // namespace host
