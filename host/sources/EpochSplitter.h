// Cuts what a receiver sends into pieces that the engine can be given at one go.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "sources/ReceiverBridge.h"

namespace host {

/// Whole sentences up to and including the one that makes the engine update itself.
struct Epoch {
  /// At most EpochSplitter::MAX_BYTES.
  std::string bytes;
  /// Updates that the engine makes of it: 1, or 0 for a piece without an RMC.
  int updates = 0;
  /// Time stamp of the RMC in milliseconds: since 1970 when it has a date, else of its day. Nothing
  /// without a time.
  std::optional<std::int64_t> timeMs;
  /// Bytes of the source up to the end of this piece, from the very first one.
  std::uint64_t sourceOffset = 0;
};

/// The engine updates itself at every RMC and reads at most 2048 bytes at a time, of which it wants
/// whole sentences that end in CR LF. With a bridge the sentences are rewritten by it, any line end
/// is made CR LF, and whatever is no sentence (text of a logging program, binary messages, empty
/// lines) is dropped and counted. Without one no byte is changed.
class EpochSplitter {
 public:
  /// Buffer size of the engine's reader.
  static constexpr std::size_t MAX_BYTES = 2048;
  /// With a bridge a longer line is no sentence.
  static constexpr std::size_t MAX_SENTENCE = 400;

  using Deliver = std::function<void(Epoch)>;

  /// `bridgeToUse` may be null: bytes pass untouched then. It must outlive the splitter.
  EpochSplitter(ReceiverBridge* bridgeToUse, Deliver deliverTo);

  /// Takes the next bytes of the source and delivers the pieces that they complete.
  void Add(std::string_view bytes);

  /// The source has ended: delivers what is left.
  void Finish();

  /// Lines that were no sentences, empty ones not counted.
  std::uint64_t GetLinesDropped() const { return linesDropped; }
  /// Sentences handed on.
  std::uint64_t GetSentences() const { return sentences; }

 private:
  void TakeLine(std::string_view bytes);
  void TakeBridged(std::string_view bytes);
  void Append(std::string_view bytes, std::string_view sentence, std::string_view original);
  void Flush();

  ReceiverBridge* bridge;
  Deliver deliver;
  std::string line;
  Epoch epoch;
  std::uint64_t offset = 0;
  std::uint64_t linesDropped = 0;
  std::uint64_t sentences = 0;
};

}  // namespace host
