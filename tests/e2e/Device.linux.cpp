// The device of the suite on Linux: the pretended handheld and pseudo-terminals.

#include "Device.h"

#include <fcntl.h>
#include <handheld.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "BaudRate.linux.h"
#include "RecordingGps.h"
#include "RecordingSms.h"

namespace e2e {

namespace {

namespace fs = std::filesystem;

class PseudoTerminalReceiver : public Receiver {
 public:
  explicit PseudoTerminalReceiver(std::string portName) : port(std::move(portName)) {
    master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    char name[128];
    if (master < 0 || grantpt(master) || unlockpt(master) || ptsname_r(master, name, sizeof name)) {
      throw std::runtime_error("no pseudo-terminal");
    }
    // Held open so that the line stays up while the engine closes and reopens its end.
    slave = open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios settings = {};
    tcgetattr(slave, &settings);
    cfmakeraw(&settings);
    tcsetattr(slave, TCSANOW, &settings);
    handheld::MapSerialPort(port, name);
  }

  ~PseudoTerminalReceiver() override {
    handheld::MapSerialPort(port, "");
    close(slave);
    close(master);
  }

  void Send(std::string_view bytes) override {
    if (write(master, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
      throw std::runtime_error("the pseudo-terminal does not take the bytes");
    }
  }

  int GetBaudRate() const override { return BaudRateOf(slave); }

 private:
  std::string port;
  int master;
  int slave;
};

class LinuxDevice : public Device {
 public:
  LinuxDevice() {
    std::string pattern = (fs::temp_directory_path() / "ferolin-e2e-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
      throw std::runtime_error("no temporary folder");
    }
    folder = pattern;
    // Loaded from there, it finds none of the siblings that lie beside it in the build.
    fs::create_symlink(ENGINE_LIBRARY, folder / "libferolin.so");
    handheld::SetModuleDirectory(folder.string());
    handheld::SetLibraryDirectory(folder.string());
    handheld::SetLanguage("ENU");
    handheld::SetLocaleFailing(false);
    handheld::SetTimeZone("UTC0");
    handheld::SetClockStopped(false);
    handheld::SetTimeRate(50);
    handheld::SetBattery(0, 80);
    handheld::SetBatteryFailing(false);
    handheld::ForgetMessagesPosted();
    handheld::ForgetSoundsStarted();
    requirementsBefore = handheld::PowerRequirementsTaken();
    resetsBefore = handheld::IdleTimerResets();
  }

  ~LinuxDevice() override {
    handheld::SetModuleDirectory("");
    handheld::SetLibraryDirectory("");
    std::error_code ignored;
    fs::remove_all(folder, ignored);
  }

  std::string GetProgramFolder() const override {
    return handheld::Utf8FromWide(handheld::DevicePath(folder.string()));
  }

  void WriteFile(const std::string& name, std::string_view content) override {
    fs::create_directories((folder / name).parent_path());
    std::ofstream(folder / name, std::ios::binary) << content;
  }

  std::string ReadFile(const std::string& name) const override {
    std::ifstream file(folder / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

  bool Exists(const std::string& name) const override { return fs::exists(folder / name); }

  void SetRussian() override { handheld::SetLanguage("RUS"); }

  void SetBattery(BYTE flag, BYTE percent) override { handheld::SetBattery(flag, percent); }

  std::unique_ptr<Receiver> Connect(const std::string& port) override {
    return std::make_unique<PseudoTerminalReceiver>(port + ":");
  }

  void SetTimeRate(double rate) override { handheld::SetTimeRate(rate); }

  void StopClockAt(const SYSTEMTIME& utc) override {
    handheld::SetClock(utc);
    handheld::SetClockStopped(true);
  }

  void SetZone(int hoursEast) override {
    handheld::SetTimeZone(("ZONE" + std::to_string(-hoursEast)).c_str());
  }

  int GetPowerRequirementsHeld() const override { return handheld::PowerRequirementsHeld(); }

  int GetPowerRequirementsTaken() const override {
    return handheld::PowerRequirementsTaken() - requirementsBefore;
  }

  int GetIdleTimerResets() const override { return handheld::IdleTimerResets() - resetsBefore; }

  std::vector<std::string> GetSounds() const override {
    std::vector<std::string> names;
    for (const handheld::Sound& sound : handheld::SoundsStarted()) {
      names.push_back(handheld::Utf8FromWide(sound.path.substr(sound.path.rfind(u'\\') + 1)));
    }
    return names;
  }

  int GetHandlesAlive() const override { return handheld::HandlesAlive(); }

  int GetDrawingObjectsAlive() const override { return handheld::GdiObjectsAlive(); }

  void InstallSmsLibrary() override {
    fs::copy_file(RECORDING_SMS_LIBRARY, folder / "libparlex.so");
    setenv(RECORDING_SMS_FILE, (folder / "sms.txt").c_str(), 1);
  }

  void InstallGpsLibrary() override {
    fs::copy_file(RECORDING_GPS_LIBRARY, folder / "libdastrel.so");
    setenv(RECORDING_GPS_FOLDER, folder.c_str(), 1);
  }

  std::vector<Sms> GetSmsSent() const override {
    std::vector<Sms> sent;
    std::ifstream file(folder / "sms.txt");
    for (Sms sms; std::getline(file, sms.recipient) && std::getline(file, sms.text);) {
      sent.push_back(sms);
    }
    return sent;
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
    handheld::Pixels pixels = handheld::WindowPixels(window);
    return {pixels.width, pixels.height, std::move(pixels.rows)};
  }

  std::uint64_t GetPictureVersion(HWND window) const override {
    return handheld::WindowPixelsVersion(window);
  }

 private:
  fs::path folder;
  int requirementsBefore;
  int resetsBefore;
};

}  // namespace

std::unique_ptr<Device> Device::Make() {
  return std::make_unique<LinuxDevice>();
}

}  // namespace e2e
