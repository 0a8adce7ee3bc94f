// What the host tells the user beside the read-outs, on standard error.
#pragma once

#include <string>
#include <vector>

namespace host {

/// Prints "ferolin-host: " and the text, a line each. While the screen is taken, messages are kept
/// for later.
class Messages {
 public:
  void Say(const std::string& text);

  void Hold() { isHeld = true; }
  void Release();

 private:
  bool isHeld = false;
  std::vector<std::string> held;
};

}  // namespace host
