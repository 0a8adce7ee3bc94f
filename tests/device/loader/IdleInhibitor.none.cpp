// No session to keep awake while the device's code is tested.
#include "power/IdleInhibitor.h"

namespace handheld {

IdleInhibitor& IdleInhibitor::Instance() {
  static IdleInhibitor inhibitor;
  return inhibitor;
}

void IdleInhibitor::Acquire() {}

void IdleInhibitor::Release() {}

}  // namespace handheld
