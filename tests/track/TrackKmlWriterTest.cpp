#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "base/MissingValue.h"
#include "handheld.h"
#include "support/FullDisk.h"
#include "support/TempFolder.h"
#include "track/TrackKmlWriter.h"
#include "track/TrackStore.h"

namespace ferolin {
namespace {

using testing_support::FullDisk;
using testing_support::TempFolder;

const std::string HEADER =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<kml xmlns=\"http://earth.google.com/kml/2.1\">\n"
    "<Placemark>\n"
    "\t<name>Tachymo track</name>\n"
    "\t<LineString>\n"
    "\t\t<extrude>0</extrude>\n"
    "\t\t<tessellate>1</tessellate>\n"
    "\t\t<altitudeMode>clampToGround</altitudeMode>\n"
    "\t\t<coordinates>\n";

const std::string FOOTER =
    "\t\t</coordinates>\n"
    "\t</LineString>\n"
    "</Placemark>\n"
    "</kml>";

class TrackKmlWriterTest : public testing::Test {
 protected:
  void Add(float latitude, float longitude, float altitude) {
    // The speed counts up: points that agree in their position are no repetitions.
    const float speed = static_cast<float>(track.GetPointCount());
    track.Append({altitude, longitude, latitude, 0, speed, {}});
  }

  void AddOnePoint() { Add(4807.038F, 1131.0F, 545.4F); }

  void Write() { WriteTrackKml(track, folder.DevicePath()); }

  /// The coordinate lines of the first file; the text around them is checked.
  std::string Lines() {
    Write();
    const std::string text = folder.Read("Track0001.kml");
    EXPECT_TRUE(text.starts_with(HEADER));
    EXPECT_TRUE(text.ends_with(FOOTER));
    const std::size_t size = text.size() - HEADER.size() - FOOTER.size();
    return text.size() < HEADER.size() + FOOTER.size() ? text : text.substr(HEADER.size(), size);
  }

  TempFolder folder;
  TrackStore track;
};

TEST_F(TrackKmlWriterTest, FileIsRightByteForByte) {
  Add(4807.038F, 1131.0F, 545.4F);
  Add(4807.1F, 1131.1F, 545.5F);
  Add(-3352.128F, -15112.6F, -3.25F);
  Write();
  EXPECT_EQ(HEADER +
                "\t\t\t11.516666,48.117302,545.400024\n"
                "\t\t\t11.518333,48.118336,545.500000\n"
                "\t\t\t-151.209991,-33.868797,-3.250000\n" +
                FOOTER,
            folder.Read("Track0001.kml"));
  EXPECT_EQ(51U, FOOTER.size());
}

TEST_F(TrackKmlWriterTest, LineHoldsLongitudeLatitudeAndAltitude) {
  AddOnePoint();
  EXPECT_EQ("\t\t\t11.516666,48.117302,545.400024\n", Lines());
}

TEST_F(TrackKmlWriterTest, HandlesAreClosed) {
  const int before = handheld::HandlesAlive();
  AddOnePoint();
  Write();
  Write();
  EXPECT_EQ(before, handheld::HandlesAlive());
}

// ---- Which points are written ----

TEST_F(TrackKmlWriterTest, PointsWithoutAltitudeLeaveHeaderAndFooter) {
  Add(4807.038F, 1131.0F, MISSING_FLOAT);
  Add(4808.038F, 1132.0F, MISSING_FLOAT);
  Write();
  EXPECT_EQ(HEADER + FOOTER, folder.Read("Track0001.kml"));
}

TEST_F(TrackKmlWriterTest, PointsWithoutAltitudeAreSkipped) {
  Add(4807.038F, 1131.0F, MISSING_FLOAT);
  AddOnePoint();
  Add(4808.038F, 1132.0F, MISSING_FLOAT);
  EXPECT_EQ("\t\t\t11.516666,48.117302,545.400024\n", Lines());
}

TEST_F(TrackKmlWriterTest, OnlyTheFirstOfConsecutivePointsAtOneAltitudeIsWritten) {
  AddOnePoint();
  Add(4807.1F, 1131.1F, 545.4F);
  Add(4807.2F, 1131.2F, 545.4F);
  EXPECT_EQ("\t\t\t11.516666,48.117302,545.400024\n", Lines());
}

TEST_F(TrackKmlWriterTest, PointThatRepeatsTheLatitudeIsDropped) {
  AddOnePoint();
  Add(4807.038F, 1131.1F, 545.5F);
  EXPECT_EQ("\t\t\t11.516666,48.117302,545.400024\n", Lines());
}

TEST_F(TrackKmlWriterTest, PointThatRepeatsTheLongitudeIsDropped) {
  AddOnePoint();
  Add(4807.1F, 1131.0F, 545.5F);
  EXPECT_EQ("\t\t\t11.516666,48.117302,545.400024\n", Lines());
}

TEST_F(TrackKmlWriterTest, PointsAreComparedWithTheOneWrittenBefore) {
  AddOnePoint();
  Add(4807.038F, 1133.0F, 700);     // dropped: the latitude of the first
  Add(4807.1F, 1131.1F, 700);       // written, although it repeats the altitude of the dropped one
  Add(4807.038F, 1131.0F, 545.4F);  // written: only the point right before counts
  EXPECT_EQ(
      "\t\t\t11.516666,48.117302,545.400024\n"
      "\t\t\t11.518333,48.118336,700.000000\n"
      "\t\t\t11.516666,48.117302,545.400024\n",
      Lines());
}

/// 47 degrees 60 minutes are 48 degrees.
TEST_F(TrackKmlWriterTest, PointsAreComparedInDegrees) {
  Add(4800.0F, 1131.0F, 1);
  Add(4760.0F, 1131.1F, 2);
  EXPECT_EQ("\t\t\t11.516666,48.000000,1.000000\n", Lines());
}

TEST_F(TrackKmlWriterTest, LongTrackIsWrittenToItsEnd) {
  for (int number = 1; number <= 2500; ++number) {
    Add(4700.0F + static_cast<float>(number % 60), 1100.0F + static_cast<float>(number % 59),
        static_cast<float>(number));
  }
  const std::string lines = Lines();
  EXPECT_EQ(2500, std::ranges::count(lines, '\n'));
  EXPECT_TRUE(lines.ends_with(",2500.000000\n"));
}

// ---- Which file it is ----

TEST_F(TrackKmlWriterTest, EmptyTrackMakesTheFolderButNoFile) {
  WriteTrackKml(track, folder.DevicePath("Tracks"));
  EXPECT_TRUE(folder.Has("Tracks"));
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path("Tracks")));
}

