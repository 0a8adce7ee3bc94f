// Position reports while driving.
#pragma once

#include <optional>
#include <string>

#include "base/Messages.h"
#include "commandline/Options.h"
#include "engine/EngineLibrary.h"
#include "engine/Readout.h"

namespace host {

/// Makes the engine send a report whenever the given minutes have passed by the receiver's clock.
/// (The engine's own automatic reports depend on the gap between two successive positions: they
/// come after a silence, not on the way.)
class SmsReports {
 public:
  /// Gives the engine recipients and text. Throws UsageError when reports are asked for and nobody
  /// gets them. The engine outlives this object.
  SmsReports(const EngineLibrary& engine, const Options& options, Messages& messages);

  void OnUpdate(const Update& update);

  /// "position reports for +123: 4"; empty when none were asked for or none can be sent.
  std::string Describe() const;

 private:
  const EngineLibrary& engine;
  /// 0: no reports.
  const int intervalSeconds;
  /// Second of the day of the last report, or of the first position.
  std::optional<int> lastSecond;
  int sent = 0;
};

/// Seconds of "h:mm:ss"; nothing for any other text.
std::optional<int> ParseClock(const std::string& text);

/// Keeps the engine's own automatic reports off.
inline constexpr int NOT_AUTOMATIC = 0;

/// What a function of the engine puts into its buffer, in UTF-8.
std::string ReadText(void(WINAPI* get)(char*, int));

}  // namespace host
