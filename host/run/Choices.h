// The user's choices from run to run.
#pragma once

#include "commandline/Options.h"
#include "engine/Settings.h"

namespace host {

/// The host's own section of the settings file.
constexpr const char* CHOICES_SECTION = "Host";

/// Fills in what the user left to the last time: device, baud rate, gpsd address, folder of the
/// tracks. Throws UsageError when a device is needed and there was none.
void RecallChoices(Options& options, const Settings& settings);

/// Keeps them for the next time.
void KeepChoices(const Options& options, const Settings& settings);

/// The same for the picture, for runs that draw one. Throws nothing.
void RecallPicture(Options::Picture& picture, const Settings& settings);
void KeepPicture(const Options::Picture& picture, const Settings& settings);

}  // namespace host
