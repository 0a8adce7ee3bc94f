#include <gtest/gtest.h>

#include "base/WideString.h"

namespace ferolin {
namespace {

TEST(CopyWideTest, ShortTextIsCopiedWhole) {
  WCHAR buffer[8];
  CopyWide(buffer, TEXT("COM1"));
  EXPECT_EQ(TEXT("COM1"), WideString(buffer));
}

TEST(CopyWideTest, LongTextIsCutToTheBufferAndTerminated) {
  WCHAR buffer[4];
  CopyWide(buffer, TEXT("abcdef"));
  EXPECT_EQ(TEXT("abc"), WideString(buffer));
}

TEST(CopyWideTest, EmptyTextEmptiesTheBuffer) {
  WCHAR buffer[3] = {'x', 'y', 0};
  CopyWide(buffer, TEXT(""));
  EXPECT_EQ(TEXT(""), WideString(buffer));
}

}  // namespace
}  // namespace ferolin
