#include "handheld/TextMessaging.h"

#include "base/ModuleFunction.h"

namespace parlex {

TextMessaging::TextMessaging() : library(LoadLibraryW(TEXT("sms.dll"))) {
  ferolin::FindEntry(library, TEXT("SmsOpen"), open);
  ferolin::FindEntry(library, TEXT("SmsSendMessage"), send);
  ferolin::FindEntry(library, TEXT("SmsClose"), close);
  isOpen = open != nullptr && send != nullptr && close != nullptr &&
           SUCCEEDED(open(SMS_MSGTYPE_TEXT, SMS_MODE_SEND, &connection, nullptr));
}

TextMessaging::~TextMessaging() {
  if (isOpen) {
    close(connection);
  }
  if (library != nullptr) {
    FreeLibrary(library);
  }
}

bool TextMessaging::Send(ferolin::WideStringView number, ferolin::WideStringView text) const {
  SMS_ADDRESS destination = {};
  if (!isOpen || number.empty() || number.size() >= SMS_MAX_ADDRESS_LENGTH) {
    return false;
  }
  destination.smsatAddressType = number.front() == '+' ? SMSAT_INTERNATIONAL : SMSAT_UNKNOWN;
  number.copy(destination.ptsAddress, number.size());
  TEXT_PROVIDER_SPECIFIC_DATA provider = {};
  provider.dwMessageOptions = PS_MESSAGE_OPTION_NONE;
  provider.psMessageClass = PS_MESSAGE_CLASS1;
  provider.psReplaceOption = PSRO_NONE;
  SMS_MESSAGE_ID id = 0;
  return SUCCEEDED(send(
      connection, nullptr, &destination, nullptr, reinterpret_cast<const BYTE*>(text.data()),
      static_cast<DWORD>(text.size() * sizeof(WCHAR)), reinterpret_cast<const BYTE*>(&provider),
      sizeof provider, SMSDE_OPTIMAL, SMS_OPTION_DELIVERY_NONE, &id));
}

}  // namespace parlex
