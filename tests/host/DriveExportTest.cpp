#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <fstream>

#include "TestFolder.h"
#include "drives/DriveExport.h"

namespace host {
namespace {

// 21 November 2026, 17:42:03 UTC.
constexpr std::int64_t START_MS = (20778LL * 86400 + 63723) * 1000;

class DriveExportTest : public testing::Test {
 protected:
  DriveExportTest() {
    setenv("TZ", "UTC0", 1);
    tzset();
    const std::int64_t drive = store.Begin("a<b\"", START_MS);
    Fix fix;
    fix.timeMs = START_MS + 250;
    fix.hasFix = true;
    fix.latitude = 48.5;
    fix.longitude = -11.25;
    fix.altitude = 545.4;
    fix.speedKmh = 36;
    fix.course = 84.4;
    fix.hdop = 0.9;
    fix.satellites = 8;
    store.Add(drive, 1, fix);
    Fix lost;
    lost.timeMs = START_MS + 1000;
    lost.latitude = 1;
    lost.longitude = 2;
    store.Add(drive, 2, lost);
    Fix bare;
    bare.timeMs = START_MS + 2000;
    bare.hasFix = true;
    bare.latitude = 48.75;
    bare.longitude = -11.5;
    store.Add(drive, 3, bare);
  }

  std::string Export(TrackFormat format) {
    const std::string path = folder.GetPath() + "/export";
    ExportDrives(store, store.List(), format, path);
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  TestFolder folder;
  DriveStore store{folder.GetPath(), Database::Missing::CREATE};
};

TEST_F(DriveExportTest, WritesGpx) {
  EXPECT_EQ(R"(<?xml version="1.0" encoding="UTF-8"?>
<gpx version="1.1" creator="ferolin-host" xmlns="http://www.topografix.com/GPX/1/1" xmlns:gpxtpx="http://www.garmin.com/xmlschemas/TrackPointExtension/v2">
<trk>
<name>2026-11-21 17:42</name><src>a&lt;b&quot;</src>
<trkseg>
<trkpt lat="48.50000000" lon="-11.25000000"><ele>545.4</ele><time>2026-11-21T17:42:03.250Z</time><sat>8</sat><hdop>0.90</hdop><extensions><gpxtpx:TrackPointExtension><gpxtpx:speed>10.000</gpxtpx:speed><gpxtpx:course>84.4</gpxtpx:course></gpxtpx:TrackPointExtension></extensions></trkpt>
</trkseg>
<trkseg>
<trkpt lat="48.75000000" lon="-11.50000000"><time>2026-11-21T17:42:05.000Z</time></trkpt>
</trkseg>
</trk>
</gpx>
)",
            Export(TrackFormat::GPX));
}

TEST_F(DriveExportTest, WritesKml) {
  EXPECT_EQ(R"(<?xml version="1.0" encoding="UTF-8"?>
<kml xmlns="http://www.opengis.net/kml/2.2" xmlns:gx="http://www.google.com/kml/ext/2.2">
<Document>
<Schema id="drive"><gx:SimpleArrayField name="speed" type="float"><displayName>km/h</displayName></gx:SimpleArrayField></Schema>
<Placemark><name>2026-11-21 17:42</name><description>a&lt;b&quot;</description>
<gx:MultiTrack>
<gx:Track>
<when>2026-11-21T17:42:03.250Z</when>
<gx:coord>-11.25000000 48.50000000 545.4</gx:coord>
<ExtendedData><SchemaData schemaUrl="#drive"><gx:SimpleArrayData name="speed">
<gx:value>36.00</gx:value>
</gx:SimpleArrayData></SchemaData></ExtendedData>
</gx:Track>
<gx:Track>
<when>2026-11-21T17:42:05.000Z</when>
<gx:coord>-11.50000000 48.75000000 0.0</gx:coord>
<ExtendedData><SchemaData schemaUrl="#drive"><gx:SimpleArrayData name="speed">
<gx:value>0.00</gx:value>
</gx:SimpleArrayData></SchemaData></ExtendedData>
</gx:Track>
</gx:MultiTrack>
</Placemark>
</Document>
</kml>
)",
            Export(TrackFormat::KML));
}

TEST_F(DriveExportTest, WritesATable) {
  EXPECT_EQ(
      "Drive,Segment,UTC date,UTC time,Latitude,Longitude,Altitude,Speed (m/s),km/h,Course,HDOP,"
      "Satellites\n"
      "1,1,2026-11-21,17:42:03.250,48.50000000,-11.25000000,545.4,10.000,36.00,84.4,0.90,8\n"
      "1,2,2026-11-21,17:42:05.000,48.75000000,-11.50000000,,,,,,\n",
      Export(TrackFormat::CSV));
}

TEST_F(DriveExportTest, WritesGeoJson) {
  EXPECT_EQ(R"({"type":"FeatureCollection","features":[
{"type":"Feature","properties":{"drive":1,"name":"2026-11-21 17:42","source":"a<b\"",)"
            R"("coordTimes":[["2026-11-21T17:42:03.250Z"],["2026-11-21T17:42:05.000Z"]],)"
            R"("speeds":[[36.00],[null]]},"geometry":{"type":"MultiLineString",)"
            R"("coordinates":[[[-11.25000000,48.50000000,545.4]],[[-11.50000000,48.75000000]]]}}
]}
)",
            Export(TrackFormat::GEOJSON));
}

TEST_F(DriveExportTest, SaysWhyAFileCannotBeWritten) {
  try {
    ExportDrives(store, {}, TrackFormat::CSV, "/dev/full");
    FAIL();
  } catch (const HostError& error) {
    EXPECT_STREQ("cannot write /dev/full: No space left on device", error.what());
  }
}

}  // namespace
}  // namespace host
