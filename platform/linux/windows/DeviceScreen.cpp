#include "windows/DeviceScreen.h"

#include <mutex>

#include "handheld.h"

namespace handheld {

namespace {

constexpr Screen USUAL_SCREEN = {240, 320, 96};

struct SharedScreen {
  std::mutex mutex;
  Screen screen = USUAL_SCREEN;
};

SharedScreen& TheScreen() {
  static SharedScreen& shared = *new SharedScreen;
  return shared;
}

}  // namespace

Screen CurrentScreen() {
  SharedScreen& shared = TheScreen();
  const std::lock_guard lock(shared.mutex);
  return shared.screen;
}

void SetScreen(int width, int height, int dpi) {
  SharedScreen& shared = TheScreen();
  const std::lock_guard lock(shared.mutex);
  shared.screen = {width, height, dpi};
}

}  // namespace handheld
