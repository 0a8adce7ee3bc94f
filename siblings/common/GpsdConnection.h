#pragma once

#include <string>

#include "common/WakeEvent.h"
#include "common/GpsdAddress.h"

struct addrinfo;

namespace siblings {

/// A connection to gpsd that reads its reports line by line. Used by one thread. Every wait ends at
/// once when the stop event is raised, except the look-up of a host name.
class GpsdConnection {
 public:
  explicit GpsdConnection(const WakeEvent& stopEvent) : stop(stopEvent) {}
  ~GpsdConnection();
  GpsdConnection(const GpsdConnection&) = delete;
  GpsdConnection& operator=(const GpsdConnection&) = delete;

  /// Connects and asks for reports. False when gpsd cannot be reached or the stop event is raised.
  bool Open(const GpsdAddress& address);

  /// Waits for the next line and stores it with its line feed. False when the connection has ended
  /// or the stop event is raised; no further line follows.
  bool ReadLine(std::string& line);

 private:
  bool ConnectTo(const addrinfo& candidate);
  bool Await(short events, int timeoutMs) const;
  bool Watch();

  const WakeEvent& stop;
  int descriptor = -1;
  std::string received;
};

}  // namespace siblings
