#include "commandline/Values.h"

#include <arpa/inet.h>

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>

#include "base/TopicName.h"

namespace host {

namespace {

constexpr int LOWEST_BAUD = 50;
constexpr int HIGHEST_BAUD = 4000000;
constexpr double LOWEST_RATE = 0.01;
constexpr double HIGHEST_RATE = 10000;
constexpr int HIGHEST_LIMIT = 999;
constexpr int SMALLEST_SIDE = 64;
constexpr int LARGEST_SIDE = 4096;
constexpr int HIGHEST_PORT = 65535;

/// Nothing when the whole text is not one number.
template <class Number>
std::optional<Number> ParseNumber(std::string_view text) {
  Number number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isWhole = result.ec == std::errc() && result.ptr == text.data() + text.size();
  return isWhole ? std::optional(number) : std::nullopt;
}

std::optional<int> ParseBetween(std::string_view text, int lowest, int highest) {
  const std::optional<int> number = ParseNumber<int>(text);
  return number && *number >= lowest && *number <= highest ? number : std::nullopt;
}

bool IsIpAddress(const std::string& text) {
  in6_addr buffer = {};
  return inet_pton(AF_INET, text.c_str(), &buffer) == 1 ||
         inet_pton(AF_INET6, text.c_str(), &buffer) == 1;
}

/// What stands before the port. An address of IPv6 may go without brackets when no port follows.
std::string GetAddressPart(const std::string& text) {
  if (text.starts_with("[")) {
    return text.substr(0, text.find(']') + 1);
  }
  const bool hasPort = text.find(':') == text.rfind(':');
  return hasPort ? text.substr(0, text.find(':')) : text;
}

std::string WithoutBrackets(const std::string& address) {
  const bool hasBrackets = address.starts_with("[") && address.ends_with("]");
  return hasBrackets ? address.substr(1, address.size() - 2) : address;
}

}  // namespace

int ParseWholeNumber(const std::string& text, int lowest, int highest) {
  const std::optional<int> number = ParseBetween(text, lowest, highest);
  if (!number) {
    throw BadValue("a whole number from " + std::to_string(lowest) + " to " +
                   std::to_string(highest));
  }
  return *number;
}

int ParseBaudRate(const std::string& text) {
  return ParseWholeNumber(text, LOWEST_BAUD, HIGHEST_BAUD);
}

double ParseRate(const std::string& text) {
  if (text == "max") {
    return 0;
  }
  const std::optional<double> rate = ParseNumber<double>(text);
  const bool isInRange = rate && *rate >= LOWEST_RATE && *rate <= HIGHEST_RATE;
  if (!isInRange) {
    throw BadValue("\"max\" or a number from 0.01 to 10000");
  }
  return *rate;
}

Units ParseUnits(const std::string& text) {
  if (text == "km") {
    return Units::KM;
  }
  if (text != "mi" && text != "nm") {
    throw BadValue(R"("km", "mi" or "nm")");
  }
  return text == "mi" ? Units::MI : Units::NM;
}

std::string ParseTheme(const std::string& text) {
  if (text != "standard" && text != "day" && text != "night") {
    throw BadValue(R"("standard", "day" or "night")");
  }
  return text;
}

Options::TripName ParseTripName(const std::string& text) {
  if (text == "A" || text == "a") {
    return Options::TripName::A;
  }
  if (text == "B" || text == "b") {
    return Options::TripName::B;
  }
  if (text != "day") {
    throw BadValue(R"("A", "B" or "day")");
  }
  return Options::TripName::DAY;
}

Options::Size ParseSize(const std::string& text) {
  const std::size_t times = std::min(text.find('x'), text.size());
  const std::string_view width = std::string_view(text).substr(0, times);
  const std::string_view height = std::string_view(text).substr(std::min(times + 1, text.size()));
  const std::optional<int> columns = ParseBetween(width, SMALLEST_SIDE, LARGEST_SIDE);
  const std::optional<int> rows = ParseBetween(height, SMALLEST_SIDE, LARGEST_SIDE);
  if (!columns || !rows) {
    throw BadValue("a size such as 800x480, with sides from 64 to 4096");
  }
  return {*columns, *rows};
}

Options::Limit ParseLimit(const std::string& text) {
  Options::Limit limit;
  const std::size_t colon = text.find(':');
  const std::optional<int> kmh =
      ParseBetween(std::string_view(text).substr(0, colon), 1, HIGHEST_LIMIT);
  const std::optional<int> band =
      colon == std::string::npos
          ? limit.band
          : ParseBetween(std::string_view(text).substr(colon + 1), 1, HIGHEST_LIMIT);
  if (!kmh || !band) {
    throw BadValue(
        "\"none\", a speed such as 50, or a speed and a band such as 50:10, each "
        "from 1 to 999");
  }
  return {*kmh, *band};
}

Options::Web ParseWebAddress(const std::string& text) {
  Options::Web web;
  if (const std::optional<int> port = ParseBetween(text, 0, HIGHEST_PORT)) {
    web.port = *port;
    return web;
  }
  const std::string address = GetAddressPart(text);
  const std::string rest = text.substr(address.size());
  if (rest.starts_with(":")) {
    constexpr int NO_PORT = -1;
    web.port = ParseBetween(rest.substr(1), 0, HIGHEST_PORT).value_or(NO_PORT);
  }
  if (address != "localhost") {
    web.address = WithoutBrackets(address);
  }
  const bool isWhole = rest.empty() || rest.starts_with(":");
  if (!isWhole || web.port < 0 || !IsIpAddress(web.address)) {
    throw BadValue("an IP address and a port, such as 127.0.0.1:8947 or [::1]:8947");
  }
  return web;
}

HostAndPort ParseHostAndPort(const std::string& text) {
  const std::string address = GetAddressPart(text);
  const std::string rest = text.substr(address.size());
  HostAndPort parsed = {WithoutBrackets(address), std::nullopt};
  if (rest.starts_with(":")) {
    parsed.port = ParseBetween(std::string_view(rest).substr(1), 1, HIGHEST_PORT);
  }
  if (parsed.host.empty() || (!rest.empty() && !parsed.port)) {
    throw BadValue("an address such as box.local, box.local:1884 or [::1]:1884");
  }
  return parsed;
}

std::string ParseTopicName(const std::string& text) {
  if (!IsTopicName(text)) {
    throw BadValue(R"(a name of 1 to 64 letters, digits, "_" and "-")");
  }
  return text;
}

std::string ParseLanguage(const std::string& text) {
  if (text != "en" && text != "ru") {
    throw BadValue(R"("en" or "ru")");
  }
  return text == "ru" ? "RUS" : "ENU";
}

std::string ParseSettingsText(const std::string& text) {
  if (text.find_first_of("[\r\n") != std::string::npos) {
    throw BadValue("a text without \"[\" and line ends");
  }
  return text;
}

}  // namespace host
