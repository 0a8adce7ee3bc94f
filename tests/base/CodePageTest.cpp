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
  EXPECT_EQ("", Narrow(TEXT("")));
  EXPECT_EQ(TEXT(""), Widen(""));
}

TEST_F(CodePageTest, AsciiIsItselfInBothDirections) {
  EXPECT_EQ("COM1: 4800,~", Narrow(TEXT("COM1: 4800,~")));
  EXPECT_EQ(TEXT("COM1: 4800,~"), Widen("COM1: 4800,~"));
}

TEST_F(CodePageTest, RussianLettersAreSingleBytesOnARussianDevice) {
  handheld::SetCodePage(1251);
  // Code page 1251: the letters from U+0410 follow each other from byte 0xC0.
  EXPECT_EQ("\xD2\xE5\xF1\xF2", Narrow(TEXT("Тест")));
  EXPECT_EQ(TEXT("Тест"), Widen("\xD2\xE5\xF1\xF2"));
}

TEST_F(CodePageTest, DegreeSignIsByteB0InBothCodePages) {
  for (const UINT codePage : {1251U, 1252U}) {
    handheld::SetCodePage(codePage);
    EXPECT_EQ("\xB0", Narrow(TEXT("\u00B0"))) << codePage;
    EXPECT_EQ(TEXT("\u00B0"), Widen("\xB0")) << codePage;
  }
}

TEST_F(CodePageTest, CharactersThatTheCodePageLacksBecomeQuestionMarks) {
  handheld::SetCodePage(1252);
  EXPECT_EQ("a?b", Narrow(TEXT("aТb")));
}

TEST_F(CodePageTest, EveryByteOfTheRussianAlphabetSurvivesARoundTrip) {
  handheld::SetCodePage(1251);
  std::string bytes;
  for (int byte = 0xC0; byte <= 0xFF; ++byte) {
    bytes += static_cast<char>(byte);
  }
  EXPECT_EQ(bytes, Narrow(Widen(bytes)));
}

TEST_F(CodePageTest, TextInABufferIsCutToFitAndTerminated) {
  char buffer[5] = {'x', 'x', 'x', 'x', 'x'};
  NarrowInto(buffer, sizeof buffer, TEXT("abcdef"));
  EXPECT_STREQ("abcd", buffer);
}

TEST_F(CodePageTest, TextThatJustFitsABufferIsWhole) {
  char buffer[5] = {};
  NarrowInto(buffer, sizeof buffer, TEXT("abcd"));
  EXPECT_STREQ("abcd", buffer);
}

TEST_F(CodePageTest, BufferOfOneByteHoldsTheEmptyText) {
  char buffer[2] = {'x', 'y'};
  NarrowInto(buffer, 1, TEXT("abc"));
  EXPECT_EQ('\0', buffer[0]);
  EXPECT_EQ('y', buffer[1]);
}

}  // namespace
}  // namespace ferolin
