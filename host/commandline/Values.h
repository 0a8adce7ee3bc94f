// Values as they are typed on the command line.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include "commandline/Options.h"

namespace host {

/// A value that an option cannot take; what() says what it can take, such as "a number".
class BadValue : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// All of these throw BadValue.

int ParseWholeNumber(const std::string& text, int lowest, int highest);

/// "4800"; any rate, as serial ports may have unusual ones.
int ParseBaudRate(const std::string& text);

/// "10", "0.5", or "max", which is 0.
double ParseRate(const std::string& text);

/// "km", "mi" or "nm".
Units ParseUnits(const std::string& text);

/// "standard", "day" or "night".
std::string ParseTheme(const std::string& text);

/// "A", "B" or "day".
Options::TripName ParseTripName(const std::string& text);

/// "800x480".
Options::Size ParseSize(const std::string& text);

/// "50" or "50:10".
Options::Limit ParseLimit(const std::string& text);

/// "192.168.1.5:8947", "[::1]:8947", an address, a port, or "localhost" in place of an address.
Options::Web ParseWebAddress(const std::string& text);

struct HostAndPort {
  std::string host;
  std::optional<int> port;
};

/// "box.local", "192.168.1.2:1884", "[::1]:1883" or "::1".
HostAndPort ParseHostAndPort(const std::string& text);

/// A name that can stand in topics: 1 to 64 letters, digits, "_" and "-". Returned unchanged.
std::string ParseTopicName(const std::string& text);

/// "en" or "ru"; returns "ENU" or "RUS".
std::string ParseLanguage(const std::string& text);

/// A text that the settings file can hold; returned unchanged.
std::string ParseSettingsText(const std::string& text);

}  // namespace host
