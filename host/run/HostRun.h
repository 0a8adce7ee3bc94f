// One run with the engine loaded.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>

#include "base/Messages.h"
#include "commandline/Options.h"
#include "engine/EngineLibrary.h"
#include "engine/Readout.h"
#include "outputs/Output.h"
#include "outputs/Pictures.h"
#include "outputs/ProgressLine.h"
#include "outputs/StandardOutput.h"
#include "outputs/TimeLeft.h"
#include "run/Choices.h"
#include "run/DriveKeeping.h"
#include "run/HomeFolder.h"
#include "run/HomeLock.h"
#include "run/MqttStates.h"
#include "run/PositionSource.h"
#include "run/RunSummary.h"
#include "run/SignalWatcher.h"
#include "run/SmsReports.h"
#include "run/Trips.h"
#include "run/WebService.h"
#include "sources/NmeaSource.h"
#include "window/HostWindow.h"
#include "window/ViewWindow.h"

namespace host {

/// Starts the source and the engine, shows every update, and keeps trip and choices at the end.
class HostRun {
 public:
  /// `options` are complete: kept choices are filled in. `home` is the folder of drives.
  /// `recording` is the opened file when one is played, else null. All other arguments outlive the
  /// run. Throws HostError.
  HostRun(const EngineLibrary& engine, const Options& options, const HomeFolder& home,
          Choices& choices, std::unique_ptr<NmeaSource> recording, SignalWatcher& signals,
          HomeLock& lock, StandardOutput& standard, Messages& messages);
  HostRun(const HostRun&) = delete;
  HostRun& operator=(const HostRun&) = delete;
  ~HostRun();

  /// Returns when the source has ended or the user ends the program. Throws HostError when the run
  /// cannot start or a picture cannot be written.
  void Run();

  bool HadPosition() const { return summary.HadPosition(); }

 private:
  void Start();
  void Loop();
  bool CanLendTurns() const;
  void LendTurns();
  void TakeLentTurn();
  void TakeTurn();
  void ShowUpdate();
  void BackUpChoices();
  void KeepReceiver();
  /// Keeps what the user has chosen in the window.
  void KeepShown();
  void ShowNotice();
  void Finish();

  const EngineLibrary& engine;
  const Options& options;
  Choices& choices;
  SignalWatcher& signals;
  HomeLock& lock;
  StandardOutput& standard;
  Messages& messages;
  Trips trips;
  HostWindow window;
  /// Null when no views are drawn.
  std::unique_ptr<ViewWindow> views;
  /// Null when browsers are not served.
  std::unique_ptr<WebService> web;
  DriveKeeping drive;
  PositionSource source;
  /// Something is told or written of every update.
  const bool needsEachUpdate;
  /// Null when none are written.
  std::unique_ptr<Pictures> pictures;
  SmsReports reports;
  MqttStates mqtt;
  RunSummary summary;
  std::unique_ptr<Output> output;
  TimeLeft timeLeft;
  ProgressLine progress;
  Update update;
  /// The engine's reader takes the turns, and counts the updates, while the host rests.
  bool lendsTurns = false;
  /// Number of the last update shown.
  std::uint64_t lastShown = 0;
  std::chrono::steady_clock::time_point nextBackup;
  /// Everything that was asked for was shown.
  bool isComplete = false;
  /// The source has ended by itself.
  bool hasEnded = false;
};

}  // namespace host
