// Stands in for the sibling library of the GPS API and tells what was asked of it.
#include <gpsapi.h>

#ifndef WITHOUT_ENTRIES

namespace {

int starts = 0;
int stops = 0;
GPS_POSITION position = {};

}  // namespace

extern "C" {

void WINAPI StartGPSAPI() {
  ++starts;
}

void WINAPI StopGPSAPI() {
  ++stops;
}

const GPS_POSITION* WINAPI GetGPSPos() {
  return &position;
}

int CountStarts() {
  return starts;
}

int CountStops() {
  return stops;
}

void SetPosition(const GPS_POSITION* newPosition) {
  position = *newPosition;
}
}

#endif
