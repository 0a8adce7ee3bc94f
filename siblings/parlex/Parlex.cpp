// The entry point of the SMS library.
#include <handheld.h>

#include <exception>

#include "parlex/FailureLog.h"
#include "parlex/ModemManager.h"
#include "parlex/SmsQueue.h"

namespace {

using namespace parlex;

/// Time for waiting messages when the library is unloaded; a modem needs two to six seconds for
/// one.
constexpr std::chrono::seconds DRAIN_TIME{10};

FailureLog failures;

/// Made with the first message: loading the library takes no resources and cannot fail.
SmsQueue& Queue() {
  static SmsQueue queue(
      SendThroughModemManager, [](const Result& result) { failures.Write(result); }, DRAIN_TIME);
  return queue;
}

}  // namespace

/// Sends `message` (in the device's ANSI code page) to the phone number `recipient`. Queues it and
/// returns at once; messages go out in the order of the calls. Failures are written to standard
/// error, once for each kind. Unloading the library leaves waiting messages ten seconds.
extern "C" void WINAPI SendParlex(LPCWSTR recipient, LPCSTR message) {
  if (!recipient || !message) {
    return;
  }
  try {
    // Converted here, not on the sending thread: the converter may load a library, which would
    // deadlock with an unloading that waits for the thread.
    Queue().Push({handheld::Utf8FromWide(recipient), handheld::Utf8FromAnsi(message)});
  } catch (const std::exception&) {
    failures.Write({Outcome::NO_RESOURCES, {}});
  }
}
