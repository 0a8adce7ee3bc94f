// Drawn frames as picture files.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "handheld.h"

namespace host {

/// Writes every frame into a folder, and the last one into a file, if these are named (not empty).
class FrameFiles {
 public:
  /// Creates the folder. Throws HostError when that cannot be done.
  FrameFiles(const std::string& framesFolder, const std::string& shotFile);

  bool AreWanted() const { return !folder.empty() || !shot.empty(); }

  /// Writes "frame000001.png" and so on. Throws HostError.
  void Add(handheld::Pixels frame);

  /// Writes the last frame. Throws HostError, also when there was none.
  void Finish() const;

 private:
  std::string folder;
  std::string shot;
  std::uint64_t count = 0;
  handheld::Pixels last;
};

}  // namespace host
