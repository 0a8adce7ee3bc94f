#include "window/HostWindow.h"

#include <ferolin.h>

#include <algorithm>
#include <vector>

#include "base/HostError.h"
#include "handheld.h"

namespace host {

namespace {

constexpr LPCWSTR HOST_CLASS = TEXT("FerolinHost");
constexpr LPCWSTR OWN_MESSAGE = TEXT("FerolinHostEvent");

}  // namespace

HostWindow::HostWindow(UINT updateMessage)
    : update(updateMessage), own(RegisterWindowMessageW(OWN_MESSAGE)) {
  WNDCLASSW description = {};
  description.lpfnWndProc = DefWindowProcW;
  description.lpszClassName = HOST_CLASS;
  RegisterClassW(&description);
  window = CreateWindowExW(0, HOST_CLASS, TEXT("Ferolin"), WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
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

bool HostWindow::IsUpdate(const MSG& message) const {
  return message.hwnd == window && message.message == update &&
         message.lParam == FEROLIN_BUTTON_NONE;
}

std::size_t HostWindow::CountUpdatesPosted() const {
  const std::vector<MSG> posted = handheld::MessagesPosted();
  return static_cast<std::size_t>(std::count_if(
      posted.begin(), posted.end(), [this](const MSG& message) { return IsUpdate(message); }));
}

HostWindow::Event HostWindow::Wait(DWORD milliseconds) {
  do {
    MSG message = {};
    while (updatesNoted == 0 && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
      if (message.message == WM_QUIT) {
        return Event::STOP;
      }
      if (message.hwnd == window && message.message == own) {
        return static_cast<Event>(message.wParam);
      }
      if (IsUpdate(message)) {
        return Event::UPDATE;
      }
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    if (updatesNoted > 0) {
      --updatesNoted;
      return Event::UPDATE;
    }
  } while (MsgWaitForMultipleObjectsEx(0, nullptr, milliseconds, QS_ALLINPUT,
                                       MWMO_INPUTAVAILABLE) == WAIT_OBJECT_0);
  return Event::NOTHING;
}

}  // namespace host