TEST_F(TrackKmlWriterTest, EveryMissingLevelOfTheFolderIsMade) {
  AddOnePoint();
  WriteTrackKml(track, folder.DevicePath("a/b/c"));
  EXPECT_TRUE(folder.Has("a/b/c/Track0001.kml"));
}

TEST_F(TrackKmlWriterTest, FolderMayEndInABackslash) {
  AddOnePoint();
  WriteTrackKml(track, folder.DevicePath("a/b") + TEXT("\\"));
  EXPECT_TRUE(folder.Has("a/b/Track0001.kml"));
}

TEST_F(TrackKmlWriterTest, EarlierFilesAreNeverOverwritten) {
  folder.Write("Track0001.kml", "old");
  AddOnePoint();
  Write();
  EXPECT_EQ("old", folder.Read("Track0001.kml"));
  EXPECT_TRUE(folder.Read("Track0002.kml").starts_with(HEADER));
}

TEST_F(TrackKmlWriterTest, FirstFreeNumberIsTaken) {
  folder.Write("Track0001.kml", "one");
  folder.Write("Track0003.kml", "three");
  AddOnePoint();
  Write();
  EXPECT_TRUE(folder.Has("Track0002.kml"));
  EXPECT_EQ("three", folder.Read("Track0003.kml"));
  Write();
  EXPECT_TRUE(folder.Has("Track0004.kml"));
  EXPECT_EQ(4, folder.CountFiles());
}

TEST_F(TrackKmlWriterTest, WriterGivesUpWhenAllNumbersAreTaken) {
  for (int number = 1; number <= 9999; ++number) {
    char name[32];
    std::snprintf(name, sizeof name, "Track%04d.kml", number);
    folder.Write(name, "");
  }
  AddOnePoint();
  Write();
  EXPECT_EQ(9999, folder.CountFiles());
  EXPECT_EQ("", folder.Read("Track0001.kml"));

  std::filesystem::remove(folder.Path("Track9999.kml"));
  Write();
  EXPECT_TRUE(folder.Read("Track9999.kml").starts_with(HEADER));
}

// ---- Failures ----

TEST_F(TrackKmlWriterTest, FolderThatCannotBeMadeIsGivenUpWithoutAWord) {
  folder.Write("file", "in the way");
  AddOnePoint();
  const int before = handheld::HandlesAlive();
  WriteTrackKml(track, folder.DevicePath("file/Tracks"));
  WriteTrackKml(track, TEXT("\\proc\\nowhere"));
  WriteTrackKml(track, TEXT(""));
  EXPECT_EQ(1, folder.CountFiles());
  EXPECT_EQ(before, handheld::HandlesAlive());
}

TEST_F(TrackKmlWriterTest, FullDiskLeavesWhatCouldBeWritten) {
  AddOnePoint();
  const int before = handheld::HandlesAlive();
  {
    const FullDisk fullDisk(100);
    Write();
  }
  EXPECT_EQ(HEADER.substr(0, 100), folder.Read("Track0001.kml"));
  EXPECT_EQ(before, handheld::HandlesAlive());
}

TEST_F(TrackKmlWriterTest, DiskThatFillsUpAmongThePointsEndsTheFileThere) {
  AddOnePoint();
  Add(4807.1F, 1131.1F, 545.5F);
  const std::string whole = HEADER + "\t\t\t11.516666,48.117302,545.400024\n\t\t\t11.518333,";
  {
    const FullDisk fullDisk(whole.size());
    Write();
  }
  EXPECT_EQ(whole, folder.Read("Track0001.kml"));
}

}  // namespace
}  // namespace ferolin
