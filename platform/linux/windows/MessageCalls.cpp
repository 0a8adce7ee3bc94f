#include <map>

#include "core/History.h"
#include "core/LastError.h"
#include "handheld.h"
#include "text/WideText.h"
#include "time/Clock.h"
#include "windows/MessageQueue.h"
#include "windows/WindowTable.h"

namespace handheld {

namespace {

constexpr DWORD INFINITE = 0xFFFFFFFF;
constexpr DWORD WAIT_FAILED = 0xFFFFFFFF;
constexpr UINT FIRST_REGISTERED = 0xC000;
constexpr UINT LAST_REGISTERED = 0xFFFF;

History<MSG>& Posted() {
  static History<MSG>& posted = *new History<MSG>;
  return posted;
}

/// Message numbers registered by name.
struct RegisteredMessages {
  std::mutex mutex;
  std::map<std::u16string, UINT> numbers;

  UINT NumberOf(const std::u16string& name) {
    const std::lock_guard lock(mutex);
    const UINT next = FIRST_REGISTERED + static_cast<UINT>(numbers.size());
    const auto found = numbers.find(name);
    if (found != numbers.end()) {
      return found->second;
    }
    if (next > LAST_REGISTERED) {
      return Fail(ERROR_NOT_ENOUGH_MEMORY, 0U);
    }
    numbers.emplace(name, next);
    return next;
  }
};

RegisteredMessages& TheRegisteredMessages() {
  static RegisteredMessages& messages = *new RegisteredMessages;
  return messages;
}

bool Post(const MSG& message) {
  if (message.hwnd == nullptr) {
    MessageQueue::OfThisThread()->Post(message);
    return true;
  }
  // Delivered and recorded in one step: the window's thread may act on the message before this call
  // returns.
  return Posted().AddIf(message, [&] { return WindowTable::Instance().Post(message); });
}

MessageQueue::Deadline DeadlineAfter(DWORD milliseconds) {
  if (milliseconds == INFINITE) {
    return std::nullopt;
  }
  return std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
}

}  // namespace

std::vector<MSG> MessagesPosted() {
  return Posted().GetAll();
}

void ForgetMessagesPosted() {
  Posted().Forget();
}

extern "C" {

UINT WINAPI RegisterWindowMessageW(LPCWSTR name) {
  return Guarded<UINT>(0, [&] {
    if (WideLength(name) == 0) {
      return Fail(ERROR_INVALID_PARAMETER, 0U);
    }
    return TheRegisteredMessages().NumberOf(FoldCase(name));
  });
}

BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return Guarded<BOOL>(FALSE, [&] {
    MSG posted = {};
    posted.hwnd = window;
    posted.message = message;
    posted.wParam = wParam;
    posted.lParam = lParam;
    posted.time = Clock::Instance().GetTicks();
    return Post(posted) ? TRUE : Fail(ERROR_INVALID_WINDOW_HANDLE, FALSE);
  });
}

void WINAPI PostQuitMessage(int exitCode) {
  MessageQueue::OfThisThread()->PostQuit(exitCode);
}

BOOL WINAPI PeekMessageW(MSG* message, HWND window, UINT first, UINT last, UINT remove) {
  return Guarded<BOOL>(FALSE, [&] {
    if (message == nullptr) {
      return Fail(ERROR_INVALID_PARAMETER, FALSE);
    }
    const auto found =
        MessageQueue::OfThisThread()->Take({window, first, last}, (remove & PM_REMOVE) != 0);
    if (!found) {
      return FALSE;
    }
    *message = *found;
    return TRUE;
  });
}

BOOL WINAPI GetMessageW(MSG* message, HWND window, UINT first, UINT last) {
  return Guarded<BOOL>(-1, [&] {
    if (message == nullptr) {
      return Fail(ERROR_INVALID_PARAMETER, -1);
    }
    if (window != nullptr && !IsWindow(window)) {
      return Fail(ERROR_INVALID_WINDOW_HANDLE, -1);
    }
    *message = MessageQueue::OfThisThread()->AwaitAndTake({window, first, last});
    return message->message == WM_QUIT ? FALSE : TRUE;
  });
}

BOOL WINAPI TranslateMessage(const MSG* message) {
  return message != nullptr && (message->message == WM_KEYDOWN || message->message == WM_KEYUP)
             ? TRUE
             : FALSE;
}

LRESULT WINAPI DispatchMessageW(const MSG* message) {
  if (message == nullptr || message->hwnd == nullptr) {
    return 0;
  }
  const auto window = WindowTable::Instance().Find(message->hwnd);
  if (!window) {
    return 0;
  }
  return window->procedure(message->hwnd, message->message, message->wParam, message->lParam);
}

DWORD WINAPI MsgWaitForMultipleObjectsEx(DWORD count, const HANDLE*, DWORD milliseconds, DWORD,
                                         DWORD flags) {
  return Guarded<DWORD>(WAIT_FAILED, [&] {
    if (count != 0) {
      return Fail(ERROR_INVALID_PARAMETER, WAIT_FAILED);
    }
    const bool onlyUnseen = (flags & MWMO_INPUTAVAILABLE) == 0;
    const bool arrived =
        MessageQueue::OfThisThread()->Await(onlyUnseen, DeadlineAfter(milliseconds));
    return arrived ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
  });
}

}  // extern "C"

}  // namespace handheld
