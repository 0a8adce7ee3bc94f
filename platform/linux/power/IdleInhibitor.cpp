#include "power/IdleInhibitor.h"

#include <fcntl.h>
#include <systemd/sd-bus.h>

#include <memory>
#include <thread>

namespace handheld {

namespace {

constexpr std::uint64_t ANSWER_TIMEOUT_US = 2'000'000;

struct BusCloser {
  void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
};

struct MessageCloser {
  void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};

using Bus = std::unique_ptr<sd_bus, BusCloser>;
using BusMessage = std::unique_ptr<sd_bus_message, MessageCloser>;

Bus OpenSystemBus() {
  sd_bus* bus = nullptr;
  return Bus(sd_bus_open_system(&bus) < 0 ? nullptr : bus);
}

BusMessage InhibitCall(sd_bus* bus) {
  sd_bus_message* call = nullptr;
  if (sd_bus_message_new_method_call(bus, &call, "org.freedesktop.login1",
                                     "/org/freedesktop/login1", "org.freedesktop.login1.Manager",
                                     "Inhibit") < 0) {
    return nullptr;
  }
  BusMessage owner(call);
  const int appended =
      sd_bus_message_append(call, "ssss", "idle", "Ferolin", "The speedometer is kept on", "block");
  return appended < 0 ? nullptr : std::move(owner);
}

Descriptor AskLogind() {
  const Bus bus = OpenSystemBus();
  if (bus == nullptr) {
    return {};
  }
  const BusMessage call = InhibitCall(bus.get());
  sd_bus_message* answer = nullptr;
  if (call == nullptr ||
      sd_bus_call(bus.get(), call.get(), ANSWER_TIMEOUT_US, nullptr, &answer) < 0) {
    return {};
  }
  const BusMessage owner(answer);
  int borrowed = -1;
  if (sd_bus_message_read(answer, "h", &borrowed) < 0) {
    return {};
  }
  return Descriptor(fcntl(borrowed, F_DUPFD_CLOEXEC, 3));
}

}  // namespace

IdleInhibitor& IdleInhibitor::Instance() {
  static IdleInhibitor& instance = *new IdleInhibitor;
  return instance;
}

void IdleInhibitor::Fetch(int wantedGeneration) {
  Descriptor fetched = AskLogind();
  const std::lock_guard lock(mutex);
  if (generation == wantedGeneration) {
    inhibitor = std::move(fetched);
  }
}

void IdleInhibitor::Acquire() {
  const std::lock_guard lock(mutex);
  if (++holders > 1) {
    return;
  }
  std::thread([this, wanted = ++generation] { Fetch(wanted); }).detach();
}

void IdleInhibitor::Release() {
  const std::lock_guard lock(mutex);
  if (holders == 0 || --holders > 0) {
    return;
  }
  ++generation;
  inhibitor = Descriptor();
}

}  // namespace handheld
