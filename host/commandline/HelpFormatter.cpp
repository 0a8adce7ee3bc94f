#include "commandline/HelpFormatter.h"

#include <algorithm>
#include <string_view>

#include "base/DisplayText.h"

namespace host {

namespace {

constexpr std::size_t TEXT_COLUMN = 26;
constexpr std::size_t WIDTH = 92;

constexpr const char* INTRODUCTION =
    R"(Usage: ferolin-host [OPTION]...
       ferolin-host drives | drives delete N | export last|N|all [--home DIR] [OPTION]...
A GPS speedometer: shows speed, trip and position from a GPS receiver, a recording or a
simulated drive. Without options it shows the simulated drive, in a window if there is a
display; the installed program, ferolin, looks for a receiver (--port auto). Options marked
(kept) stay in force for later runs.

)";

constexpr const char* REST = R"(
Keys in the window (changes to the picture are kept):
  Left, Right   previous, next view         R   rotate by 90 degrees
  B             show or hide the buttons    I   invert colours
  H             mirror left to right        S   position by SMS
  V             turn upside down            F   full screen on or off
  Enter, O      settings and other pages    Q, Esc   quit; Esc leaves a page
  Home, Del     choose what to reset
A double click or double tap shows or hides the buttons, a swipe changes the view. The button
with the gear opens the settings, too.

Drives from a receiver are kept as they are driven, also when the power is cut:
  drives                    list them; times are local
  drives delete N           delete drive N after asking; --yes does not ask
  export last|N|all         write the last drive, drive N or all drives as --gpx FILE, --kml FILE,
                            --csv FILE or --geojson FILE; - is standard output. Without one of
                            these: as GPX to standard output

Examples:
  ferolin-host                              watch the simulated drive
  ferolin-host --port auto                  any receiver; waits until one is plugged in
  ferolin-host --port /dev/ttyUSB0 --baud 4800
                                            a receiver at USB; Ctrl-C ends
  ferolin-host --port --kml ~/tracks        the same receiver again, with a track file
  ferolin-host --gpsd --limit 50 --limit 90:5 --beep-on-zero
                                            any receiver that gpsd knows, with warnings
  ferolin-host --nmea drive.nmea --rate 10  a recording, ten times as fast
  ferolin-host --port auto --fullscreen --mirror --view speed
                                            a head-up display
  ferolin-host --port auto --web 0.0.0.0    the same for telephones in the network
  ferolin-host export last --gpx drive.gpx  the drive of today, for a map
  ferolin-host --updates 300 --view Speed --shot speed.png
                                            a picture of the simulated drive
  ferolin-host --nmea drive.nmea --new-trip --json | tail -1
                                            the totals of a recording

Pauses of more than 10 seconds in a recording are cut short. Trip figures continue from run to
run; receivers, recordings and the demo each have their own trips. Ctrl-C ends the program. Exit
status: 0 success, 1 failure, 2 wrong command line.
)";

/// Breaks the text at blanks, so that it fits between the columns `indent` and `width`.
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

}  // namespace

std::string HelpFormatter::make_help(const CLI::App* app, std::string /*name*/,
                                     CLI::AppFormatMode mode) const {
  return INTRODUCTION + make_groups(app, mode) + REST;
}

std::string HelpFormatter::make_group(std::string group, bool isPositional,
                                      std::vector<const CLI::Option*> options) const {
  std::string text = group + ":\n";
  for (const CLI::Option* each : options) {
    text += make_option(each, isPositional);
  }
  return text;
}

std::string HelpFormatter::make_option(const CLI::Option* option, bool isPositional) const {
  const std::string names =
      CLI::detail::find_and_replace(make_option_name(option, isPositional), ",", ", ");
  const std::string synopsis = "  " + names + make_option_opts(option);
  return PadRight(synopsis, TEXT_COLUMN) + Wrap(make_option_desc(option), TEXT_COLUMN, WIDTH) +
         "\n";
}

}  // namespace host
