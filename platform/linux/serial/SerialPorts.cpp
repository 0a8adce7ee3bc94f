#include "serial/SerialPorts.h"

#include <climits>
#include <cstdlib>
#include <utility>

#include "core/Handles.h"
#include "core/LastError.h"
#include "handheld.h"
#include "serial/FedPort.h"
#include "serial/PortStream.h"
#include "text/WideText.h"

namespace handheld {

namespace {

constexpr std::size_t LETTERS = 3;

/// Key of a port: its name in small letters with the colon.
std::string PortKey(const std::u16string& name) {
  std::string key = Utf8FromWide(FoldCase(name));
  if (!key.empty() && key.back() != ':') {
    key += ':';
  }
  return key;
}

/// The device behind symbolic links.
std::string RealPath(const std::string& path) {
  char resolved[PATH_MAX];
  return realpath(path.c_str(), resolved) == nullptr ? path : resolved;
}

bool FillSettings(const PortStream& port, DCB& settings) {
  const auto baud = port.GetBaud();
  if (!baud) {
    return false;
  }
  settings = {};
  settings.DCBlength = sizeof(DCB);
  settings.BaudRate = *baud;
  settings.flags = 1;  // Binary transfer; there is no other.
  settings.ByteSize = 8;
  return true;
}

/// Only 8 data bits, no parity and 1 stop bit are supported.
bool IsSupported(const DCB& settings) {
  return settings.BaudRate != 0 && settings.ByteSize == 8 && settings.Parity == 0 &&
         settings.StopBits == 0;
}

}  // namespace

SerialPorts& SerialPorts::Instance() {
  static SerialPorts& ports = *new SerialPorts;
  return ports;
}

bool SerialPorts::IsPortName(const std::u16string& name) {
  const std::u16string folded = FoldCase(name);
  if (folded.size() < LETTERS + 2 || folded.back() != u':') {
    return false;
  }
  for (std::size_t i = 0; i + 1 < folded.size(); ++i) {
    const bool fits = i < LETTERS ? folded[i] >= u'a' && folded[i] <= u'z'
                                  : folded[i] >= u'0' && folded[i] <= u'9';
    if (!fits) {
      return false;
    }
  }
  return true;
}

void SerialPorts::Map(const std::string& port, const std::string& devicePath) {
  const std::string key = PortKey(WideFromUtf8(port));
  const std::lock_guard lock(mutex);
  readers.erase(key);
  if (devicePath.empty()) {
    paths.erase(key);
  } else {
    paths[key] = devicePath;
  }
}

void SerialPorts::Feed(const std::string& port, PortReader reader) {
  const std::string key = PortKey(WideFromUtf8(port));
  const std::lock_guard lock(mutex);
  paths.erase(key);
  if (reader) {
    readers[key] = std::move(reader);
  } else {
    readers.erase(key);
  }
}

PortReader SerialPorts::ReaderOf(const std::string& port) const {
  const std::lock_guard lock(mutex);
  const auto found = readers.find(port);
  return found == readers.end() ? PortReader() : found->second;
}

std::string SerialPorts::PathOf(const std::string& port) const {
  const std::lock_guard lock(mutex);
  const auto found = paths.find(port);
  return found == paths.end() ? std::string() : found->second;
}

bool SerialPorts::Claim(const std::string& claim) {
  const std::lock_guard lock(mutex);
  return claims.insert(claim).second;
}

void SerialPorts::Release(const std::string& claim) {
  const std::lock_guard lock(mutex);
  claims.erase(claim);
}

HANDLE SerialPorts::Open(const std::u16string& name) {
  const std::string key = PortKey(name);
  const PortReader reader = ReaderOf(key);
  const std::string path = PathOf(key);
  if (!reader && path.empty()) {
    return Fail(ERROR_FILE_NOT_FOUND, INVALID_HANDLE_VALUE);
  }
  const std::string claim = reader ? key : RealPath(path);
  if (!Claim(claim)) {
    return Fail(ERROR_ACCESS_DENIED, INVALID_HANDLE_VALUE);
  }

  DWORD error = ERROR_SUCCESS;
  auto port = OpenStream(reader, path, claim, error);
  if (port == nullptr) {
    Release(claim);
    return Fail(error, INVALID_HANDLE_VALUE);
  }
  return HandleTable::Instance().Add(std::move(port));
}

std::shared_ptr<Stream> SerialPorts::OpenStream(const PortReader& reader, const std::string& path,
                                                const std::string& claim, DWORD& error) {
  if (reader) {
    return std::make_shared<FedPort>(reader, claim);
  }
  return PortStream::Open(path, claim, error);
}

void MapSerialPort(const std::string& port, const std::string& devicePath) {
  SerialPorts::Instance().Map(port, devicePath);
}

void FeedSerialPort(const std::string& port, PortReader reader) {
  SerialPorts::Instance().Feed(port, std::move(reader));
}

extern "C" {

BOOL WINAPI GetCommState(HANDLE port, DCB* settings) {
  return Guarded<BOOL>(FALSE, [&] {
    const auto found = HandleTable::Instance().Find<PortStream>(port);
    if (found == nullptr) {
      return Fail(ERROR_INVALID_HANDLE, FALSE);
    }
    if (settings == nullptr) {
      return Fail(ERROR_INVALID_PARAMETER, FALSE);
    }
    return FillSettings(*found, *settings) ? TRUE : Fail(ERROR_GEN_FAILURE, FALSE);
  });
}

BOOL WINAPI SetCommState(HANDLE port, DCB* settings) {
  return Guarded<BOOL>(FALSE, [&] {
    const auto found = HandleTable::Instance().Find<PortStream>(port);
    if (found == nullptr) {
      return Fail(ERROR_INVALID_HANDLE, FALSE);
    }
    if (settings == nullptr || !IsSupported(*settings)) {
      return Fail(ERROR_INVALID_PARAMETER, FALSE);
    }
    return found->SetBaud(settings->BaudRate) ? TRUE : Fail(ERROR_GEN_FAILURE, FALSE);
  });
}

}  // extern "C"

}  // namespace handheld
