// The connections of all clients.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "web/Client.h"

namespace host {

/// Counts connections and ends those whose request does not come. For the server's thread.
class Connections {
 public:
  static constexpr unsigned MOST_CONNECTIONS = 96;
  /// For each client but those on this machine.
  static constexpr std::size_t MOST_OF_CLIENT = 16;
  /// Longest wait for a whole request, and for a client that takes nothing.
  static constexpr std::chrono::seconds PATIENCE{10};

  /// Whether this client may have one more.
  bool MayConnect(const sockaddr* address) const;
  /// Belongs to this object until it is removed.
  Client* Add(const sockaddr* address, int descriptor, WebTime now);
  void Remove(const Client* client);

  /// Ends the connections that have kept the server waiting for too long.
  void EndLate(WebTime now) const;

  std::size_t Count() const { return clients.size(); }

 private:
  std::map<const Client*, std::unique_ptr<Client>> clients;
};

}  // namespace host
