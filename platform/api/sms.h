// Messages of the device's SMS API. Its functions lie in sms.dll, which only phones have.
#pragma once

#include <objbase.h>
#include <windows.h>

constexpr int SMS_MAX_ADDRESS_LENGTH = 256;
constexpr int SMS_DATAGRAM_SIZE = 140;

/// Protocol for SmsOpen.
constexpr LPCWSTR SMS_MSGTYPE_TEXT = TEXT("Microsoft Text SMS Protocol");
/// Mode for SmsOpen.
constexpr DWORD SMS_MODE_SEND = 2;
constexpr DWORD PS_MESSAGE_OPTION_NONE = 0;
constexpr DWORD SMS_OPTION_DELIVERY_NONE = 0;

// The underlying types are fixed: some handheld compilers store small enumerations in a byte.

enum SMS_ADDRESS_TYPE : int {
  SMSAT_UNKNOWN = 0,
  /// The number begins with "+" and the country's code.
  SMSAT_INTERNATIONAL,
};

enum SMS_DATA_ENCODING : int {
  /// The shortest that can hold the text.
  SMSDE_OPTIMAL = 0,
};

enum PROVIDER_SPECIFIC_MESSAGE_CLASS : int {
  PS_MESSAGE_CLASS0 = 0,
  /// Kept by the phone that receives the message.
  PS_MESSAGE_CLASS1,
};

enum PROVIDER_SPECIFIC_REPLACE_OPTION : int {
  PSRO_NONE = 0,
};

using SMS_HANDLE = DWORD;
using SMS_MESSAGE_ID = DWORD;

struct SMS_ADDRESS {
  SMS_ADDRESS_TYPE smsatAddressType;
  WCHAR ptsAddress[SMS_MAX_ADDRESS_LENGTH];
};

/// As the first systems have it. Later ones added members behind; the caller's size tells them apart.
struct TEXT_PROVIDER_SPECIFIC_DATA {
  DWORD dwMessageOptions;
  PROVIDER_SPECIFIC_MESSAGE_CLASS psMessageClass;
  PROVIDER_SPECIFIC_REPLACE_OPTION psReplaceOption;
  DWORD dwHeaderDataSize;
  BYTE pbHeaderData[SMS_DATAGRAM_SIZE];
  BOOL fMessageContainsEMSHeaders;
  DWORD dwProtocolID;
};
