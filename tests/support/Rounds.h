// How often a test of random input goes round.
#pragma once

#include <cstdlib>
#include <string_view>

namespace testing_support {

/// `all` with FEROLIN_TESTS=all in the environment, as ./test --all sets it, otherwise `few`.
inline int Rounds(int few, int all) {
  const char* const tests = std::getenv("FEROLIN_TESTS");
  return tests != nullptr && std::string_view(tests) == "all" ? all : few;
}

}  // namespace testing_support
