#include "drives/CsvWriter.h"

#include <string>

#include "drives/DriveTexts.h"

namespace host {

namespace {

/// ",12.3", or "," for a missing value.
std::string Cell(const std::optional<double>& value, int decimals) {
  return "," + (value ? DescribeNumber(*value, decimals) : std::string());
}

}  // namespace

void CsvWriter::Begin() {
  file.Write(
      "Drive,Segment,UTC date,UTC time,Latitude,Longitude,Altitude,Speed (m/s),km/h,Course,HDOP,"
      "Satellites\n");
}

void CsvWriter::BeginDrive(const Drive& begun) {
  drive = begun.number;
  segmentNumber = 0;
}

void CsvWriter::AddSegment(const TrackSegment& segment) {
  const std::string numbers = std::to_string(drive) + "," + std::to_string(++segmentNumber) + ",";
  for (const Fix& fix : segment) {
    std::string moment = DescribeUtc(fix.timeMs);
    moment.replace(moment.find('T'), 1, ",");
    moment.pop_back();  // "Z"
    std::optional<double> metresPerSecond = fix.speedKmh;
    if (metresPerSecond) {
      *metresPerSecond /= KMH_PER_METRE_PER_SECOND;
    }
    std::string line = numbers;
    line += moment;
    line += "," + DescribeCoordinate(fix.latitude) + "," + DescribeCoordinate(fix.longitude);
    line += Cell(fix.altitude, 1) + Cell(metresPerSecond, 3) + Cell(fix.speedKmh, 2);
    line += Cell(fix.course, 1) + Cell(fix.hdop, 2);
    line += "," + (fix.satellites ? std::to_string(*fix.satellites) : "") + "\n";
    file.Write(line);
  }
}

}  // namespace host
