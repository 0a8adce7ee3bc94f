#include <gtest/gtest.h>

#include "sources/ReceiverBridge.h"

namespace host {
namespace {

/// The sentence with its right checksum.
std::string Sound(const std::string& text) {
  return NmeaSentence(text).GetText();
}

std::string Rewritten(const std::string& text) {
  ReceiverBridge bridge;
  return bridge.Rewrite(text).value_or("(dropped)");
}

constexpr const char* NO_SATELLITES = ",,,,,,,,";

TEST(ReceiverBridge, LeavesWhatTheEngineKnowsUntouched) {
  for (const std::string text :
       {"$GPRMC,235234,A,3925.9702,N,11945.9354,W,45.1,153.1,250905,15.2,E,A*01",
        "$GPGGA,235234,3925.9702,N,11945.9354,W,1,10,0.8,1378.6,M,-22.1,M,,*4D",
        "$GPGSV,3,1,12,04,16,162,46,07,84,207,48,08,34,135,45,09,17,315,38*74"}) {
    ReceiverBridge bridge;
    EXPECT_EQ(text, bridge.Rewrite(text));
    EXPECT_EQ(ReceiverBridge::Counts(), bridge.GetCounts());
  }
}

TEST(ReceiverBridge, LeavesOtherSentencesUntouched) {
  for (const std::string text : {"$GNZDA,1", "$PGRME,2.3,M", "$PARMC,x", "$", "$GN", "$*00"}) {
    EXPECT_EQ(text, Rewritten(text));
  }
}

TEST(ReceiverBridge, RenamesEveryTalkerForTheSixTypes) {
  for (const std::string talker : {"GN", "GL", "GA", "GB", "BD", "GQ", "GI", "II"}) {
    for (const std::string type : {"RMC", "GGA", "GSA", "GLL"}) {
      EXPECT_EQ(Sound("$GP" + type + ",,"), Rewritten(Sound("$" + talker + type + ",,")));
    }
  }
}

TEST(ReceiverBridge, RemembersWhichTalkersItRenamed) {
  ReceiverBridge bridge;
  bridge.Rewrite("$GNGGA,");
  bridge.Rewrite("$GNGLL,1");
  bridge.Rewrite("$GLGSA,1");
  bridge.Rewrite("$GPGGA,");
  EXPECT_EQ((std::set<std::string>{"GL", "GN"}), bridge.GetTalkers());
  EXPECT_EQ(3u, bridge.GetCounts().talkers);
}

TEST(ReceiverBridge, CutsFractionsOfSecondsAndKeepsTheDate) {
  EXPECT_EQ(Sound("$GPRMC,053229,V,,,,,,,020315,,,N"),
            Rewritten(Sound("$GNRMC,053229.438,V,,,,,,,020315,,,N")));
  EXPECT_EQ(Sound("$GPRMC,235959,A,1,N,2,E,3,4,010100,,,A"),
            Rewritten(Sound("$GPRMC,235959.99,A,1,N,2,E,3,4,010100,,,A")));
  EXPECT_EQ(Sound("$GPRMC,235959,A"), Rewritten(Sound("$GPRMC,235959.,A")));
}

TEST(ReceiverBridge, LeavesTimesOfOtherSentencesAlone) {
  const std::string text = Sound("$GPGGA,053229.438,,,,,0,00,,,M,0.0,M,,0000");
  EXPECT_EQ(text, Rewritten(text));
}

// The engine would read fields behind the checksum, which does not guard them.
TEST(ReceiverBridge, CutsWhatStandsBehindTheChecksum) {
  const std::string rmc = Sound("$GPRMC,120000,A,1,N,2,E,3,4,010120");
  EXPECT_EQ(rmc, Rewritten(rmc + ",1700000000.25"));
  EXPECT_EQ(Sound("$GPRMC"), Rewritten(Sound("$GPRMC") + ",256161,A,1,N,2,E,3,4,310220,,"));
  EXPECT_EQ(Sound("$GPZDA"), Rewritten(Sound("$GPZDA") + " "));
}

TEST(ReceiverBridge, ToleratesAnRmcWithoutFields) {
  EXPECT_EQ("$GPRMC", Rewritten("$GPRMC"));
  EXPECT_EQ("$GPRMC,", Rewritten("$GPRMC,"));
}

TEST(ReceiverBridge, DropsAndCountsDamagedSentencesByKind) {
  ReceiverBridge bridge;
  for (const std::string text :
       {"$GNRMC,053229.438,V,,,,,,,020315,,,N*00", "$GNZDA,1*00", "$GPGLL,9100,N,1,E"}) {
    EXPECT_EQ(std::nullopt, bridge.Rewrite(text)) << text;
  }
  ReceiverBridge::Counts expected;
  expected.damaged[static_cast<std::size_t>(Damage::CHECKSUM)] = 2;
  expected.damaged[static_cast<std::size_t>(Damage::POSITION)] = 1;
  EXPECT_EQ(expected, bridge.GetCounts());
  EXPECT_TRUE(bridge.GetTalkers().empty());
}

TEST(ReceiverBridge, FillsAShortSatelliteListUpToFour) {
  // Two satellites: fields for two more stay empty.
  EXPECT_EQ(Sound(std::string("$GPGSV,1,1,02,05,10,020,30,06,40,050,") + NO_SATELLITES),
            Rewritten(Sound("$GPGSV,1,1,02,05,10,020,30,06,40,050,")));
  EXPECT_EQ(Sound(std::string("$GPGSV,1,1,00") + NO_SATELLITES + NO_SATELLITES),
            Rewritten(Sound("$GPGSV,1,1,00")));
}

TEST(ReceiverBridge, TakesTheSignalNumberOffASatelliteList) {
  EXPECT_EQ(Sound("$GPGSV,1,1,04,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16"),
            Rewritten(Sound("$GPGSV,1,1,04,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,1")));
  // The number of the signal, 6, must not become a satellite.
  EXPECT_EQ(Sound(std::string("$GPGSV,1,1,01,05,10,020,30") + ",,,," + NO_SATELLITES),
            Rewritten(Sound("$GPGSV,1,1,01,05,10,020,30,6")));
}

TEST(ReceiverBridge, KeepsSatellitesOfOtherSystemsApartFromThoseOfGps) {
  struct Case {
    const char* talker;
    const char* own;
    const char* apart;
  };
  for (const Case& each :
       {Case{"GL", "01", "65"}, Case{"GL", "24", "88"}, Case{"GL", "65", "65"},
        Case{"GA", "05", "305"}, Case{"GA", "301", "301"}, Case{"GB", "12", "412"},
        Case{"GB", "201", "201"}, Case{"BD", "63", "463"}, Case{"GQ", "02", "194"},
        Case{"GQ", "193", "193"}, Case{"GN", "05", "05"}}) {
    const std::string rewritten =
        Rewritten(Sound(std::string("$") + each.talker + "GSV,1,1,01," + each.own + ",40,100,33"));
    EXPECT_EQ(std::string("$GPGSV,1,1,01,") + each.apart,
              rewritten.substr(0, rewritten.find(",40,")))
        << each.talker;
  }
}

TEST(ReceiverBridge, PutsTheKnotsWhereTheEngineLooksForThem) {
  EXPECT_EQ(Sound("$GPVTG,054.7,034.4,005.5,010.2"),
            Rewritten(Sound("$GPVTG,054.7,T,034.4,M,005.5,N,010.2,K,A")));
  EXPECT_EQ(Sound("$GPVTG,,,0.012,0.022"), Rewritten(Sound("$GNVTG,,T,,M,0.012,N,0.022,K,D")));
  EXPECT_EQ(Sound("$GPVTG,054.7,034.4,005.5,"), Rewritten(Sound("$GPVTG,054.7,T,034.4,M,005.5")));
}

TEST(ReceiverBridge, LeavesAVtgOfTheOldFormAlone) {
  const std::string text = Sound("$GPVTG,054.7,034.4,005.5,010.2");
  EXPECT_EQ(text, Rewritten(text));
}

TEST(ReceiverBridge, DropsAVtgWithoutSpeed) {
  ReceiverBridge bridge;
  EXPECT_EQ(std::nullopt, bridge.Rewrite(Sound("$GPVTG,,T,,M,,N,,K,N")));
  EXPECT_EQ(1u, bridge.GetCounts().speedsDropped);
}

TEST(ReceiverBridge, AddsAChecksumWhereItRewritesASentenceWithoutOne) {
  EXPECT_EQ(Sound("$GPGLL,1,N"), Rewritten("$GNGLL,1,N"));
}

}  // namespace
}  // namespace host
