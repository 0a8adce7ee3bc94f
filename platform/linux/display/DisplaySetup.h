// The machine's display before a window is shown on it.
#pragma once

#include <optional>

namespace handheld {

/// Pixels.
struct DisplaySize {
  int width = 0;
  int height = 0;
};

/// Size of the first display; nothing when there is none or it cannot be used. Not while a Display
/// is open.
std::optional<DisplaySize> FindDisplaySize();

/// Whether the displays that are opened from now on stay awake: neither screen saver nor power
/// saving. They do at first.
void KeepDisplaysAwake(bool stayAwake);
bool AreDisplaysKeptAwake();

}  // namespace handheld
