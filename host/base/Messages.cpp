#include "base/Messages.h"

#include <iostream>

namespace host {

void Messages::Say(const std::string& text) {
  if (isHeld) {
    held.push_back(text);
  } else {
    std::cerr << "ferolin-host: " + text + "\n" << std::flush;
  }
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
