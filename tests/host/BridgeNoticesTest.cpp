#include <gtest/gtest.h>

#include "sources/BridgeNotices.h"

namespace host {
namespace {

using Texts = std::vector<std::string>;

std::uint64_t& CountOf(PositionFeed::Report& report, Damage damage) {
  return report.bridge.damaged[static_cast<std::size_t>(damage)];
}

TEST(BridgeNotices, SayNothingOfSoundInput) {
  EXPECT_EQ(Texts(), BridgeNotices().TakeNews(PositionFeed::Report()));
  EXPECT_EQ(Texts(), BridgeNotices::SumUp(PositionFeed::Report()));
}

TEST(BridgeNotices, TellTheFirstDamageOfEachKind) {
  BridgeNotices notices;
  PositionFeed::Report report;
  CountOf(report, Damage::CHECKSUM) = 1;
  EXPECT_EQ(Texts{"a damaged sentence was dropped (wrong checksum); more are only counted"},
            notices.TakeNews(report));
  CountOf(report, Damage::CHECKSUM) = 2;
  EXPECT_EQ(Texts(), notices.TakeNews(report));
  CountOf(report, Damage::DATE) = 1;
  EXPECT_EQ(
      Texts{"a damaged sentence was dropped (a date that does not exist); more are only counted"},
      notices.TakeNews(report));
}

TEST(BridgeNotices, TellTheFirstJumpOfTheClockAndSumUpAll) {
  BridgeNotices notices;
  PositionFeed::Report report;
  report.clockJumps = 1;
  EXPECT_EQ(Texts{"the receiver's clock jumped: the trip goes on without the step; more are only "
                  "counted"},
            notices.TakeNews(report));
  report.clockJumps = 2;
  EXPECT_EQ(Texts(), notices.TakeNews(report));
  EXPECT_EQ(Texts{"jumps of the receiver's clock: 2"}, BridgeNotices::SumUp(report));
}

TEST(BridgeNotices, SumUpDamageByKind) {
  PositionFeed::Report report;
  CountOf(report, Damage::DATE) = 1;
  EXPECT_EQ(Texts{"1 sentence was dropped: 1 with a date that does not exist"},
            BridgeNotices::SumUp(report));
  CountOf(report, Damage::CHECKSUM) = 2;
  EXPECT_EQ(Texts{"3 sentences were dropped: 2 with a wrong checksum, 1 with a date that does not "
                  "exist"},
            BridgeNotices::SumUp(report));
}

}  // namespace
}  // namespace host
