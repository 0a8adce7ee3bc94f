// The receiver as the user knows it: which one is read, and whether it says anything.
#pragma once

#include <windows.h>

#include "base/WideString.h"
#include "engine/LoadedEngine.h"
#include "receiver/Surroundings.h"
#include "text/Words.h"

namespace app {

/// For the engine's thread. The engine and the surroundings outlive it. With surroundings these
/// read the receiver, which is their choice; what is said of opening and closing it here is theirs
/// then.
class Receiver {
 public:
  /// Baud rate that leaves the port's own.
  static constexpr int KEEP_PORT_SPEED = -9999;

  /// `surroundings` may be null.
  Receiver(const LoadedEngine& engine, const Surroundings* surroundings)
      : engine(engine), surroundings(surroundings) {}
  Receiver(const Receiver&) = delete;

  /// Starts reading; the window gets the engine's notifications.
  void Start(HWND hostWindow);

  /// Whether the user can choose the receiver.
  bool CanBeChosen() const { return surroundings == nullptr; }

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

  /// Whether no update has come for five seconds; with surroundings only while they tell a trouble.
  bool IsSilent() const;
  /// Looks once a second whether a silent receiver is to be opened anew: every ten seconds, since a
  /// port that was pulled out or was not there yet is not read again by itself.
  void OnSecond();

  /// "COM1, 4800", the service's name, or what the surroundings call it.
  WideString Describe() const;

  /// Why there is no data, as it was found at the last second.
  WideString DescribeTrouble() const;

 private:
  bool TellsSomething() const;
  Word Diagnose() const;
  void StartAfresh();

  const LoadedEngine& engine;
  const Surroundings* const surroundings;
  HWND window = nullptr;
  Word trouble = Word::NO_DATA;
  bool hasUpdates = false;
  bool hasData = false;
  DWORD lastUpdateMs = GetTickCount();
  DWORD lastOpeningMs = GetTickCount();
};

}  // namespace app
