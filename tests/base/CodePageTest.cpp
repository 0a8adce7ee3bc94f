#include <gtest/gtest.h>

#include "base/CodePage.h"
#include "handheld.h"

namespace ferolin {
namespace {

class CodePageTest : public testing::Test {
 protected:
  void TearDown() override { handheld::SetCodePage(1252); }
};

TEST_F(CodePageTest, EmptyTextStaysEmpty) {
  EXPECT_EQ(Narrow(TEXT("")), "");
  EXPECT_EQ(Widen(""), TEXT(""));
}

TEST_F(CodePageTest, AsciiIsItselfInBothDirections) {
  EXPECT_EQ(Narrow(TEXT("COM1: 4800,~")), "COM1: 4800,~");
  EXPECT_EQ(Widen("COM1: 4800,~"), TEXT("COM1: 4800,~"));
}

TEST_F(CodePageTest, RussianLettersAreSingleBytesOnARussianDevice) {
  handheld::SetCodePage(1251);
  // Code page 1251: the letters from U+0410 follow each other from byte 0xC0.
  EXPECT_EQ(Narrow(TEXT("Тест")), "\xD2\xE5\xF1\xF2");
  EXPECT_EQ(Widen("\xD2\xE5\xF1\xF2"), TEXT("Тест"));
}

TEST_F(CodePageTest, DegreeSignIsByteB0InBothCodePages) {
  for (const UINT codePage : {1251U, 1252U}) {
    handheld::SetCodePage(codePage);
    EXPECT_EQ(Narrow(TEXT("\u00B0")), "\xB0") << codePage;
    EXPECT_EQ(Widen("\xB0"), TEXT("\u00B0")) << codePage;
  }
}

TEST_F(CodePageTest, CharactersThatTheCodePageLacksBecomeQuestionMarks) {
  handheld::SetCodePage(1252);
  EXPECT_EQ(Narrow(TEXT("aТb")), "a?b");
}

TEST_F(CodePageTest, EveryByteOfTheRussianAlphabetSurvivesARoundTrip) {
  handheld::SetCodePage(1251);
  std::string bytes;
  for (int byte = 0xC0; byte <= 0xFF; ++byte) {
    bytes += static_cast<char>(byte);
  }
  EXPECT_EQ(Narrow(Widen(bytes)), bytes);
}

TEST_F(CodePageTest, TextInABufferIsCutToFitAndTerminated) {
  char buffer[5] = {'x', 'x', 'x', 'x', 'x'};
  NarrowInto(buffer, sizeof buffer, TEXT("abcdef"));
  EXPECT_STREQ(buffer, "abcd");
}

TEST_F(CodePageTest, TextThatJustFitsABufferIsWhole) {
  char buffer[5] = {};
  NarrowInto(buffer, sizeof buffer, TEXT("abcd"));
  EXPECT_STREQ(buffer, "abcd");
}

TEST_F(CodePageTest, BufferOfOneByteHoldsTheEmptyText) {
  char buffer[2] = {'x', 'y'};
  NarrowInto(buffer, 1, TEXT("abc"));
  EXPECT_EQ(buffer[0], '\0');
  EXPECT_EQ(buffer[1], 'y');
}

}  // namespace
}  // namespace ferolin
