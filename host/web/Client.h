// Who is at the other end of a connection.
#pragma once

#include <sys/socket.h>

#include <string>

#include "web/Snapshot.h"

namespace host {

/// One connection of a client.
struct Client {
  /// Address as text; of IPv6 the network's 64 bits, which are all that one client has of its own.
  std::string name;
  bool isLocal = false;
  int descriptor = -1;
  /// Since when a whole request is awaited; the far future while one is being answered.
  WebTime awaitedSince;
};

/// The client at this address, without a connection.
Client DescribeClient(const sockaddr* address);

}  // namespace host
