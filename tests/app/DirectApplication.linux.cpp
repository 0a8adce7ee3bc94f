#include "DirectApplication.linux.h"

namespace app {

void DirectApplication::Pump() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) && message.message != WM_QUIT) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

std::unique_ptr<RunningApplication> RunningApplication::Start(const LoadedEngine& engine) {
  auto application = std::make_unique<DirectApplication>(engine);
  return application->Start() ? std::move(application) : nullptr;
}

}  // namespace app
