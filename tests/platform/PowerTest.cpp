#include <gtest/gtest.h>
#include <pm.h>

#include "Backlight.h"
#include "handheld.h"
#include "power/PowerSupply.h"
#include "support/TempFolder.h"

namespace {

using testing_support::TempFolder;

TEST(Battery, AnswersWhatItWasSetTo) {
  handheld::SetBattery(BATTERY_FLAG_CHARGING, 80);
  SYSTEM_POWER_STATUS_EX status = {};
  EXPECT_TRUE(GetSystemPowerStatusEx(&status, TRUE));
  EXPECT_EQ(BATTERY_FLAG_CHARGING, status.BatteryFlag);
  EXPECT_EQ(80, status.BatteryLifePercent);
  EXPECT_EQ(1, status.ACLineStatus);
}

TEST(Battery, FailsWhenToldTo) {
  handheld::SetBatteryFailing(true);
  SYSTEM_POWER_STATUS_EX status = {};
  status.BatteryLifePercent = 12;
  EXPECT_FALSE(GetSystemPowerStatusEx(&status, TRUE));
  EXPECT_EQ(12, status.BatteryLifePercent);
  handheld::SetBatteryFailing(false);
  EXPECT_TRUE(GetSystemPowerStatusEx(&status, TRUE));
  EXPECT_FALSE(GetSystemPowerStatusEx(nullptr, TRUE));
}

class PowerSupplies : public testing::Test {
 protected:
  void Battery(const std::string& name, const std::string& capacity, const std::string& status) {
    folder.Write(name + "/type", "Battery\n");
    folder.Write(name + "/status", status + "\n");
    if (!capacity.empty()) {
      folder.Write(name + "/capacity", capacity + "\n");
    }
  }
  SYSTEM_POWER_STATUS_EX Read() const { return handheld::ReadPowerSupplies(folder.Path()); }

