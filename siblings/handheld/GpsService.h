// The system's GPS service.
#pragma once

#include <gpsapi.h>

#include "base/SharedWord.h"

namespace dastrel {

/// The service of gpsapi.dll, which came with Windows Mobile 5 and shares one receiver among
/// programs. Where it is missing there are no positions. Start and Stop are called on one thread,
/// GetPosition on another.
class GpsService {
 public:
  void Start();
  void Stop();

  /// Position told within the last five seconds. Without one only version and size are set, and
  /// FixType is GPS_FIX_UNKNOWN.
  GPS_POSITION GetPosition() const;

 private:
  void Load();

  HMODULE library = nullptr;
  HANDLE(WINAPI* open)
  (HANDLE newPosition, HANDLE stateChange, LPCWSTR reserved, DWORD flags) = nullptr;
  DWORD(WINAPI* close)(HANDLE service) = nullptr;
  DWORD(WINAPI* read)
  (HANDLE service, GPS_POSITION* position, DWORD longestAgeMs, DWORD flags) = nullptr;
  /// Connection; null without one.
  ferolin::SharedWord<HANDLE> connection = nullptr;
};

}  // namespace dastrel
