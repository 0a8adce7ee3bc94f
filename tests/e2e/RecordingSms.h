// The library that stands in for the sender of messages: it writes each message to the file that
// the environment variable names, as two lines, the recipient and the text. Beside that file may
// lie another: as long as there is anything in it, the library is busy with its message.
#pragma once

constexpr const char* RECORDING_SMS_FILE = "FEROLIN_TEST_SMS";
constexpr const char* RECORDING_SMS_BUSY = "sms.busy";
