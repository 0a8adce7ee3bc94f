// What the user asks for on the command line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/Units.h"

namespace host {

/// Options that are kept between runs are empty when the user does not give them; Choices fills
/// them in.
struct Options {
  enum class Action { RUN, HELP, VERSION, LIST_DRIVES, DELETE_DRIVE, EXPORT_DRIVES };
  /// SEARCH looks for a receiver at gpsd and all serial ports.
  enum class Source { DEMO, PORT, FILE, GPSD, SEARCH };
  /// All run together. DAY begins anew every day.
  enum class TripName { A, B, DAY };
  enum class WindowUse { IF_PRESENT, ALWAYS, NEVER };

  /// Pixels.
  struct Size {
    int width = 800;
    int height = 480;
  };

  /// The warning sounds from `kmh` to `kmh` + `band`, in km/h.
  struct Limit {
    int kmh = 0;
    int band = 10;
  };

  /// What the views show and how. All kept.
  struct Picture {
    /// Name, or number from 0.
    std::string view;
    std::optional<bool> mirror;
    std::optional<bool> flip;
    std::optional<bool> rotate;
    std::optional<bool> invert;
  };

  /// Where browsers are served.
  struct Web {
    /// IP address; IPv6 without brackets.
    std::string address = "127.0.0.1";
    /// 0: any free one.
    int port = 8947;
  };

  /// What to do with kept drives.
  struct Drives {
    /// "last", "all" or a number.
    std::string which;
    /// Whether to delete without asking.
    bool isConfirmed = false;
    // Files to export to; "-" is standard output, empty: none.
    std::string gpxFile;
    std::string kmlFile;
    std::string csvFile;
    std::string geoJsonFile;
  };

  /// Broker that gets states.
  struct Mqtt {
    /// Name or numeric address; empty: no broker.
    std::string host;
    /// Nothing: the usual port.
    std::optional<int> port;
    /// Name of this box. Empty: as kept, or a new one. Kept.
    std::string id;
    std::string user;
    /// File whose first line is the password; empty: none.
    std::string passwordFile;
    /// Whether the connection is encrypted.
    bool hasTls = false;
    /// File with the certificates that are trusted; empty: those of the system.
    std::string trusted;
  };

  /// Number of limits that the engine keeps between runs.
  static constexpr std::size_t LIMITS = 3;

  Action action = Action::RUN;
  Drives drives;

  Source source = Source::DEMO;
  /// Path of the serial device. Kept.
  std::string device;
  /// Baud rate used last with the device; a search tries both first. Kept.
  int lastBaud = 0;
  /// Baud rate; 0 leaves the port's own. Kept together with the device.
  std::optional<int> baud;
  /// Path of a recording; "-" is standard input.
  std::string file;
  /// "host:port"; empty: the usual one. Kept.
  std::string gpsd;
  /// Whether the engine polls gpsd through the device's GPS API instead of reading its sentences.
  bool gpsApi = false;

  /// Speed relative to real time; 0 is as fast as possible. Nothing: chosen by what is played and
  /// where it is shown.
  std::optional<double> rate;
  /// Whether the receiver's bytes reach the engine unchanged.
  bool raw = false;

  /// Where the receiver's sentences are written; empty: nowhere.
  std::string recordFile;

  bool json = false;
  /// Of table, lines, list and summary.
  Units units = Units::KM;
  /// Whether positions are shown as decimal degrees.
  bool decimalDegrees = false;
  WindowUse windowUse = WindowUse::IF_PRESENT;
  /// Size of the picture; that of the display when it is filled and the user wants no other.
  Size size;
  bool isSizeChosen = false;
  /// Dots per inch; nothing: chosen by the size.
  std::optional<int> dpi;
  /// Whether views are drawn in the display's own pixels where dots are small.
  bool fineDrawing = true;
  bool fullscreen = false;
  /// Whether neither screen saver nor power saving blanks the display.
  bool keepAwake = true;
  Picture picture;
  /// Colours of the views: "standard", "day" or "night"; empty: as kept by the engine.
  std::string theme;
  /// Where drawn pictures are written; empty: nowhere.
  std::string framesFolder;
  std::string shotFile;
  std::string contactSheetFile;
  /// Number of updates after which the run ends; 0: no such end.
  std::uint64_t updates = 0;
  /// "ENU" or "RUS"; empty: the environment's language.
  std::string language;
  /// Folder of settings, drives and tracks; empty: chosen by HomeFolder.
  std::string home;

  /// Nothing: browsers are not served.
  std::optional<Web> web;
  /// Further names under which browsers reach this machine.
  std::vector<std::string> webNames;
  // PEM files; empty: not encrypted.
  std::string webCertificateFile;
  std::string webKeyFile;

  bool writeKml = false;
  /// Empty: the engine's own folder. Kept.
  std::string kmlFolder;
  /// Whether to keep the drive also when it is the demo or a recording.
  bool keep = false;
  /// The trip to show.
  TripName trip = TripName::A;
  bool newTrip = false;
  /// Names of the sensors to start from zero.
  std::vector<std::string> resets;

  /// Nothing: the limits kept by the engine. An empty list: no limits.
  std::optional<std::vector<Limit>> limits;
  /// Nothing: as kept by the engine.
  std::optional<bool> beepOnZero;

  /// Nothing: as kept by the engine.
  std::optional<std::string> smsTo;
  std::optional<std::string> smsText;
  /// Minutes between two position reports; 0: none are sent.
  int smsEveryMinutes = 0;

  Mqtt mqtt;
};

/// The dots per inch wanted, or those with which figures fill a picture of this size: 96 for each
/// 240 pixels of the shorter side.
int GetDpi(const Options& options, const Options::Size& size);

/// Whether to open a window if there is a display.
bool WantsWindow(const Options& options);

/// Whether to write pictures to files.
bool WantsPictures(const Options& options);

/// Whether positions come from a receiver.
bool IsLive(Options::Source source);

/// Where positions come from, for the user: "/dev/ttyUSB0", "gpsd localhost:2947", "drive.nmea".
std::string DescribeSource(const Options& options);

}  // namespace host
