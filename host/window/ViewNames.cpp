#include "window/ViewNames.h"

#include <array>
#include <charconv>
#include <cstring>
#include <vector>

#include "base/HostError.h"
#include "base/Suggestion.h"
#include "handheld.h"

namespace host {

namespace {

struct PlainName {
  const char* name;
  int view;
};

/// The same in every language.
constexpr std::array PLAIN_NAMES = {
    PlainName{"dial", FEROLIN_VIEW_SPEEDOMETER},
    PlainName{"speed", FEROLIN_VIEW_FULL_SCREEN_SPEED},
    PlainName{"satellites", FEROLIN_VIEW_SATELLITES},
    PlainName{"path", FEROLIN_VIEW_PATH},
    PlainName{"chart", FEROLIN_VIEW_SPEED_CHART},
};

}  // namespace

std::string GetViewName(const EngineLibrary::Functions& engine, int view) {
  std::array<char, 256> name = {};
  engine.GetWidgetName(view, name.data(), static_cast<int>(name.size()));
  return handheld::Utf8FromAnsi(name.data());
}

std::optional<int> ParseViewNumber(const EngineLibrary::Functions& engine,
                                   const std::string& text) {
  int number = -1;
  const char* end = text.data() + text.size();
  const auto parsed = std::from_chars(text.data(), end, number);
  const bool isNumber = parsed.ec == std::errc() && parsed.ptr == end;
  return isNumber && number >= 0 && number < engine.GetWidgetsCount() ? std::optional(number)
                                                                      : std::nullopt;
}

int FindView(const EngineLibrary::Functions& engine, const std::string& nameOrNumber) {
  if (const std::optional<int> number = ParseViewNumber(engine, nameOrNumber)) {
    return *number;
  }
  std::vector<std::string> names;
  std::string list;
  for (int view = 0; view < engine.GetWidgetsCount(); ++view) {
    names.push_back(GetViewName(engine, view));
    if (strcasecmp(names.back().c_str(), nameOrNumber.c_str()) == 0) {
      return view;
    }
    list += (list.empty() ? "" : ", ") + names.back() + " (" + std::to_string(view) + ")";
  }
  for (const PlainName& plain : PLAIN_NAMES) {
    names.emplace_back(plain.name);
    if (strcasecmp(plain.name, nameOrNumber.c_str()) == 0 &&
        plain.view < engine.GetWidgetsCount()) {
      return plain.view;
    }
  }
  throw UsageError("--view: there is no view \"" + nameOrNumber + "\"" +
                   DidYouMean(nameOrNumber, names) +
                   " (views: dial, speed, satellites, path, chart; " + list + ")");
}

}  // namespace host
