// The epochs of a source on their way to the engine.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

#include "sources/EpochSplitter.h"
#include "sources/Fix.h"
#include "sources/FixReader.h"
#include "sources/PositionFeed.h"
#include "sources/ReceiverBridge.h"

namespace host {

/// Cuts the bytes of a source into epochs and keeps them until they are taken. For one thread.
class EpochQueue {
 public:
  enum class Bridge { ON, OFF };

  /// With the fixes that were complete when the epoch was.
  struct Piece {
    Epoch epoch;
    std::vector<Fix> fixes;
  };

  explicit EpochQueue(Bridge bridgeUse);
  EpochQueue(const EpochQueue&) = delete;
  EpochQueue& operator=(const EpochQueue&) = delete;

  /// Gives `take` each fix as soon as it is complete; else they go into the pieces. Call before Add.
  void TellFixesAtOnce(std::function<void(const Fix&)> take) { takeFix = std::move(take); }

  /// Adds the next bytes of the source.
  void Add(std::string_view bytes) { splitter.Add(bytes); }
  /// Call at the end of the source.
  void Finish() { splitter.Finish(); }

  /// Ends the present fix, as the receiver has fallen silent.
  void FinishFix() { fixReader.Finish(); }
  /// Adds an epoch of the host's own.
  void Push(Epoch epoch);

  bool IsEmpty() const { return pieces.empty(); }
  /// The queue must not be empty.
  const Epoch& GetFirst() const { return pieces.front().epoch; }
  Piece TakeFirst();
  /// Fixes behind the last piece.
  std::vector<Fix> TakeLastFixes();

  std::uint64_t GetSentences() const { return splitter.GetSentences(); }
  /// Fills in what was counted so far.
  void Count(PositionFeed::Report& report) const;

 private:
  ReceiverBridge bridge;
  EpochSplitter splitter;
  std::deque<Piece> pieces;
  std::function<void(const Fix&)> takeFix;
  FixReader fixReader;
  /// Fixes of the epoch that is not complete yet.
  std::vector<Fix> fixes;
};

}  // namespace host
