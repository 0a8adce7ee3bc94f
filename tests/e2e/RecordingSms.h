// The library that stands in for the sender of messages: it writes each message to the file that the environment
// variable names, as two lines, the recipient and the text. It is busy sending as long as there is a second file, whose name
// is that one's and an ending.
#pragma once

constexpr const char* RECORDING_SMS_FILE = "FEROLIN_TEST_SMS";
constexpr const char* RECORDING_SMS_BUSY = ".busy";
