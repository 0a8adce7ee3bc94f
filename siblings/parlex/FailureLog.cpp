#include "parlex/FailureLog.h"

#include <cstdio>

namespace parlex {
namespace {

const char* ReasonOf(Outcome outcome) {
  switch (outcome) {
    case Outcome::SENT:
      break;
    case Outcome::NO_BUS:
      return "no system bus";
    case Outcome::NO_SERVICE:
      return "ModemManager is not there";
    case Outcome::NO_MODEM:
      return "no modem found";
    case Outcome::REFUSED:
      return "the modem refused it";
    case Outcome::NO_ANSWER:
      return "no answer from the modem";
    case Outcome::QUEUE_FULL:
      return "too many messages waiting";
    case Outcome::NO_RESOURCES:
      return "no memory or threads left";
    case Outcome::UNLOADED:
      return "not done when the program ended";
  }
  return "";
}

}  // namespace

void FailureLog::Write(const Result& result) noexcept {
  const unsigned bit = 1U << static_cast<unsigned>(result.outcome);
  if (result.outcome == Outcome::SENT || (told.fetch_or(bit) & bit)) {
    return;
  }
  const bool hasDetail = !result.detail.empty();
  // One call, so that output of other threads does not split the line; allocates no memory.
  std::fprintf(stderr, "SMS not sent: %s%s%s%s\n", ReasonOf(result.outcome), hasDetail ? " (" : "",
               result.detail.c_str(), hasDetail ? ")" : "");
}

}  // namespace parlex
