// Names of the device's serial ports.
#pragma once

#include <windows.h>

#include <map>
#include <mutex>
#include <set>
#include <string>

namespace handheld {

/// Linux device of each port, and the devices that are open. Each device can be opened once at a
/// time, under any of its names.
class SerialPorts {
 public:
  static SerialPorts& Instance();

  /// True for names of the form "COM1:": three letters, a number, a colon.
  static bool IsPortName(const std::u16string& name);

  /// An empty path removes the port. Open ports are not affected.
  void Map(const std::string& port, const std::string& devicePath);

  /// INVALID_HANDLE_VALUE with the last error set when the port is unknown, already open or does
  /// not open.
  HANDLE Open(const std::u16string& name);

  /// Lets the device be opened again.
  void Release(const std::string& claim);

 private:
  bool Claim(const std::string& claim);
  std::string PathOf(const std::string& port) const;

  mutable std::mutex mutex;
  std::map<std::string, std::string> paths;
  std::set<std::string> claims;
};

}  // namespace handheld
