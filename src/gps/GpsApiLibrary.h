#pragma once

#include <gpsapi.h>
#include <windows.h>

namespace ferolin {

/// The sibling library "Dastrel.DLL", which hands over the positions of the platform's GPS API. A
/// missing library or entry is no error: the calls then do nothing. Start and stop are called on
/// the host's thread, GetPosition on the reader's.
class GpsApiLibrary {
 public:
  GpsApiLibrary();
  ~GpsApiLibrary();
  GpsApiLibrary(const GpsApiLibrary&) = delete;
  GpsApiLibrary& operator=(const GpsApiLibrary&) = delete;

  void Start() const;
  void Stop() const;

  /// Copies the current position into `position`. False, and `position` left alone, when the
  /// library or its entry is missing.
  bool GetPosition(GPS_POSITION& position) const;

 private:
  HMODULE module;
  void(WINAPI* start)() = nullptr;
  void(WINAPI* stop)() = nullptr;
  const GPS_POSITION*(WINAPI* getPosition)() = nullptr;
};

/// The one instance, made when this library is loaded and gone when it is unloaded.
extern GpsApiLibrary theGpsApi;

}  // namespace ferolin
