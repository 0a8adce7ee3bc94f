#include "window/Program.h"

#include "engine/ColorTheme.h"
#include "window/Application.h"

namespace app {

namespace {

/// With the backslash at its end. The engine lies in it, too.
WideString GetProgramFolder() {
  WCHAR path[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, path, MAX_PATH - 1);
  const WideStringView whole = path;
  return WideString(whole.substr(0, whole.rfind('\\') + 1));
}

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
  WideString theme;
  int exitCode = 1;
  {
    const LoadedEngine engine;
    exitCode = Run(engine, instance);
    if (engine.IsLoaded()) {
      theme = FindNewTheme(engine);
    }
  }
  if (!theme.empty()) {
    TakeTheme(GetProgramFolder(), theme);
  }
  return exitCode;
}

}  // namespace app
