#include "drives/KmlWriter.h"

#include <string>

#include "drives/DriveTexts.h"
#include "drives/XmlText.h"

namespace host {

void KmlWriter::Begin() {
  file.Write(R"(<?xml version="1.0" encoding="UTF-8"?>
<kml xmlns="http://www.opengis.net/kml/2.2" xmlns:gx="http://www.google.com/kml/ext/2.2">
<Document>
<Schema id="drive"><gx:SimpleArrayField name="speed" type="float"><displayName>km/h</displayName>)"
             R"(</gx:SimpleArrayField></Schema>
)");
}

void KmlWriter::BeginDrive(const Drive& drive) {
  file.Write("<Placemark><name>" + DescribeMoment(drive.startMs) + "</name><description>" +
             XmlText(drive.source) + "</description>\n<gx:MultiTrack>\n");
}

/// All times come first, then all places, then all speeds.
void KmlWriter::AddSegment(const TrackSegment& segment) {
  file.Write("<gx:Track>\n");
  for (const Fix& fix : segment) {
    file.Write("<when>" + DescribeUtc(fix.timeMs) + "</when>\n");
  }
  for (const Fix& fix : segment) {
    file.Write("<gx:coord>" + DescribeCoordinate(fix.longitude) + " " +
               DescribeCoordinate(fix.latitude) + " " +
               DescribeNumber(fix.altitude.value_or(0), 1) + "</gx:coord>\n");
  }
  file.Write(R"(<ExtendedData><SchemaData schemaUrl="#drive"><gx:SimpleArrayData name="speed">)"
             "\n");
  for (const Fix& fix : segment) {
    file.Write("<gx:value>" + DescribeNumber(fix.speedKmh.value_or(0), 2) + "</gx:value>\n");
  }
  file.Write("</gx:SimpleArrayData></SchemaData></ExtendedData>\n</gx:Track>\n");
}

void KmlWriter::EndDrive() {
  file.Write("</gx:MultiTrack>\n</Placemark>\n");
}

void KmlWriter::End() {
  file.Write("</Document>\n</kml>\n");
}

}  // namespace host
