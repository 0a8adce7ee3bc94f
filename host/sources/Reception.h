// How well a receiver is heard.
#pragma once

#include <string>

namespace host {

struct Reception {
  /// Why nothing can be read at present, for the user; empty when something can.
  std::string trouble;
  /// Whole seconds without a sentence; 0 until they are worth telling.
  int silentSeconds = 0;
  /// Bytes came during the silence.
  bool hasNoise = false;
  /// Trouble means that a receiver is being looked for.
  bool isSearch = false;
  /// The receiver that was found; empty when none was looked for.
  std::string found = {};
};

/// "no data for 12 s", or what else is wrong; empty while sentences come.
std::string Describe(const Reception& reception);

}  // namespace host
