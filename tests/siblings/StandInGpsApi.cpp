// Stands in for the system's GPS service.
#include <gpsapi.h>

namespace {

int connections = 0;
DWORD result = ERROR_SUCCESS;
DWORD askedAgeMs = 0;

}  // namespace

extern "C" {

HANDLE WINAPI GPSOpenDevice(HANDLE newPosition, HANDLE stateChange, LPCWSTR reserved, DWORD flags) {
  if (newPosition != nullptr || stateChange != nullptr || reserved != nullptr || flags != 0) {
    return nullptr;
  }
  ++connections;
  return &connections;
}

DWORD WINAPI GPSCloseDevice(HANDLE service) {
  if (service != &connections) {
    return ERROR_INVALID_HANDLE;
  }
  --connections;
  return ERROR_SUCCESS;
}

/// Spoils the record when it fails.
DWORD WINAPI GPSGetPosition(HANDLE service, GPS_POSITION* position, DWORD longestAgeMs, DWORD) {
  if (service != &connections || connections != 1 || position->dwVersion != GPS_VERSION_1 ||
      position->dwSize != sizeof(GPS_POSITION)) {
    return ERROR_INVALID_PARAMETER;
  }
  askedAgeMs = longestAgeMs;
  position->FixType = GPS_FIX_3D;
  position->dwValidFields = GPS_VALID_LATITUDE;
  position->dblLatitude = 55.75;
  return result;
}

int CountConnections() {
  return connections;
}

DWORD GetAskedAge() {
  return askedAgeMs;
}

void SetResult(DWORD newResult) {
  result = newResult;
}
}
