#include "gps/GpsApiLibrary.h"

#include "base/ModuleFunction.h"

namespace ferolin {

GpsApiLibrary theGpsApi;

GpsApiLibrary::GpsApiLibrary() : module(LoadLibraryW(TEXT("Dastrel.DLL"))) {
  FindEntry(module, TEXT("StartGPSAPI"), start);
  FindEntry(module, TEXT("StopGPSAPI"), stop);
  FindEntry(module, TEXT("GetGPSPos"), getPosition);
}

GpsApiLibrary::~GpsApiLibrary() {
  if (module != nullptr) {
    FreeLibrary(module);
  }
}

void GpsApiLibrary::Start() const {
  if (start != nullptr) {
    start();
  }
}

void GpsApiLibrary::Stop() const {
  if (stop != nullptr) {
    stop();
  }
}

bool GpsApiLibrary::GetPosition(GPS_POSITION& position) const {
  const GPS_POSITION* current = getPosition != nullptr ? getPosition() : nullptr;
  if (current == nullptr) {
    return false;
  }
  position = *current;
  return true;
}

}  // namespace ferolin
