// All tests of this program run on an English device, whatever the language of the machine.
#include <gtest/gtest.h>

#include "handheld.h"

namespace {

class EnglishDevice : public testing::Environment {
 public:
  void SetUp() override { handheld::SetLanguage("ENU"); }
};

[[maybe_unused]] const auto* const englishDevice =
    testing::AddGlobalTestEnvironment(new EnglishDevice);

}  // namespace
