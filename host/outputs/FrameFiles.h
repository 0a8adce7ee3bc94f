// Drawn frames as picture files.
#pragma once

#include <cstdint>
#include <string>

#include "handheld.h"
#include "outputs/Pictures.h"
#include "window/RenderWindow.h"

namespace host {

/// Writes every frame into a folder, "frame000001.png" and so on, and the last frame into a file.
class FrameFiles : public Pictures {
 public:
  /// Folder and file may be empty: nothing is written there. The window outlives this object.
  /// Creates the folder; throws HostError when that fails or nothing can be written there.
  FrameFiles(RenderWindow& window, std::string folder, std::string shot);

  /// Always false: every update has a frame.
  bool OnUpdate() override;
  void Finish() override;

 private:
  RenderWindow& window;
  const std::string folder;
  const std::string shot;
  std::uint64_t count = 0;
  handheld::Pixels last;
};

}  // namespace host
