#include "run/Application.h"

#include <cerrno>
#include <cstring>
#include <memory>
#include <optional>

#include "base/HostError.h"
#include "base/Messages.h"
#include "commandline/CommandLine.h"
#include "display/Display.h"
#include "display/DisplaySetup.h"
#include "engine/ColorTheme.h"
#include "engine/EngineLibrary.h"
#include "handheld.h"
#include "outputs/StandardOutput.h"
#include "run/Choices.h"
#include "run/DriveCommands.h"
#include "run/HomeFolder.h"
#include "run/HomeLock.h"
#include "run/HostRun.h"
#include "run/SettingsFile.h"
#include "run/SignalWatcher.h"
#include "run/Theme.h"
#include "run/TrackFolder.h"
#include "sources/FileSource.h"
#include "window/ViewNames.h"

namespace host {

namespace {

// The engine's buffers for paths are short, and its letters those of one code page: it sees these
// folders, wherever the user's lie.
constexpr const WCHAR* HOME_ON_DEVICE = u"\\Ferolin";
constexpr const WCHAR* TRACKS_ON_DEVICE = u"\\Tracks";

std::unique_ptr<NmeaSource> OpenRecording(const Options& options) {
  return options.source == Options::Source::FILE ? std::make_unique<FileSource>(options.file)
                                                 : nullptr;
}

/// A full screen has a picture of its own size, portrait or landscape.
void ChooseSize(Options& options) {
  const bool fillsDisplay = options.fullscreen && !options.isSizeChosen && WantsWindow(options) &&
                            handheld::Display::IsPresent();
  if (!fillsDisplay) {
    return;
  }
  if (const std::optional<handheld::DisplaySize> size = handheld::FindDisplaySize()) {
    options.size = {size->width, size->height};
  }
}

void PrepareDevice(const Options& options, const HomeFolder& home) {
  handheld::SetProgramFolder(home.GetPath());
  handheld::SetScreen(options.size.width, options.size.height, GetDpi(options, options.size));
  handheld::SetFineDrawing(options.fineDrawing);
  handheld::KeepDisplaysAwake(options.keepAwake);
  if (!options.language.empty()) {
    handheld::SetLanguage(options.language.c_str());
  }
}

/// Makes `options` complete: checks the view's name and fills in the choices used last.
void Complete(Options& options, const EngineLibrary& engine, const Choices& choices) {
  if (!options.picture.view.empty()) {
    options.picture.view = std::to_string(FindView(engine(), options.picture.view));
  }
  choices.Recall(options);
}

std::string GetTrackPath(const Options& options, const HomeFolder& home) {
  return options.kmlFolder.empty() ? home.GetPath() + "/Tracks" : options.kmlFolder;
}

/// A kept choice whose folder has become unwritable does not end the drive: nothing is written then.
std::optional<TrackFolder> MakeTrackFolder(const Options& options, bool isAskedFor,
                                           const HomeFolder& home, Messages& messages) {
  try {
    return TrackFolder(GetTrackPath(options, home));
  } catch (const HostError& error) {
    if (isAskedFor) {
      throw;
    }
    messages.SayLoss(std::string(error.what()) + "; no track is written");
    return std::nullopt;
  }
}

/// Tells the engine where to write the track and whether to; nothing when none is wanted. Makes the
/// user's folder an absolute path, so that it is found again from any other folder.
std::optional<TrackFolder> OpenTrackFolder(Options& options, bool isAskedFor,
                                           const EngineLibrary& engine, const HomeFolder& home,
                                           Messages& messages) {
  const bool hasOwnFolder = !options.kmlFolder.empty();
  std::optional<TrackFolder> folder;
  if (options.writeKml) {
    folder = MakeTrackFolder(options, isAskedFor, home, messages);
    options.writeKml = folder.has_value();
  }
  if (folder) {
    engine().SetWriteKML(1);
  }
  if (folder && hasOwnFolder) {
    options.kmlFolder = folder->GetPath().string();
  }
  if (hasOwnFolder) {
    handheld::MapPath(TRACKS_ON_DEVICE, options.kmlFolder);
    engine().SetLogFolder(TRACKS_ON_DEVICE);
  }
  return folder;
}

/// The user may have turned the track on or off meanwhile.
void FollowTrackSwitch(std::optional<TrackFolder>& folder, const Options& options,
                       const EngineLibrary& engine, const HomeFolder& home) {
  if (engine().IsWriteKML() == 0) {
    folder.reset();
  } else if (!folder) {
    folder.emplace(GetTrackPath(options, home));
  }
}

/// A second start in the same home folder shows the window that is there. Throws HostError when
/// there is none.
void CallFirst(HomeLock& lock, const Options& options, const HomeFolder& home, Messages& messages) {
  const bool wantsWindow = WantsWindow(options) && handheld::Display::IsPresent();
  if (!wantsWindow || !lock.CallWindow()) {
    throw HostError("another ferolin-host uses the folder " + home.GetPath() +
                    ": end it first, or choose another folder with --home");
  }
  messages.Say("ferolin-host runs in the folder " + home.GetPath() +
               " already: its window comes to the front");
}

/// Says what became of the track.
void SayTrack(const TrackFolder& folder, bool hadPosition, Messages& messages) {
  const TrackFolder::Outcome outcome = folder.Check(hadPosition);
  for (const std::string& text : outcome.texts) {
    if (outcome.isLost) {
      messages.SayLoss(text);
    } else {
      messages.Say(text);
    }
  }
}

void Play(Options options, StandardOutput& output, Messages& messages) {
  SignalWatcher signals;
  std::unique_ptr<NmeaSource> recording = OpenRecording(options);
  const HomeFolder home(options.home, HomeFolder::ReadOnly::ALLOWED);
  HomeLock lock(home.GetPath());
  if (lock.IsElsewhere()) {
    CallFirst(lock, options, home, messages);
    return;
  }
  if (!home.IsWritable()) {
    messages.SayLoss(home.GetProblem() + "; settings, trips and drives are not kept");
  }
  const bool asksForTrack = options.writeKml;
  ChooseSize(options);
  PrepareDevice(options, home);
  SettingsFile settings(home, HOME_ON_DEVICE, messages);
  if (!options.theme.empty()) {
    settings.Override(ReadTheme(options.theme));
  }
  std::optional<TrackFolder> tracks;
  bool hadPosition = false;
  std::string theme;
  {
    const EngineLibrary engine;
    settings.OnEngineLoaded();
    Choices choices(engine, home, messages);
    Complete(options, engine, choices);
    tracks = OpenTrackFolder(options, asksForTrack, engine, home, messages);
    HostRun run(engine, options, home, choices, std::move(recording), signals, lock, output,
                messages);
    run.Run();
    hadPosition = run.HadPosition();
    FollowTrackSwitch(tracks, options, engine, home);
    theme = handheld::Utf8FromWide(app::FindNewTheme(engine.GetLoaded()));
  }
  // The engine writes its track and its settings when it is unloaded.
  if (tracks) {
    SayTrack(*tracks, hadPosition, messages);
  }
  settings.Keep(theme.empty() ? std::string() : ReadTheme(theme));
  ChoicesBackup::Remove(home.GetPath());
}

Options::Source ChooseDefaultSource(const std::string& program) {
  constexpr const char* INSTALLED_NAME = "ferolin";
  return program.substr(program.rfind('/') + 1) == INSTALLED_NAME ? Options::Source::SEARCH
                                                                  : Options::Source::DEMO;
}

void Run(const std::string& program, const std::vector<std::string>& arguments,
         Messages& messages) {
  const Options options = ParseOptions(arguments, ChooseDefaultSource(program));
  StandardOutput output;
  switch (options.action) {
    case Options::Action::HELP:
      output.Write(GetHelp());
      break;
    case Options::Action::VERSION:
      output.Write("ferolin-host " FEROLIN_VERSION "\n");
      break;
    case Options::Action::LIST_DRIVES:
    case Options::Action::DELETE_DRIVE:
    case Options::Action::EXPORT_DRIVES:
      DriveCommands(HomeFolder(options.home, HomeFolder::ReadOnly::REFUSED).GetPath(), output,
                    messages)
          .Run(options);
      break;
    case Options::Action::RUN:
      Play(options, output, messages);
      break;
  }
  if (output.IsBroken() && output.GetError() != EPIPE) {
    throw HostError(std::string("cannot write the read-outs: ") + std::strerror(output.GetError()));
  }
}

}  // namespace

int RunApplication(const std::string& program, const std::vector<std::string>& arguments) {
  Messages messages;
  try {
    Run(program, arguments, messages);
    return messages.HasLosses() ? HostError::FAILURE : 0;
  } catch (const HostError& error) {
    messages.Say(error.what());
    return error.GetExitStatus();
  } catch (const std::exception& error) {
    messages.Say(error.what());
    return HostError::FAILURE;
  }
}

}  // namespace host
