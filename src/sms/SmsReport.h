#pragma once

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

#include "base/WideString.h"

namespace ferolin {

/// A text that is ready to go out to one or more numbers. It needs nothing of the engine any more,
/// so it can be sent without its lock: that takes as long as the sibling library wants.
class SmsReport {
 public:
  /// What sends one text to one number: the sibling library's function.
  using SendProc = void(WINAPI*)(LPCWSTR recipient, LPCSTR message);

  /// A report that goes nowhere.
  SmsReport() = default;
  SmsReport(SendProc theSendProc, std::vector<WideString> theRecipients, std::string theMessage)
      : sendProc(theSendProc),
        recipients(std::move(theRecipients)),
        message(std::move(theMessage)) {}

  /// Sends the message to every recipient in order. The library must still be loaded.
  void Send() const {
    for (const WideString& recipient : recipients) {
      sendProc(recipient.c_str(), message.c_str());
    }
  }

 private:
  SendProc sendProc = nullptr;
  std::vector<WideString> recipients;
  std::string message;
};

}  // namespace ferolin