  const TempFolder folder;
};

TEST_F(PowerSupplies, WithoutABatteryNothingIsKnown) {
  EXPECT_EQ(128, Read().BatteryFlag);
  EXPECT_EQ(BATTERY_PERCENTAGE_UNKNOWN, Read().BatteryLifePercent);
  EXPECT_EQ(128, handheld::ReadPowerSupplies("/none").BatteryFlag);
}

TEST_F(PowerSupplies, ABatteryIsRead) {
  Battery("BAT0", "80", "Discharging");
  EXPECT_EQ(1, Read().BatteryFlag);
  EXPECT_EQ(80, Read().BatteryLifePercent);
  EXPECT_EQ(255, Read().ACLineStatus);
}

TEST_F(PowerSupplies, ChargingIsToldBesideTheLevel) {
  Battery("BAT0", "20", "Charging");
  EXPECT_EQ(BATTERY_FLAG_CHARGING | 2, Read().BatteryFlag);
  EXPECT_EQ(1, Read().ACLineStatus);
  Battery("BAT0", "4", "Charging");
  EXPECT_EQ(BATTERY_FLAG_CHARGING | 2 | 4, Read().BatteryFlag);
}

TEST_F(PowerSupplies, AFullBatteryDoesNotCharge) {
  Battery("BAT0", "100", "Full");
  folder.Write("AC/type", "Mains\n");
  folder.Write("AC/online", "1\n");
  EXPECT_EQ(1, Read().BatteryFlag);
  EXPECT_EQ(1, Read().ACLineStatus);
  folder.Write("AC/online", "0\n");
  EXPECT_EQ(0, Read().ACLineStatus);
}

TEST_F(PowerSupplies, ABatteryMayNotKnowItsLevel) {
  Battery("BAT0", "", "Charging");
  EXPECT_EQ(BATTERY_FLAG_CHARGING, Read().BatteryFlag);
  EXPECT_EQ(BATTERY_PERCENTAGE_UNKNOWN, Read().BatteryLifePercent);
}

TEST_F(PowerSupplies, SeveralBatteriesCountAsOne) {
  Battery("BAT0", "41", "Discharging");
  Battery("BAT1", "60", "Charging");
  // 50.5, rounded.
  EXPECT_EQ(51, Read().BatteryLifePercent);
  EXPECT_EQ(BATTERY_FLAG_CHARGING, Read().BatteryFlag);
}

TEST_F(PowerSupplies, BatteriesOfMiceDoNotCount) {
  Battery("hidpp_battery_0", "30", "Discharging");
  folder.Write("hidpp_battery_0/scope", "Device\n");
  EXPECT_EQ(128, Read().BatteryFlag);
}

TEST(PowerRequirements, AreCountedWhileHeld) {
  const int held = handheld::PowerRequirementsHeld();
  const int taken = handheld::PowerRequirementsTaken();
  const int handles = handheld::HandlesAlive();
  const HANDLE requirement = HoldBacklight();
  ASSERT_NE(nullptr, requirement);
  EXPECT_EQ(held + 1, handheld::PowerRequirementsHeld());
  EXPECT_EQ(handles + 1, handheld::HandlesAlive());
  EXPECT_EQ(ERROR_SUCCESS, ReleasePowerRequirement(requirement));
  EXPECT_EQ(held, handheld::PowerRequirementsHeld());
  EXPECT_EQ(taken + 1, handheld::PowerRequirementsTaken());
  EXPECT_EQ(handles, handheld::HandlesAlive());
}

TEST(PowerRequirements, AreReleasedOnce) {
  const HANDLE requirement = HoldBacklight();
  EXPECT_EQ(ERROR_SUCCESS, ReleasePowerRequirement(requirement));
  EXPECT_EQ(ERROR_INVALID_HANDLE, ReleasePowerRequirement(requirement));
  EXPECT_EQ(ERROR_INVALID_HANDLE, ReleasePowerRequirement(nullptr));
  EXPECT_EQ(ERROR_INVALID_HANDLE, ReleasePowerRequirement(INVALID_HANDLE_VALUE));
}

TEST(PowerRequirements, StayHeldWhenReleasingFails) {
  const HANDLE requirement = HoldBacklight();
  handheld::SetPowerReleaseFailing(true);
  EXPECT_NE(ERROR_SUCCESS, ReleasePowerRequirement(requirement));
  EXPECT_EQ(1, handheld::PowerRequirementsHeld());
  handheld::SetPowerReleaseFailing(false);
  EXPECT_EQ(ERROR_SUCCESS, ReleasePowerRequirement(requirement));
}

TEST(PowerRequirements, AreRememberedAsTheyWereAskedForAlsoInVain) {
  const std::size_t before = handheld::PowerRequests().size();
  const HANDLE requirement = HoldBacklight();
  handheld::SetPowerRequirementFailing(true);
  char16_t name[] = u"COM1:";
  EXPECT_EQ(nullptr, SetPowerRequirement(name, D2, POWER_NAME, nullptr, 0));
  handheld::SetPowerRequirementFailing(false);
  EXPECT_EQ(1, handheld::PowerRequirementsHeld());

  const std::vector<handheld::PowerRequest> requests = handheld::PowerRequests();
  ASSERT_EQ(before + 2, requests.size());
  EXPECT_EQ(u"BKL1:", requests[before].device);
  EXPECT_EQ(D0, requests[before].state);
  EXPECT_EQ(u"COM1:", requests[before + 1].device);
  EXPECT_EQ(D2, requests[before + 1].state);
  EXPECT_EQ(ERROR_SUCCESS, ReleasePowerRequirement(requirement));
}

TEST(PowerRequirements, NeedANamedDeviceAndAState) {
  char16_t name[] = u"BKL1:";
  EXPECT_EQ(nullptr, SetPowerRequirement(nullptr, D0, POWER_NAME, nullptr, 0));
  EXPECT_EQ(nullptr, SetPowerRequirement(name, D0, 0, nullptr, 0));
  EXPECT_EQ(nullptr, SetPowerRequirement(name, PwrDeviceMaximum, POWER_NAME, nullptr, 0));
  EXPECT_EQ(nullptr, SetPowerRequirement(name, PwrDeviceUnspecified, POWER_NAME, nullptr, 0));
  EXPECT_EQ(0, handheld::PowerRequirementsHeld());
}

TEST(PowerRequirements, IdleTimerResetsAreCounted) {
  const int before = handheld::IdleTimerResets();
  SystemIdleTimerReset();
  SystemIdleTimerReset();
  EXPECT_EQ(before + 2, handheld::IdleTimerResets());
}

}  // namespace
