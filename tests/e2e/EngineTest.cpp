#include "EngineTest.h"

#include <cstdio>

namespace e2e {

namespace {

constexpr std::string_view MARKER_TIME = "235959";

}  // namespace

std::string Sentence(std::string_view body) {
  unsigned checksum = 0;
  for (const char character : body) {
    checksum ^= static_cast<unsigned char>(character);
  }
  char ending[8];
  std::snprintf(ending, sizeof ending, "*%02X\r\n", checksum);
  return "$" + std::string(body) + ending;
}

std::string Rmc(std::string_view time, std::string_view status, std::string_view knots) {
  return Sentence("GPRMC," + std::string(time) + "," + std::string(status) +
                  ",4807.038,N,01131.000,E," + std::string(knots) + ",084.4,230324,,");
}

void EngineTest::Start() {
  if (!receiver) {
    receiver = device->Connect("COM1");
  }
  if (!engine) {
    Load();
  }
  engine->SetUseGPSAPI(0);
  engine->SetComPortName(TEXT("COM1"));
  ASSERT_EQ(1, engine->StartCallBack(host->Get()));
}

std::size_t EngineTest::Send(std::string_view bytes, std::size_t updates) {
  receiver->Send(bytes);
  return host->WaitFor(engine->GetWndMessageID(), updates).size();
}

std::size_t EngineTest::CountUpdatesUntilMarker() {
  const UINT message = engine->GetWndMessageID();
  const std::string markerText = "23:59:59";
  std::size_t count = 0;
  receiver->Send(Rmc(MARKER_TIME, "V", ""));
  do {
    count += host->WaitFor(message, 1).size();
  } while (engine->SensorValue(FEROLIN_SENSOR_CURRENT_TIME) != markerText && count > 0);
  return count - 1;
}

}  // namespace e2e
