// Folders that files are written to.
#pragma once

#include <filesystem>
#include <string>

namespace host {

/// Makes the folder where it is missing and returns its absolute path without links. Throws
/// HostError, a text of `trouble`, the path and the reason, when nothing can be written there.
std::filesystem::path MakeWritableFolder(const std::string& path, const std::string& trouble);

/// Whether no file can be made in an existing folder.
bool IsReadOnly(const std::filesystem::path& folder);

/// Why writing to a folder may have failed, for the user, such as "the disk of /media/card is full".
std::string DescribeWriteFailure(const std::filesystem::path& folder);

}  // namespace host
