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

/// A connection to the system bus for one thread; other threads can shorten its waits through
/// Patience.
class SystemBus {
 public:
  explicit SystemBus(Patience& hurry);

  /// False without a bus.
  bool IsOpen() const { return bus != nullptr; }

  /// A call of ModemManager, to be filled with arguments; null without memory.
  Message NewCall(const char* path, const char* interface, const char* method) const;

  /// Makes the call and waits for its reply, which may be an error message. Null when no reply came
  /// in time or the bus was closed.
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
