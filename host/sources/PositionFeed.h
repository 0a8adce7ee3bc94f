// What gives the engine the positions of a source.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "sources/Fix.h"
#include "sources/ReceiverBridge.h"
#include "sources/Reception.h"

namespace host {

/// Ends its work before the source does. All methods are for the host's thread.
class PositionFeed {
 public:
  struct Report {
    /// Share of the source given to the engine so far, 0 to 1; nothing when its size is unknown.
    std::optional<double> progress;
    ReceiverBridge::Counts bridge;
    std::set<std::string> talkers;
    /// Of a receiver.
    Reception reception;
    std::uint64_t sentences = 0;
    std::uint64_t linesDropped = 0;
    std::uint64_t clockJumps = 0;
    /// Expected updates that did not come.
    std::uint64_t updatesMissed = 0;
  };

  virtual ~PositionFeed() = default;

  /// Gives `take` each fix on a thread of the feed's: that of a receiver at once, that of a
  /// recording when it is played. When a receiver falls silent, `take` gets an empty one. Call before
  /// Start.
  virtual void TellFixes(std::function<void(const Fix&)> take) = 0;

  virtual void Start() = 0;
  /// The feed gives nothing more when it returns. Does nothing when it has stopped.
  virtual void Stop() = 0;

  /// Call when the host has read an update of the engine; `updates` is their number so far.
  virtual void Answer(std::uint64_t updates) = 0;

  /// True once after the engine has read that the receiver's clock jumped, and before it reads on:
  /// ask at an update, before the answer to it.
  virtual bool TakeStretchStart() = 0;

  /// What the receiver said about the moments of the updates since the last call: of the latest one,
  /// or of all.
  virtual std::vector<Fix> TakeFixes() = 0;

  virtual Report GetReport() const = 0;
};

}  // namespace host
