// Where the engine gets its positions.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "commandline/Options.h"
#include "engine/EngineLibrary.h"
#include "sources/Fix.h"
#include "sources/NmeaSource.h"
#include "sources/PositionFeed.h"
#include "sources/PseudoTerminal.h"
#include "sources/RecordingFeed.h"
#include "sources/SearchSource.h"
#include "sources/SentenceLog.h"
#include "sources/SideReader.h"

namespace host {

/// Either lets the engine read gpsd or a port by itself, or feeds it: through a port in memory what
/// is played as fast as possible, all else through a pseudo-terminal. For the host's thread.
class PositionSource {
 public:
  enum class Audience { WATCHING, ABSENT };

  /// `recording` is the opened file when one is played, else null. With a watching audience the
  /// demo and recordings take real time unless the user gives a rate. Called on another thread:
  /// `onTurn` when the engine waits for the host, and `onEnd` when the source has ended and the
  /// engine has taken everything. Engine and options outlive the source.
  PositionSource(const EngineLibrary& engine, const Options& options,
                 std::unique_ptr<NmeaSource> recording, Audience audience,
                 std::function<void()> onTurn, std::function<void()> onEnd);
  PositionSource(const PositionSource&) = delete;
  PositionSource& operator=(const PositionSource&) = delete;
  ~PositionSource();

  /// Connects the engine with the source. Throws HostError when that fails.
  void Open();

  /// Gives `take` each fix that the receiver sends, on another thread. Call between Open and Start.
  void TellFixes(std::function<void(const Fix&)> take);

  /// Starts feeding the engine, which must be reading.
  void Start();
  void Stop();

  /// Whether what is played waits for the host at `onTurn`, and not at every update.
  bool HasTurns() const { return recordingFeed != nullptr; }

  /// The host does not need every update, where there are turns.
  void LookSeldom();

  /// From now on `take` is called for each turn, on the reader's thread while the host rests. Call
  /// after Open, where there are turns, and before the engine reads.
  void LendTurns(std::function<void()> take);

  /// Waits for a turn, at most that long. Throws what a lent turn has thrown.
  void Rest(std::chrono::milliseconds limit);

  /// Call after every update, or at every turn: the next position may come. `updates` is the number
  /// of updates so far.
  void Answer(std::uint64_t updates);

  /// What the receiver said about the moments of the updates since the last call, the latest one
  /// last; with turns all of them, else that one only.
  std::vector<Fix> TakeFixes();

  /// The receiver that a search has found; nothing without one.
  std::optional<SearchSource::Receiver> GetFound() const;

  /// When the engine reads by itself, only the reception is known.
  PositionFeed::Report GetReport() const;

  /// The record of the sentences that the user asked for; null without one.
  SentenceLog* GetLog() const { return log.get(); }

  /// Whether there are updates without a fix, once a second, while a receiver is silent.
  bool FillsSilence() const { return !options.raw; }

 private:
  void OpenPort();
  void OpenGpsd();
  void OpenSearch();
  void OpenGpsApi();
  void Feed(std::unique_ptr<NmeaSource> toFeed);
  std::unique_ptr<PositionFeed> MakeFeed();
  std::unique_ptr<NmeaSource> MakeDemo() const;

  const EngineLibrary& engine;
  const Options& options;
  std::unique_ptr<NmeaSource> recording;
  const Audience audience;
  /// Speed relative to real time; 0 is as fast as possible.
  const double pace;
  const std::function<void()> tellTurn;
  const std::function<void()> tellEnd;
  /// Null without a feed through it.
  std::unique_ptr<PseudoTerminal> line;
  std::unique_ptr<SentenceLog> log;
  std::unique_ptr<NmeaSource> fed;
  /// Null unless a receiver is looked for, else `fed`.
  SearchSource* search = nullptr;
  /// Null when the engine reads by itself.
  std::unique_ptr<PositionFeed> feed;
  /// The feed, when that is one as fast as possible; else null.
  RecordingFeed* recordingFeed = nullptr;
  /// Null unless the engine reads by itself.
  std::unique_ptr<SideReader> side;
};

}  // namespace host
