// Where the engine gets its positions.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "commandline/Options.h"
#include "engine/EngineLibrary.h"
#include "sources/Feeder.h"
#include "sources/Fix.h"
#include "sources/NmeaSource.h"
#include "sources/PseudoTerminal.h"
#include "sources/SearchSource.h"
#include "sources/SentenceLog.h"
#include "sources/SideReader.h"

namespace host {

/// Either lets the engine read gpsd or a port by itself, or feeds it through a pseudo-terminal.
/// For the host's thread.
class PositionSource {
 public:
  enum class Audience { WATCHING, ABSENT };

  /// `recording` is the opened file when one is played, else null. With a watching audience the
  /// demo and recordings take real time unless the user gives a rate. `onEnd` is called on another
  /// thread when the source has ended and the engine has taken everything. Engine and options
  /// outlive the source.
  PositionSource(const EngineLibrary& engine, const Options& options,
                 std::unique_ptr<NmeaSource> recording, Audience audience,
                 std::function<void()> onEnd);

  /// Connects the engine with the source. Throws HostError when that fails.
  void Open();

  /// Gives `take` each fix that the receiver sends, on another thread. Call between Open and Start.
  void TellFixes(std::function<void(const Fix&)> take);

  /// Starts feeding the engine, which must be reading.
  void Start();
  void Stop();

  /// Call after every update: the next position may come.
  void Answer();

  /// What the receiver said about the moment of the latest update; nothing when its sentences do
  /// not pass through the host.
  std::optional<Fix> GetFix() const;

  /// The receiver that a search has found; nothing without one.
  std::optional<SearchSource::Receiver> GetFound() const;

  /// When the engine reads by itself, only the reception is known.
  Feeder::Report GetReport() const;

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
  std::unique_ptr<NmeaSource> MakeDemo() const;

  const EngineLibrary& engine;
  const Options& options;
  std::unique_ptr<NmeaSource> recording;
  const Audience audience;
  /// Speed relative to real time; 0 is as fast as possible.
  const double pace;
  const std::function<void()> end;
  PseudoTerminal line;
  std::unique_ptr<SentenceLog> log;
  std::unique_ptr<NmeaSource> fed;
  /// Null unless a receiver is looked for, else `fed`.
  SearchSource* search = nullptr;
  /// Null when the engine reads by itself.
  std::unique_ptr<Feeder> feeder;
  /// Null unless the engine reads by itself.
  std::unique_ptr<SideReader> side;
};

}  // namespace host
