// Stands in for the system's text messages. It takes them apart again for the test.
#include "StandInSms.h"

#include <sms.h>

namespace {

constexpr SMS_HANDLE CONNECTION = 0x5315;

int connections = 0;
HRESULT sendResult = S_OK;
TakenMessage taken;

bool IsText(LPCWSTR protocol) {
  return std::u16string_view(protocol) == u"Microsoft Text SMS Protocol";
}

}  // namespace

extern "C" {

HRESULT WINAPI SmsOpen(LPCWSTR protocol, DWORD modes, SMS_HANDLE* connection, HANDLE* messageCame) {
  constexpr DWORD SEND = 2;
  if (!IsText(protocol) || modes != SEND || messageCame != nullptr) {
    return E_INVALIDARG;
  }
  ++connections;
  *connection = CONNECTION;
  return S_OK;
}

HRESULT WINAPI SmsSendMessage(SMS_HANDLE connection, const SMS_ADDRESS* center,
                              const SMS_ADDRESS* destination, const SYSTEMTIME* validity,
                              const BYTE* data, DWORD size, const BYTE* provider,
                              DWORD providerSize, SMS_DATA_ENCODING encoding, DWORD options,
                              SMS_MESSAGE_ID* id) {
  if (connection != CONNECTION || connections != 1 || center != nullptr || validity != nullptr ||
      encoding != 0 || options != 0 || id == nullptr) {
    return E_INVALIDARG;
  }
  taken = {std::u16string(destination->ptsAddress), static_cast<int>(destination->smsatAddressType),
           std::u16string(reinterpret_cast<const char16_t*>(data), size / sizeof(char16_t)),
           std::vector<BYTE>(provider, provider + providerSize)};
  *id = 1;
  return sendResult;
}

HRESULT WINAPI SmsClose(SMS_HANDLE connection) {
  if (connection != CONNECTION) {
    return E_INVALIDARG;
  }
  --connections;
  return S_OK;
}

int CountSmsConnections() {
  return connections;
}

TakenMessage* GetTakenMessage() {
  return &taken;
}

void SetSmsResult(HRESULT result) {
  sendResult = result;
}
}
