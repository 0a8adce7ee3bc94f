#include <gtest/gtest.h>

#include <vector>

#include "sources/EpochSplitter.h"

namespace host {
namespace {

// The bridge does not rewrite these: they have no checksum and nothing to change.
const std::string RMC = "$GPRMC,120000,A,1,N,2,E,3,4,010120,,";
const std::string LATER_RMC = "$GPRMC,120002,A,1,N,2,E,3,4,010120,,";
const std::string GGA = "$GPGGA,120000,1,N";
const std::string END = "\r\n";

class EpochSplitterTest : public testing::Test {
 protected:
  std::vector<Epoch> epochs;
  ReceiverBridge bridge;
  EpochSplitter bridged{&bridge, [this](Epoch epoch) { epochs.push_back(epoch); }};
  EpochSplitter raw{nullptr, [this](Epoch epoch) { epochs.push_back(epoch); }};
};

TEST_F(EpochSplitterTest, ReadsFixesWithoutABridgeToo) {
  std::vector<Fix> fixes;
  FixReader reader([&fixes](const Fix& fix) { fixes.push_back(fix); });
  raw.ReadFixesWith(reader);
  raw.Add("noise$GNRMC,120000,A,5530.0,N,03730.0,E,3,4,010124,,\r\n");
  raw.Add("$GPRMC,120001,A,5530.0,N,03730.0,E,3,4,010124,,*00\r\n");
  raw.Add("$GPRMC,120002,A,5530.0,N,03730.0,E,3,4,320124,,\r\n");
  raw.Finish();
  ASSERT_EQ(1u, fixes.size());
  EXPECT_TRUE(fixes[0].hasFix);
  EXPECT_EQ(55.5, fixes[0].latitude);
}

TEST_F(EpochSplitterTest, CutsBehindTheRmc) {
  bridged.Add(GGA + END + RMC + END + GGA + END + GGA + END + LATER_RMC + END + GGA + END);
  ASSERT_EQ(2u, epochs.size());
  EXPECT_EQ(GGA + END + RMC + END, epochs[0].bytes);
  EXPECT_EQ(1, epochs[0].updates);
  EXPECT_EQ(GGA + END + GGA + END + LATER_RMC + END, epochs[1].bytes);
  bridged.Finish();
  ASSERT_EQ(3u, epochs.size());
  EXPECT_EQ(GGA + END, epochs[2].bytes);
  EXPECT_EQ(0, epochs[2].updates);
  EXPECT_EQ(6u, bridged.GetSentences());
}

TEST_F(EpochSplitterTest, DoesNotCareHowTheBytesArrive) {
  const std::string all = GGA + END + RMC + END + GGA + END + LATER_RMC + END;
  for (const char byte : all) {
    bridged.Add(std::string(1, byte));
  }
  ASSERT_EQ(2u, epochs.size());
  EXPECT_EQ(all, epochs[0].bytes + epochs[1].bytes);
}

TEST_F(EpochSplitterTest, MakesAnyLineEndCarriageReturnAndLineFeed) {
  bridged.Add(GGA + "\n" + GGA + "\r" + GGA + "\r\n" + RMC + "\n");
  ASSERT_EQ(1u, epochs.size());
  EXPECT_EQ(GGA + END + GGA + END + GGA + END + RMC + END, epochs[0].bytes);
}

TEST_F(EpochSplitterTest, TakesALastSentenceWithoutLineEnd) {
  bridged.Add(RMC);
  EXPECT_TRUE(epochs.empty());
  bridged.Finish();
  ASSERT_EQ(1u, epochs.size());
  EXPECT_EQ(RMC + END, epochs[0].bytes);
}

TEST_F(EpochSplitterTest, DropsAndCountsWhatIsNoSentence) {
  bridged.Add("****** program startup\r\n\r\n\xB5\x62\x01\x02\r\n!AIVDM,1\r\n$" +
              std::string(EpochSplitter::MAX_SENTENCE, 'x') + "\r\n" + RMC + END);
  ASSERT_EQ(1u, epochs.size());
  EXPECT_EQ(RMC + END, epochs[0].bytes);
  EXPECT_EQ(4u, bridged.GetLinesDropped());
}

TEST_F(EpochSplitterTest, PassesOverComments) {
  bridged.Add("# 2026-11-22T23:59:59.000Z\r\n# $GPRMC\r\n" + RMC + END);
  ASSERT_EQ(1u, epochs.size());
  EXPECT_EQ(RMC + END, epochs[0].bytes);
  EXPECT_EQ(0u, bridged.GetLinesDropped());
}

TEST_F(EpochSplitterTest, LeavesDamagedSentencesOutAndDoesNotWaitForTheirUpdate) {
  bridged.Add("$GP\x01\x02\r\n" + RMC + "*00" + END + GGA + END);
  bridged.Finish();
  ASSERT_EQ(1u, epochs.size());
  EXPECT_EQ(GGA + END, epochs[0].bytes);
  EXPECT_EQ(0, epochs[0].updates);
  EXPECT_EQ(0u, bridged.GetLinesDropped());
}

TEST_F(EpochSplitterTest, FindsASentenceBehindALoggersTimeStamp) {
  bridged.Add("1700000000.25 " + RMC + END);
  ASSERT_EQ(1u, epochs.size());
  EXPECT_EQ(RMC + END, epochs[0].bytes);
}

TEST_F(EpochSplitterTest, RewritesThroughTheBridgeAndKeepsTheFractionForThePace) {
  bridged.Add("$GNRMC,120000.25,A,1,N,2,E,3,4,020170,,\r\n");
  ASSERT_EQ(1u, epochs.size());
  EXPECT_EQ("$GPRMC,120000,", epochs[0].bytes.substr(0, 14));
  // 2070-01-02: 100 years with 25 leap days (1972 to 2068) and one day; noon and a quarter second.
  EXPECT_EQ((100LL * 365 + 25 + 1) * 86400000 + 43200250, epochs[0].timeMs);
}

TEST_F(EpochSplitterTest, TellsTheTimeOfDayWhenThereIsNoDate) {
  bridged.Add("$GPRMC,000102,V,,,,,,,,,\r\n$GPRMC,,V,,,,,,,010120,,\r\n");
  ASSERT_EQ(2u, epochs.size());
  EXPECT_EQ(62000, epochs[0].timeMs);
  EXPECT_EQ(std::nullopt, epochs[1].timeMs);
}

TEST_F(EpochSplitterTest, ExpectsNoUpdateOfAnRmcThatTheEngineWillNotTake) {
  // Nine separators instead of ten; the name of another sentence; GN without a bridge.
  raw.Add(
      "$GPRMC,1,2,3,4,5,6,7,8,9\r\n$GPRMCX,1,2,3,4,5,6,7,8,9,0\r\n$GNRMC,1,2,3,4,5,6,7,8,9,0\r\n");
  EXPECT_TRUE(epochs.empty());
  raw.Add("$GPRMC,1,2,3,4,5,6,7,8,9*00\r\n");
  ASSERT_EQ(1u, epochs.size());
  EXPECT_EQ(1, epochs[0].updates);
}

TEST_F(EpochSplitterTest, PutsAnRmcWithoutAFixBeforeTheFirstOneOfANewTime) {
  const std::string jumped = "$GNRMC,120003.5,A,1,N,2,E,3,4,010121,,";
  bridged.Add(RMC + END + GGA + END + jumped + END);
  ASSERT_EQ(4u, epochs.size());
  EXPECT_FALSE(epochs[0].startsStretch);
  EXPECT_EQ(GGA + END, epochs[1].bytes);
  EXPECT_FALSE(epochs[1].startsStretch);
  EXPECT_EQ(NmeaSentence("$GPRMC,120003,V,,,,,,,010121,,").GetText() + END, epochs[2].bytes);
  EXPECT_TRUE(epochs[2].startsStretch);
  EXPECT_EQ(1, epochs[2].updates);
  EXPECT_EQ("$GPRMC,120003,A,", epochs[3].bytes.substr(0, 16));
  EXPECT_FALSE(epochs[3].startsStretch);
  EXPECT_EQ(1u, bridged.GetClockJumps());
}

TEST_F(EpochSplitterTest, GoesOnAcrossAGapOfReception) {
  bridged.Add(RMC + END + "$GPRMC,,V,,,,,,,,,\r\n$GPRMC,125959,A,1,N,2,E,3,4,010120,,\r\n");
  EXPECT_EQ(3u, epochs.size());
  EXPECT_EQ(0u, bridged.GetClockJumps());
}

TEST_F(EpochSplitterTest, DoesNotJudgeATimeWithoutADate) {
  bridged.Add(RMC + END + "$GPRMC,090000,V,,,,,,,,,\r\n" + LATER_RMC + END);
  EXPECT_EQ(3u, epochs.size());
  EXPECT_EQ(0u, bridged.GetClockJumps());
}

TEST_F(EpochSplitterTest, LetsTheClockJumpWithoutABridge) {
  const std::string all = RMC + END + "$GPRMC,120003,A,1,N,2,E,3,4,010180,,\r\n";
  raw.Add(all);
  ASSERT_EQ(2u, epochs.size());
  EXPECT_EQ(all, epochs[0].bytes + epochs[1].bytes);
  EXPECT_FALSE(epochs[1].startsStretch);
}

TEST_F(EpochSplitterTest, NeverMakesAPieceLargerThanTheEnginesBuffer) {
  std::string all;
  for (int i = 0; i < 300; ++i) {
    all += GGA + END;
  }
  all += RMC + END;
  bridged.Add(all);
  ASSERT_EQ(3u, epochs.size());  // 300 * 19 + 38 = 5738 bytes
  std::string together;
  for (const Epoch& each : epochs) {
    EXPECT_LE(each.bytes.size(), EpochSplitter::MAX_BYTES);
    EXPECT_TRUE(each.bytes.ends_with(END));
    together += each.bytes;
  }
  EXPECT_EQ(all, together);
  EXPECT_EQ(0, epochs[0].updates);
  EXPECT_EQ(1, epochs[2].updates);
}

TEST_F(EpochSplitterTest, ChangesNoByteWithoutABridge) {
  const std::string odd = "text\r\n\n$GNGGA,1\r\n$GPGGA\n\xFF\r" + RMC + END + "$GPG";
  raw.Add(odd);
  raw.Finish();
  std::string together;
  for (const Epoch& each : epochs) {
    together += each.bytes;
  }
  EXPECT_EQ(odd, together);
}

TEST_F(EpochSplitterTest, PassesDamagedSentencesOnWithoutABridge) {
  const std::string damaged = "$GPRMC,256161,A,9100,N,2,E,3,4,310220,,*00" + END;
  raw.Add(damaged);
  ASSERT_EQ(1u, epochs.size());
  EXPECT_EQ(damaged, epochs[0].bytes);
  EXPECT_EQ(1, epochs[0].updates);
}

TEST_F(EpochSplitterTest, ExpectsNoUpdateOfAnRmcWithoutFields) {
  const std::string empty = NmeaSentence("$GPRMC").GetText();
  bridged.Add(empty + "**********" + END);
  bridged.Finish();
  ASSERT_EQ(1u, epochs.size());
  EXPECT_EQ(empty + END, epochs[0].bytes);
  EXPECT_EQ(0, epochs[0].updates);
}

TEST_F(EpochSplitterTest, ExpectsNoUpdateOfALineFeedOnlyRmcWithoutABridge) {
  raw.Add(RMC + "\n");
  raw.Finish();
  ASSERT_EQ(1u, epochs.size());
  EXPECT_EQ(0, epochs[0].updates);
}

TEST_F(EpochSplitterTest, TellsHowFarItIsInTheSource) {
  const std::string first = "noise\r\n" + RMC + END;
  bridged.Add(first + GGA);
  ASSERT_EQ(1u, epochs.size());
  EXPECT_EQ(first.size(), epochs[0].sourceOffset);
}

}  // namespace
}  // namespace host
