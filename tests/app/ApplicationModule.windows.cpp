#include "ApplicationModule.windows.h"

#include "window/Application.h"

extern "C" {

__declspec(dllexport) void* StartApplication(const app::LoadedEngine* engine) {
  auto* application = new app::Application(*engine);
  if (application->Start(nullptr)) {
    return application;
  }
  delete application;
  return nullptr;
}

__declspec(dllexport) HWND GetApplicationWindow(const void* application) {
  return static_cast<const app::Application*>(application)->GetWindow();
}

__declspec(dllexport) void EndApplication(void* application) {
  delete static_cast<app::Application*>(application);
}
}
