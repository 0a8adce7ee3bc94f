// The three entry points of the GPS API library.
#include <gpsapi.h>

#include <cstdlib>

#include "dastrel/GpsdReader.h"

namespace {

dastrel::GpsdReader reader;

// Handed to the caller: it stays as it is until the caller asks again, whatever gpsd says
// meanwhile.
GPS_POSITION handedOut;

}  // namespace

extern "C" {

/// Begins to follow gpsd at FEROLIN_GPSD ("HOST:PORT", "localhost:2947" when unset). Returns at
/// once.
void WINAPI StartGPSAPI() {
  reader.Start(std::getenv("FEROLIN_GPSD"));
}

/// Ends that; the position is unknown afterwards.
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
