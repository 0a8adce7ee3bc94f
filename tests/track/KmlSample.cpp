// Writes the track of a drive around a town as KML into the folder that is its argument, and prints
// the points that it was made of (latitude, longitude, altitude as they are kept), one a line.
#include <cmath>
#include <cstdio>

#include "base/MissingValue.h"
#include "handheld.h"
#include "track/TrackKmlWriter.h"
#include "track/TrackStore.h"

int main(int argumentCount, char** arguments) {
  using namespace ferolin;
  if (argumentCount != 2) {
    std::fprintf(stderr, "usage: kml-sample FOLDER\n");
    return 2;
  }
  TrackStore track;
  for (int second = 0; second < 1500; ++second) {
    const double angle = second * 0.004;
    TrackPoint point = {};
    point.latitude = static_cast<float>(5545.0 + 9 * std::sin(angle) + second * 0.0001);
    point.longitude = static_cast<float>(-3737.0 - 9 * std::cos(angle));
    // Now and then the altitude stays, or is not known.
    point.altitude = second % 50 == 49 ? MISSING_FLOAT : static_cast<float>(150 + second / 3 * 0.1);
    point.speedKmh = 50;
    point.time.wSecond = static_cast<WORD>(second % 60);
    if (track.Append(point) != 0) {
      std::printf("%.9g %.9g %.9g\n", static_cast<double>(point.latitude),
                  static_cast<double>(point.longitude), static_cast<double>(point.altitude));
    }
  }
  WriteTrackKml(track, handheld::DevicePath(arguments[1]));
}
