#include "power/PowerSupply.h"

#include <dirent.h>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <memory>
#include <optional>
#include <vector>

#include "files/Paths.h"
#include "power/BatteryFlags.h"

namespace handheld {

namespace {

std::string ReadAttribute(const std::string& supply, const std::string& name) {
  std::ifstream file(Join(supply, name));
  std::string value;
  std::getline(file, value);
  return value;
}

std::optional<int> ReadNumber(const std::string& supply, const std::string& name) {
  const std::string text = ReadAttribute(supply, name);
  int value;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  return result.ec == std::errc() ? std::optional(value) : std::nullopt;
}

/// Totals over the power supplies.
struct Summary {
  int batteries = 0;
  int measured = 0;
  int percentSum = 0;
  bool isCharging = false;
  bool hasLine = false;
  bool isLineOnline = false;

  void AddBattery(const std::string& supply) {
    if (ReadAttribute(supply, "scope") == "Device" || ReadNumber(supply, "present") == 0) {
      return;
    }
    ++batteries;
    if (const auto percent = ReadNumber(supply, "capacity")) {
      ++measured;
      percentSum += std::min(std::max(*percent, 0), 100);
    }
    isCharging |= ReadAttribute(supply, "status") == "Charging";
  }

  void AddLine(const std::string& supply) {
    hasLine = true;
    isLineOnline |= ReadNumber(supply, "online") == 1;
  }

  BYTE GetPercent() const {
    if (measured == 0) {
      return BATTERY_PERCENTAGE_UNKNOWN;
    }
    return static_cast<BYTE>((percentSum + measured / 2) / measured);
  }

  BYTE GetLineStatus() const {
    if (hasLine) {
      return isLineOnline ? AC_LINE_ONLINE : AC_LINE_OFFLINE;
    }
    return batteries == 0 || isCharging ? AC_LINE_ONLINE : AC_LINE_UNKNOWN;
  }

  BYTE GetFlag() const {
    if (batteries == 0) {
      return BATTERY_FLAG_NO_BATTERY;
    }
    return static_cast<BYTE>(LevelFlag(GetPercent()) | (isCharging ? BATTERY_FLAG_CHARGING : 0));
  }
};

}  // namespace

SYSTEM_POWER_STATUS_EX ReadPowerSupplies(const std::string& folder) {
  Summary summary;
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.c_str()), closedir);
  while (const dirent* entry = entries == nullptr ? nullptr : readdir(entries.get())) {
    const std::string supply = Join(folder, entry->d_name);
    const std::string type = ReadAttribute(supply, "type");
    if (type == "Battery") {
      summary.AddBattery(supply);
    }
    if (type == "Mains" || type == "USB") {
      summary.AddLine(supply);
    }
  }
  return PowerStatus(summary.GetLineStatus(), summary.GetFlag(), summary.GetPercent());
}

}  // namespace handheld
