#include "drives/DriveExport.h"

#include <memory>
#include <utility>

#include "drives/CsvWriter.h"
#include "drives/GeoJsonWriter.h"
#include "drives/GpxWriter.h"
#include "drives/KmlWriter.h"
#include "sources/ClockWatch.h"

namespace host {

namespace {

std::unique_ptr<TrackWriter> MakeWriter(TrackFormat format, TextFile& file) {
  switch (format) {
    case TrackFormat::GPX:
      return std::make_unique<GpxWriter>(file);
    case TrackFormat::KML:
      return std::make_unique<KmlWriter>(file);
    case TrackFormat::CSV:
      return std::make_unique<CsvWriter>(file);
    case TrackFormat::GEOJSON:
      break;
  }
  return std::make_unique<GeoJsonWriter>(file);
}

/// Cuts the positions of one drive into segments.
class Segments {
 public:
  explicit Segments(TrackWriter& writer) : writer(writer) {}

  void Add(const Fix& fix) {
    const bool isPosition = fix.hasFix && fix.timeMs && fix.latitude && fix.longitude;
    const bool jumps = fix.timeMs && clock.Jumps(*fix.timeMs);
    if (!isPosition || jumps) {
      Finish();
    }
    if (isPosition) {
      segment.push_back(fix);
    }
  }

  void Finish() {
    if (!segment.empty()) {
      writer.AddSegment(std::exchange(segment, {}));
    }
  }

 private:
  TrackWriter& writer;
  ClockWatch clock;
  TrackSegment segment;
};

}  // namespace

void ExportDrives(DriveStore& store, const std::vector<Drive>& drives, TrackFormat format,
                  const std::string& path) {
  TextFile file(path);
  const std::unique_ptr<TrackWriter> writer = MakeWriter(format, file);
  writer->Begin();
  for (const Drive& drive : drives) {
    writer->BeginDrive(drive);
    Segments segments(*writer);
    store.ForEachPosition(drive.number, [&segments](const Fix& fix) { segments.Add(fix); });
    segments.Finish();
    writer->EndDrive();
  }
  writer->End();
  file.Finish();
}

}  // namespace host
