#include "run/Choices.h"

#include <array>
#include <charconv>

#include "base/HostError.h"

namespace host {

namespace {

constexpr const char* SECTION = "Host";
constexpr const char* DEVICE = "Device";
constexpr const char* BAUD = "Baud";
constexpr const char* GPSD = "Gpsd";
constexpr const char* KML_FOLDER = "KmlFolder";
constexpr const char* WRITE_TRACK = "WriteTrack";
constexpr const char* VIEW = "View";

struct PictureFlag {
  const char* key;
  std::optional<bool> Options::Picture::*flag;
};

constexpr std::array PICTURE_FLAGS = {
    PictureFlag{"Mirror", &Options::Picture::mirror},
    PictureFlag{"Flip", &Options::Picture::flip},
    PictureFlag{"Rotate", &Options::Picture::rotate},
    PictureFlag{"Invert", &Options::Picture::invert},
};

int ParseBaud(const std::string& text) {
  int baud = 0;
  std::from_chars(text.data(), text.data() + text.size(), baud);
  return baud;
}

}  // namespace

Choices::Choices(const EngineLibrary& engine, const HomeFolder& home, Messages& messages)
    : settings(engine, SECTION),
      backup(engine, settings, home, messages),
      keptTrack(settings.Get(WRITE_TRACK)) {}

void Choices::Recall(Options& options) const {
  if (options.source == Options::Source::PORT) {
    RecallPort(options);
  }
  if (options.source == Options::Source::SEARCH) {
    options.device = settings.Get(DEVICE);
    options.lastBaud = ParseBaud(settings.Get(BAUD));
  }
  if (options.source == Options::Source::GPSD && options.gpsd.empty()) {
    options.gpsd = settings.Get(GPSD);
  }
  options.writeKml = options.writeKml || settings.Get(WRITE_TRACK) == "1";
  if (options.kmlFolder.empty()) {
    options.kmlFolder = settings.Get(KML_FOLDER);
  }
  RecallPicture(options.picture);
}

void Choices::RecallPort(Options& options) const {
  const std::string lastDevice = settings.Get(DEVICE);
  if (options.device.empty()) {
    options.device = lastDevice;
  }
  if (options.device.empty()) {
    throw UsageError("--port needs DEVICE, such as /dev/ttyUSB0: none was used before");
  }
  if (!options.baud) {
    options.baud = options.device == lastDevice ? ParseBaud(settings.Get(BAUD)) : 0;
  }
}

void Choices::RecallPicture(Options::Picture& picture) const {
  if (picture.view.empty()) {
    picture.view = settings.Get(VIEW);
  }
  for (const PictureFlag& each : PICTURE_FLAGS) {
    if (!(picture.*each.flag)) {
      picture.*each.flag = settings.Get(each.key) == "1";
    }
  }
}

void Choices::Keep(const Options& options) const {
  if (options.source == Options::Source::PORT) {
    KeepReceiver(options.device, options.baud.value_or(0));
  }
  if (options.source == Options::Source::GPSD) {
    settings.Set(GPSD, options.gpsd);
  }
  if (options.writeKml) {
    settings.Set(KML_FOLDER, options.kmlFolder);
  }
}

void Choices::KeepReceiver(const std::string& device, int baud) const {
  settings.Set(DEVICE, device);
  settings.Set(BAUD, std::to_string(baud));
}

void Choices::KeepTrack(const Options& options, bool isWritten) const {
  const std::string chosen = isWritten ? "1" : "0";
  settings.Set(WRITE_TRACK, isWritten == options.writeKml ? keptTrack : chosen);
}

void Choices::KeepPicture(const Options::Picture& picture) const {
  settings.Set(VIEW, picture.view);
  for (const PictureFlag& each : PICTURE_FLAGS) {
    settings.Set(each.key, (picture.*each.flag).value_or(false) ? "1" : "0");
  }
}

}  // namespace host
