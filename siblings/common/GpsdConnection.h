#pragma once

#include <string>
#include <string_view>

#include "common/GpsdAddress.h"
#include "common/WakeEvent.h"

struct addrinfo;

namespace siblings {

/// A connection to gpsd that reads its answers line by line. Used by one thread. Every wait ends at
/// once when the stop event is raised, except the look-up of a host name.
class GpsdConnection {
 public:
  explicit GpsdConnection(const WakeEvent& stopEvent) : stop(stopEvent) {}
  ~GpsdConnection();
  GpsdConnection(const GpsdConnection&) = delete;
  GpsdConnection& operator=(const GpsdConnection&) = delete;

  /// Connects and sends `request`, which is short and ends with a line feed. False when gpsd cannot
  /// be reached or the stop event is raised.
  bool Open(const GpsdAddress& address, std::string_view request);

  /// Why Open failed, such as "Connection refused".
  const std::string& GetError() const { return error; }

  static constexpr int WAIT_FOREVER = -1;

  /// Waits for the next line and stores it with its line feed. False when the connection has ended,
  /// the stop event is raised, or nothing comes for so long; no further line follows.
  bool ReadLine(std::string& line, int patienceMs = WAIT_FOREVER);

 private:
  bool ConnectTo(const addrinfo& candidate);
  bool Await(short events, int timeoutMs) const;
  bool Send(std::string_view request) const;

  const WakeEvent& stop;
  int descriptor = -1;
  std::string received;
  std::string error;
};

}  // namespace siblings
