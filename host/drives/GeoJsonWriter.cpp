#include "drives/GeoJsonWriter.h"

#include <nlohmann/json.hpp>

#include "drives/DriveTexts.h"

namespace host {

namespace {

/// In quotation marks; bytes that are no UTF-8 become U+FFFD.
std::string JsonText(const std::string& text) {
  constexpr int ONE_LINE = -1;
  constexpr bool AS_UTF8 = false;
  using nlohmann::json;
  return json(text).dump(ONE_LINE, ' ', AS_UTF8, json::error_handler_t::replace);
}

void Append(std::string& elements, const std::string& element) {
  elements += (elements.empty() ? "" : ",") + element;
}

std::string Coordinates(const Fix& fix) {
  return "[" + DescribeCoordinate(fix.longitude) + "," + DescribeCoordinate(fix.latitude) +
         (fix.altitude ? "," + DescribeNumber(*fix.altitude, 1) : "") + "]";
}

}  // namespace

void GeoJsonWriter::Begin() {
  file.Write(R"({"type":"FeatureCollection","features":[)");
}

void GeoJsonWriter::BeginDrive(const Drive& drive) {
  file.Write(std::string(isFirstDrive ? "\n" : ",\n") +
             R"({"type":"Feature","properties":{"drive":)" + std::to_string(drive.number) +
             R"(,"name":)" + JsonText(DescribeMoment(drive.startMs)) + R"(,"source":)" +
             JsonText(drive.source));
  isFirstDrive = false;
}

void GeoJsonWriter::AddSegment(const TrackSegment& segment) {
  std::string line;
  std::string itsTimes;
  std::string itsSpeeds;
  for (const Fix& fix : segment) {
    Append(line, Coordinates(fix));
    Append(itsTimes, '"' + DescribeUtc(fix.timeMs) + '"');
    Append(itsSpeeds, fix.speedKmh ? DescribeNumber(*fix.speedKmh, 2) : "null");
  }
  Append(lines, "[" + line + "]");
  Append(times, "[" + itsTimes + "]");
  Append(speeds, "[" + itsSpeeds + "]");
}

void GeoJsonWriter::EndDrive() {
  file.Write(R"(,"coordTimes":[)" + times + R"(],"speeds":[)" + speeds +
             R"(]},"geometry":{"type":"MultiLineString","coordinates":[)" + lines + "]}}");
  lines.clear();
  times.clear();
  speeds.clear();
}

void GeoJsonWriter::End() {
  file.Write("\n]}\n");
}

}  // namespace host
