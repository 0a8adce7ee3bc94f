// Pictures, fonts and sounds that the engine asked for in vain.
#pragma once

#include <string>

namespace handheld {

/// Notes a file that is missing or damaged, by its Linux path; nothing for an empty one. Any thread
/// may call.
void AddUnreadableFile(const std::string& path);

}  // namespace handheld
