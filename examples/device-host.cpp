// Prints the speed after each of the first ten positions that the receiver at COM1 sends.

#include <ferolin.h>
#include <windows.h>

#include <cstdio>

template <class Function>
void Find(HMODULE engine, LPCWSTR name, Function*& function) {
  function =
      reinterpret_cast<Function*>(reinterpret_cast<void (*)()>(GetProcAddressW(engine, name)));
}

int main() {
  const HMODULE engine = LoadLibraryW(TEXT("Ferolin.dll"));
  if (engine == nullptr) {
    std::fprintf(stderr, "Ferolin.dll is not there\n");
    return 1;
  }
  decltype(&SetUseGPSAPI) setUseGpsApi;
  decltype(&SetComPortName) setComPortName;
  decltype(&GetWndMessageID) getMessage;
  decltype(&StartCallBack) start;
  decltype(&StopCallBack) stop;
  decltype(&GetSensorName) getName;
  decltype(&GetSensorValue) getValue;
  Find(engine, TEXT("SetUseGPSAPI"), setUseGpsApi);
  Find(engine, TEXT("SetComPortName"), setComPortName);
  Find(engine, TEXT("GetWndMessageID"), getMessage);
  Find(engine, TEXT("StartCallBack"), start);
  Find(engine, TEXT("StopCallBack"), stop);
  Find(engine, TEXT("GetSensorName"), getName);
  Find(engine, TEXT("GetSensorValue"), getValue);

  WNDCLASSW windowClass = {};
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.lpszClassName = TEXT("SmallHost");
  RegisterClassW(&windowClass);
  const HWND window = CreateWindowExW(0, TEXT("SmallHost"), TEXT("Small host"), WS_POPUP, 0, 0, 240,
                                      320, nullptr, nullptr, nullptr, nullptr);

  setUseGpsApi(0);
  setComPortName(TEXT("COM1"));
  start(window);
  int updates = 0;
  MSG message;
  while (updates < 10 && GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (message.message == getMessage() && message.lParam == FEROLIN_BUTTON_NONE) {
      char name[256];
      char value[256];
      getName(FEROLIN_SENSOR_SPEED, name, sizeof name);
      getValue(FEROLIN_SENSOR_SPEED, value, sizeof value);
      std::printf("%s: %s\n", name, value);
      ++updates;
    }
    DispatchMessageW(&message);
  }
  stop();
  DestroyWindow(window);
  FreeLibrary(engine);
}
