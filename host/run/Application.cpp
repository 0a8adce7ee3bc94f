#include "run/Application.h"

#include <cerrno>
#include <cstring>
#include <memory>

#include "base/HostError.h"
#include "base/Messages.h"
#include "commandline/CommandLine.h"
#include "engine/EngineLibrary.h"
#include "handheld.h"
#include "run/HomeFolder.h"
#include "run/HostRun.h"
#include "run/SignalWatcher.h"
#include "sources/FileSource.h"

namespace host {

namespace {

std::unique_ptr<NmeaSource> OpenRecording(const Options& options) {
  return options.source == Options::Source::FILE ? std::make_unique<FileSource>(options.file)
                                                 : nullptr;
}

void PrepareDevice(const Options& options, const HomeFolder& home) {
  handheld::SetModuleDirectory(home.GetPath());
  handheld::AddLibraryDirectory(home.GetLibraryFolder());
  handheld::SetScreen(options.size.width, options.size.height, options.dpi);
  if (!options.language.empty()) {
    handheld::SetLanguage(options.language.c_str());
  }
}

void Play(const Options& options, StandardOutput& output, Messages& messages) {
  SignalWatcher signals;
  std::unique_ptr<NmeaSource> recording = OpenRecording(options);
  const HomeFolder home(options.home);
  PrepareDevice(options, home);
  std::optional<TrackFolder> tracks;
  {
    const EngineLibrary engine;
    HostRun run(engine, options, home, std::move(recording), output, messages);
    run.Run(signals);
    tracks = run.GetTrackFolder();
  }
  // The engine writes the track when it is unloaded.
  if (tracks) {
    const std::vector<std::string> files = tracks->DescribeNewFiles();
    for (const std::string& file : files) {
      messages.Say("track written to " + file);
    }
    if (files.empty()) {
      messages.Say("no track written: there was no position");
    }
  }
}

void Run(const std::vector<std::string>& arguments, Messages& messages) {
  const Options options = ParseOptions(arguments);
  StandardOutput output;
  switch (options.action) {
    case Options::Action::HELP:
      output.Write(GetHelp());
      break;
    case Options::Action::VERSION:
      output.Write("ferolin-host " FEROLIN_VERSION "\n");
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

int RunApplication(const std::vector<std::string>& arguments) {
  Messages messages;
  try {
    Run(arguments, messages);
    return 0;
  } catch (const HostError& error) {
    messages.Say(error.what());
    return error.GetExitStatus();
  } catch (const std::exception& error) {
    messages.Say(error.what());
    return HostError::FAILURE;
  }
}

}  // namespace host
