// What the suite needs of the device around the engine. Each home has its own source:
// Device.<home>.cpp.
#pragma once

#include <gpsapi.h>
#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "RecordingSms.h"

namespace e2e {

/// A receiver at the far end of a serial line.
class Receiver {
 public:
  virtual ~Receiver() = default;
  /// Sends bytes in one burst.
  virtual void Send(std::string_view bytes) = 0;
  /// Baud rate that the near end of the line is set to.
  virtual int GetBaudRate() const = 0;
};

/// One device for one test: a fresh program folder, English, a clock that runs fast, a battery at
/// 80 %, no serial port and no sibling library. Only one exists at a time.
class Device {
 public:
  static std::unique_ptr<Device> Make();
  virtual ~Device() = default;

  /// The engine's folder, in the spelling that the engine shows.
  virtual std::string GetProgramFolder() const = 0;

  // Files, named relative to the program folder with forward slashes.

  virtual void WriteFile(const std::string& name, std::string_view content) = 0;
  /// Empty when there is no such file.
  virtual std::string ReadFile(const std::string& name) const = 0;
  virtual bool Exists(const std::string& name) const = 0;

  virtual void SetRussian() = 0;
  virtual void SetBattery(BYTE flag, BYTE percent) = 0;

  /// Connects a receiver to a port such as "COM1".
  virtual std::unique_ptr<Receiver> Connect(const std::string& port) = 0;

  /// Milliseconds of the device's time in one real millisecond; Sleep obeys.
  virtual void SetTimeRate(double rate) = 0;
  /// The device's clock stands at this UTC moment from now on, in the zone UTC.
  virtual void StopClockAt(const SYSTEMTIME& utc) = 0;
  /// Time zone so many hours east of Greenwich.
  virtual void SetZone(int hoursEast) = 0;

  // What was asked of the device since it was made.

  virtual int GetPowerRequirementsHeld() const = 0;
  virtual int GetPowerRequirementsTaken() const = 0;
  virtual int GetIdleTimerResets() const = 0;
  /// Names of the sound files started, without their folder, in order.
  virtual std::vector<std::string> GetSounds() const = 0;
  /// Handles open in this process; -1 when the home cannot tell.
  virtual int GetHandlesAlive() const = 0;

  /// Drawing objects that the engine has made and not deleted: all, or at least its memory contexts
  /// and their bitmaps.
  virtual int GetDrawingObjectsAlive() const = 0;

  /// Makes the sibling library that sends messages available: a recording one.
  virtual void InstallSmsLibrary() = 0;
  struct Sms {
    std::string recipient;
    std::string text;
  };
  /// In order; a message that is still being sent counts.
  virtual std::vector<Sms> GetSmsSent() const = 0;
  /// While busy, the library does not return from the next message.
  void MakeSmsBusy(bool isBusy) { WriteFile(RECORDING_SMS_BUSY, isBusy ? "busy" : ""); }

  /// Makes the sibling library of the GPS API available. It answers the position set last, or none
  /// while none was set.
  virtual void InstallGpsLibrary() = 0;
  virtual void SetGpsPosition(const GPS_POSITION& position) = 0;
  /// Names of the library's functions in the order of their calls, without those that ask for a
  /// position.
  virtual std::vector<std::string> GetGpsCalls() const = 0;

  /// Rows from the top, each pixel 0x00RRGGBB.
  struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
    bool operator==(const Picture&) const = default;
  };
  /// What the engine drew into a window; empty when it never drew.
  virtual Picture GetPicture(HWND window) const = 0;
  /// Changes whenever the engine draws into the window.
  virtual std::uint64_t GetPictureVersion(HWND window) const = 0;
};

}  // namespace e2e
