#include <gtest/gtest.h>

#include "base/ModuleFunction.h"

namespace ferolin {
namespace {

TEST(FindEntryTest, MissingLibraryGivesNull) {
  void (*entry)() = [] {};
  FindEntry(nullptr, TEXT("Anything"), entry);
  EXPECT_EQ(nullptr, entry);
}

}  // namespace
}  // namespace ferolin
