// Names of the device's serial ports.
#pragma once

#include <windows.h>

#include <map>
#include <mutex>
#include <set>
#include <string>

namespace handheld {

/// Which Linux device each port is, and which of them are open. A device is open once at a time,
/// under whatever name.
class SerialPorts {
 public:
  static SerialPorts& Instance();

  /// True for names of the form "COM1:": three letters, a number, a colon.
  static bool IsPortName(const std::u16string& name);

  /// An empty path removes the port. Openings that stand are not affected.
  void Map(const std::string& port, const std::string& devicePath);

  /// INVALID_HANDLE_VALUE with the last error set when there is no such port, it is open already or
  /// does not open.
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
