// Prints everything that the engine gives away on one long drive: each read-out after each
// position, and at the end what it would keep, a checksum of each view's picture in all
// orientations, the files it wrote, the sounds it started and the messages it sent. The same drive
// on two homes has to print the same bytes.
//
// usage: device-drive [folder for the pictures]

#include <handheld.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

#include "../e2e/EngineTest.h"

namespace {

using e2e::Device;
using e2e::EngineLibrary;
using e2e::HostWindow;
using e2e::Receiver;
using e2e::Sentence;

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr int SECONDS = 240;

std::string pictureFolder;

std::string Fixed(const char* format, int first, int second) {
  char text[64];
  std::snprintf(text, sizeof text, format, first, second);
  return text;
}

/// Speeds up to 160 km/h, stands for a while, and speeds up again, with every tenth of a knot that
/// occurs.
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

/// The frame of an update is drawn behind the host's back: waits until a new one has begun, and
/// then for the lock that the engine holds until it is complete. False when none begins.
bool WaitForFrame(const EngineLibrary& engine, HWND window, std::uint64_t before) {
  const auto deadline = std::chrono::steady_clock::now() + 30s;
  while (handheld::WindowPixelsVersion(window) == before) {
    if (std::chrono::steady_clock::now() > deadline) {
      return false;
    }
    std::this_thread::sleep_for(1ms);
  }
  engine.SensorValue(FEROLIN_SENSOR_SPEED);
  return true;
}

void SavePicture(const handheld::Pixels& pixels, const std::string& name) {
  std::ofstream file(fs::path(pictureFolder) / (name + ".ppm"), std::ios::binary);
  file << "P6 " << pixels.width << ' ' << pixels.height << " 255\n";
  for (const std::uint32_t pixel : pixels.rows) {
    file << static_cast<char>(pixel >> 16) << static_cast<char>(pixel >> 8)
         << static_cast<char>(pixel);
  }
}

void PrintPicture(HWND window, const std::string& name) {
  const handheld::Pixels pixels = handheld::WindowPixels(window);
  // FNV-1a.
  std::uint64_t checksum = 0xCBF29CE484222325;
  for (const std::uint32_t pixel : pixels.rows) {
    checksum = (checksum ^ pixel) * 0x100000001B3;
  }
  std::printf("picture %s: %d x %d, %016llx\n", name.c_str(), pixels.width, pixels.height,
              static_cast<unsigned long long>(checksum));
  if (!pictureFolder.empty()) {
    SavePicture(pixels, name);
  }
}

/// Draws each view upright and in each orientation, one update a picture. The reader must not be
/// running: what is left of the last update would draw a picture too many. False when one was not
/// drawn.
bool PrintViews(const EngineLibrary& engine, const HostWindow& host, Receiver& receiver,
                const std::string& language) {
  struct Orientation {
    const char* name;
    decltype(engine.SetInvertVert) set;
  };
  const std::array<Orientation, 5> orientations = {{{"upright", nullptr},
                                                    {"upside-down", engine.SetInvertVert},
                                                    {"mirrored", engine.SetInvertHorz},
                                                    {"negative", engine.SetInvertColor},
                                                    {"turned", engine.SetInvertOrient}}};
  int second = SECONDS;
  engine.SetRenderWindow(host.Get());
  engine.StartCallBack(host.Get());
  for (int view = 0; view < engine.GetWidgetsCount(); ++view) {
    engine.SetCurRenderWidget(view);
    for (const Orientation& orientation : orientations) {
      if (orientation.set != nullptr) {
        orientation.set(1);
      }
      const std::uint64_t before = handheld::WindowPixelsVersion(host.Get());
      receiver.Send(Epoch(second++));
      if (!WaitForFrame(engine, host.Get(), before)) {
        std::fprintf(stderr, "view %d is not drawn\n", view);
        return false;
      }
      PrintPicture(host.Get(), language + "-" + std::to_string(view) + "-" + orientation.name);
      if (orientation.set != nullptr) {
        orientation.set(0);
      }
    }
  }
  engine.StopCallBack();
  engine.SetRenderWindow(nullptr);
  return true;
}

/// False when a position got no answer.
bool Go(Device& device, const std::string& language) {
  HostWindow host(480, 800);
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
  engine.StopCallBack();
  const bool isDrawn = PrintViews(engine, host, *receiver, language);
  engine.SetIniFileValue(TEXT("Host"), TEXT("View"), TEXT("3"), TEXT(""));
  return isDrawn;
}

/// Everything that lies beside the engine.
void Install(Device& device) {
  const fs::path assets = ASSETS;
  for (const auto& entry : fs::recursive_directory_iterator(assets)) {
    const std::string name = fs::relative(entry.path(), assets).string();
    if (!entry.is_regular_file()) {
      continue;
    }
    if (name.starts_with("Pics/") || name.starts_with("Wav/") || name == "lcd-u.ttf") {
      std::ifstream file(entry.path(), std::ios::binary);
      device.WriteFile(name, std::string(std::istreambuf_iterator<char>(file), {}));
    }
  }
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
  Install(*device);
  const bool isDone = Go(*device, isRussian ? "ru" : "en");
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

int main(int count, char** arguments) {
  pictureFolder = count > 1 ? arguments[1] : "";
  return Drive(false) && Drive(true) ? 0 : 1;
}
