#include "RunningApplication.h"

#include <cstdio>
#include <cstdlib>

#include "ApplicationDoubles.windows.h"
#include "ApplicationModule.windows.h"

namespace app {

namespace {

/// Stays loaded, as a program's code does.
class Module {
 public:
  Module() : doubles(L"application-module.dll", MakeApplicationDoubles()) {
    module = LoadLibraryW(L"" APPLICATION_MODULE);
    Find(start, "StartApplication");
    Find(getWindow, "GetApplicationWindow");
    Find(end, "EndApplication");
  }

  static const Module& Get() {
    static const Module module;
    return module;
  }

  decltype(&StartApplication) start = nullptr;
  decltype(&GetApplicationWindow) getWindow = nullptr;
  decltype(&EndApplication) end = nullptr;

 private:
  template <class Function>
  void Find(Function& function, const char* name) const {
    function =
        reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(module, name)));
    if (function == nullptr) {
      std::fputs("the application's library cannot be loaded\n", stderr);
      std::abort();
    }
  }

  e2e::ImportDoubles doubles;
  HMODULE module;
};

class ModuleApplication : public RunningApplication {
 public:
  explicit ModuleApplication(void* application) : application(application) {}
  ~ModuleApplication() override { Module::Get().end(application); }

  HWND GetWindow() const override { return Module::Get().getWindow(application); }

  void Pump() override {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) && message.message != WM_QUIT) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }

 private:
  void* const application;
};

}  // namespace

std::unique_ptr<RunningApplication> RunningApplication::Start(const LoadedEngine& engine) {
  void* const application = Module::Get().start(&engine);
  return application != nullptr ? std::make_unique<ModuleApplication>(application) : nullptr;
}

}  // namespace app
