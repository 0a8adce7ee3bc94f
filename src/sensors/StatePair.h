#pragma once

#include <string>

namespace ferolin {

/// The two halves of a sensor's state text, which is cut at the first ";". Without one the second
/// half is empty.
struct StatePair {
  explicit StatePair(const std::string& text)
      : first(text.substr(0, text.find(';'))),
        second(text.size() > first.size() ? text.substr(first.size() + 1) : std::string()) {}

  std::string first;
  std::string second;
};

}  // namespace ferolin
