#include <gtest/gtest.h>

#include "web/ReadoutText.h"

namespace host {
namespace {

using namespace std::chrono_literals;

const WebTime FIXED_AT(1h);

/// An update with a fix, both at the start.
Snapshot Fixed() {
  Snapshot snapshot;
  snapshot.update.number = 1;
  Fix& fix = snapshot.update.fix.emplace();
  fix.timeMs = 0;
  fix.hasFix = true;
  fix.latitude = 55.75;
  fix.longitude = -37.6;
  fix.speedKmh = 36;
  fix.course = 90;
  snapshot.lastFix = FIXED_AT;
  snapshot.lastHeard = FIXED_AT;
  return snapshot;
}

bool Has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(ReadoutText, HasAPositionForThreeSeconds) {
  const std::string young = DescribeReadouts(Fixed(), FIXED_AT + 3s);
  EXPECT_TRUE(Has(young, R"("lat":55.75,"lon":-37.6,)")) << young;
  EXPECT_TRUE(Has(young, R"("speed_mps":10.0,"course_deg":90.0,)")) << young;
  EXPECT_TRUE(young.ends_with(R"("fix_age_s":3.0,"receiver":"ok"})")) << young;
  const std::string old = DescribeReadouts(Fixed(), FIXED_AT + 3100ms);
  EXPECT_TRUE(Has(old, R"("lat":null,"lon":null,)")) << old;
  EXPECT_TRUE(Has(old, R"("speed_mps":null,"course_deg":null,)")) << old;
  EXPECT_TRUE(old.ends_with(R"("fix_age_s":3.1,"receiver":"silent"})")) << old;
}

TEST(ReadoutText, TellsAReceiverWithoutAPositionFromASilentOne) {
  Snapshot snapshot = Fixed();
  snapshot.update.fix->hasFix = false;
  EXPECT_EQ(ReceiverState::NO_FIX, FindReceiverState(snapshot, FIXED_AT + 3s));
  EXPECT_EQ(ReceiverState::SILENT, FindReceiverState(snapshot, FIXED_AT + 3001ms));
  snapshot.update.fix.reset();
  EXPECT_EQ(ReceiverState::NO_FIX, FindReceiverState(snapshot, FIXED_AT));
  snapshot.update.notice = "no data for 3 s";
  EXPECT_EQ(ReceiverState::SILENT, FindReceiverState(snapshot, FIXED_AT));
}

TEST(ReadoutText, HasNoAgeBeforeTheFirstFix) {
  Snapshot snapshot;
  snapshot.lastHeard = FIXED_AT;
  const std::string text = DescribeReadouts(snapshot, FIXED_AT);
  EXPECT_TRUE(text.ends_with(R"(,"fix_age_s":null,"receiver":"no fix"})")) << text;
}

}  // namespace
}  // namespace host
