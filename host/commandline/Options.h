// What the user asks for on the command line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace host {

struct Options {
  enum class Action { RUN, HELP, VERSION };
  enum class Source { DEMO, PORT, FILE, GPSD };

  struct Limit {
    int kmh = 0;
    int band = 10;
  };

  enum class WindowUse { IF_PRESENT, ALWAYS, NEVER };

  /// What the views show and how. Nothing (empty): as the last time.
  struct Picture {
    /// Name or number, from 0.
    std::string view;
    std::optional<bool> mirror;
    std::optional<bool> flip;
    std::optional<bool> rotate;
    std::optional<bool> invert;
  };

  /// The engine keeps this many limits between runs.
  static constexpr std::size_t LIMITS = 3;

  Action action = Action::RUN;

  Source source = Source::DEMO;
  /// Serial device; empty: that of the last time.
  std::string device;
  /// Baud rate; 0 leaves the port's own. Nothing: that of the last time if the device is the same.
  std::optional<int> baud;
  /// Recording; "-" is standard input.
  std::string file;
  /// "host:port"; empty: that of the last time, or the usual one.
  std::string gpsd;

  /// Speed against real time; 0 is as fast as possible. Nothing: chosen by what is played and where
  /// it is shown.
  std::optional<double> rate;
  bool raw = false;

  bool json = false;
  WindowUse windowUse = WindowUse::IF_PRESENT;
  /// Size of the picture in pixels, and its resolution in dots per inch.
  int width = 800;
  int height = 480;
  int dpi = 96;
  bool fullscreen = false;
  Picture picture;
  /// Where drawn pictures go; empty: nowhere.
  std::string framesFolder;
  std::string shotFile;
  std::string contactSheetFile;
  /// Updates after which the run ends; 0: not by their number.
  std::uint64_t updates = 0;
  /// "ENU" or "RUS"; empty: by the environment.
  std::string language;
  std::string home;

  bool writeKml = false;
  /// Empty: that of the last time, or the engine's own.
  std::string kmlFolder;
  bool newTrip = false;
  /// Names of sensors to start afresh.
  std::vector<std::string> resets;

  /// Nothing: those of the last time. An empty list: none.
  std::optional<std::vector<Limit>> limits;
  std::optional<bool> beepOnZero;

  std::optional<std::string> smsTo;
  std::optional<std::string> smsText;
  /// Minutes of driving between two messages; 0: none are sent.
  int smsEveryMinutes = 0;
};

/// Whether a window is wanted when there is a display: unless something else was asked for.
bool WantsWindow(const Options& options);

/// Whether pictures are to be written.
bool WantsPictures(const Options& options);

/// Reads the arguments behind the program's name. Throws UsageError.
Options ParseOptions(const std::vector<std::string>& arguments);

/// The text of --help.
std::string GetHelp();

}  // namespace host
