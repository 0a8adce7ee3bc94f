#include "commandline/Options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

#include "base/DisplayText.h"
#include "base/HostError.h"

namespace host {

namespace {

constexpr std::array BAUD_RATES = {300, 2400, 4800, 9600, 19200, 38400, 57600, 115200};
constexpr double LOWEST_RATE = 0.01;
constexpr double HIGHEST_RATE = 10000;
constexpr int HIGHEST_LIMIT = 999;
constexpr int LONGEST_INTERVAL = 24 * 60;
constexpr int SMALLEST_SIDE = 64;
constexpr int LARGEST_SIDE = 4096;
constexpr int LOWEST_DPI = 48;
constexpr int HIGHEST_DPI = 480;
constexpr int MOST_UPDATES = 1000000000;

/// An option on its way into Options: its name for messages, and which source was chosen before.
struct Context {
  Options options;
  std::string name;
  std::string sourceName;
};

[[noreturn]] void Refuse(const Context& context, std::string_view value, std::string_view wanted) {
  throw UsageError(context.name + ": \"" + std::string(value) + "\" is not " + std::string(wanted));
}

template <class Number>
std::optional<Number> ParseNumber(std::string_view text) {
  Number number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = result.ec == std::errc() && result.ptr == text.data() + text.size();
  return whole ? std::optional(number) : std::nullopt;
}

int ParseBetween(const Context& context, std::string_view value, int lowest, int highest) {
  const std::optional<int> number = ParseNumber<int>(value);
  if (!number || *number < lowest || *number > highest) {
    Refuse(context, value,
           "a whole number from " + std::to_string(lowest) + " to " + std::to_string(highest));
  }
  return *number;
}

/// Settings files cannot hold it.
void RefuseBracket(const Context& context, const std::string& value) {
  if (value.find_first_of("[\r\n") != std::string::npos) {
    Refuse(context, value, "a text without \"[\" and line ends");
  }
}

void ChooseSource(Context& context, Options::Source source) {
  if (!context.sourceName.empty() && context.sourceName != context.name) {
    throw UsageError(context.sourceName + " and " + context.name + ": only one source at a time");
  }
  context.sourceName = context.name;
  context.options.source = source;
}

void SetPort(Context& context, const std::string& value) {
  ChooseSource(context, Options::Source::PORT);
  context.options.device = value;
}

void SetBaud(Context& context, const std::string& value) {
  const std::optional<int> baud = ParseNumber<int>(value);
  if (!baud || std::find(BAUD_RATES.begin(), BAUD_RATES.end(), *baud) == BAUD_RATES.end()) {
    Refuse(context, value, "one of 300, 2400, 4800, 9600, 19200, 38400, 57600, 115200");
  }
  context.options.baud = baud;
}

void SetFile(Context& context, const std::string& value) {
  ChooseSource(context, Options::Source::FILE);
  context.options.file = value;
}

void SetGpsd(Context& context, const std::string& value) {
  ChooseSource(context, Options::Source::GPSD);
  context.options.gpsd = value;
}

void SetDemo(Context& context, const std::string&) {
  ChooseSource(context, Options::Source::DEMO);
}

void SetRate(Context& context, const std::string& value) {
  const std::optional<double> rate = value == "max" ? 0 : ParseNumber<double>(value);
  const bool inRange = rate && *rate >= LOWEST_RATE && *rate <= HIGHEST_RATE;
  if (value != "max" && !inRange) {
    Refuse(context, value, "\"max\" or a number from 0.01 to 10000");
  }
  context.options.rate = rate;
}

void SetRaw(Context& context, const std::string&) {
  context.options.raw = true;
}

void SetJson(Context& context, const std::string&) {
  context.options.json = true;
}

void SetWindow(Context& context, const std::string&) {
  context.options.windowUse = Options::WindowUse::ALWAYS;
}

void SetNoWindow(Context& context, const std::string&) {
  context.options.windowUse = Options::WindowUse::NEVER;
}

void SetSize(Context& context, const std::string& value) {
  const std::size_t times = value.find('x');
  if (times == std::string::npos) {
    Refuse(context, value, "a size such as 800x480");
  }
  const std::string_view text = value;
  context.options.width = ParseBetween(context, text.substr(0, times), SMALLEST_SIDE, LARGEST_SIDE);
  context.options.height =
      ParseBetween(context, text.substr(times + 1), SMALLEST_SIDE, LARGEST_SIDE);
}

void SetDpi(Context& context, const std::string& value) {
  context.options.dpi = ParseBetween(context, value, LOWEST_DPI, HIGHEST_DPI);
}

void SetFullscreen(Context& context, const std::string&) {
  context.options.fullscreen = true;
}

void SetView(Context& context, const std::string& value) {
  context.options.picture.view = value;
}

template <std::optional<bool> Options::Picture::*flag, bool value>
void SetPicture(Context& context, const std::string&) {
  context.options.picture.*flag = value;
}

void SetFrames(Context& context, const std::string& value) {
  context.options.framesFolder = value;
}

void SetShot(Context& context, const std::string& value) {
  context.options.shotFile = value;
}

void SetContactSheet(Context& context, const std::string& value) {
  context.options.contactSheetFile = value;
}

void SetUpdates(Context& context, const std::string& value) {
  context.options.updates =
      static_cast<std::uint64_t>(ParseBetween(context, value, 1, MOST_UPDATES));
}

void SetLanguage(Context& context, const std::string& value) {
  if (value != "en" && value != "ru") {
    Refuse(context, value, R"("en" or "ru")");
  }
  context.options.language = value == "ru" ? "RUS" : "ENU";
}

void SetHome(Context& context, const std::string& value) {
  context.options.home = value;
}

void SetKml(Context& context, const std::string& value) {
  context.options.writeKml = true;
  context.options.kmlFolder = value;
}

void SetNewTrip(Context& context, const std::string&) {
  context.options.newTrip = true;
}

void AddReset(Context& context, const std::string& value) {
  context.options.resets.push_back(value);
}

void AddLimit(Context& context, const std::string& value) {
  if (!context.options.limits) {
    context.options.limits.emplace();
  }
  std::vector<Options::Limit>& limits = *context.options.limits;
  if (value == "none") {
    limits.clear();
    return;
  }
  if (limits.size() == Options::LIMITS) {
    throw UsageError(context.name + ": at most " + std::to_string(Options::LIMITS) + " limits");
  }
  Options::Limit limit;
  const std::size_t colon = value.find(':');
  limit.kmh = ParseBetween(context, std::string_view(value).substr(0, colon), 1, HIGHEST_LIMIT);
  if (colon != std::string::npos) {
    limit.band = ParseBetween(context, std::string_view(value).substr(colon + 1), 1, HIGHEST_LIMIT);
  }
  limits.push_back(limit);
}

void SetBeep(Context& context, const std::string&) {
  context.options.beepOnZero = true;
}

void SetNoBeep(Context& context, const std::string&) {
  context.options.beepOnZero = false;
}

void SetSmsTo(Context& context, const std::string& value) {
  RefuseBracket(context, value);
  context.options.smsTo = value;
}

void SetSmsText(Context& context, const std::string& value) {
  RefuseBracket(context, value);
  context.options.smsText = value;
}

void SetSmsEvery(Context& context, const std::string& value) {
  context.options.smsEveryMinutes = ParseBetween(context, value, 1, LONGEST_INTERVAL);
}

void SetHelp(Context& context, const std::string&) {
  context.options.action = Options::Action::HELP;
}

void SetVersion(Context& context, const std::string&) {
  context.options.action = Options::Action::VERSION;
}

enum class Value { NONE, OPTIONAL, REQUIRED };

struct Option {
  /// Heading above it in the help; empty within a group.
  std::string_view heading;
  std::string_view name;
  Value value;
  std::string_view valueName;
  void (*apply)(Context& context, const std::string& value);
  std::string_view help;
};

constexpr std::array OPTIONS = {
    Option{"Where positions come from", "--demo", Value::NONE, "", SetDemo,
           "a simulated drive through town, tunnel and motorway (the default)"},
    Option{"", "--port", Value::OPTIONAL, "DEVICE", SetPort,
           "a receiver at a serial port; without DEVICE the one of the last time"},
    Option{"", "--baud", Value::REQUIRED, "N", SetBaud,
           "its baud rate, 300 to 115200; without it the port's own is left"},
    Option{"", "--gpsd", Value::OPTIONAL, "HOST:PORT", SetGpsd,
           "a running gpsd (localhost:2947 at first, then the one of the last time)"},
    Option{"", "--nmea", Value::REQUIRED, "FILE", SetFile,
           "a recording of NMEA sentences; - is standard input"},
    Option{"", "--rate", Value::REQUIRED, "N|max", SetRate,
           "play the demo or a recording N times as fast, or as fast as the engine takes it; "
           "1 in a terminal's table, else max"},
    Option{"", "--raw", Value::NONE, "", SetRaw,
           "pass the receiver's bytes untouched; else sentences of GN, GL, ... receivers and "
           "fractional seconds are made what the engine understands"},
    Option{"What is shown", "--json", Value::NONE, "", SetJson,
           "one line of JSON for each update, and one at the end"},
    Option{"", "--lang", Value::REQUIRED, "en|ru", SetLanguage,
           "language of names and units; by the environment if not given"},
    Option{"", "--updates", Value::REQUIRED, "N", SetUpdates, "end after N positions"},
    Option{"The window", "--window", Value::NONE, "", SetWindow,
           "open it also when other output is asked for; without this option it opens if there is "
           "a display and none of --json, --frames, --shot, --contact-sheet is given"},
    Option{"", "--no-window", Value::NONE, "", SetNoWindow,
           "do not open it: a table on a terminal, else lines of text"},
    Option{"", "--size", Value::REQUIRED, "WxH", SetSize,
           "size of the picture in pixels (800x480); the frame on the display may be resized"},
    Option{"", "--dpi", Value::REQUIRED, "N", SetDpi,
           "dots per inch (96), by which buttons grow: 192 doubles them"},
    Option{"", "--fullscreen", Value::NONE, "", SetFullscreen, "fill the screen"},
    Option{"", "--view", Value::REQUIRED, "NAME|NUMBER", SetView,
           "begin with this view, such as Speed, or 0 for the first; kept"},
    Option{"", "--mirror", Value::NONE, "", SetPicture<&Options::Picture::mirror, true>,
           "left is right, to be read in the windscreen; kept"},
    Option{"", "--no-mirror", Value::NONE, "", SetPicture<&Options::Picture::mirror, false>,
           "no longer"},
    Option{"", "--flip", Value::NONE, "", SetPicture<&Options::Picture::flip, true>,
           "upside is down, also for the windscreen; kept"},
    Option{"", "--no-flip", Value::NONE, "", SetPicture<&Options::Picture::flip, false>,
           "no longer"},
    Option{"", "--rotate", Value::NONE, "", SetPicture<&Options::Picture::rotate, true>,
           "turn the picture by 90 degrees; kept"},
    Option{"", "--no-rotate", Value::NONE, "", SetPicture<&Options::Picture::rotate, false>,
           "no longer"},
    Option{"", "--invert", Value::NONE, "", SetPicture<&Options::Picture::invert, true>,
           "invert all colours; kept"},
    Option{"", "--no-invert", Value::NONE, "", SetPicture<&Options::Picture::invert, false>,
           "no longer"},
    Option{"Pictures", "--frames", Value::REQUIRED, "DIR", SetFrames,
           "write every drawn frame as a numbered PNG file into this folder"},
    Option{"", "--shot", Value::REQUIRED, "FILE", SetShot,
           "write the last frame as a PNG file at the end"},
    Option{"", "--contact-sheet", Value::REQUIRED, "FILE", SetContactSheet,
           "write one PNG file with all views, upright and across, with their buttons and without, "
           "and end"},
    Option{"The trip", "--new-trip", Value::NONE, "", SetNewTrip,
           "start trip figures and records over instead of going on with those of the last run"},
    Option{"", "--reset", Value::REQUIRED, "NAME", AddReset,
           "start one read-out over, such as \"Max speed\" (may be repeated)"},
    Option{"", "--kml", Value::OPTIONAL, "FOLDER", SetKml,
           "write the route as a KML file at the end; without FOLDER where it went the last "
           "time, at first the folder Tracks"},
    Option{"Sounds", "--limit", Value::REQUIRED, "KMH[:BAND]", AddLimit,
           "sound a warning at this speed and up to BAND km/h (10) above it; up to three, kept for "
           "the next runs; \"none\" ends them"},
    Option{"", "--beep-on-zero", Value::NONE, "", SetBeep, "sound when the vehicle stops; kept"},
    Option{"", "--no-beep-on-zero", Value::NONE, "", SetNoBeep, "no longer"},
    Option{"Messages", "--sms-to", Value::REQUIRED, "NUMBERS", SetSmsTo,
           "who gets position reports, separated by commas; kept"},
    Option{"", "--sms-text", Value::REQUIRED, "TEXT", SetSmsText,
           "their text; %Latitude%, %Longitude%, %Altitude%, %Speed%, %Azimuth%, %Time% and "
           "%GoogleMaps% are filled in; kept"},
    Option{"", "--sms-every", Value::REQUIRED, "MINUTES", SetSmsEvery,
           "send one every so many minutes while there is a position"},
    Option{"Other", "--home", Value::REQUIRED, "DIR", SetHome,
           "folder of settings, pictures and tracks; the program's own if it can be written to, "
           "else ~/.local/share/ferolin"},
    Option{"", "--help", Value::NONE, "", SetHelp, "this text"},
    Option{"", "--version", Value::NONE, "", SetVersion, "the version"},
};

constexpr std::string_view INTRODUCTION =
    "Usage: ferolin-host [OPTION]...\n"
    "A GPS speedometer: shows what the Ferolin engine makes of a receiver's positions.\n";

constexpr std::string_view KEYS =
    "\nKeys in the window (what they change about the picture is kept for the next run):\n"
    "  Left, Right   previous, next view         R   rotate by 90 degrees\n"
    "  B             show or hide the buttons    I   invert colours\n"
    "  H             mirror (left is right)      S   send a position report\n"
    "  V             flip (upside is down)       F   full screen or not\n"
    "  Home, Del     reset all read-outs         Q, Esc   quit\n"
    "A double click or double tap shows or hides the buttons, a swipe changes the view. The "
    "button\n"
    "with the gear inverts the colours and lists these keys on standard error.\n";

constexpr std::string_view EXAMPLES =
    "\nExamples:\n"
    "  ferolin-host                              watch the simulated drive\n"
    "  ferolin-host --port /dev/ttyUSB0 --baud 4800\n"
    "                                            a receiver at USB; Ctrl-C ends\n"
    "  ferolin-host --port --kml ~/tracks        the same one again, with a track file\n"
    "  ferolin-host --gpsd --limit 50 --limit 90:5 --beep-on-zero\n"
    "                                            any receiver that gpsd knows, with warnings\n"
    "  ferolin-host --nmea drive.nmea --rate 10  a recording, ten times as fast\n"
    "  ferolin-host --fullscreen --mirror        a head-up display\n"
    "  ferolin-host --updates 300 --view Speed --shot speed.png\n"
    "                                            a picture of the simulated drive\n"
    "  ferolin-host --nmea drive.nmea --new-trip --json | tail -1\n"
    "                                            what it comes to\n"
    "\nPauses of more than 10 seconds in a recording are cut short. Trip figures go on from run "
    "to\n"
    "run: receivers, recordings and the demo each have a trip of their own. Ctrl-C ends; exit\n"
    "status 1 is a failure, 2 a wrong command line.\n";

const Option& FindOption(const std::string& name) {
  const auto* found = std::find_if(OPTIONS.begin(), OPTIONS.end(),
                                   [&name](const Option& each) { return each.name == name; });
  if (found != OPTIONS.end()) {
    return *found;
  }
  if (name.starts_with("-")) {
    throw UsageError("unknown option " + name + " (see --help)");
  }
  throw UsageError("what is \"" + name + "\"? A recording is played with --nmea " + name);
}

/// Whether the next argument can be the value of an option that may go without one.
bool IsValue(const std::string& argument) {
  return !argument.starts_with("-");
}

void Check(const Options& options) {
  if (options.baud && options.source != Options::Source::PORT) {
    throw UsageError("--baud goes with --port");
  }
  const bool isSheet = !options.contactSheetFile.empty();
  const bool isSheetAlone = options.framesFolder.empty() && options.shotFile.empty() &&
                            options.windowUse != Options::WindowUse::ALWAYS;
  if (isSheet && !isSheetAlone) {
    throw UsageError("--contact-sheet does not go with --window, --frames or --shot");
  }
  const bool isLive =
      options.source == Options::Source::PORT || options.source == Options::Source::GPSD;
  if (options.rate && isLive) {
    throw UsageError("--rate is for the demo and recordings: a receiver sets its own pace");
  }
}

std::string Wrap(std::string_view text, std::size_t indent, std::size_t width) {
  std::string wrapped;
  std::size_t column = indent;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(' '), text.size());
    const std::string_view word = text.substr(0, end);
    const bool isFirst = column == indent;
    if (!isFirst && column + 1 + word.size() > width) {
      wrapped += '\n';
      wrapped.append(indent, ' ');
      column = indent;
    } else if (!isFirst) {
      wrapped += ' ';
      ++column;
    }
    wrapped += word;
    column += word.size();
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return wrapped;
}

std::string Synopsis(const Option& option) {
  std::string text = "  " + std::string(option.name);
  if (option.value == Value::OPTIONAL) {
    text += " [" + std::string(option.valueName) + "]";
  } else if (option.value == Value::REQUIRED) {
    text += ' ';
    text += option.valueName;
  }
  return text;
}

}  // namespace

