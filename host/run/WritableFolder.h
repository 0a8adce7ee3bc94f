// Folders that files are written to.
#pragma once

#include <filesystem>
#include <string>

namespace host {

/// Makes the folder where it is missing and returns its absolute path without links. Throws
/// HostError, a text of `trouble`, the path and the reason, when nothing can be written there.
std::filesystem::path MakeWritableFolder(const std::string& path, const std::string& trouble);

/// Why no file can be made in an existing folder, as an errno value; 0 when one can. A file system
/// that an error has made read-only tells so only when something is written.
int FindWriteError(const std::filesystem::path& folder);

}  // namespace host
