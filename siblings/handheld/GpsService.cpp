#include "handheld/GpsService.h"

#include "base/ModuleFunction.h"

namespace dastrel {

namespace {

constexpr DWORD LONGEST_AGE_MS = 5000;

GPS_POSITION MakeUnknown() {
  GPS_POSITION position = {};
  position.dwVersion = GPS_VERSION_1;
  position.dwSize = sizeof(position);
  return position;
}

}  // namespace

/// The system's library stays loaded: the polling thread may still be in it.
void GpsService::Load() {
  if (library != nullptr) {
    return;
  }
  library = LoadLibraryW(TEXT("gpsapi.dll"));
  ferolin::FindEntry(library, TEXT("GPSOpenDevice"), open);
  ferolin::FindEntry(library, TEXT("GPSCloseDevice"), close);
  ferolin::FindEntry(library, TEXT("GPSGetPosition"), read);
}

void GpsService::Start() {
  Load();
  if (connection == nullptr && open != nullptr && close != nullptr && read != nullptr) {
    connection = open(nullptr, nullptr, nullptr, 0);
  }
}

void GpsService::Stop() {
  const HANDLE former = connection;
  connection = nullptr;
  if (former != nullptr) {
    close(former);
  }
}

/// The service does not wait for a position. A connection that is closed meanwhile is refused.
GPS_POSITION GpsService::GetPosition() const {
  const HANDLE service = connection;
  GPS_POSITION position = MakeUnknown();
  if (service == nullptr || read(service, &position, LONGEST_AGE_MS, 0) != ERROR_SUCCESS) {
    return MakeUnknown();
  }
  return position;
}

}  // namespace dastrel
