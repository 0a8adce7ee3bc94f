#pragma once

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

#include "base/WideString.h"

namespace ferolin {

/// A finished message to one or more numbers. It refers to nothing of the engine's, so it is sent
/// without the data lock: sending may take seconds.
class SmsReport {
 public:
  /// The sibling library's function; sends one text to one number.
  using SendProc = void(WINAPI*)(LPCWSTR recipient, LPCSTR message);

  /// A report without recipients.
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
