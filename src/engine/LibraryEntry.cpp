#include <objbase.h>

#include <new>

#include "engine/Engine.h"
#include "render/Canvas.h"

namespace ferolin {

Engine* theEngine = nullptr;

namespace {

void Attach(HMODULE module) {
  CoInitializeEx(nullptr, COINIT_MULTITHREADED);
  if (theEngine == nullptr) {
    theEngine = new (std::nothrow) Engine;
  }
  if (theEngine != nullptr) {
    theEngine->AttachModule(module);
  }
}

void Detach() {
  if (theEngine != nullptr) {
    theEngine->StopCallBack();
  }
  theCanvas.ReleaseAll();
  if (theEngine != nullptr) {
    theEngine->Shutdown();
    delete theEngine;
    theEngine = nullptr;
  }
  CoUninitialize();
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) {
    Attach(module);
  } else if (reason == DLL_PROCESS_DETACH) {
    Detach();
  }
  return TRUE;
}

}  // namespace ferolin
