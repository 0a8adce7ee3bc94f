#include "base/Messages.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <iostream>

#include "base/DisplayText.h"

namespace host {

namespace {

constexpr const char* ERASE_LINE = "\r\x1b[K";
constexpr std::size_t USUAL_COLUMNS = 80;

std::size_t CountTerminalColumns() {
  winsize size = {};
  const bool isTold = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return isTold ? size.ws_col : USUAL_COLUMNS;
}

}  // namespace

Messages::Messages() : hasTerminal(isatty(STDERR_FILENO) != 0 && isatty(STDOUT_FILENO) == 0) {}

void Messages::Say(const std::string& text) {
  if (isHeld) {
    held.push_back(text);
  } else {
    Print("ferolin-host: " + text + "\n");
  }
}

void Messages::ShowOnTerminal(const std::string& lines) {
  if (isatty(STDERR_FILENO) != 0) {
    std::cerr << lines << std::flush;
  }
}

/// The status stays below the text.
void Messages::Print(const std::string& text) const {
  std::cerr << (status.empty() ? "" : ERASE_LINE) + text + status << std::flush;
}

void Messages::ShowStatus(const std::string& text) {
  if (!hasTerminal || isHeld || text == status) {
    return;
  }
  std::cerr << ERASE_LINE;
  // A line that fills the terminal would wrap.
  status = CutToColumns(text, CountTerminalColumns() - 1);
  std::cerr << status << std::flush;
}

void Messages::SayLoss(const std::string& text) {
  hasLosses = true;
  Say(text);
}

void Messages::Release() {
  isHeld = false;
  for (const std::string& text : held) {
    Say(text);
  }
  held.clear();
}

}  // namespace host
