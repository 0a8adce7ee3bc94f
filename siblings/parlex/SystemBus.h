#pragma once

#include <systemd/sd-bus.h>

#include <chrono>
#include <memory>

#include "parlex/Patience.h"

namespace parlex {

struct MessageDeleter {
  void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
using Message = std::unique_ptr<sd_bus_message, MessageDeleter>;

/// A connection to the system bus for one thread, with calls that can be hurried from outside.
class SystemBus {
 public:
  explicit SystemBus(Patience& hurry);

  /// False when there is no bus to connect to.
  bool IsOpen() const { return bus != nullptr; }

  /// A call of ModemManager to be filled with arguments; null when there is no memory.
  Message NewCall(const char* path, const char* interface, const char* method) const;

  /// Makes the call and waits for its answer, which may be an error message. Null when none came in
  /// time or the bus went away.
  Message Call(const Message& call, std::chrono::seconds timeout);

 private:
  struct BusDeleter {
    void operator()(sd_bus* opened) const { sd_bus_close_unref(opened); }
  };

  static int KeepReply(sd_bus_message* message, void* reply, sd_bus_error* error);

  std::unique_ptr<sd_bus, BusDeleter> bus;
  Patience& patience;
};

}  // namespace parlex
