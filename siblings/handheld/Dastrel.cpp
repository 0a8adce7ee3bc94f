#include "handheld/Dastrel.h"

#include "handheld/GpsService.h"

namespace {

dastrel::GpsService service;

// Record returned by GetGPSPos; changes only with its next call.
GPS_POSITION handedOut = {};

}  // namespace

extern "C" {

BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID) {
  return TRUE;
}

void WINAPI StartGPSAPI() {
  service.Start();
}

void WINAPI StopGPSAPI() {
  service.Stop();
}

const GPS_POSITION* WINAPI GetGPSPos() {
  handedOut = service.GetPosition();
  return &handedOut;
}
}
