// The library that stands in for the sender of messages: it writes each message to the file that
// the environment variable names, as two lines, the recipient and the text. A second
// file beside it keeps the library busy with its message while that file is not empty.
#pragma once

constexpr const char* RECORDING_SMS_FILE = "FEROLIN_TEST_SMS";
constexpr const char* RECORDING_SMS_BUSY = "sms.busy";
