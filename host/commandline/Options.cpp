#include "commandline/Options.h"

#include <algorithm>
#include <cmath>

namespace host {

int GetDpi(const Options& options, const Options::Size& size) {
  constexpr int LOGICAL_DPI = 96;
  constexpr double LOGICAL_SIDE = 240;
  // The pictures of a contact sheet are small.
  const bool isSheet = !options.contactSheetFile.empty();
  const int side = isSheet ? 0 : std::min(size.width, size.height);
  const int scale = std::max(1, static_cast<int>(std::lround(side / LOGICAL_SIDE)));
  return options.dpi.value_or(LOGICAL_DPI * scale);
}

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

bool IsLive(Options::Source source) {
  return source == Options::Source::PORT || source == Options::Source::GPSD ||
         source == Options::Source::SEARCH;
}

std::string DescribeSource(const Options& options) {
  switch (options.source) {
    case Options::Source::PORT:
      return options.device;
    case Options::Source::GPSD:
      return options.gpsd.empty() ? "gpsd" : "gpsd " + options.gpsd;
    case Options::Source::SEARCH:
      return "any receiver";
    case Options::Source::FILE:
      return options.file == "-" ? "standard input" : options.file;
    case Options::Source::DEMO:
      break;
  }
  return "simulated drive";
}

}  // namespace host
