// What a gpsd answers, through the library beside the engine into the fix and the read-outs.
#include <algorithm>
#include <chrono>
#include <string_view>

#include "TryInput.h"
#include "dastrel/GpsdReport.h"
#include "dastrel/LatestPosition.h"
#include "engine/SensorTable.h"
#include "gps/FixRecord.h"

void TryInput(const unsigned char* data, std::size_t size) {
  ferolin::FixRecord fix;
  ferolin::SensorTable sensors(fix);
  dastrel::LatestPosition latest;
  dastrel::LatestPosition::TimePoint now;
  std::string_view answers(reinterpret_cast<const char*>(data), size);
  while (!answers.empty()) {
    const std::size_t end = std::min(answers.find('\n'), answers.size() - 1);
    latest.Update(dastrel::GpsdReport::Parse(answers.substr(0, end + 1)), now);
    answers.remove_prefix(end + 1);
    now += std::chrono::seconds(1);
    const GPS_POSITION position = latest.At(now);
    fix.ApplyGpsPosition(&position);
    sensors.Update(fix);
  }
}
