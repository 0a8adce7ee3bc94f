// Messages to the user, on standard error.
#pragma once

#include <string>
#include <vector>

namespace host {

/// Prints each message as a line that begins with "ferolin-host: ".
class Messages {
 public:
  void Say(const std::string& text);

  /// Says what was lost or went wrong; the program goes on, and its exit status tells.
  void SayLoss(const std::string& text);
  bool HasLosses() const { return hasLosses; }

  /// Collects messages from now on, while a table fills the screen.
  void Hold() { isHeld = true; }
  /// Prints the collected messages, and later ones at once.
  void Release();

 private:
  bool isHeld = false;
  bool hasLosses = false;
  std::vector<std::string> held;
};

}  // namespace host
