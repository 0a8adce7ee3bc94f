#include <gtest/gtest.h>

#include <string>

#include "sources/SentenceCheck.h"

namespace host {
namespace {

std::optional<Damage> Find(const std::string& text) {
  return SentenceCheck::Find(text, NmeaSentence(text));
}

std::optional<Damage> FindInRmc(const std::string& time, const std::string& date) {
  return Find("$GPRMC," + time + ",A,1,N,2,E,3,4," + date + ",,");
}

std::optional<Damage> FindInPosition(const std::string& position) {
  const std::optional<Damage> inGga = Find("$GPGGA,120000," + position + ",1,08");
  EXPECT_EQ(inGga, Find("$GNRMC,120000,A," + position + ",3,4,010120,,"));
  EXPECT_EQ(inGga, Find("$GPGLL," + position + ",120000,A"));
  return inGga;
}

std::optional<Damage> FindInKnots(const std::string& knots) {
  const std::optional<Damage> inRmc = Find("$GPRMC,120000,A,1,N,2,E," + knots + ",4,010120,,");
  EXPECT_EQ(inRmc, Find("$GNVTG,1,T,2,M," + knots + ",N,1,K"));
  EXPECT_EQ(inRmc, Find("$GPVTG,1,2," + knots + ",1"));
  return inRmc;
}

TEST(SentenceCheck, FindsNothingInSoundSentences) {
  for (const char* text :
       {"$GPRMC,235234,A,3925.9702,N,11945.9354,W,45.1,153.1,250905,15.2,E,A*01",
        "$GPGGA,235234,3925.9702,N,11945.9354,W,1,10,0.8,1378.6,M,-22.1,M,,*4D",
        "$GPGSV,3,1,12,04,16,162,46,07,84,207,48,08,34,135,45,09,17,315,38*74"}) {
    EXPECT_EQ(std::nullopt, Find(text)) << text;
  }
}

TEST(SentenceCheck, AcceptsEmptyAndAbsentFields) {
  for (const char* text : {"$GPRMC,,V,,,,,,,,,,N", "$GPGGA,,,,,,0,00", "$GPGLL,,,,,,V", "$GPRMC",
                           "$GPVTG,,T,,M,,N,,K,N", "$GPVTG", "$"}) {
    EXPECT_EQ(std::nullopt, Find(text)) << text;
  }
}

TEST(SentenceCheck, FindsWrongChecksumsOfAnySentenceAndAcceptsNone) {
  EXPECT_EQ(Damage::CHECKSUM, Find("$GPGGA*00"));
  EXPECT_EQ(Damage::CHECKSUM, Find("$GPGGA*"));
  EXPECT_EQ(Damage::CHECKSUM, Find("$PGRME,2.3,M*00"));
  EXPECT_EQ(std::nullopt, Find("$PGRME,2.3,M"));
}

TEST(SentenceCheck, FindsCharactersThatNoSentenceHas) {
  for (const char* text : {"$GPGGA,\x01", "$GPGGA,\t", "$GPGGA,\x7F", "$GPGGA,\x80", "$\xFF"}) {
    EXPECT_EQ(Damage::CHARACTERS, Find(text)) << text;
  }
  EXPECT_EQ(std::nullopt, Find("$GPTXT, ~"));
}

TEST(SentenceCheck, FindsDatesThatDoNotExist) {
  for (const char* date : {"310221", "290221", "310420", "010020", "011320", "000120", "320120",
                           "0101200", "01012", "01x120", "000000"}) {
    EXPECT_EQ(Damage::DATE, FindInRmc("120000", date)) << date;
  }
  for (const char* date : {"290220", "290200", "311299", "010170", "060180", ""}) {
    EXPECT_EQ(std::nullopt, FindInRmc("120000", date)) << date;
  }
}

TEST(SentenceCheck, AcceptsAnUnknownDateWithoutAFix) {
  EXPECT_EQ(std::nullopt, Find("$GPRMC,000000,V,,,,,,,000000,,"));
  EXPECT_EQ(Damage::DATE, Find("$GPRMC,000000,V,,,,,,,310220,,"));
}

TEST(SentenceCheck, FindsTimesThatDoNotExist) {
  for (const char* time : {"256161", "240000", "126000", "120060", "12000", "1200000", "1200.00",
                           "1200x0", "120000.x", "-10000", "."}) {
    EXPECT_EQ(Damage::TIME, FindInRmc(time, "010120")) << time;
    EXPECT_EQ(Damage::TIME, Find(std::string("$GPGGA,") + time + ",1,N,2,E")) << time;
    EXPECT_EQ(Damage::TIME, Find(std::string("$GPGLL,1,N,2,E,") + time + ",A")) << time;
  }
  for (const char* time : {"000000", "235959", "235959.", "235959.999", "235960", ""}) {
    EXPECT_EQ(std::nullopt, FindInRmc(time, "010120")) << time;
  }
}

// 2,000 km/h are 1079.914 knots.
TEST(SentenceCheck, FindsSpeedsThatCannotBe) {
  for (const char* knots : {"1079.92", "99999", "-0.1", "-5", "1O.5", "nan", "inf", "5.5.5"}) {
    EXPECT_EQ(Damage::SPEED, FindInKnots(knots)) << knots;
  }
  for (const char* knots : {"1079.91", "0", "000.0", "022.4", ""}) {
    EXPECT_EQ(std::nullopt, FindInKnots(knots)) << knots;
  }
  EXPECT_EQ(Damage::SPEED, Find("$GPVTG,1,T,2,M,3,N,2000.1,K"));
  EXPECT_EQ(Damage::SPEED, Find("$GPVTG,1,2,3,2000.1"));
  EXPECT_EQ(std::nullopt, Find("$GPVTG,1,2,3,2000"));
}

TEST(SentenceCheck, FindsPositionsBeyondThePolesAndTheDateLine) {
  for (const char* position : {"9000.0001,N,1,E", "9100,S,1,E", "1,N,18000.0001,E", "1,N,18100,W",
                               "-0001.0,N,1,E", "1,N,-0001.0,E"}) {
    EXPECT_EQ(Damage::POSITION, FindInPosition(position)) << position;
  }
  for (const char* position :
       {"9000.0000,N,18000.0000,E", "9000,S,18000,W", "0000.0000,N,00000.0000,W", ",,,"}) {
    EXPECT_EQ(std::nullopt, FindInPosition(position)) << position;
  }
}

TEST(SentenceCheck, FindsMinutesOf60AndMoreInPositions) {
  EXPECT_EQ(Damage::POSITION, FindInPosition("3960.0,N,1,E"));
  EXPECT_EQ(Damage::POSITION, FindInPosition("1,N,11999.9,E"));
  EXPECT_EQ(std::nullopt, FindInPosition("3959.9999,N,11959.9999,E"));
}

TEST(SentenceCheck, FindsPositionsThatAreNoNumbersOrLieInNoHemisphere) {
  for (const char* position :
       {"39x5.9,N,1,E", "1,N,nan,E", "1,Q,1,E", "1,N,1,N", "1,E,1,E", "1,NS,1,E", "1,N,1,EW"}) {
    EXPECT_EQ(Damage::POSITION, FindInPosition(position)) << position;
  }
}

TEST(SentenceCheck, LeavesValuesOfProprietarySentencesAlone) {
  EXPECT_EQ(std::nullopt, Find("$PARMC,256161"));
  EXPECT_EQ(std::nullopt, Find("$RMC,256161"));
}

}  // namespace
}  // namespace host
