#include "window/HostWindow.h"

#include <ferolin.h>

#include "base/HostError.h"

namespace host {

namespace {

constexpr LPCWSTR CLASS_NAME = TEXT("FerolinHost");
constexpr LPCWSTR OWN_MESSAGE = TEXT("FerolinHostEvent");

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

void HostWindow::SetListeners(OnButton buttonListener, OnOther otherListener) {
  onButton = std::move(buttonListener);
  onOther = std::move(otherListener);
}

HostWindow::Event HostWindow::Wait(DWORD milliseconds) const {
  do {
    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
      if (message.message == WM_QUIT) {
        return Event::STOP;
      }
      const bool isOurs = message.hwnd == window;
      if (isOurs && message.message == own) {
        return static_cast<Event>(message.wParam);
      }
      if (isOurs && message.message == update && message.lParam == FEROLIN_BUTTON_NONE) {
        return Event::UPDATE;
      }
      if (isOurs && message.message == update) {
        onButton(message.lParam);
      } else if (message.message == WM_PAINT) {
        // Comes again until the window has answered. The engine draws into it by itself.
        DispatchMessageW(&message);
      } else if (!isOurs && message.hwnd != nullptr) {
        onOther(message);
      }
    }
  } while (MsgWaitForMultipleObjectsEx(0, nullptr, milliseconds, QS_ALLINPUT,
                                       MWMO_INPUTAVAILABLE) == WAIT_OBJECT_0);
  return Event::NOTHING;
}

}  // namespace host
