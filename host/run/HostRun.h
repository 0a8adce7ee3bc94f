// One run with the engine loaded.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <set>
#include <string>

#include "Display.h"
#include "base/Messages.h"
#include "commandline/Options.h"
#include "engine/EngineLibrary.h"
#include "engine/Settings.h"
#include "outputs/ContactSheet.h"
#include "outputs/FrameFiles.h"
#include "outputs/Output.h"
#include "outputs/Screen.h"
#include "run/HomeFolder.h"
#include "run/SignalWatcher.h"
#include "run/SmsReports.h"
#include "run/SoundTally.h"
#include "run/TrackFolder.h"
#include "run/Trip.h"
#include "sources/BridgeNotices.h"
#include "sources/Feeder.h"
#include "sources/NmeaSource.h"
#include "sources/PseudoTerminal.h"
#include "window/HostWindow.h"
#include "window/RenderWindow.h"
#include "window/ViewControl.h"

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
