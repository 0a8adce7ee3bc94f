// Names of the device's serial ports.
#pragma once

#include <windows.h>

#include <map>
#include <mutex>
#include <set>
#include <string>

#include "core/Handles.h"
#include "handheld.h"

namespace handheld {

/// Linux device or host's reader of each port, and what is open. Each device can be opened once at a
/// time, under any of its names; so can each port in memory.
class SerialPorts {
 public:
  static SerialPorts& Instance();

  /// True for names of the form "COM1:": three letters, a number, a colon.
  static bool IsPortName(const std::u16string& name);

  /// An empty path removes the port. Open ports are not affected.
  void Map(const std::string& port, const std::string& devicePath);

  /// Makes the port one in memory; an empty reader removes it. Open ports are not affected.
  void Feed(const std::string& port, PortReader reader);

  /// INVALID_HANDLE_VALUE with the last error set when the port is unknown, already open or does
  /// not open.
  HANDLE Open(const std::u16string& name);

  /// Lets the device be opened again.
  void Release(const std::string& claim);

 private:
  bool Claim(const std::string& claim);
  std::string PathOf(const std::string& port) const;
  PortReader ReaderOf(const std::string& port) const;
  /// Null with `error` set on failure.
  static std::shared_ptr<Stream> OpenStream(const PortReader& reader, const std::string& path,
                                            const std::string& claim, DWORD& error);

  mutable std::mutex mutex;
  std::map<std::string, std::string> paths;
  std::map<std::string, PortReader> readers;
  std::set<std::string> claims;
};

}  // namespace handheld
