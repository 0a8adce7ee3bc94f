// Where browsers connect.
#pragma once

#include <string>

#include "base/FileDescriptor.h"

namespace host {

/// A socket that listens at an address of this machine.
class ListeningSocket {
 public:
  /// `address` is an IP address; port 0 is any free one. Throws HostError when it cannot be used.
  ListeningSocket(const std::string& address, int port);

  /// Its new owner closes it.
  int Release() { return descriptor.Release(); }

  int GetPort() const { return port; }
  /// Whether only programs on this machine can connect.
  bool IsLocal() const { return isLocal; }
  /// As a part of a link: "127.0.0.1", "[::1]". For all addresses of this machine, the one at which
  /// others most likely reach it.
  const std::string& GetHost() const { return host; }

 private:
  FileDescriptor descriptor;
  int port = 0;
  bool isLocal = false;
  std::string host;
};

}  // namespace host
