// The update cycle driven by hand, without a reader thread.

#include <gtest/gtest.h>
#include <handheld.h>

#include "engine/Engine.h"

namespace ferolin {

namespace {

constexpr const char* ACCEPTED = "$GPRMC,120000,A,4807.038,N,01131.000,E,10.0,084.4,230324,,*00";

class UpdateCycle : public testing::Test {
 protected:
  ~UpdateCycle() override { handheld::SetPowerReleaseFailing(false); }

  Engine engine;
};

TEST_F(UpdateCycle, TriesAFailedBacklightReleaseAgainAtTheNextUpdate) {
  engine.alwaysTurnOn = 1;
  engine.OnUpdate(ACCEPTED);
  ASSERT_EQ(1, handheld::PowerRequirementsHeld());

  engine.alwaysTurnOn = 0;
  handheld::SetPowerReleaseFailing(true);
  engine.OnUpdate(ACCEPTED);
  EXPECT_EQ(1, handheld::PowerRequirementsHeld());
  handheld::SetPowerReleaseFailing(false);
  engine.OnUpdate(ACCEPTED);
  EXPECT_EQ(0, handheld::PowerRequirementsHeld());
}

TEST_F(UpdateCycle, KeepsTheBacklightAsItIsForARejectedSentence) {
  const int resets = handheld::IdleTimerResets();
  engine.alwaysTurnOn = 1;
  engine.OnUpdate("$GPZDA,120000,23,03,2024,00,00*00");
  engine.OnUpdate("");
  EXPECT_EQ(resets, handheld::IdleTimerResets());
  EXPECT_EQ(0, handheld::PowerRequirementsHeld());
}

TEST_F(UpdateCycle, AttachingANullModuleLoadsNothing) {
  engine.AttachModule(nullptr);
  EXPECT_TRUE(engine.GetModuleDir().empty());
}

}  // namespace

}  // namespace ferolin
