// Saved states of the read-outs: a byte for the read-out, then a line with the state.
#include <array>
#include <string>

#include "FuzzedEngine.h"
#include "TryInput.h"

namespace {

void GiveBack(std::string_view line) {
  const int sensor = line.empty() ? 0 : line.front() % FEROLIN_SENSOR_COUNT;
  const std::string_view state = line.substr(line.empty() ? 0 : 1);
  const ferolin::WideString text(state.begin(), state.end());
  std::array<char, 256> buffer = {};
  SetSensorRegistryString(sensor, text.c_str());
  GetSensorRegistryString(sensor, buffer.data(), buffer.size());
  GetSensorValue(sensor, buffer.data(), buffer.size());
}

}  // namespace

void TryInput(const unsigned char* data, std::size_t size) {
  static const fuzz::FuzzedEngine engine("");
  for (int sensor = 0; sensor < FEROLIN_SENSOR_COUNT; ++sensor) {
    ResetSensorValue(sensor);
  }
  std::string_view text(reinterpret_cast<const char*>(data), size);
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size() - 1);
    GiveBack(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  ferolin::theEngine->OnUpdate("$GPRMC,120000,A,4807.038,N,01131.000,E,10.0,84.4,230324,,*00");
  ferolin::theEngine->OnUpdate("$GPRMC,120001,A,4807.048,N,01131.010,E,20.0,84.4,230324,,*00");
}
