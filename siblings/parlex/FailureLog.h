#pragma once

#include <atomic>

#include "parlex/Sms.h"

namespace parlex {

/// Writes to standard error why a message was not sent, once for each kind of failure while the
/// library is loaded: a drive without a modem would repeat it a hundred times. May be called from
/// any thread; throws nothing.
class FailureLog {
 public:
  void Write(const Result& result) noexcept;

 private:
  /// Bit n is set when outcome n was written.
  std::atomic<unsigned> told = 0;
};

}  // namespace parlex
