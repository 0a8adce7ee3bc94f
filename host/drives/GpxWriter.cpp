#include "drives/GpxWriter.h"

#include <string>

#include "drives/DriveTexts.h"
#include "drives/XmlText.h"

namespace host {

namespace {

std::string Element(const char* name, const std::string& content) {
  return std::string("<") + name + ">" + content + "</" + name + ">";
}

/// Empty for a missing value.
std::string Element(const char* name, const std::optional<double>& value, int decimals) {
  return value ? Element(name, DescribeNumber(*value, decimals)) : "";
}

std::string Extensions(const Fix& fix) {
  std::optional<double> speed = fix.speedKmh;
  if (speed) {
    *speed /= KMH_PER_METRE_PER_SECOND;
  }
  const std::string motion =
      Element("gpxtpx:speed", speed, 3) + Element("gpxtpx:course", fix.course, 1);
  return motion.empty() ? "" : Element("extensions", Element("gpxtpx:TrackPointExtension", motion));
}

std::string Point(const Fix& fix) {
  const std::string satellites =
      fix.satellites ? Element("sat", std::to_string(*fix.satellites)) : "";
  return "<trkpt lat=\"" + DescribeCoordinate(fix.latitude) + "\" lon=\"" +
         DescribeCoordinate(fix.longitude) + "\">" + Element("ele", fix.altitude, 1) +
         Element("time", DescribeUtc(fix.timeMs)) + satellites + Element("hdop", fix.hdop, 2) +
         Extensions(fix) + "</trkpt>\n";
}

}  // namespace

void GpxWriter::Begin() {
  file.Write(R"(<?xml version="1.0" encoding="UTF-8"?>
<gpx version="1.1" creator="ferolin-host" xmlns="http://www.topografix.com/GPX/1/1")"
             R"( xmlns:gpxtpx="http://www.garmin.com/xmlschemas/TrackPointExtension/v2">
)");
}

void GpxWriter::BeginDrive(const Drive& drive) {
  file.Write("<trk>\n" + Element("name", DescribeMoment(drive.startMs)) +
             Element("src", XmlText(drive.source)) + "\n");
}

void GpxWriter::AddSegment(const TrackSegment& segment) {
  file.Write("<trkseg>\n");
  for (const Fix& fix : segment) {
    file.Write(Point(fix));
  }
  file.Write("</trkseg>\n");
}

void GpxWriter::EndDrive() {
  file.Write("</trk>\n");
}

void GpxWriter::End() {
  file.Write("</gpx>\n");
}

}  // namespace host
