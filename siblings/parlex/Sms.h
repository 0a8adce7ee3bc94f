#pragma once

#include <string>

namespace parlex {

/// One text message, in UTF-8.
struct Sms {
  std::string number;
  std::string text;
};

/// What became of a message.
enum class Outcome {
  SENT,
  NO_BUS,
  NO_SERVICE,
  NO_MODEM,
  REFUSED,
  NO_ANSWER,
  QUEUE_FULL,
  NO_RESOURCES,
  UNLOADED,
};

struct Result {
  Outcome outcome;
  /// The modem's own text; empty without one.
  std::string detail;
};

}  // namespace parlex
