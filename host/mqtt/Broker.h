// A broker for messages between machines.
#pragma once

#include <optional>
#include <string>

namespace host {

struct Broker {
  static constexpr int USUAL_PORT = 1883;
  static constexpr int USUAL_PORT_WITH_TLS = 8883;

  /// Name or numeric address.
  std::string host;
  int port = USUAL_PORT;
  /// Name of this box: letters, digits, "_" and "-".
  std::string id;
  /// Empty: connects without a name.
  std::string user;
  std::string password;
  /// File with the certificates that are trusted, empty: those of the system. Nothing: the
  /// connection is not encrypted.
  std::optional<std::string> trusted = {};
};

struct MqttMessage {
  enum class Use {
    /// For those who listen now.
    ONCE,
    /// The broker also keeps it for those who come later.
    RETAINED
  };

  std::string topic;
  std::string payload;
  Use use = Use::RETAINED;
};

/// "box.local:1883", "[::1]:1883"
std::string DescribeAddress(const Broker& broker);

}  // namespace host
