#include "windows/MessageQueue.h"

#include <algorithm>
#include <utility>

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

void MessageQueue::Announce(std::unique_lock<std::mutex> lock) {
  if (waiter != nullptr) {
    waiter->Wake();
  }
  lock.unlock();
  arrival.notify_all();
}

void MessageQueue::Post(const MSG& message) {
  std::unique_lock lock(mutex);
  messages.push_back(message);
  hasUnseen = true;
  Announce(std::move(lock));
}

void MessageQueue::PostQuit(int exitCode) {
  std::unique_lock lock(mutex);
  quitCode = exitCode;
  hasUnseen = true;
  Announce(std::move(lock));
}

void MessageQueue::RequestPaint(HWND window) {
  std::unique_lock lock(mutex);
  if (std::find(paints.begin(), paints.end(), window) != paints.end()) {
    return;
  }
  paints.push_back(window);
  hasUnseen = true;
  Announce(std::move(lock));
}

void MessageQueue::CancelPaint(HWND window) {
  const std::lock_guard lock(mutex);
  std::erase(paints, window);
}

void MessageQueue::SetTimer(HWND window, UINT_PTR number, DWORD periodMs) {
  std::unique_lock lock(mutex);
  timers.Set(window, number, periodMs);
  // The thread may be waiting until a later moment.
  Announce(std::move(lock));
}

bool MessageQueue::KillTimer(HWND window, UINT_PTR number) {
  const std::lock_guard lock(mutex);
  return timers.Kill(window, number);
}

void MessageQueue::SetWaiter(Waiter* newWaiter) {
  const std::lock_guard lock(mutex);
  waiter = newWaiter;
}

void MessageQueue::WakeWaiter() {
  const std::lock_guard lock(mutex);
  if (waiter != nullptr) {
    waiter->Wake();
  }
}

void MessageQueue::DropWindow(HWND window) {
  const std::lock_guard lock(mutex);
  std::erase_if(messages, [window](const MSG& message) { return message.hwnd == window; });
  std::erase(paints, window);
  timers.DropWindow(window);
}

std::optional<MSG> MessageQueue::TakeLocked(const Filter& filter, bool remove) {
  hasUnseen = false;
  if (auto message = TakePosted(filter, remove)) {
    return message;
  }
  if (quitCode) {
    return TakeQuit(remove);
  }
  if (auto message = FindPaint(filter)) {
    return message;
  }
  return timers.FindDue([&filter](const MSG& message) { return filter.Admits(message); }, remove);
}

std::optional<MSG> MessageQueue::TakePosted(const Filter& filter, bool remove) {
  const auto found = std::find_if(messages.begin(), messages.end(),
                                  [&](const MSG& message) { return filter.Admits(message); });
  if (found == messages.end()) {
    return std::nullopt;
  }
  const MSG message = *found;
  if (remove) {
    messages.erase(found);
  }
  return message;
}

std::optional<MSG> MessageQueue::TakeQuit(bool remove) {
  MSG quit = {};
  quit.message = WM_QUIT;
  quit.wParam = static_cast<WPARAM>(*quitCode);
  quit.time = Clock::Instance().GetTicks();
  if (remove) {
    quitCode.reset();
  }
  return quit;
}

std::optional<MSG> MessageQueue::FindPaint(const Filter& filter) const {
  for (const HWND window : paints) {
    MSG paint = {};
    paint.hwnd = window;
    paint.message = WM_PAINT;
    paint.time = Clock::Instance().GetTicks();
    if (filter.Admits(paint)) {
      return paint;
    }
  }
  return std::nullopt;
}

void MessageQueue::WaitForChange(std::unique_lock<std::mutex>& lock, const Filter& filter,
                                 Deadline deadline) {
  const auto isWanted = [&filter](const MSG& message) { return filter.Admits(message); };
  if (const auto untilTimer = timers.GetWait(isWanted)) {
    const auto due = std::chrono::steady_clock::now() + *untilTimer;
    deadline = std::min(deadline.value_or(due), due);
  }
  if (Waiter* const present = waiter) {
    lock.unlock();
    present->Wait(deadline);
    lock.lock();
  } else if (deadline) {
    arrival.wait_until(lock, *deadline);
  } else {
    arrival.wait(lock);
  }
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
    WaitForChange(lock, filter, std::nullopt);
  }
}

bool MessageQueue::Await(bool onlyUnseen, Deadline deadline) {
  std::unique_lock lock(mutex);
  const auto isThere = [&] {
    const bool isPending =
        onlyUnseen ? hasUnseen : !messages.empty() || quitCode.has_value() || !paints.empty();
    return isPending || timers.FindDue([](const MSG&) { return true; }, false).has_value();
  };
  bool hasWaited = waiter == nullptr;
  while (!isThere()) {
    const bool isOver = deadline && std::chrono::steady_clock::now() >= *deadline;
    // A waiter looks after its things also where there is no time to wait.
    if (isOver && hasWaited) {
      return false;
    }
    WaitForChange(lock, {}, deadline);
    hasWaited = true;
  }
  return true;
}

}  // namespace handheld
