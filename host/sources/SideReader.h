// What a receiver sends that the engine reads by itself.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <string_view>
#include <thread>

#include "sources/EpochSplitter.h"
#include "sources/Fix.h"
#include "sources/FixReader.h"
#include "sources/NmeaSource.h"
#include "sources/ReceiverBridge.h"
#include "sources/Reception.h"
#include "sources/SilenceWatch.h"

namespace host {

/// Finds fixes and silence in the receiver's sentences without standing in the engine's way. All
/// methods are for the host's thread.
class SideReader {
 public:
  /// `source` is read on a thread of its own; null for what the engine reads from its serial port.
  explicit SideReader(std::unique_ptr<NmeaSource> source);
  SideReader(const SideReader&) = delete;
  SideReader& operator=(const SideReader&) = delete;
  ~SideReader() { Stop(); }

  /// Gives `take` each fix on another thread, and an empty one when the receiver was silent. Call
  /// before Start, and before the engine reads.
  void TellFixes(std::function<void(const Fix&)> take);

  void Start();
  /// Gives away the last fix; none follows.
  void Stop();

  /// What the receiver said about the moment of its last RMC; empty while it is silent or
  /// cannot be reached.
  Fix GetFix() const;

  Reception GetReception() const;

 private:
  using Clock = std::chrono::steady_clock;

  void Add(std::string_view bytes);
  void TellSilence();

  const std::unique_ptr<NmeaSource> source;
  mutable std::mutex mutex;
  std::function<void(const Fix&)> takeFix;
  Fix fix;
  FixReader fixReader;
  ReceiverBridge bridge;
  EpochSplitter splitter;
  SilenceWatch silence;
  bool isSilenceTold = false;
  std::thread thread;
};

}  // namespace host
