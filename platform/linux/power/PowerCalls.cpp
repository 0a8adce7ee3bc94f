#include <pm.h>

#include <chrono>
#include <mutex>
#include <optional>

#include "core/Handles.h"
#include "core/History.h"
#include "core/LastError.h"
#include "handheld.h"
#include "power/BatteryFlags.h"
#include "power/IdleInhibitor.h"
#include "power/PowerSupply.h"
#include "text/WideText.h"

namespace handheld {

namespace {

constexpr char POWER_SUPPLIES[] = "/sys/class/power_supply";
/// Batteries move slowly and asking them takes long, compared with what happens between two
/// readings at a high time rate.
constexpr auto READING_LIFETIME = std::chrono::seconds(2);

struct Power {
  std::mutex mutex;
  std::optional<SYSTEM_POWER_STATUS_EX> chosenStatus;
  bool isBatteryFailing = false;
  bool isRequirementFailing = false;
  bool isReleaseFailing = false;
  History<PowerRequest> requests;
  int held = 0;
  int taken = 0;
  int idleResets = 0;

  SYSTEM_POWER_STATUS_EX reading = {};
  std::chrono::steady_clock::time_point readingExpires;
};

Power& ThePower() {
  static Power& power = *new Power;
  return power;
}

/// A device held at a power state. Every one of them keeps the machine awake, as they are all there
/// for the screen.
class PowerRequirement : public Object {
 public:
  PowerRequirement() {
    {
      const std::lock_guard lock(ThePower().mutex);
      ++ThePower().held;
      ++ThePower().taken;
    }
    IdleInhibitor::Instance().Acquire();
  }

  void HandleClosed() override {
    {
      const std::lock_guard lock(ThePower().mutex);
      --ThePower().held;
    }
    IdleInhibitor::Instance().Release();
  }
};

/// With the lock held.
const SYSTEM_POWER_STATUS_EX& MachineStatus(Power& power) {
  const auto now = std::chrono::steady_clock::now();
  if (now >= power.readingExpires) {
    power.reading = ReadPowerSupplies(POWER_SUPPLIES);
    power.readingExpires = now + READING_LIFETIME;
  }
  return power.reading;
}

HANDLE Require(const PowerRequest& request) {
  ThePower().requests.Add(request);
  {
    const std::lock_guard lock(ThePower().mutex);
    if (ThePower().isRequirementFailing) {
      return Fail<HANDLE>(ERROR_GEN_FAILURE, nullptr);
    }
  }
  return HandleTable::Instance().Add(std::make_shared<PowerRequirement>());
}

DWORD Release(HANDLE requirement) {
  HandleTable& table = HandleTable::Instance();
  if (table.Find<PowerRequirement>(requirement) == nullptr) {
    return ERROR_INVALID_HANDLE;
  }
  {
    const std::lock_guard lock(ThePower().mutex);
    if (ThePower().isReleaseFailing) {
      return ERROR_GEN_FAILURE;
    }
  }
  return table.Close<PowerRequirement>(requirement) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}

}  // namespace

void SetBattery(BYTE flag, BYTE percent) {
  const bool isOnLine = (flag & (BATTERY_FLAG_CHARGING | BATTERY_FLAG_NO_BATTERY)) != 0;
  const std::lock_guard lock(ThePower().mutex);
  ThePower().chosenStatus = PowerStatus(isOnLine ? AC_LINE_ONLINE : AC_LINE_OFFLINE, flag, percent);
}

void SetBatteryFailing(bool failing) {
  const std::lock_guard lock(ThePower().mutex);
  ThePower().isBatteryFailing = failing;
}

void SetPowerRequirementFailing(bool failing) {
  const std::lock_guard lock(ThePower().mutex);
  ThePower().isRequirementFailing = failing;
}

void SetPowerReleaseFailing(bool failing) {
  const std::lock_guard lock(ThePower().mutex);
  ThePower().isReleaseFailing = failing;
}

std::vector<PowerRequest> PowerRequests() {
  return ThePower().requests.GetAll();
}

int PowerRequirementsHeld() {
  const std::lock_guard lock(ThePower().mutex);
  return ThePower().held;
}

int PowerRequirementsTaken() {
  const std::lock_guard lock(ThePower().mutex);
  return ThePower().taken;
}

int IdleTimerResets() {
  const std::lock_guard lock(ThePower().mutex);
  return ThePower().idleResets;
}

extern "C" {

BOOL WINAPI GetSystemPowerStatusEx(SYSTEM_POWER_STATUS_EX* status, BOOL) {
  return Guarded<BOOL>(FALSE, [&] {
    if (status == nullptr) {
      return Fail(ERROR_INVALID_PARAMETER, FALSE);
    }
    Power& power = ThePower();
    const std::lock_guard lock(power.mutex);
    if (power.isBatteryFailing) {
      return Fail(ERROR_GEN_FAILURE, FALSE);
    }
    *status = power.chosenStatus ? *power.chosenStatus : MachineStatus(power);
    return TRUE;
  });
}

void WINAPI SystemIdleTimerReset() {
  // Linux has no idle timer to reset; the idle inhibitor is held by the power requirement.
  const std::lock_guard lock(ThePower().mutex);
  ++ThePower().idleResets;
}

HANDLE WINAPI SetPowerRequirement(LPVOID device, CEDEVICE_POWER_STATE state, ULONG flags, LPVOID,
                                  ULONG) {
  return Guarded<HANDLE>(nullptr, [&] {
    const bool isNamed = (flags & POWER_NAME) != 0 && WideLength(static_cast<LPCWSTR>(device)) > 0;
    if (!isNamed || state < D0 || state >= PwrDeviceMaximum) {
      return Fail<HANDLE>(ERROR_INVALID_PARAMETER, nullptr);
    }
    return Require({WideText(static_cast<LPCWSTR>(device)), state});
  });
}

DWORD WINAPI ReleasePowerRequirement(HANDLE requirement) {
  return Guarded<DWORD>(ERROR_GEN_FAILURE, [&] { return Release(requirement); });
}

}  // extern "C"

}  // namespace handheld
