// Exports of the handheld's GPS API library.
#pragma once

#include <gpsapi.h>

extern "C" {

/// Connects to the system's GPS service, which switches the receiver on. Does nothing where the
/// system has none.
void WINAPI StartGPSAPI();

/// Leaves the service, which may switch the receiver off; the position is unknown afterwards.
void WINAPI StopGPSAPI();

/// The newest position, never null; FixType is GPS_FIX_UNKNOWN when there is none. For one polling
/// thread: the record stays at its address and keeps its content until the next call.
const GPS_POSITION* WINAPI GetGPSPos();
}
