// Files that a power cut does not damage.
#pragma once

#include <filesystem>
#include <string_view>

namespace host {

/// Replaces the content of a file. After a power cut it has the old or the new content, whole. Mode
/// and owner stay; a new file is for its owner alone (0600). A symbolic link stays; the file that
/// it leads to is written. Where no other file can be made beside it, or none of the same owner,
/// the file is overwritten in place, which a power cut may cut short. Throws HostError.
void ReplaceFile(const std::filesystem::path& path, std::string_view content);

}  // namespace host
