// Calls of the engine that the linker sends through the test program: a log of those that mark
// the steps of the engine's work, and failures and answers on demand.
#pragma once

#include <windows.h>

#include <atomic>
#include <string>
#include <vector>

#include "base/WideString.h"

namespace ferolin::calls {

/// Forgets the steps and lets all calls reach the device again.
void Reset();

void ForgetSteps();
/// The steps since they were last forgotten, in order, across all threads. The names are those of `theEngine`:
/// "sensor <index>" when a read-out's text is written, "view <index>" when a view is attached,
/// "SMS", "sound", "message", "idle timer", "backlight", "redraw" (started), "reader ended",
/// "canvas freed", "track" and "settings" (opened for writing).
std::vector<std::string> Steps();

/// Reads of the serial port that are going to fail.
extern std::atomic<int> failingPortReads;
/// Whether the settings of serial ports can be written.
extern std::atomic<bool> isSetCommStateFailing;
/// What modules give as their path; empty for the true one.
extern WideString modulePath;

/// Gives engines made from now on a library that sends messages, which only shows in the log.
void InstallSmsLibrary();

}  // namespace ferolin::calls
