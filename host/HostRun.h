// One run with the engine loaded.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <set>
#include <string>

#include "BridgeNotices.h"
#include "ContactSheet.h"
#include "Display.h"
#include "EngineLibrary.h"
#include "Feeder.h"
#include "FrameFiles.h"
#include "HomeFolder.h"
#include "HostWindow.h"
#include "Messages.h"
#include "NmeaSource.h"
#include "Options.h"
#include "Output.h"
#include "PseudoTerminal.h"
#include "RenderWindow.h"
#include "Screen.h"
#include "Settings.h"
#include "SignalWatcher.h"
#include "SmsReports.h"
#include "SoundTally.h"
#include "TrackFolder.h"
#include "Trip.h"
#include "ViewControl.h"

namespace host {

/// Applies the user's choices, starts the source and the engine, shows every update, and puts
/// everything away again. The engine outlives it, as do all arguments.
class HostRun {
 public:
  /// `recording` is the opened file when one is to be played, else null.
  HostRun(const EngineLibrary& engineToUse, Options optionsToFollow, const HomeFolder& home,
          std::unique_ptr<NmeaSource> recording, StandardOutput& standardOutput,
          Messages& messagesToUse);
  ~HostRun();

  /// Returns when the source has ended or the user wants to leave. Throws HostError when it cannot
  /// start.
  void Run(SignalWatcher& signals);

  /// Where the track goes when the engine is unloaded, if one is to be written.
  const std::optional<TrackFolder>& GetTrackFolder() const { return trackFolder; }

 private:
  void ApplyLimits();
  void ApplySms();
  void ApplyTrack(const HomeFolder& home);
  void ApplyTrip();
  std::set<int> FindResets() const;

  void ApplyPicture();

  void OpenSource();
  void OpenPort();
  void OpenGpsd();
  void FeedFrom(std::unique_ptr<NmeaSource> toFeed, Feeder::Bridge bridge);
  std::string DescribeSource() const;
  std::unique_ptr<Output> MakeOutput();

  void Loop();
  void UpdateDisplay();
  void ShowTitle();
  void ShowUpdate();
  void TakePictures();
  void SayNews();
  void Finish();
  void SumUp();

  const EngineLibrary& engine;
  Options options;
  std::unique_ptr<NmeaSource> source;
  StandardOutput& standard;
  Messages& messages;
  /// Drawn into when there is a display or frames are kept, else null.
  std::unique_ptr<RenderWindow> renderWindow;
  /// Null without a display.
  std::unique_ptr<handheld::Display> display;
  /// On a terminal that shows a table.
  const bool isLiveTable;
  /// Somebody looks on: things happen at the pace of real life.
  const bool isLive;
  /// 0 is as fast as possible.
  const double pace;

  Settings choices;
  Trip trip;
  std::optional<TrackFolder> trackFolder;
  HostWindow window;
  PseudoTerminal line;
  std::unique_ptr<Feeder> feeder;
  std::unique_ptr<Output> output;
  BridgeNotices notices;
  SmsReports reports;
  SoundTally sounds;
  FrameFiles frames;
  std::unique_ptr<ViewControl> views;
  std::unique_ptr<ContactSheet> contactSheet;
  std::string titleShown;
  std::chrono::steady_clock::time_point nextDisplayUpdate;
  /// All that was asked for was shown.
  bool isComplete = false;
  Update update;
  std::chrono::steady_clock::time_point start;
};

}  // namespace host
