// Drives as a table.
#pragma once

#include "drives/TextFile.h"
#include "drives/TrackWriter.h"

namespace host {

/// Comma-separated values with a line for each position, below a line of headings. A missing value
/// is empty. Segments of a drive are numbered.
class CsvWriter : public TrackWriter {
 public:
  /// The file outlives the writer.
  explicit CsvWriter(TextFile& file) : file(file) {}

  void Begin() override;
  void BeginDrive(const Drive& begun) override;
  void AddSegment(const TrackSegment& segment) override;

 private:
  TextFile& file;
  std::int64_t drive = 0;
  int segmentNumber = 0;
};

}  // namespace host
