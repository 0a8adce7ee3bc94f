#include "track/TrackKmlWriter.h"

#include <windows.h>

#include <string>
#include <string_view>

#include "base/CodePage.h"
#include "base/File.h"
#include "base/Format.h"
#include "base/MissingValue.h"
#include "track/Degrees.h"
#include "track/TrackStore.h"

namespace ferolin {

namespace {

constexpr int LAST_FILE_NUMBER = 9999;

constexpr std::string_view HEADER =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<kml xmlns=\"http://earth.google.com/kml/2.1\">\n"
    "<Placemark>\n"
    "\t<name>Tachymo track</name>\n"
    "\t<LineString>\n"
    "\t\t<extrude>0</extrude>\n"
    "\t\t<tessellate>1</tessellate>\n"
    "\t\t<altitudeMode>clampToGround</altitudeMode>\n"
    "\t\t<coordinates>\n";

/// Lines are written together once they are this long: a call of the file system costs more
/// than printing a line.
constexpr std::size_t BLOCK_SIZE = 4096;

constexpr std::string_view FOOTER =
    "\t\t</coordinates>\n"
    "\t</LineString>\n"
    "</Placemark>\n"
    "</kml>";

/// Makes every level of the path that is missing. Failures (a level that exists, the empty one
/// before a leading backslash) do not matter: creating the file tells in the end.
void CreateFolders(const WideString& folder) {
  for (std::size_t end = folder.find('\\'); end != WideString::npos;
       end = folder.find('\\', end + 1)) {
    CreateDirectoryW(folder.substr(0, end).c_str(), nullptr);
  }
  CreateDirectoryW(folder.c_str(), nullptr);
}

bool FileExists(const WideString& path) {
  WIN32_FIND_DATAW found;
  const HANDLE search = FindFirstFileW(path.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) {
    return false;
  }
  FindClose(search);
  return true;
}

/// Empty when every number is taken.
WideString FindFreeName(const WideString& folder) {
  for (int number = 1; number <= LAST_FILE_NUMBER; ++number) {
    WideString path = folder + Widen(Format("\\Track%04i.kml", number));
    if (!FileExists(path)) {
      return path;
    }
  }
  return {};
}

/// Writes the points whose latitude, longitude and altitude all differ from those of the point
/// written before, so that standing still and driving along a line leave few points.
bool WritePoints(const File& file, const TrackStore& track) {
  std::string lines;
  float lastLatitude = MISSING_FLOAT;
  float lastLongitude = MISSING_FLOAT;
  float lastAltitude = MISSING_FLOAT;
  for (int index = 0; index < track.GetPointCount(); ++index) {
    const TrackPoint& point = *track.GetPoint(index);
    if (IsMissing(point.latitude) || IsMissing(point.longitude) || IsMissing(point.altitude)) {
      continue;
    }
    const float latitude = DegreesFromNmea(point.latitude);
    const float longitude = DegreesFromNmea(point.longitude);
    if (latitude == lastLatitude || longitude == lastLongitude || point.altitude == lastAltitude) {
      continue;
    }
    lines += Format("\t\t\t%f,%f,%f\n", longitude, latitude, point.altitude);
    if (lines.size() >= BLOCK_SIZE) {
      if (!file.Write(lines)) {
        return false;
      }
      lines.clear();
    }
    lastLatitude = latitude;
    lastLongitude = longitude;
    lastAltitude = point.altitude;
  }
  return lines.empty() || file.Write(lines);
}

}  // namespace

void WriteTrackKml(const TrackStore& track, const WideString& folder) {
  CreateFolders(folder);
  if (track.GetPointCount() == 0) {
    return;
  }
  const WideString path = FindFreeName(folder);
  if (path.empty()) {
    return;
  }
  const File file = File::ForWriting(path);
  if (file.IsOpen() && file.Write(HEADER) && WritePoints(file, track)) {
    file.Write(FOOTER);
  }
}

}  // namespace ferolin
