// The reader thread: starting it on the chosen source, its loops, and ending it.

#include "base/Threads.h"
#include "engine/Engine.h"
#include "gps/GpsApiLibrary.h"
#include "gps/SentenceSplitter.h"
#include "gps/SerialPort.h"

namespace ferolin {

namespace {

constexpr DWORD READ_PAUSE_MS = 100;
constexpr DWORD POLL_PAUSE_MS = 1000;
constexpr DWORD WAIT_PAUSE_MS = 100;

}  // namespace

int Engine::StartCallBack(HWND host) {
  hostWindow = host;
  if (host == nullptr) {
    return StopReader();
  }
  return IsReaderRunning() ? 1 : StartReader();
}

int Engine::StopCallBack() {
  hostWindow = nullptr;
  const int result = StopReader();
  WaitForRedraw();
  return result;
}

bool Engine::IsReaderRunning() const {
  return IsThreadRunning(readerThread);
}

int Engine::StartReader() {
  if (!StopReader()) {
    return 0;
  }
  DropReader();
  if (useGpsApi) {
    theGpsApi.Start();
    gpsApiHandle = 0;
  } else if (!OpenComPort()) {
    return 0;
  }
  const HANDLE thread = CreateThread(nullptr, 0, &Engine::ReaderThreadProc, this, 0, nullptr);
  readerThread = thread;
  return thread != nullptr ? 1 : 0;
}

/// A port that is not there is no error: the reader then ends at once. Only a port whose settings
/// cannot be read is.
bool Engine::OpenComPort() {
  comPort = OpenSerialPort(comPortName.data());
  return comPort == INVALID_HANDLE_VALUE || ApplyBaudRate(comPort, comPortSpeed);
}

int Engine::StopReader() {
  if (!IsReaderRunning()) {
    return 1;
  }
  CloseSource();
  WaitForThread(readerThread, WAIT_PAUSE_MS);
  DropReader();
  WaitForRedraw();
  return 1;
}

/// Gives up what a reader that is not running has left: one that found no port ended by itself.
void Engine::DropReader() {
  CloseSource();
  if (const HANDLE thread = readerThread; thread != INVALID_HANDLE_VALUE) {
    readerThread = INVALID_HANDLE_VALUE;
    CloseHandle(thread);
  }
}

/// Ends the reader's loop: it runs only while the handle of its source is valid, and closing the
/// port ends a pending read. The field is cleared first, so that the loop never takes up a handle
/// that is closed already.
void Engine::CloseSource() {
  if (gpsApiHandle != -1) {
    gpsApiHandle = -1;
    theGpsApi.Stop();
  }
  if (const HANDLE port = comPort; port != INVALID_HANDLE_VALUE) {
    comPort = INVALID_HANDLE_VALUE;
    CloseHandle(port);
  }
}

DWORD WINAPI Engine::ReaderThreadProc(LPVOID argument) {
  Engine& engine = *static_cast<Engine*>(argument);
  if (engine.useGpsApi) {
    engine.PollGpsApi();
  } else {
    engine.ReadSerialPort();
  }
  return 0;
}

void Engine::ReadSerialPort() {
  SentenceSplitter splitter;
  for (HANDLE port = comPort; port != INVALID_HANDLE_VALUE; port = comPort) {
    DWORD bytesRead = 0;
    if (ReadFile(port, splitter.GetReadPosition(), splitter.GetReadSpace(), &bytesRead, nullptr)) {
      splitter.Scan(bytesRead, [this](const char* sentence) { OnUpdate(sentence); });
    }
    Sleep(READ_PAUSE_MS);
  }
}

void Engine::PollGpsApi() {
  while (gpsApiHandle != -1) {
    GPS_POSITION position = {};
    OnUpdate(theGpsApi.GetPosition(position) ? &position : nullptr);
    Sleep(POLL_PAUSE_MS);
  }
}

}  // namespace ferolin
