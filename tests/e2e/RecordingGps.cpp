#include "RecordingGps.h"

#include <gpsapi.h>
#include <windows.h>

#include <cstdlib>
#include <fstream>
#include <string>

namespace {

std::string Path(const char* name) {
  const char* const folder = std::getenv(RECORDING_GPS_FOLDER);
  return std::string(folder != nullptr ? folder : ".") + "/" + name;
}

void Record(const char* call) {
  std::ofstream(Path(RECORDING_GPS_CALLS), std::ios::app) << call << '\n';
}

GPS_POSITION current;
bool isKnown = false;

}  // namespace

extern "C" {

void WINAPI StartGPSAPI() {
  Record("StartGPSAPI");
}

void WINAPI StopGPSAPI() {
  Record("StopGPSAPI");
}

/// Answers the previous position while a new one is being written.
const GPS_POSITION* WINAPI GetGPSPos() {
  GPS_POSITION read;
  std::ifstream file(Path(RECORDING_GPS_POSITION), std::ios::binary);
  if (file.read(reinterpret_cast<char*>(&read), sizeof read)) {
    current = read;
    isKnown = true;
  }
  return isKnown ? &current : nullptr;
}

}  // extern "C"
