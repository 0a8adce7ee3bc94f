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
  EXPECT_STREQ("Count", sensor.GetName());
}

TEST(SensorTest, TextIsWrittenByTheFirstUpdate) {
  Counter sensor("Count");
  EditableFix fix;
  fix.satellitesUsed = 7;
  sensor.Update(fix);
  EXPECT_STREQ("7", sensor.GetValueText());
}

TEST(SensorTest, ResetEmptiesTheText) {
  Counter sensor("Count");
  const EditableFix fix;
  sensor.Update(fix);
  sensor.Reset();
  EXPECT_STREQ("", sensor.GetValueText());
  sensor.Update(fix);
  EXPECT_STREQ("0", sensor.GetValueText());
}

TEST(SensorTest, SensorWithoutStateIsNotSaveable) {
  EXPECT_EQ(0, Counter("Count").IsSaveable());
}

TEST(SensorTest, SensorWithoutStateLeavesTheBufferAlone) {
  char buffer[] = "before";
  Counter("Count").GetRegistryString(buffer, sizeof buffer);
  EXPECT_STREQ("before", buffer);
}

TEST(SensorTest, SensorWithoutStateTakesNone) {
  Counter sensor("Count");
  const EditableFix fix;
  sensor.Update(fix);
  EXPECT_EQ(0, sensor.SetRegistryString("12"));
  EXPECT_STREQ("0", sensor.GetValueText());
}

}  // namespace
}  // namespace ferolin
