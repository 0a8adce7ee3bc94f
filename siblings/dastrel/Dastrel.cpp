// The three entry points of the GPS API library.
#include <gpsapi.h>

#include <cstdlib>

#include "dastrel/GpsdReader.h"

namespace {

dastrel::GpsdReader reader;

// Record returned by GetGPSPos; changes only with its next call.
GPS_POSITION handedOut;

}  // namespace

extern "C" {

/// Connects to gpsd at FEROLIN_GPSD ("HOST:PORT", "localhost:2947" when unset) in the background.
/// Returns at once.
void WINAPI StartGPSAPI() {
  reader.Start(std::getenv("FEROLIN_GPSD"));
}

/// Closes the connection; the position is unknown afterwards.
void WINAPI StopGPSAPI() {
  reader.Stop();
}

/// The newest position, never null; FixType is GPS_FIX_UNKNOWN when there is none. For one polling
/// thread: the record stays at its address and keeps its content until the next call.
const GPS_POSITION* WINAPI GetGPSPos() {
  handedOut = reader.GetPosition();
  return &handedOut;
}
}