bool WantsWindow(const Options& options) {
  switch (options.windowUse) {
    case Options::WindowUse::ALWAYS:
      return true;
    case Options::WindowUse::NEVER:
      return false;
    case Options::WindowUse::IF_PRESENT:
      break;
  }
  return !options.json && !WantsPictures(options);
}

bool WantsPictures(const Options& options) {
  return !options.framesFolder.empty() || !options.shotFile.empty() ||
         !options.contactSheetFile.empty();
}

Options ParseOptions(const std::vector<std::string>& arguments) {
  Context context;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    const std::size_t equals = argument.starts_with("--") ? argument.find('=') : std::string::npos;
    const bool isAttached = equals != std::string::npos;
    context.name = argument == "-h" ? "--help" : argument.substr(0, equals);
    const Option& option = FindOption(context.name);
    std::string value = isAttached ? argument.substr(equals + 1) : std::string();
    if (isAttached && option.value == Value::NONE) {
      throw UsageError(context.name + " takes no value");
    }
    const bool mayTakeNext = !isAttached && i + 1 < arguments.size();
    const bool takesNext =
        mayTakeNext && (option.value == Value::REQUIRED ||
                        (option.value == Value::OPTIONAL && IsValue(arguments[i + 1])));
    if (takesNext) {
      value = arguments[++i];
    }
    if (option.value == Value::REQUIRED && value.empty()) {
      throw UsageError(context.name + " needs " + std::string(option.valueName));
    }
    option.apply(context, value);
  }
  if (context.options.action == Options::Action::RUN) {
    Check(context.options);
  }
  return context.options;
}

std::string GetHelp() {
  constexpr std::size_t HELP_COLUMN = 26;
  constexpr std::size_t WIDTH = 92;
  std::string help(INTRODUCTION);
  for (const Option& each : OPTIONS) {
    if (!each.heading.empty()) {
      help += '\n';
      help += each.heading;
      help += ":\n";
    }
    help += PadRight(Synopsis(each), HELP_COLUMN) + Wrap(each.help, HELP_COLUMN, WIDTH) + "\n";
  }
  return help + std::string(KEYS) + std::string(EXAMPLES);
}

}  // namespace host
