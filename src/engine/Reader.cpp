#include "engine/Reader.h"

#include "base/CodePage.h"
#include "base/Threads.h"
#include "gps/GpsApiLibrary.h"
#include "gps/SerialPort.h"

namespace ferolin {

namespace {

constexpr DWORD READ_PAUSE_MS = 100;
constexpr DWORD POLL_PAUSE_MS = 1000;
constexpr DWORD END_PAUSE_MS = 100;

}  // namespace

void Reader::SetComPortName(LPCWSTR name) {
  NarrowInto(comPortName.data(), comPortName.size(), name);
}

bool Reader::IsRunning() const {
  return IsThreadRunning(readerThread);
}

bool Reader::Start() {
  Release();
  if (!OpenSource()) {
    return false;
  }
  splitter = SentenceSplitter();
  const HANDLE thread = CreateThread(nullptr, 0, &Reader::ThreadProc, this, 0, nullptr);
  readerThread = thread;
  return thread != nullptr;
}

bool Reader::OpenSource() {
  if (useGpsApi) {
    theGpsApi.Start();
    gpsApiHandle = 0;
    return true;
  }
  comPort = OpenSerialPort(comPortName.data());
  return comPort == INVALID_HANDLE_VALUE || ApplyBaudRate(comPort, comPortSpeed);
}

void Reader::Stop() {
  CloseSource();
  WaitForThread(readerThread, END_PAUSE_MS);
  Release();
}

void Reader::Release() {
  CloseSource();
  if (const HANDLE thread = readerThread; thread != INVALID_HANDLE_VALUE) {
    readerThread = INVALID_HANDLE_VALUE;
    CloseHandle(thread);
  }
}

/// Ends the thread's loop: it runs only while the handle of its source is valid, and closing the
/// port ends a pending read. The field is cleared first, so that the loop never takes up a handle
/// that is closed already.
void Reader::CloseSource() {
  if (gpsApiHandle != -1) {
    gpsApiHandle = -1;
    theGpsApi.Stop();
  }
  if (const HANDLE port = comPort; port != INVALID_HANDLE_VALUE) {
    comPort = INVALID_HANDLE_VALUE;
    CloseHandle(port);
  }
}

DWORD WINAPI Reader::ThreadProc(LPVOID argument) {
  Reader& reader = *static_cast<Reader*>(argument);
  if (reader.useGpsApi) {
    reader.PollGpsApi();
  } else {
    reader.ReadSerialPort();
  }
  return 0;
}

/// A read that fails is tried again: the port may only be busy.
void Reader::ReadSerialPort() {
  for (HANDLE port = comPort; port != INVALID_HANDLE_VALUE; port = comPort) {
    DWORD bytesRead = 0;
    if (ReadFile(port, splitter.GetReadPosition(), splitter.GetReadSpace(), &bytesRead, nullptr)) {
      splitter.Scan(bytesRead, [this](const char* sentence) { sink.OnUpdate(sentence); });
    }
    Sleep(READ_PAUSE_MS);
  }
}

void Reader::PollGpsApi() {
  while (gpsApiHandle != -1) {
    GPS_POSITION position = {};
    sink.OnUpdate(theGpsApi.GetPosition(position) ? &position : nullptr);
    Sleep(POLL_PAUSE_MS);
  }
}

}  // namespace ferolin
