// The library that stands in for the sender of messages: it writes each message to the file that the environment
// variable names, as two lines, the recipient and the text.
#pragma once

constexpr const char* RECORDING_SMS_FILE = "FEROLIN_TEST_SMS";
