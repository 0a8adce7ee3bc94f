#pragma once

#include <atomic>

#include "parlex/Sms.h"

namespace parlex {

/// Tells on standard error why a message was not sent, once for each kind of failure in the life of
/// the library: a journey without a modem would otherwise say the same a hundred times. From any
/// thread; throws nothing.
class FailureLog {
 public:
  void Write(const Result& result) noexcept;

 private:
  /// Bit n: the outcome numbered n was told.
  std::atomic<unsigned> told = 0;
};

}  // namespace parlex
