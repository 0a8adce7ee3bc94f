#include "sources/DemoSource.h"

namespace host {

namespace {

std::uint64_t CountLapBytes(std::chrono::sys_seconds start) {
  DemoDrive drive(start);
  std::uint64_t bytes = 0;
  while (drive.GetState().second < DemoDrive::GetLapSeconds()) {
    bytes += drive.GetSentences().size();
    drive.Advance();
  }
  return bytes;
}

}  // namespace

DemoSource::DemoSource(std::chrono::sys_seconds start, Laps laps) : drive(start) {
  if (laps == Laps::ONE) {
    size = CountLapBytes(start);
  }
}

std::optional<std::string> DemoSource::Read() {
  const bool lapDriven = size && drive.GetState().second == DemoDrive::GetLapSeconds();
  if (stopped || lapDriven) {
    return std::nullopt;
  }
  std::string bytes = drive.GetSentences();
  drive.Advance();
  return bytes;
}

}  // namespace host
