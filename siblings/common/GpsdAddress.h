#pragma once

#include <string>
#include <string_view>

namespace siblings {

/// Host and port of gpsd.
struct GpsdAddress {
  std::string host = "localhost";
  /// Decimal port number as text.
  std::string port = "2947";

  /// Reads "HOST:PORT", "HOST", ":PORT", "[IPV6]:PORT" or a bare IPv6 address; missing parts keep
  /// their defaults.
  static GpsdAddress FromText(std::string_view text);
};

}  // namespace siblings
