#include "parlex/SystemBus.h"

#include <cstdint>

namespace parlex {
namespace {

constexpr const char* SERVICE = "org.freedesktop.ModemManager1";

struct SlotDeleter {
  void operator()(sd_bus_slot* slot) const { sd_bus_slot_unref(slot); }
};

}  // namespace

SystemBus::SystemBus(Patience& hurry) : patience(hurry) {
  sd_bus* opened = nullptr;
  if (sd_bus_open_system(&opened) >= 0) {
    bus.reset(opened);
  }
}

Message SystemBus::NewCall(const char* path, const char* interface, const char* method) const {
  sd_bus_message* call = nullptr;
  sd_bus_message_new_method_call(bus.get(), &call, SERVICE, path, interface, method);
  return Message(call);
}

Message SystemBus::Call(const Message& call, std::chrono::seconds timeout) {
  const auto deadline = Patience::Clock::now() + timeout;
  Message reply;
  sd_bus_slot* slot = nullptr;
  // The deadline is kept here: the time-out of sd-bus starts only after the connection is
  // authenticated.
  if (sd_bus_call_async(bus.get(), &slot, call.get(), KeepReply, &reply, UINT64_MAX) < 0) {
    return nullptr;
  }
  const std::unique_ptr<sd_bus_slot, SlotDeleter> pending(slot);
  while (!reply) {
    const int processed = sd_bus_process(bus.get(), nullptr);
    if (processed < 0) {
      break;
    }
    if (processed > 0) {
      continue;
    }
    if (Patience::Clock::now() >= deadline || patience.IsOver()) {
      break;
    }
    const int events = sd_bus_get_events(bus.get());
    patience.AwaitDescriptor(sd_bus_get_fd(bus.get()), static_cast<short>(events), deadline);
  }
  return reply;
}

int SystemBus::KeepReply(sd_bus_message* message, void* reply, sd_bus_error*) {
  static_cast<Message*>(reply)->reset(sd_bus_message_ref(message));
  return 0;
}

}  // namespace parlex
