// Folders of a program on Linux that stand for the handheld's.
#pragma once

#include <string>

namespace handheld {

/// Folder of installed libraries that are loaded by name; it may be missing.
std::string InstalledLibraryFolder();

/// Sets a program folder for the library (a file name) of a host that has chosen none, and makes it
/// where it is missing. Writes to standard error when settings cannot be kept there or pictures are
/// missing.
void ChooseProgramFolder(const std::string& library);

}  // namespace handheld
