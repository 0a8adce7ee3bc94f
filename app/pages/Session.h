// What the pages show and change.
#pragma once

#include "engine/LoadedEngine.h"
#include "receiver/Receiver.h"

namespace app {

/// For the engine's thread. The engine and the surroundings, which may be null, outlive it.
class Session {
 public:
  Session(const LoadedEngine& engine, const Surroundings* surroundings)
      : engine(engine), receiver(engine, surroundings) {}
  Session(const Session&) = delete;

  const LoadedEngine& engine;
  Receiver receiver;

  bool isLightTheme = false;
  /// Whether a report was sent since the page of SMS was opened.
  bool isReportSent = false;

  // Wishes of the user that the application fulfils once it has the touch dealt with.
  bool wantsToQuit = false;
  /// To see the views although no position came yet.
  bool wantsViews = false;

  // The engine takes all choices of SMS reports together.

  struct SmsChoices {
    WideString recipients;
    WideString text;
    int intervalMinutes;
    bool isAutomatic;
    bool onlyAfterMoving;
  };
  SmsChoices GetSmsChoices() const;
  void SetSmsChoices(const SmsChoices& choices) const;

  /// Starts all read-outs afresh.
  void ResetAll() const;
};

}  // namespace app
