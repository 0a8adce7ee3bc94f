// Prints everything that the engine gives away on one long drive: each read-out after each position, and at the end
// what it would keep, the files it wrote, the sounds it started and the messages it sent. The same drive on two homes
// has to print the same bytes.

#include <cstdio>
#include <string>

#include "../e2e/EngineTest.h"

namespace {

using e2e::Device;
using e2e::EngineLibrary;
using e2e::HostWindow;
using e2e::Sentence;

constexpr int SECONDS = 240;

std::string Fixed(const char* format, int first, int second) {
  char text[64];
  std::snprintf(text, sizeof text, format, first, second);
  return text;
}

/// Speeds up to 160 km/h, stands for a while, and speeds up again, with every tenth of a knot that occurs.
int TenthsOfKnots(int second) {
  const int phase = second % 120;
  return phase < 40 ? phase * 21 + phase % 3 : phase < 80 ? 860 - (phase - 40) * 22 : 0;
}

/// One second of a receiver with twelve satellites in view; the last sentence completes it.
std::string Epoch(int second) {
  const std::string time = Fixed("12%02d%02d", second / 60, second % 60);
  const int tenths = TenthsOfKnots(second);
  const std::string north = Fixed("48%02d.%03d,N", 7 + second / 90, second * 11 % 1000);
  const std::string east = Fixed("011%02d.%03d,E", 31 + second / 50, second * 20 % 1000);
  const std::string course = Fixed("%03d.%d", second * 7 % 360, second % 10);
  return Sentence("GPGGA," + time + "," + north + "," + east + ",1,08,0.9," +
                  Fixed("%d.%d", 480 + second, second % 10) + ",M,46.9,M,,") +
         Sentence("GPGSA,A,3,04,05,,09,12,,,24,,,,,2." + std::to_string(second % 10) + ",1.3,2.1") +
         Sentence("GPGSV,3,1,12,01,40,083,46,02,17,308,41,12,07,344,39,14,22,228,45") +
         Sentence("GPGSV,3,2,12,03,40,083,46,04,17,308,41,15,07,344,39,16,22,228,45") +
         Sentence("GPGSV,3,3,12,05,40,083,46,06,17,308,41,17,07,344,39,18,22,228,45") +
         Sentence("GPGLL," + north + "," + east + "," + time + ",A") +
         Sentence("GPVTG," + course + ",T,,M," + Fixed("%d.%d", tenths / 10, tenths % 10) +
                  ",N,,K") +
         Sentence("GPRMC," + time + ",A," + north + "," + east + "," +
                  Fixed("%d.%d", tenths / 10, tenths % 10) + "," + course + ",230324,,");
}

void PrintSensors(const EngineLibrary& engine, const std::string& heading) {
  std::printf("== %s\n", heading.c_str());
  for (int index = 0; index < engine.GetSensorsCount(); ++index) {
    std::printf("%s: %s\n", engine.SensorName(index).c_str(), engine.SensorValue(index).c_str());
  }
}

void PrintFile(const Device& device, const std::string& name) {
  std::string content = device.ReadFile(name);
  // The folder is another one each time.
  const std::string folder = device.GetProgramFolder();
  for (std::size_t at; (at = content.find(folder)) != std::string::npos;) {
    content.replace(at, folder.size(), "<folder>");
  }
  std::printf("== %s\n%s\n", name.c_str(), content.c_str());
}

/// False when a position got no answer.
bool Go(Device& device) {
  HostWindow host;
  const auto receiver = device.Connect("COM1");
  EngineLibrary engine;
  engine.SetUseGPSAPI(0);
  engine.SetComPortName(TEXT("COM1"));
  engine.SetComPortSpeed(9600);
  engine.SetWriteKML(1);
  engine.SetAlwaysTurnOn(1);
  engine.SetBeepOnZero(1);
  engine.SetSpeedEvent(0, 60, 10, 1);
  engine.SetSpeedEvent(1, 110, 5, 1);
  engine.SetSMSParams(
      TEXT("+4912345, 67890"),
      TEXT("%Time% %Latitude% %Longitude% %Altitude% %Speed% %Azimuth% %GoogleMaps%"), 1, 1, 1);
  engine.StartCallBack(host.Get());
  for (int second = 0; second < SECONDS; ++second) {
    receiver->Send(Epoch(second));
    if (host.WaitFor(engine.GetWndMessageID(), 1, 60'000).empty()) {
      std::fprintf(stderr, "no answer in second %d\n", second);
      return false;
    }
    PrintSensors(engine, Fixed("second %d of %d", second, SECONDS));
  }
  engine.SendSMS();
  for (int index = 0; index < engine.GetSensorsCount(); ++index) {
    if (engine.IsSensorSaveable(index)) {
      std::printf("kept %d: %s\n", index, engine.RegistryString(index).c_str());
    }
  }
  engine.SetIniFileValue(TEXT("Host"), TEXT("View"), TEXT("3"), TEXT(""));
  engine.StopCallBack();
  return true;
}

bool Drive(bool isRussian) {
  const auto device = Device::Make();
  if (isRussian) {
    device->SetRussian();
  }
  SYSTEMTIME noon = {};
  noon.wYear = 2024;
  noon.wMonth = 3;
  noon.wDay = 23;
  noon.wHour = 12;
  device->StopClockAt(noon);
  device->SetZone(3);
  device->InstallSmsLibrary();
  for (const char* name : {"Limit", "LimitDown", "Zero"}) {
    device->WriteFile(std::string("Wav/") + name + ".wav", "");
  }
  const bool isDone = Go(*device);
  PrintFile(*device, "TachyMo.ini");
  PrintFile(*device, "Tracks/Track0001.kml");
  for (const std::string& sound : device->GetSounds()) {
    std::printf("sound %s\n", sound.c_str());
  }
  for (const Device::Sms& sms : device->GetSmsSent()) {
    std::printf("message to %s: %s\n", sms.recipient.c_str(), sms.text.c_str());
  }
  return isDone;
}

}  // namespace

int main() {
  return Drive(false) && Drive(true) ? 0 : 1;
}
