#include <gtest/gtest.h>

#include "gps/FixRecord.h"
#include "sensors/Sensor.h"
#include "support/EditableFix.h"

namespace ferolin {
namespace {

using testing_support::EditableFix;

class Counter : public Sensor {
 public:
  using Sensor::Sensor;
  void Update(const FixRecord& fix) override { SetText("%i", fix.GetSatellitesUsed()); }
};

TEST(SensorTest, NameIsFixedAtConstruction) {
  const Counter sensor("Count");
  EXPECT_STREQ(sensor.GetName(), "Count");
}

TEST(SensorTest, TextIsWrittenByTheFirstUpdate) {
  Counter sensor("Count");
  EditableFix fix;
  fix.satellitesUsed = 7;
  sensor.Update(fix);
  EXPECT_STREQ(sensor.GetValueText(), "7");
}

TEST(SensorTest, ResetEmptiesTheText) {
  Counter sensor("Count");
  const EditableFix fix;
  sensor.Update(fix);
  sensor.Reset();
  EXPECT_STREQ(sensor.GetValueText(), "");
  sensor.Update(fix);
  EXPECT_STREQ(sensor.GetValueText(), "0");
}

TEST(SensorTest, SensorWithoutStateIsNotSaveable) {
  EXPECT_EQ(Counter("Count").IsSaveable(), 0);
}

TEST(SensorTest, SensorWithoutStateLeavesTheBufferAlone) {
  char buffer[] = "before";
  Counter("Count").GetRegistryString(buffer, sizeof buffer);
  EXPECT_STREQ(buffer, "before");
}

TEST(SensorTest, SensorWithoutStateTakesNone) {
  Counter sensor("Count");
  const EditableFix fix;
  sensor.Update(fix);
  EXPECT_EQ(sensor.SetRegistryString("12"), 0);
  EXPECT_STREQ(sensor.GetValueText(), "0");
}

}  // namespace
}  // namespace ferolin
