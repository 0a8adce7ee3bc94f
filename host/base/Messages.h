// Messages to the user, on standard error.
#pragma once

#include <string>
#include <vector>

namespace host {

/// Prints each message as a line that begins with "ferolin-host: ".
class Messages {
 public:
  void Say(const std::string& text);

  /// Collects messages from now on, while a table fills the screen.
  void Hold() { isHeld = true; }
  /// Prints the collected messages, and later ones at once.
  void Release();

 private:
  bool isHeld = false;
  std::vector<std::string> held;
};

}  // namespace host
