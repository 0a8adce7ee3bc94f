#include "window/Program.h"

#include "engine/ColorTheme.h"
#include "window/Application.h"

namespace app {

namespace {

int Run(const LoadedEngine& engine, HINSTANCE instance) {
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

}  // namespace

int RunApplication(HINSTANCE instance) {
  WideString folder;
  WideString theme;
  int exitCode = 1;
  {
    const LoadedEngine engine;
    exitCode = Run(engine, instance);
    if (engine.IsLoaded()) {
      folder = engine.GetFolder();
      theme = FindNewTheme(engine);
    }
  }
  if (!theme.empty()) {
    TakeTheme(folder, theme);
  }
  return exitCode;
}

}  // namespace app
