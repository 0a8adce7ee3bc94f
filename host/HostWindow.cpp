#include "HostWindow.h"

#include "HostError.h"

namespace host {

namespace {

constexpr LPCWSTR CLASS_NAME = TEXT("FerolinHost");
constexpr LPCWSTR OWN_MESSAGE = TEXT("FerolinHostEvent");
constexpr DWORD LONG_TIME_MS = 60000;

}  // namespace

HostWindow::HostWindow(UINT updateMessage)
    : update(updateMessage), own(RegisterWindowMessageW(OWN_MESSAGE)) {
  WNDCLASSW description = {};
  description.lpfnWndProc = DefWindowProcW;
  description.lpszClassName = CLASS_NAME;
  RegisterClassW(&description);
  window = CreateWindowExW(0, CLASS_NAME, TEXT("Ferolin"), WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                           nullptr, nullptr);
  if (window == nullptr) {
    throw HostError("cannot make a window: error " + std::to_string(GetLastError()));
  }
}

HostWindow::~HostWindow() {
  DestroyWindow(window);
}

void HostWindow::Post(Event event) const {
  PostMessageW(window, own, static_cast<WPARAM>(event), 0);
}

HostWindow::Event HostWindow::Wait() const {
  while (true) {
    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
      if (message.message == WM_QUIT) {
        return Event::STOP;
      }
      if (message.hwnd == window && message.message == own) {
        return static_cast<Event>(message.wParam);
      }
      // Other values of lParam tell of touches.
      if (message.hwnd == window && message.message == update && message.lParam == 0) {
        return Event::UPDATE;
      }
      DispatchMessageW(&message);
    }
    MsgWaitForMultipleObjectsEx(0, nullptr, LONG_TIME_MS, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
  }
}

}  // namespace host
