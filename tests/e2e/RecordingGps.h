// The library that stands in for the GPS API. Its folder is named by an environment variable: there
// it finds the position to answer, as so many bytes, and writes the calls that it gets, one a line.
#pragma once

constexpr const char* RECORDING_GPS_FOLDER = "FEROLIN_TEST_GPS";
constexpr const char* RECORDING_GPS_POSITION = "gps-position";
constexpr const char* RECORDING_GPS_CALLS = "gps-calls.txt";
