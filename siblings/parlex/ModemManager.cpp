#include "parlex/ModemManager.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdint>
#include <string>
#include <string_view>

#include "parlex/SystemBus.h"

namespace parlex {
namespace {

constexpr const char* ROOT_PATH = "/org/freedesktop/ModemManager1";
constexpr const char* OBJECT_MANAGER = "org.freedesktop.DBus.ObjectManager";
constexpr const char* MODEM = "org.freedesktop.ModemManager1.Modem";
constexpr const char* MESSAGING = "org.freedesktop.ModemManager1.Modem.Messaging";
constexpr const char* SMS = "org.freedesktop.ModemManager1.Sms";

/// Sending waits for the network; all other calls are answered by the service itself.
constexpr std::chrono::seconds SEND_TIMEOUT{60};
constexpr std::chrono::seconds ORDINARY_TIMEOUT{20};

/// Errors of the bus for a service that is not running.
constexpr std::array<std::string_view, 3> NOBODY_THERE = {
    "org.freedesktop.DBus.Error.ServiceUnknown",
    "org.freedesktop.DBus.Error.NameHasNoOwner",
    "org.freedesktop.DBus.Error.Spawn.",
};

/// Bus path and state of a modem; higher states of ModemManager are closer to a network connection.
struct Modem {
  std::string path;
  std::int32_t state = INT_MIN;
  bool canMessage = false;
};

Result Success() {
  return {Outcome::SENT, {}};
}

/// Result for a missing reply or an error reply.
Result FailureOf(const Message& reply) {
  if (!reply) {
    return {Outcome::NO_ANSWER, {}};
  }
  const sd_bus_error* error = sd_bus_message_get_error(reply.get());
  const std::string_view name = error && error->name ? error->name : "";
  const bool nobody = std::any_of(NOBODY_THERE.begin(), NOBODY_THERE.end(),
                                  [name](auto prefix) { return name.starts_with(prefix); });
  if (nobody) {
    return {Outcome::NO_SERVICE, {}};
  }
  return {Outcome::REFUSED, error && error->message ? error->message : std::string(name)};
}

bool IsAnswered(const Message& reply) {
  return reply && !sd_bus_message_is_method_error(reply.get(), nullptr);
}

/// Calls `action` with the key of each entry of the map at the read position. `action` must read
/// the value.
template <typename Action>
void ForEachEntry(sd_bus_message* reply, char keyType, const char* entryType, Action action) {
  if (sd_bus_message_enter_container(reply, 'a', ("{" + std::string(entryType) + "}").c_str()) <=
      0) {
    return;
  }
  while (sd_bus_message_enter_container(reply, 'e', entryType) > 0) {
    const char* key = nullptr;
    sd_bus_message_read_basic(reply, keyType, &key);
    action(key ? key : "");
    sd_bus_message_exit_container(reply);
  }
  sd_bus_message_exit_container(reply);
}

void ReadModemProperties(sd_bus_message* reply, Modem& modem) {
  ForEachEntry(reply, 's', "sv", [&](std::string_view property) {
    if (property == "State") {
      sd_bus_message_read(reply, "v", "i", &modem.state);
    } else {
      sd_bus_message_skip(reply, "v");
    }
  });
}

/// Reads the properties of every interface of one object.
void ReadInterfaces(sd_bus_message* reply, Modem& modem) {
  ForEachEntry(reply, 's', "sa{sv}", [&](std::string_view interface) {
    modem.canMessage |= interface == MESSAGING;
    if (interface == MODEM) {
      ReadModemProperties(reply, modem);
    } else {
      sd_bus_message_skip(reply, "a{sv}");
    }
  });
}

/// Path of the modem with the highest state that can send messages; empty without one.
std::string BestModemOf(sd_bus_message* reply) {
  Modem best;
  ForEachEntry(reply, 'o', "oa{sa{sv}}", [&](const char* path) {
    Modem modem;
    modem.path = path;
    ReadInterfaces(reply, modem);
    if (modem.canMessage && (!best.canMessage || modem.state > best.state)) {
      best = std::move(modem);
    }
  });
  return best.path;
}

Message CallForModems(SystemBus& bus) {
  return bus.Call(bus.NewCall(ROOT_PATH, OBJECT_MANAGER, "GetManagedObjects"), ORDINARY_TIMEOUT);
}

Message CallCreate(SystemBus& bus, const std::string& modem, const Sms& sms) {
  const Message call = bus.NewCall(modem.c_str(), MESSAGING, "Create");
  if (!call || sd_bus_message_append(call.get(), "a{sv}", 2, "number", "s", sms.number.c_str(),
                                     "text", "s", sms.text.c_str()) < 0) {
    return nullptr;
  }
  return bus.Call(call, ORDINARY_TIMEOUT);
}

Message CallSend(SystemBus& bus, const char* smsPath) {
  return bus.Call(bus.NewCall(smsPath, SMS, "Send"), SEND_TIMEOUT);
}

/// Deletes a message, as ModemManager keeps every message it was given. Failure is ignored.
void CallDelete(SystemBus& bus, const std::string& modem, const char* smsPath) {
  const Message call = bus.NewCall(modem.c_str(), MESSAGING, "Delete");
  if (call && sd_bus_message_append(call.get(), "o", smsPath) >= 0) {
    bus.Call(call, ORDINARY_TIMEOUT);
  }
}

}  // namespace

Result SendThroughModemManager(const Sms& sms, Patience& patience) {
  SystemBus bus(patience);
  if (!bus.IsOpen()) {
    return {Outcome::NO_BUS, {}};
  }
  const Message modems = CallForModems(bus);
  if (!IsAnswered(modems)) {
    return FailureOf(modems);
  }
  const std::string modem = BestModemOf(modems.get());
  if (modem.empty()) {
    return {Outcome::NO_MODEM, {}};
  }
  const Message created = CallCreate(bus, modem, sms);
  const char* smsPath = nullptr;
  if (!IsAnswered(created) || sd_bus_message_read(created.get(), "o", &smsPath) <= 0) {
    return FailureOf(created);
  }
  const Message sent = CallSend(bus, smsPath);
  CallDelete(bus, modem, smsPath);
  return IsAnswered(sent) ? Success() : FailureOf(sent);
}

}  // namespace parlex
