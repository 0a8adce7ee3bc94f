// Serial ports with the handheld's reads. The desktop's own reads wait until the buffer is full and
// do not end when the port is closed.

#include <windows.h>

#include <atomic>
#include <cwchar>
#include <string>

// This file calls the system's own.
#undef CloseHandle
#undef CreateFileW
#undef ReadFile

namespace {

/// Silence that completes a burst; about 20 characters at 9600 baud. Reads check as often whether
/// the port is closed.
constexpr DWORD PAUSE_MS = 20;
/// Longest burst of a line that never pauses; it is then cut after a line feed.
constexpr DWORD LONGEST_FLOW_MS = 250;
constexpr int MAX_PORTS = 8;

/// An open port. The entry is free while its handle is null.
struct Port {
  std::atomic<HANDLE> handle = nullptr;
  std::atomic<bool> isClosing = false;
  std::atomic<int> readers = 0;
};

Port ports[MAX_PORTS];

Port* FindPort(HANDLE handle) {
  for (Port& port : ports) {
    if (port.handle == handle) {
      return &port;
    }
  }
  return nullptr;
}

bool IsPortName(LPCWSTR name) {
  const std::size_t length = std::wcslen(name);
  return length > 1 && name[length - 1] == L':' && std::wcschr(name, L'\\') == nullptr;
}

/// Makes the system's reads return the bytes received, or none after the pause.
bool SetTimeouts(HANDLE port) {
  COMMTIMEOUTS timeouts = {};
  timeouts.ReadIntervalTimeout = MAXDWORD;
  timeouts.ReadTotalTimeoutMultiplier = MAXDWORD;
  timeouts.ReadTotalTimeoutConstant = PAUSE_MS;
  return SetCommTimeouts(port, &timeouts);
}

HANDLE OpenPort(LPCWSTR name, DWORD access) {
  std::wstring path = L"\\\\.\\";
  path += name;
  path.pop_back();
  const HANDLE handle = CreateFileW(path.c_str(), access, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  if (handle == INVALID_HANDLE_VALUE) {
    return handle;
  }
  HANDLE free = nullptr;
  for (Port& port : ports) {
    if (port.handle.compare_exchange_strong(free, handle)) {
      SetTimeouts(handle);
      return handle;
    }
    free = nullptr;
  }
  CloseHandle(handle);
  SetLastError(ERROR_TOO_MANY_OPEN_FILES);
  return INVALID_HANDLE_VALUE;
}

BOOL ReadBurst(const Port& port, HANDLE handle, char* buffer, DWORD size, DWORD& used) {
  DWORD start = 0;
  while (used < size) {
    if (port.isClosing) {
      SetLastError(ERROR_OPERATION_ABORTED);
      return FALSE;
    }
    if (used > 0 && GetTickCount() - start > LONGEST_FLOW_MS && buffer[used - 1] == '\n') {
      break;
    }
    DWORD count = 0;
    if (!ReadFile(handle, buffer + used, size - used, &count, nullptr)) {
      return FALSE;
    }
    if (count == 0 && used > 0) {
      break;
    }
    if (used == 0) {
      start = GetTickCount();
    }
    used += count;
  }
  return TRUE;
}

}  // namespace

extern "C" {

HANDLE WINAPI HandheldCreateFile(LPCWSTR fileName, DWORD access, DWORD shareMode,
                                 SECURITY_ATTRIBUTES* security, DWORD disposition, DWORD attributes,
                                 HANDLE templateFile) {
  return IsPortName(fileName) ? OpenPort(fileName, access)
                              : CreateFileW(fileName, access, shareMode, security, disposition,
                                            attributes, templateFile);
}

BOOL WINAPI HandheldReadFile(HANDLE file, LPVOID buffer, DWORD toRead, LPDWORD read,
                             OVERLAPPED* overlapped) {
  Port* const port = FindPort(file);
  if (port == nullptr) {
    return ReadFile(file, buffer, toRead, read, overlapped);
  }
  ++port->readers;
  *read = 0;
  // The port may have been closed meanwhile and its handle reused.
  const BOOL result =
      port->handle == file && ReadBurst(*port, file, static_cast<char*>(buffer), toRead, *read);
  --port->readers;
  return result;
}

/// Waits until pending reads have ended: the handle may be reused right after.
BOOL WINAPI HandheldCloseHandle(HANDLE object) {
  Port* const port = FindPort(object);
  if (port == nullptr) {
    return CloseHandle(object);
  }
  port->isClosing = true;
  while (port->readers > 0) {
    Sleep(1);
  }
  port->handle = nullptr;
  port->isClosing = false;
  return CloseHandle(object);
}

}  // extern "C"
