#include "windows/MessageQueue.h"

#include <algorithm>

#include "time/Clock.h"
#include "windows/WindowTable.h"

namespace handheld {

namespace {

/// True once the thread's own objects are destroyed. The main thread then still destroys the static
/// objects of the process.
thread_local bool hasThreadEnded = false;

/// Queue of one thread. Removes the windows of the thread when it ends.
struct ThreadQueue {
  std::shared_ptr<MessageQueue> queue = std::make_shared<MessageQueue>();
  ~ThreadQueue() {
    WindowTable::Instance().RemoveOfQueue(*queue);
    hasThreadEnded = true;
  }
};

/// Queue for calls of threads whose own queue is destroyed.
const std::shared_ptr<MessageQueue>& LastQueue() {
  static const auto& queue = *new std::shared_ptr<MessageQueue>(std::make_shared<MessageQueue>());
  return queue;
}

}  // namespace

const std::shared_ptr<MessageQueue>& MessageQueue::OfThisThread() {
  if (hasThreadEnded) {
    return LastQueue();
  }
  thread_local ThreadQueue own;
  return own.queue;
}

bool MessageQueue::Filter::Admits(const MSG& message) const {
  if (window != nullptr && message.hwnd != window) {
    return false;
  }
  return (first == 0 && last == 0) || (message.message >= first && message.message <= last);
}

void MessageQueue::Post(const MSG& message) {
  {
    const std::lock_guard lock(mutex);
    messages.push_back(message);
    hasUnseen = true;
  }
  arrival.notify_all();
}

void MessageQueue::PostQuit(int exitCode) {
  {
    const std::lock_guard lock(mutex);
    quitCode = exitCode;
    hasUnseen = true;
  }
  arrival.notify_all();
}

void MessageQueue::DropWindow(HWND window) {
  const std::lock_guard lock(mutex);
  std::erase_if(messages, [window](const MSG& message) { return message.hwnd == window; });
}

std::optional<MSG> MessageQueue::TakeLocked(const Filter& filter, bool remove) {
  hasUnseen = false;
  const auto found = std::find_if(messages.begin(), messages.end(),
                                  [&](const MSG& message) { return filter.Admits(message); });
  if (found != messages.end()) {
    const MSG message = *found;
    if (remove) {
      messages.erase(found);
    }
    return message;
  }
  if (!quitCode) {
    return std::nullopt;
  }
  MSG quit = {};
  quit.message = WM_QUIT;
  quit.wParam = static_cast<WPARAM>(*quitCode);
  quit.time = Clock::Instance().GetTicks();
  if (remove) {
    quitCode.reset();
  }
  return quit;
}

std::optional<MSG> MessageQueue::Take(const Filter& filter, bool remove) {
  const std::lock_guard lock(mutex);
  return TakeLocked(filter, remove);
}

MSG MessageQueue::AwaitAndTake(const Filter& filter) {
  std::unique_lock lock(mutex);
  while (true) {
    if (const auto message = TakeLocked(filter, true)) {
      return *message;
    }
    arrival.wait(lock);
  }
}

bool MessageQueue::Await(bool onlyUnseen, Deadline deadline) {
  std::unique_lock lock(mutex);
  const auto isThere = [&] {
    return onlyUnseen ? hasUnseen : !messages.empty() || quitCode.has_value();
  };
  if (deadline) {
    return arrival.wait_until(lock, *deadline, isThere);
  }
  arrival.wait(lock, isThere);
  return true;
}

}  // namespace handheld
