// The system's text messages.
#pragma once

#include <sms.h>

#include "base/WideString.h"

namespace parlex {

/// A connection to the messaging of sms.dll, for one thread.
class TextMessaging {
 public:
  TextMessaging();
  TextMessaging(const TextMessaging&) = delete;
  TextMessaging& operator=(const TextMessaging&) = delete;
  ~TextMessaging();

  /// The system takes long texts apart. False when it does not take the message: there is no
  /// messaging, the number is longer than 255 characters, or the phone is off.
  bool Send(ferolin::WideStringView number, ferolin::WideStringView text) const;

 private:
  HMODULE library;
  HRESULT(WINAPI* open)
  (LPCWSTR protocol, DWORD modes, SMS_HANDLE* connection, HANDLE* messageCame) = nullptr;
  HRESULT(WINAPI* send)
  (SMS_HANDLE connection, const SMS_ADDRESS* center, const SMS_ADDRESS* destination,
   const SYSTEMTIME* validity, const BYTE* data, DWORD size, const BYTE* provider,
   DWORD providerSize, SMS_DATA_ENCODING encoding, DWORD options, SMS_MESSAGE_ID* id) = nullptr;
  HRESULT(WINAPI* close)(SMS_HANDLE connection) = nullptr;
  SMS_HANDLE connection = 0;
  bool isOpen = false;
};

}  // namespace parlex
