// What the user is told about a run beside the read-outs.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

#include "base/Messages.h"
#include "commandline/Options.h"
#include "run/PositionSource.h"
#include "run/SmsReports.h"
#include "run/SoundTally.h"
#include "sources/BridgeNotices.h"
#include "sources/ReceptionNotices.h"

namespace host {

/// Tells news during the run and the totals at its end. For the host's thread.
class RunSummary {
 public:
  /// All arguments outlive the summary.
  RunSummary(const Options& options, const PositionSource& source, const SmsReports& reports,
             Messages& messages);

  /// The run takes its time from here.
  void Start();

  void OnUpdate(const Update& update);

  /// Tells what has changed; also while there are no updates.
  void SayNews();

  /// Tells the totals; `updates` is their number in the whole run. `hasEnded`: the source has ended
  /// by itself.
  void Finish(std::uint64_t updates, bool hasEnded);

  bool HadPosition() const { return hadPosition; }

 private:
  void SayDuration(std::uint64_t updates);
  void SayUnreadableFiles();
  void SayRecordProblem();

  const Options& options;
  const PositionSource& source;
  const SmsReports& reports;
  Messages& messages;
  BridgeNotices notices;
  ReceptionNotices receptionNotices;
  SoundTally sounds;
  std::size_t unreadableFilesSaid = 0;
  bool isLackOfFontsSaid = false;
  std::chrono::steady_clock::time_point start;
  bool hadPosition = false;
};

}  // namespace host
