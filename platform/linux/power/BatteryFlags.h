// Values of the power status record.
#pragma once

#include <windows.h>

namespace handheld {

constexpr BYTE AC_LINE_OFFLINE = 0;
constexpr BYTE AC_LINE_ONLINE = 1;
constexpr BYTE AC_LINE_UNKNOWN = 255;

constexpr BYTE BATTERY_FLAG_HIGH = 1;
constexpr BYTE BATTERY_FLAG_LOW = 2;
constexpr BYTE BATTERY_FLAG_CRITICAL = 4;
constexpr BYTE BATTERY_FLAG_NO_BATTERY = 128;

constexpr DWORD BATTERY_LIFE_UNKNOWN = 0xFFFFFFFF;

/// Above two thirds "high", below one third "low", below 5 % "critical" as well; nothing in between
/// or when the percentage is unknown.
constexpr BYTE LevelFlag(BYTE percent) {
  if (percent == BATTERY_PERCENTAGE_UNKNOWN) {
    return 0;
  }
  if (percent < 5) {
    return BATTERY_FLAG_LOW | BATTERY_FLAG_CRITICAL;
  }
  if (percent < 33) {
    return BATTERY_FLAG_LOW;
  }
  return percent > 66 ? BATTERY_FLAG_HIGH : 0;
}

/// A record with these values; there is no backup battery and no life time is known.
constexpr SYSTEM_POWER_STATUS_EX PowerStatus(BYTE lineStatus, BYTE flag, BYTE percent) {
  SYSTEM_POWER_STATUS_EX status = {};
  status.ACLineStatus = lineStatus;
  status.BatteryFlag = flag;
  status.BatteryLifePercent = percent;
  status.BatteryLifeTime = BATTERY_LIFE_UNKNOWN;
  status.BatteryFullLifeTime = BATTERY_LIFE_UNKNOWN;
  status.BackupBatteryFlag = BATTERY_FLAG_NO_BATTERY;
  status.BackupBatteryLifePercent = BATTERY_PERCENTAGE_UNKNOWN;
  status.BackupBatteryLifeTime = BATTERY_LIFE_UNKNOWN;
  status.BackupBatteryFullLifeTime = BATTERY_LIFE_UNKNOWN;
  return status;
}

}  // namespace handheld
