// The device of the suite on Windows: a folder, serial lines, and doubles of what no test can tell
// a real system.

#include "Device.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "DeviceState.windows.h"
#include "RecordingGps.h"
#include "RecordingSms.h"
#include "SerialLine.windows.h"

namespace e2e {

namespace {

namespace fs = std::filesystem;

/// The fourth byte of a pixel is unused.
constexpr std::uint32_t COLOR_MASK = 0x00FFFFFF;

std::wstring Wide(const std::string& ascii) {
  return {ascii.begin(), ascii.end()};
}

class LineReceiver : public Receiver {
 public:
  explicit LineReceiver(const std::string& portName) : port(Wide(portName)) {
    const Lock guard(theState->lock);
    theState->ports[port] = line.GetNearEnd();
  }

  ~LineReceiver() override {
    if (theState != nullptr) {
      const Lock guard(theState->lock);
      theState->ports.erase(port);
    }
  }

  void Send(std::string_view bytes) override { line.Send(bytes); }
  int GetBaudRate() const override { return line.GetBaudRate(); }

 private:
  std::wstring port;
  SerialLine line;
};

/// Process numbers repeat, and a killed test leaves its folder behind.
fs::path MakeFolder() {
  for (unsigned number = GetCurrentProcessId();; ++number) {
    const fs::path folder = fs::temp_directory_path() / ("ferolin-e2e-" + std::to_string(number));
    if (fs::create_directory(folder)) {
      return folder;
    }
  }
}

class WindowsDevice : public Device {
 public:
  WindowsDevice() : folder(MakeFolder()), doubles(L"Ferolin.dll", MakeDoubles()) {
    theState = &state;
    SetTimeRate(state.timeRate);
    // Loaded from there, it finds none of the siblings that lie beside it in the build.
    fs::copy_file(ENGINE_LIBRARY, folder / "Ferolin.dll");
    SetDllDirectoryW(folder.c_str());
  }

  ~WindowsDevice() override {
    theState = nullptr;
    SetDllDirectoryW(nullptr);
    std::error_code ignored;
    fs::remove_all(folder, ignored);
  }

  std::string GetProgramFolder() const override { return folder.string(); }

  void WriteFile(const std::string& name, std::string_view content) override {
    fs::create_directories((folder / name).parent_path());
    std::ofstream(folder / name, std::ios::binary) << content;
  }

  std::string ReadFile(const std::string& name) const override {
    std::ifstream file(folder / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

  bool Exists(const std::string& name) const override { return fs::exists(folder / name); }

  void SetRussian() override { state.isRussian = true; }

  void SetBattery(BYTE flag, BYTE percent) override {
    const Lock guard(state.lock);
    state.batteryFlag = flag;
    state.batteryPercent = percent;
  }

  std::unique_ptr<Receiver> Connect(const std::string& port) override {
    return std::make_unique<LineReceiver>(port);
  }

  void SetTimeRate(double rate) override {
    FILETIME real;
    GetSystemTimeAsFileTime(&real);
    const Lock guard(state.lock);
    state.ticks.GetMs(state.timeRate);
    state.timeRate = rate;
    state.clockBaseReal = ULONGLONG{real.dwHighDateTime} << 32 | real.dwLowDateTime;
    if (!state.isClockStopped) {
      state.clockBase = state.clockBaseReal;
    }
  }

  void StopClockAt(const SYSTEMTIME& utc) override {
    FILETIME moment;
    SystemTimeToFileTime(&utc, &moment);
    const Lock guard(state.lock);
    state.isClockStopped = true;
    state.clockBase = ULONGLONG{moment.dwHighDateTime} << 32 | moment.dwLowDateTime;
    state.zoneHours = 0;
  }

  void SetZone(int hoursEast) override {
    const Lock guard(state.lock);
    state.zoneHours = hoursEast;
  }

  int GetPowerRequirementsHeld() const override {
    const Lock guard(state.lock);
    return static_cast<int>(state.requirements.size());
  }

  int GetPowerRequirementsTaken() const override {
    const Lock guard(state.lock);
    return state.requirementsTaken;
  }

  int GetIdleTimerResets() const override {
    const Lock guard(state.lock);
    return state.idleTimerResets;
  }

  std::vector<std::string> GetSounds() const override {
    const Lock guard(state.lock);
    std::vector<std::string> names;
    for (const std::wstring& sound : state.sounds) {
      names.push_back(fs::path(sound).filename().string());
    }
    return names;
  }

  int GetHandlesAlive() const override {
    DWORD count = 0;
    return GetProcessHandleCount(GetCurrentProcess(), &count) ? static_cast<int>(count) : -1;
  }

  int GetDrawingObjectsAlive() const override {
    const Lock guard(state.lock);
    return static_cast<int>(state.drawingObjects.size());
  }

  void InstallSmsLibrary() override {
    fs::copy_file(RECORDING_SMS_LIBRARY, folder / "Parlex.dll");
    _putenv_s(RECORDING_SMS_FILE, (folder / "sms.txt").string().c_str());
  }

  std::vector<Sms> GetSmsSent() const override {
    std::vector<Sms> sent;
    std::ifstream file(folder / "sms.txt");
    for (Sms sms; std::getline(file, sms.recipient) && std::getline(file, sms.text);) {
      sent.push_back(sms);
    }
    return sent;
  }

  void InstallGpsLibrary() override {
    fs::copy_file(RECORDING_GPS_LIBRARY, folder / "Dastrel.dll");
    _putenv_s(RECORDING_GPS_FOLDER, folder.string().c_str());
  }

  void SetGpsPosition(const GPS_POSITION& position) override {
    WriteFile(RECORDING_GPS_POSITION, {reinterpret_cast<const char*>(&position), sizeof position});
  }

  std::vector<std::string> GetGpsCalls() const override {
    std::vector<std::string> calls;
    std::ifstream file(folder / RECORDING_GPS_CALLS);
    for (std::string call; std::getline(file, call);) {
      calls.push_back(call);
    }
    return calls;
  }

  Picture GetPicture(HWND window) const override {
    const Lock guard(state.lock);
    const auto found = state.surfaces.find(window);
    if (found == state.surfaces.end() || found->second.version == 0) {
      return {};
    }
    const WindowSurface& surface = found->second;
    const auto size =
        static_cast<std::size_t>(surface.width) * static_cast<std::size_t>(surface.height);
    Picture picture = {surface.width, surface.height, {surface.pixels, surface.pixels + size}};
    for (std::uint32_t& pixel : picture.pixels) {
      pixel &= COLOR_MASK;
    }
    return picture;
  }

  std::uint64_t GetPictureVersion(HWND window) const override {
    const Lock guard(state.lock);
    const auto found = state.surfaces.find(window);
    return found != state.surfaces.end() ? found->second.version : 0;
  }

 private:
  fs::path folder;
  mutable DeviceState state;
  ImportDoubles doubles;
};

}  // namespace

std::unique_ptr<Device> Device::Make() {
  return std::make_unique<WindowsDevice>();
}

}  // namespace e2e
