// The settings file's name, which the device knows in any letter case.
#pragma once

#include <filesystem>

#include "base/Messages.h"

namespace host {

/// The settings file of a home folder; it may be missing. Where several names differ in letter case
/// alone, the newest file gets the settings that only the others have, and these are kept as ".old"
/// files. Throws HostError when something that is no settings file has such a name: a folder, a
/// pipe, a file of more than 250 KB.
std::filesystem::path FindSettingsFile(const std::filesystem::path& home, Messages& messages);

}  // namespace host
