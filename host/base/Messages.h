// Messages to the user, on standard error.
#pragma once

#include <string>
#include <vector>

namespace host {

/// Prints each message as a line that begins with "ferolin-host: ".
class Messages {
 public:
  Messages();

  void Say(const std::string& text);

  /// Prints lines as they are if standard error is a terminal.
  static void ShowOnTerminal(const std::string& lines);

  /// Says what was lost or went wrong; the program goes on, and its exit status tells.
  void SayLoss(const std::string& text);
  bool HasLosses() const { return hasLosses; }

  /// Shows a line below the messages in place of the one before; an empty text removes it. Does
  /// nothing while messages are held, and unless standard error is a terminal that standard output
  /// does not share.
  void ShowStatus(const std::string& text);

  /// Collects messages from now on, while a table fills the screen.
  void Hold() { isHeld = true; }
  /// Prints the collected messages, and later ones at once.
  void Release();

 private:
  void Print(const std::string& text) const;

  const bool hasTerminal;
  std::string status;
  bool isHeld = false;
  bool hasLosses = false;
  std::vector<std::string> held;
};

}  // namespace host
