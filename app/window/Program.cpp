#include "window/Program.h"

#include "window/Application.h"

namespace app {

int RunApplication(HINSTANCE instance) {
  const LoadedEngine engine;
  Application application(engine);
  if (!application.Start(instance)) {
    return 1;
  }
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return static_cast<int>(message.wParam);
}

}  // namespace app
