#include "commandline/OptionTable.h"

#include "base/HostError.h"
#include "commandline/Values.h"

namespace host {

namespace {

constexpr int LOWEST_DPI = 48;
constexpr int HIGHEST_DPI = 480;
constexpr int MOST_UPDATES = 1000000000;
constexpr int LONGEST_INTERVAL_MINUTES = 24 * 60;

/// CLI11's result of a flag that was given without a value.
constexpr const char* FLAG_IS_SET = "true";

/// Makes a flag set `target` to `value`.
template <class Target, class Value>
std::function<void()> Assign(Target& target, Value value) {
  return [&target, value] { target = value; };
}

/// Makes an option store its text in `target`.
std::function<void(const std::string&)> StoreIn(std::string& target) {
  return [&target](const std::string& text) { target = text; };
}

}  // namespace

OptionTable::OptionTable(CLI::App& app, Options& options) : app(app), options(options) {
  app.set_help_flag();
  app.allow_extras();
  AddSources();
  AddOutputs();
  AddWindow();
  AddPictures();
  AddWeb();
  AddTrip();
  AddSounds();
  AddMessages();
  AddMqtt();
  AddOthers();
}

void OptionTable::AddSources() {
  StartGroup("Where positions come from");
  AddFlag("--demo", "a simulated drive through town, tunnel and motorway (the default)",
          [this] { ChooseSource("--demo", Options::Source::DEMO); });
  AddOptionalValue("--port", "DEVICE",
                   "a receiver at a serial port; without DEVICE the device used last; auto looks "
                   "for one, at gpsd and then at all ports and usual rates, until it is there",
                   [this](const std::string& text) {
                     const bool isSearch = text == "auto";
                     ChooseSource("--port",
                                  isSearch ? Options::Source::SEARCH : Options::Source::PORT);
                     options.device = isSearch ? std::string() : text;
                   });
  AddValue("--baud", "N",
           "its baud rate, 50 to 4000000; if not given, the rate used last with this device, at "
           "first the port's own setting",
           [this](const std::string& text) { options.baud = ParseBaudRate(text); });
  AddOptionalValue("--gpsd", "HOST:PORT",
                   "a running gpsd; without HOST:PORT the one used last, at first localhost:2947",
                   [this](const std::string& text) {
                     ChooseSource("--gpsd", Options::Source::GPSD);
                     options.gpsd = text;
                   });
  AddFlag(
      "--gps-api",
      "with --gpsd: let the engine poll gpsd once a second through the device's GPS API; without "
      "this option it gets the receiver's sentences at their own rate",
      Assign(options.gpsApi, true));
  AddValue("--nmea", "FILE", "a recording of NMEA sentences; - reads standard input",
           [this](const std::string& text) {
             ChooseSource("--nmea", Options::Source::FILE);
             options.file = text;
           });
  AddPlayback();
  AddValue("--record", "FILE",
           "write the receiver's sentences to a file for each day, such as drive-2026-11-22.nmea "
           "for drive.nmea, which --nmea plays",
           StoreIn(options.recordFile));
}

void OptionTable::AddPlayback() {
  AddValue("--rate", "N|max",
           "play the demo or a recording N times as fast, or as fast as the engine can follow; "
           "default: 1 in a window or a terminal's table, else max",
           [this](const std::string& text) { options.rate = ParseRate(text); });
  AddFlag("--raw",
          "pass the receiver's bytes on unchanged; without this option, sentences of GN, GL, ... "
          "receivers and fractional seconds are converted to what the engine understands",
          Assign(options.raw, true));
}

void OptionTable::AddOutputs() {
  StartGroup("What is shown");
  AddFlag("--json",
          "print one line of JSON for each update, and one at the end, with numbers in SI units",
          Assign(options.json, true));
  AddValue(
      "--units", "km|mi|nm",
      "units of table, lines, list of drives and summary: kilometres, miles or nautical miles; "
      "the views, and the texts in JSON, stay in km/h, exports in the units of their formats",
      [this](const std::string& text) { options.units = ParseUnits(text); });
  AddFlag("--degrees", "show positions as decimal degrees in table and lines",
          Assign(options.decimalDegrees, true));
  AddValue("--lang", "en|ru", "language of names and units; default: that of the environment",
           [this](const std::string& text) { options.language = ParseLanguage(text); });
  AddValue("--updates", "N", "end after N positions", [this](const std::string& text) {
    options.updates = static_cast<std::uint64_t>(ParseWholeNumber(text, 1, MOST_UPDATES));
  });
}

void OptionTable::AddWindow() {
  StartGroup("The window");
  AddFlag("--window",
          "open a window also when other output is asked for; without this option it opens if "
          "there is a display and none of --json, --frames, --shot, --contact-sheet is given",
          Assign(options.windowUse, Options::WindowUse::ALWAYS));
  AddFlag("--no-window", "open no window: show a table in a terminal, else print lines of text",
          Assign(options.windowUse, Options::WindowUse::NEVER));
  AddValue("--size", "WxH",
           "size of the picture in pixels; default: that of the display with --fullscreen, else "
           "800x480; it follows a window that is resized, but stays, and the picture is scaled, "
           "with --frames, --shot, or --size and --fullscreen",
           [this](const std::string& text) {
             options.size = ParseSize(text);
             options.isSizeChosen = true;
           });
  AddValue("--dpi", "N|auto",
           "dots per inch: figures and buttons grow with them; auto (the default) makes them fill "
           "the picture, of whatever size: 96 for each 240 pixels of its shorter side",
           [this](const std::string& text) {
             options.dpi.reset();
             if (text != "auto") {
               options.dpi = ParseWholeNumber(text, LOWEST_DPI, HIGHEST_DPI);
             }
           });
  AddFlag(
      "--no-fine-drawing",
      "enlarge pictures of 96 dpi for higher resolutions, instead of drawing them in all pixels "
      "from 144 dpi on",
      Assign(options.fineDrawing, false));
  AddFlag("--fullscreen", "fill the screen", Assign(options.fullscreen, true));
  AddFlag("--no-keep-awake", "let the display go dark when nobody touches it",
          Assign(options.keepAwake, false));
  AddView();
}

void OptionTable::AddView() {
  Options::Picture& picture = options.picture;
  AddValue("--view", "NAME|NUMBER",
           "start with this view: dial, speed, satellites, path, chart, its own name, or 0 for the "
           "first (kept)",
           StoreIn(picture.view));
  AddFlag("--mirror", "mirror left to right, to be read in the windscreen (kept)",
          Assign(picture.mirror, true));
  AddFlag("--no-mirror", "turn mirroring off", Assign(picture.mirror, false));
  AddFlag("--flip", "turn the picture upside down, also for the windscreen (kept)",
          Assign(picture.flip, true));
  AddFlag("--no-flip", "turn it upright again", Assign(picture.flip, false));
  AddFlag("--rotate", "rotate the picture by 90 degrees (kept)", Assign(picture.rotate, true));
  AddFlag("--no-rotate", "turn rotation off", Assign(picture.rotate, false));
  AddFlag("--invert", "invert all colours (kept)", Assign(picture.invert, true));
  AddFlag("--no-invert", "show the normal colours again", Assign(picture.invert, false));
  AddValue("--theme", "NAME",
           "colours of the views: day (black on light), night (dim red and amber) or standard "
           "(kept)",
           [this](const std::string& text) { options.theme = ParseTheme(text); });
}

void OptionTable::AddPictures() {
  StartGroup("Pictures");
  AddValue("--frames", "DIR", "write every drawn frame as a numbered PNG file into this folder",
           StoreIn(options.framesFolder));
  AddValue("--shot", "FILE", "write the last frame as a PNG file at the end",
           StoreIn(options.shotFile));
  AddValue("--contact-sheet", "FILE",
           "write one PNG file with all views, portrait and landscape, with and without their "
           "buttons, and end",
           StoreIn(options.contactSheetFile));
}

void OptionTable::AddWeb() {
  StartGroup("Browsers");
  AddOptionalValue("--web", "ADDRESS:PORT",
                   "serve the speedometer to browsers; without ADDRESS:PORT at 127.0.0.1:8947, "
                   "for this machine only; 0.0.0.0 serves telephones and tablets in the network, "
                   "through links with a key, one to look and one to touch as well",
                   [this](const std::string& text) {
                     options.web = text.empty() ? Options::Web() : ParseWebAddress(text);
                   });
  AddValue("--web-name", "NAME",
           "a further name of this machine that browsers may use, besides its addresses, localhost "
           "and all names in .local; may be given several times",
           [this](const std::string& text) { options.webNames.push_back(text); });
  AddPair("--web-tls", "CERT KEY",
          "encrypt, with the certificate and its key in these PEM files: https",
          options.webCertificateFile, options.webKeyFile);
}

void OptionTable::AddTrip() {
  StartGroup("The trip");
  AddFlag("--new-trip",
          "start trip figures and records from zero instead of continuing those of the last run",
          Assign(options.newTrip, true));
  AddValue("--trip", "A|B|day",
           "the trip to show: A (the default), B, or that of the day, which begins anew at "
           "midnight; all three run together, and --new-trip and --reset are for this one",
           [this](const std::string& text) { options.trip = ParseTripName(text); });
  AddValue("--reset", "NAME",
           "start one read-out from zero, such as \"Max speed\"; may be given several times",
           [this](const std::string& text) { options.resets.push_back(text); });
  AddFlag("--keep",
          "keep the drive also when it is the demo or a recording; drives from a receiver are "
          "always kept",
          Assign(options.keep, true));
  AddOptionalValue("--kml", "FOLDER",
                   "write the route as a KML file at the end; without FOLDER into the folder used "
                   "last, at first the folder Tracks",
                   [this](const std::string& text) {
                     options.writeKml = true;
                     options.kmlFolder = text;
                   });
}

void OptionTable::AddSounds() {
  StartGroup("Sounds");
  AddValue("--limit", "KMH[:BAND]",
           "sound a warning from this speed to BAND km/h (default: 10) above it; up to three "
           "limits (kept); \"none\" removes them",
           [this](const std::string& text) { AddLimit(text); });
  AddFlag("--beep-on-zero", "sound when the vehicle stops (kept)",
          Assign(options.beepOnZero, true));
  AddFlag("--no-beep-on-zero", "turn that sound off", Assign(options.beepOnZero, false));
}

void OptionTable::AddMessages() {
  StartGroup("Messages");
  AddValue("--sms-to", "NUMBERS",
           "phone numbers that get position reports, separated by commas (kept)",
           [this](const std::string& text) { options.smsTo = ParseSettingsText(text); });
  AddValue("--sms-text", "TEXT",
           "text of a report; %Latitude%, %Longitude%, %Altitude%, %Speed%, %Azimuth%, %Time% and "
           "%GoogleMaps% are filled in (kept)",
           [this](const std::string& text) { options.smsText = ParseSettingsText(text); });
  AddValue("--sms-every", "MINUTES",
           "send a report every so many minutes while there is a position",
           [this](const std::string& text) {
             options.smsEveryMinutes = ParseWholeNumber(text, 1, LONGEST_INTERVAL_MINUTES);
           });
}

void OptionTable::AddMqtt() {
  StartGroup("Fleets and home automation");
  AddValue(
      "--mqtt", "HOST[:PORT]",
      "send position, speed and trip to this MQTT broker every 5 seconds, to the topics "
      "ferolin/ID/state and ferolin/ID/history, and tell Home Assistant of them; what cannot be "
      "sent waits on the disk",
      [this](const std::string& text) {
        const HostAndPort address = ParseHostAndPort(text);
        options.mqtt.host = address.host;
        options.mqtt.port = address.port;
      });
  AddValue("--mqtt-id", "ID",
           "name of this box: letters, digits, _ and - (kept); default: one made at random",
           [this](const std::string& text) { options.mqtt.id = ParseTopicName(text); });
  AddValue("--mqtt-user", "NAME", "user name for the broker", StoreIn(options.mqtt.user));
  AddValue("--mqtt-password-file", "FILE", "file whose first line is the password",
           StoreIn(options.mqtt.passwordFile));
  AddOptionalValue("--mqtt-tls", "FILE",
                   "encrypt the connection; FILE has the certificates that are trusted, default: "
                   "those of the system",
                   [this](const std::string& text) {
                     options.mqtt.hasTls = true;
                     options.mqtt.trusted = text;
                   });
}

void OptionTable::AddOthers() {
  StartGroup("Other");
  AddValue("--home", "DIR",
           "folder of settings, drives and tracks; default: ~/.local/share/ferolin",
           StoreIn(options.home));
  AddFlag("-h,--help", "show this text", Assign(options.action, Options::Action::HELP));
  AddFlag("--version", "show the version", Assign(options.action, Options::Action::VERSION));
}

void OptionTable::StartGroup(const char* heading) {
  app.option_defaults()->group(heading);
}

void OptionTable::AddFlag(const char* name, const char* help, const TakeFlag& take) {
  const auto callback = [name = std::string(name), take](const CLI::results_t& results) {
    if (results.front() != FLAG_IS_SET) {
      throw UsageError(name + " takes no value");
    }
    take();
    return true;
  };
  app.add_option(name, callback, help)->expected(0)->trigger_on_parse();
}

void OptionTable::AddValue(const char* name, const char* valueName, const char* help,
                           const TakeText& take) {
  const auto callback = [this, name = std::string(name), take](const std::string& text) {
    if (text.empty()) {
      throw UsageError(DescribeMissingValue(name));
    }
    try {
      take(text);
    } catch (const BadValue& error) {
      throw UsageError(name + ": \"" + text + "\" is not " + error.what());
    }
  };
  app.add_option_function<std::string>(name, callback, help)
      ->option_text(valueName)
      ->trigger_on_parse();
}

void OptionTable::AddOptionalValue(const char* name, const char* valueName, const char* help,
                                   const TakeText& take) {
  const auto callback = [name = std::string(name), take](const std::string& text) {
    try {
      take(text);
    } catch (const BadValue& error) {
      throw UsageError(name + ": \"" + text + "\" is not " + error.what());
    }
  };
  app.add_option_function<std::string>(name, callback, help)
      ->option_text("[" + std::string(valueName) + "]")
      ->expected(0, 1)
      ->trigger_on_parse();
}

void OptionTable::AddPair(const char* name, const char* valueNames, const char* help,
                          std::string& first, std::string& second) {
  const auto callback = [&first, &second](const CLI::results_t& results) {
    first = results[0];
    second = results[1];
    return true;
  };
  constexpr int VALUES = 2;
  app.add_option(name, callback, help)
      ->option_text(valueNames)
      ->type_size(VALUES)
      ->expected(1)
      ->trigger_on_parse();
}

std::string OptionTable::DescribeMissingValue(const std::string& name) const {
  return name + " needs " + app.get_option(name)->get_option_text();
}

void OptionTable::ChooseSource(const std::string& name, Options::Source source) {
  if (!sourceName.empty() && sourceName != name) {
    throw UsageError(sourceName + " and " + name + ": only one source at a time");
  }
  sourceName = name;
  options.source = source;
}

void OptionTable::AddLimit(const std::string& text) {
  std::vector<Options::Limit>& limits = options.limits ? *options.limits : options.limits.emplace();
  if (text == "none") {
    limits.clear();
    return;
  }
  if (limits.size() == Options::LIMITS) {
    throw UsageError("--limit: at most " + std::to_string(Options::LIMITS) + " limits");
  }
  limits.push_back(ParseLimit(text));
}

}  // namespace host
