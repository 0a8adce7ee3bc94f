// What the user asks for on the command line.
#pragma once

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

/// Reads the arguments behind the program's name. Throws UsageError.
Options ParseOptions(const std::vector<std::string>& arguments);

/// The text of --help.
std::string GetHelp();

}  // namespace host
