#include "commandline/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>

#include "base/HostError.h"
#include "base/Suggestion.h"
#include "commandline/CommandTable.h"
#include "commandline/HelpFormatter.h"
#include "commandline/OptionTable.h"

namespace host {

namespace {

const CLI::Option* FindOption(const CLI::App& app, const std::string& name) {
  const CLI::Option* found = app.get_option_no_throw(name);
  for (const CLI::App* command : app.get_subcommands({})) {
    found = found != nullptr ? found : FindOption(*command, name);
  }
  return found;
}

bool TakesValue(const CLI::App& app, const std::string& name) {
  const CLI::Option* option = FindOption(app, name);
  return option != nullptr && option->get_items_expected_max() > 0;
}

/// Splits "--name=" into "--name" and an empty value. CLI11 would take the next argument as value.
std::vector<std::string> SplitEmptyValues(const CLI::App& app,
                                          const std::vector<std::string>& arguments) {
  std::vector<std::string> split;
  for (const std::string& argument : arguments) {
    const std::string name = argument.substr(0, argument.find('='));
    if (argument == name + "=" && TakesValue(app, name)) {
      split.push_back(name);
      split.emplace_back();
    } else {
      split.push_back(argument);
    }
  }
  return split;
}

std::string SuggestOption(const CLI::App& app, const std::string& name) {
  std::vector<std::string> names;
  for (const CLI::Option* option : CommandTable::FindOptions(app)) {
    names.push_back(option->get_lnames().front());
  }
  const std::size_t start = std::min(name.find_first_not_of('-'), name.size());
  const std::optional<std::string> similar = FindSimilar(name.substr(start), names);
  return similar ? "; did you mean --" + *similar + "?" : " (see --help)";
}

void RefuseUnknown(const CLI::App& app) {
  constexpr bool WITH_COMMANDS = true;
  const std::vector<std::string> unknown = app.remaining(WITH_COMMANDS);
  if (unknown.empty()) {
    return;
  }
  const std::string& first = unknown.front();
  if (first.starts_with("-")) {
    const std::string name = first.substr(0, first.find('='));
    throw UsageError("unknown option " + name + SuggestOption(app, name));
  }
  if (!app.get_subcommands().empty()) {
    throw UsageError("unexpected argument \"" + first + "\" (see --help)");
  }
  throw UsageError("unexpected argument \"" + first + "\"; a recording is played with --nmea " +
                   first);
}

/// With --raw the engine opens the port by itself.
void CheckEngineRate(int baud) {
  constexpr std::array KNOWN = {300, 2400, 4800, 9600, 19200, 38400, 57600, 115200};
  if (std::find(KNOWN.begin(), KNOWN.end(), baud) == KNOWN.end()) {
    throw UsageError(
        "--baud with --raw: the engine knows 300, 2400, 4800, 9600, 19200, 38400, 57600, 115200");
  }
}

void CheckMqtt(const Options::Mqtt& mqtt) {
  const bool hasDetails =
      !mqtt.id.empty() || !mqtt.user.empty() || !mqtt.passwordFile.empty() || mqtt.hasTls;
  if (mqtt.host.empty() && hasDetails) {
    throw UsageError("--mqtt-id, --mqtt-user, --mqtt-password-file and --mqtt-tls go with --mqtt");
  }
  if (!mqtt.passwordFile.empty() && mqtt.user.empty()) {
    throw UsageError("--mqtt-password-file goes with --mqtt-user");
  }
}

void CheckCombinations(const Options& options) {
  CheckMqtt(options.mqtt);
  const bool isPort =
      options.source == Options::Source::PORT || options.source == Options::Source::SEARCH;
  if (options.baud && !isPort) {
    throw UsageError("--baud goes with --port");
  }
  if (options.raw && options.source == Options::Source::PORT && options.baud) {
    CheckEngineRate(*options.baud);
  }
  if (options.gpsApi && options.source != Options::Source::GPSD) {
    throw UsageError("--gps-api goes with --gpsd");
  }
  if (options.gpsApi && options.raw) {
    throw UsageError("--gps-api and --raw: the GPS API has no sentences");
  }
  const bool isSheet = !options.contactSheetFile.empty();
  const bool isSheetAlone = options.framesFolder.empty() && options.shotFile.empty() &&
                            options.windowUse != Options::WindowUse::ALWAYS;
  if (isSheet && !isSheetAlone) {
    throw UsageError("--contact-sheet does not go with --window, --frames or --shot");
  }
  const bool passesHost =
      !options.gpsApi && !(options.raw && options.source == Options::Source::PORT);
  if (!options.recordFile.empty() && options.source == Options::Source::FILE) {
    throw UsageError("--record is for a receiver or the demo: a recording is there already");
  }
  if (!options.recordFile.empty() && !passesHost) {
    throw UsageError("--record does not go with --gps-api or --port --raw");
  }
  if (options.web && isSheet) {
    throw UsageError("--web does not go with --contact-sheet");
  }
  if (!options.web && !options.webNames.empty()) {
    throw UsageError("--web-name goes with --web");
  }
  if (!options.web && !options.webCertificateFile.empty()) {
    throw UsageError("--web-tls goes with --web");
  }
  if (options.rate && IsLive(options.source)) {
    throw UsageError("--rate is for the demo and recordings: a receiver sets its own pace");
  }
}

}  // namespace

Options ParseOptions(const std::vector<std::string>& arguments, Options::Source source) {
  CLI::App app;
  Options options;
  options.source = source;
  const OptionTable table(app, options);
  const CommandTable commands(app, options);
  std::vector<std::string> toParse = SplitEmptyValues(app, arguments);
  std::reverse(toParse.begin(), toParse.end());  // CLI11 takes arguments off the end
  try {
    app.parse(toParse);
  } catch (const CLI::ArgumentMismatch&) {
    // The last option lacks its value; all other mismatches are refused by the tables.
    const auto last = std::find_if(
        arguments.rbegin(), arguments.rend(),
        [&app](const std::string& argument) { return FindOption(app, argument) != nullptr; });
    throw UsageError(last == arguments.rend()
                         ? "a value is missing"
                         : *last + " needs " + FindOption(app, *last)->get_option_text());
  } catch (const CLI::ParseError& error) {
    throw UsageError(error.what());
  }
  RefuseUnknown(app);
  commands.Check();
  if (options.action == Options::Action::RUN) {
    CheckCombinations(options);
  }
  return options;
}

std::string GetHelp() {
  CLI::App app;
  Options options;
  const OptionTable table(app, options);
  app.formatter(std::make_shared<HelpFormatter>());
  return app.help();
}

}  // namespace host
