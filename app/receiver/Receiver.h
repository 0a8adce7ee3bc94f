// The receiver as the user knows it: which one is read, and whether it says anything.
#pragma once

#include <windows.h>

#include "base/WideString.h"
#include "engine/LoadedEngine.h"
#include "text/Words.h"

namespace app {

/// For the engine's thread. The engine outlives it.
class Receiver {
 public:
  /// Baud rate that leaves the port's own.
  static constexpr int KEEP_PORT_SPEED = -9999;

  explicit Receiver(const LoadedEngine& engine) : engine(engine) {}
  Receiver(const Receiver&) = delete;

  /// Starts reading; the window gets the engine's notifications.
  void Start(HWND hostWindow);

  // Choices; each takes effect at once, also while the receiver is read.

  bool UsesService() const { return engine.IsUseGPSAPI() != 0; }
  void UseService(bool isService);
  void SetPort(const WideString& name);
  int GetBaudRate() const { return engine.GetComPortSpeed(); }
  void SetBaudRate(int baudRate);

  /// Closes the receiver and opens it again, as after the device has slept.
  void Reopen();

  /// Notes that an update came. True when it is the first one that tells anything: from a port
  /// every update does, the service also reports that it knows nothing.
  bool OnUpdate();

  /// Whether any update has come since the program started, telling or not: only then can views be
  /// drawn.
  bool HasUpdates() const { return hasUpdates; }

  /// Whether no update has come for five seconds.
  bool IsSilent() const;
  /// Looks once a second whether a silent receiver is to be opened anew: every ten seconds, since a
  /// port that was pulled out or was not there yet is not read again by itself.
  void OnSecond();

  /// "COM1, 4800" or the service's name.
  WideString Describe() const;

  /// Why there is no data, as it was found at the last second.
  Word GetTrouble() const { return trouble; }

 private:
  bool TellsSomething() const;
  Word Diagnose() const;
  void StartAfresh();

  const LoadedEngine& engine;
  HWND window = nullptr;
  Word trouble = Word::NO_DATA;
  bool hasUpdates = false;
  bool hasData = false;
  DWORD lastUpdateMs = GetTickCount();
  DWORD lastOpeningMs = GetTickCount();
};

}  // namespace app
