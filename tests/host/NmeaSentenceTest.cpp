#include <gtest/gtest.h>

#include "sources/NmeaSentence.h"

namespace host {
namespace {

// "A" is 0x41, "B" is 0x42: 0x41 ^ 0x42 = 0x03.
TEST(NmeaSentence, ChecksumIsTheXorOfAllCharacters) {
  EXPECT_EQ(0, NmeaChecksum(""));
  EXPECT_EQ(0x41, NmeaChecksum("A"));
  EXPECT_EQ(0x03, NmeaChecksum("AB"));
}

TEST(NmeaSentence, IsTakenApartAtCommas) {
  const NmeaSentence sentence("$GPGLL,1,,N,*00");
  EXPECT_EQ("GPGLL", sentence.name);
  EXPECT_EQ((std::vector<std::string>{"1", "", "N", ""}), sentence.fields);
  EXPECT_EQ("GP", sentence.GetTalker());
  EXPECT_EQ("GLL", sentence.GetType());
}

TEST(NmeaSentence, TellsRightFromWrongAndAbsentChecksums) {
  EXPECT_EQ(NmeaSentence::Checksum::RIGHT, NmeaSentence("$AB*03").checksum);
  EXPECT_EQ(NmeaSentence::Checksum::WRONG, NmeaSentence("$AB*04").checksum);
  EXPECT_EQ(NmeaSentence::Checksum::WRONG, NmeaSentence("$AB*3").checksum);
  EXPECT_EQ(NmeaSentence::Checksum::WRONG, NmeaSentence("$AB*").checksum);
  EXPECT_EQ(NmeaSentence::Checksum::WRONG, NmeaSentence("$AB*zz").checksum);
  EXPECT_EQ(NmeaSentence::Checksum::ABSENT, NmeaSentence("$AB").checksum);
}

// 'J' is 0x4A and 'o' 0x6F: 0x4A ^ 0x6F = 0x25; 'j' is 0x6A and 'o' 0x6F: 0x05.
TEST(NmeaSentence, AcceptsChecksumDigitsOfBothCases) {
  EXPECT_EQ(NmeaSentence::Checksum::RIGHT, NmeaSentence("$J*4A").checksum);
  EXPECT_EQ(NmeaSentence::Checksum::RIGHT, NmeaSentence("$J*4a").checksum);
}

TEST(NmeaSentence, IsPutTogetherWithANewChecksum) {
  NmeaSentence sentence("$A*00");
  sentence.name = "AB";
  EXPECT_EQ("$AB*03", sentence.GetText());
  // ',' is 0x2C: 0x03 ^ 0x2C ^ 0x41 = 0x6E.
  sentence.fields = {"A"};
  EXPECT_EQ("$AB,A*6E", sentence.GetText());
}

TEST(NmeaSentence, ShortNamesAreAllType) {
  EXPECT_EQ("AB", NmeaSentence("$AB,1").GetType());
  EXPECT_EQ("", NmeaSentence("$AB,1").GetTalker());
  EXPECT_EQ("", NmeaSentence("$").GetType());
}

}  // namespace
}  // namespace host
