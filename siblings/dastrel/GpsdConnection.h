#pragma once

#include <string>

#include "common/WakeEvent.h"
#include "dastrel/GpsdAddress.h"

struct addrinfo;

namespace dastrel {

/// A watched connection to gpsd that gives its reports line by line. Used by one thread; every wait
/// ends at once when the stop event is raised, the look-up of a host name alone excepted.
class GpsdConnection {
 public:
  explicit GpsdConnection(const siblings::WakeEvent& stopEvent) : stop(stopEvent) {}
  ~GpsdConnection();
  GpsdConnection(const GpsdConnection&) = delete;
  GpsdConnection& operator=(const GpsdConnection&) = delete;

  /// Connects and asks for reports. False when gpsd cannot be reached or a stop was asked for.
  bool Open(const GpsdAddress& address);

  /// Waits for the next line and stores it with its line feed. False when the connection has ended
  /// or a stop was asked for; nothing more comes then.
  bool ReadLine(std::string& line);

 private:
  bool ConnectTo(const addrinfo& candidate);
  bool Await(short events, int timeoutMs) const;
  bool Watch();

  const siblings::WakeEvent& stop;
  int descriptor = -1;
  std::string received;
};

}  // namespace dastrel
