// Where a box puts what it has to say; docs/mqtt.md describes it for readers.
#pragma once

#include <string>

namespace host {

struct Topics {
  explicit Topics(const std::string& id)
      : status("ferolin/" + id + "/status"),
        state("ferolin/" + id + "/state"),
        history("ferolin/" + id + "/history") {}

  std::string status;
  std::string state;
  std::string history;

  // Payloads of the status.
  static constexpr const char* ONLINE = "online";
  static constexpr const char* OFFLINE = "offline";
};

}  // namespace host
