// The picture of the views for browsers.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "web/PngFrames.h"

namespace host {

/// Takes each frame of a window once. For one thread, any.
class ViewFrames {
 public:
  /// Takes the frame that the window has now. True when it looks other than at the last call, or is
  /// the first one since Forget.
  bool Look(HWND window);

  /// Whether a frame was taken since Forget.
  bool HasPicture() const { return hasPicture; }
  /// The present frame is too old to be shown.
  void Forget() { hasPicture = false; }

  /// Number of the frame taken last, from 1 on; 0 before the first one.
  std::uint64_t GetNumber() const { return number; }
  /// Pixels of it; 0 before the first one.
  int GetWidth() const { return frames.GetWidth(); }
  int GetHeight() const { return frames.GetHeight(); }

  /// It as PNG, made at the first call for each frame; empty before the first one. Throws
  /// HostError.
  const std::string& GetPng() { return frames.GetPng(); }

 private:
  PngFrames frames;
  std::uint64_t version = 0;
  std::uint64_t number = 0;
  bool hasPicture = false;
};

}  // namespace host
