// Position reports while driving.
#pragma once

#include <optional>

#include "engine/EngineLibrary.h"
#include "engine/Readout.h"

namespace host {

/// Has the engine send a report whenever so many minutes have passed by the receiver's clock. (The
/// engine's own automatic step looks at the gap between two successive positions only, so that it
/// reports after a silence, not on the way.)
class SmsReports {
 public:
  /// `everyMinutes` 0 sends none.
  SmsReports(const EngineLibrary& engineToUse, int everyMinutes)
      : engine(engineToUse), everySeconds(everyMinutes * 60) {}

  void OnUpdate(const Update& update);

  int CountSent() const { return sent; }

 private:
  const EngineLibrary& engine;
  const int everySeconds;
  /// Second of the day of the last report, or of the first position.
  std::optional<int> lastSecond;
  int sent = 0;
};

/// Seconds of "h:mm:ss"; nothing for any other text.
std::optional<int> ParseClock(const std::string& text);

}  // namespace host
