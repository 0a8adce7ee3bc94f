#pragma once

#include <gpsapi.h>
#include <windows.h>

#include <array>
#include <cstddef>
#include <cstdint>

#include "base/SharedWord.h"
#include "base/WideString.h"
#include "gps/SentenceSplitter.h"

namespace ferolin {

/// Takes what the reader reads, on the reader's thread.
class PositionSink {
 public:
  /// One NMEA sentence, from its "$" to before the carriage return.
  virtual void OnUpdate(const char* sentence) = 0;
  /// One position of the GPS API; null when none could be had.
  virtual void OnUpdate(const GPS_POSITION* position) = 0;

 protected:
  ~PositionSink() = default;
};

/// Reads positions on a thread of its own, from a serial port or from the platform's GPS API. Used
/// on the host's thread. A change of the source takes effect at the next start.
class Reader {
 public:
  static constexpr int KEEP_PORT_SPEED = -9999;
  static constexpr std::size_t NAME_SIZE = 260;

  explicit Reader(PositionSink& sink) : sink(sink) {}
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;

  DWORD GetUseGpsApi() const { return useGpsApi; }
  void SetUseGpsApi(DWORD use) { useGpsApi = use; }
  /// Without a colon, in the ANSI code page.
  const char* GetComPortName() const { return comPortName.data(); }
  void SetComPortName(LPCWSTR name);
  int GetComPortSpeed() const { return comPortSpeed; }
  void SetComPortSpeed(int baudRate) { comPortSpeed = baudRate; }

  /// Starts the thread on the chosen source. It must not run. False when the thread could not be
  /// started, or the settings of an open port could not be read. A port that is not there is no
  /// error: the thread then ends at once.
  bool Start();

  /// Ends the thread and waits for it, without a time-out.
  void Stop();

  bool IsRunning() const;

  /// Releases source and handle of a reader that ended by itself.
  void Release();

 private:
  static DWORD WINAPI ThreadProc(LPVOID argument);

  bool OpenSource();
  void CloseSource();
  void ReadSerialPort();
  void PollGpsApi();

  PositionSink& sink;
  SharedWord<DWORD> useGpsApi = 1;
  SharedWord<std::int32_t> gpsApiHandle = -1;  ///< -1 while the GPS API is not the open source
  SharedWord<std::int32_t> comPortSpeed = KEEP_PORT_SPEED;
  SharedWord<HANDLE> readerThread = INVALID_HANDLE_VALUE;
  SharedWord<HANDLE> comPort = INVALID_HANDLE_VALUE;
  std::array<char, NAME_SIZE> comPortName = {};
  SentenceSplitter splitter;  ///< too large for the stack of a handheld's thread
};

}  // namespace ferolin
