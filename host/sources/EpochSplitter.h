// Cuts what a receiver sends into pieces that the engine can read at once.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "sources/ClockWatch.h"
#include "sources/Fix.h"
#include "sources/FixReader.h"
#include "sources/ReceiverBridge.h"

namespace host {

/// Whole sentences that end with the one that makes the engine update itself.
struct Epoch {
  /// At most EpochSplitter::MAX_BYTES.
  std::string bytes;
  /// Number of updates that the piece causes: 1, or 0 without an RMC.
  int updates = 0;
  /// Time stamp of the RMC in milliseconds: since 1970 if it has a date, else since midnight.
  /// Nothing without a time.
  std::optional<std::int64_t> timeMs;
  /// The receiver's clock has jumped: the piece is one RMC without a fix, made by the splitter.
  bool startsStretch = false;
  /// What the receiver said about the RMC's moment up to the RMC; empty without a reader of fixes.
  Fix fix;
  /// Bytes from the start of the source to the end of this piece.
  std::uint64_t sourceOffset = 0;
};

/// The engine updates itself at every RMC. It reads at most 2048 bytes at a time and needs whole
/// sentences that end in CR LF. With a bridge, the bridge rewrites the sentences, every line end
/// becomes CR LF, damaged sentences and comments ("# ...") are dropped, and lines that are no sentences (text of a logging
/// program, binary messages) are dropped and counted. Before the first RMC after a jump of the
/// receiver's clock comes one without a fix, so that the engine adds nothing to the trip for the
/// jump. Without a bridge no byte is changed.
class EpochSplitter {
 public:
  /// Buffer size of the engine's reader.
  static constexpr std::size_t MAX_BYTES = 2048;
  /// Length of a sentence; with a bridge a longer one is dropped.
  static constexpr std::size_t MAX_SENTENCE = 400;

  using Deliver = std::function<void(Epoch)>;

  /// `bridge` is null for no bridge, else it outlives the splitter. `deliver` gets the pieces, in
  /// calls from Add and Finish.
  EpochSplitter(ReceiverBridge* bridge, Deliver deliver);

  /// Also gives `reader` the sound sentences as the receiver sent them; it outlives the splitter.
  void ReadFixesWith(FixReader& reader) { fixes = &reader; }

  /// Adds the next bytes of the source.
  void Add(std::string_view bytes);

  /// Delivers what is left at the end of the source.
  void Finish();

  /// Lines that were no sentences; empty lines do not count.
  std::uint64_t GetLinesDropped() const { return linesDropped; }
  std::uint64_t GetClockJumps() const { return clockJumps; }
  /// Sentences delivered.
  std::uint64_t GetSentences() const { return sentences; }

 private:
  void TakeLine(std::string_view bytes);
  void TakeRaw(std::string_view bytes);
  void TakeBridged(std::string_view bytes);
  void WatchClock(const std::string& sentence);
  void Append(std::string_view bytes, std::string_view sentence, std::string_view original);
  void Flush();

  ReceiverBridge* bridge;
  Deliver deliver;
  /// Null when nobody wants fixes.
  FixReader* fixes = nullptr;
  std::string line;
  Epoch epoch;
  std::uint64_t offset = 0;
  ClockWatch clock;
  std::uint64_t clockJumps = 0;
  std::uint64_t linesDropped = 0;
  std::uint64_t sentences = 0;
};

}  // namespace host
