#include <gtest/gtest.h>

#include "sources/NmeaSentence.h"

namespace host {
namespace {

// "A" is 0x41, "B" is 0x42: 0x41 ^ 0x42 = 0x03.
TEST(NmeaSentence, ChecksumIsTheXorOfAllCharacters) {
  EXPECT_EQ(NmeaChecksum(""), 0);
  EXPECT_EQ(NmeaChecksum("A"), 0x41);
  EXPECT_EQ(NmeaChecksum("AB"), 0x03);
}

TEST(NmeaSentence, IsTakenApartAtCommas) {
  const NmeaSentence sentence("$GPGLL,1,,N,*00");
  EXPECT_EQ(sentence.name, "GPGLL");
  EXPECT_EQ(sentence.fields, (std::vector<std::string>{"1", "", "N", ""}));
  EXPECT_EQ(sentence.GetTalker(), "GP");
  EXPECT_EQ(sentence.GetType(), "GLL");
}

TEST(NmeaSentence, TellsRightFromWrongAndAbsentChecksums) {
  EXPECT_EQ(NmeaSentence("$AB*03").checksum, NmeaSentence::Checksum::RIGHT);
  EXPECT_EQ(NmeaSentence("$AB*04").checksum, NmeaSentence::Checksum::WRONG);
  EXPECT_EQ(NmeaSentence("$AB*3").checksum, NmeaSentence::Checksum::WRONG);
  EXPECT_EQ(NmeaSentence("$AB*").checksum, NmeaSentence::Checksum::WRONG);
  EXPECT_EQ(NmeaSentence("$AB*zz").checksum, NmeaSentence::Checksum::WRONG);
  EXPECT_EQ(NmeaSentence("$AB").checksum, NmeaSentence::Checksum::ABSENT);
}

// 'J' is 0x4A and 'o' 0x6F: 0x4A ^ 0x6F = 0x25; 'j' is 0x6A and 'o' 0x6F: 0x05.
TEST(NmeaSentence, AcceptsChecksumDigitsOfBothCases) {
  EXPECT_EQ(NmeaSentence("$J*4A").checksum, NmeaSentence::Checksum::RIGHT);
  EXPECT_EQ(NmeaSentence("$J*4a").checksum, NmeaSentence::Checksum::RIGHT);
}

TEST(NmeaSentence, IsPutTogetherWithANewChecksum) {
  NmeaSentence sentence("$A*00");
  sentence.name = "AB";
  EXPECT_EQ(sentence.GetText(), "$AB*03");
  // ',' is 0x2C: 0x03 ^ 0x2C ^ 0x41 = 0x6E.
  sentence.fields = {"A"};
  EXPECT_EQ(sentence.GetText(), "$AB,A*6E");
}

TEST(NmeaSentence, ShortNamesAreAllType) {
  EXPECT_EQ(NmeaSentence("$AB,1").GetType(), "AB");
  EXPECT_EQ(NmeaSentence("$AB,1").GetTalker(), "");
  EXPECT_EQ(NmeaSentence("$").GetType(), "");
}

}  // namespace
}  // namespace host
