// Messages waiting for a thread.
#pragma once

#include <windows.h>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

namespace handheld {

/// One for each thread that has windows or asks for messages. Anybody posts, only its thread takes.
class MessageQueue {
 public:
  using Deadline = std::optional<std::chrono::steady_clock::time_point>;

  /// Which messages a caller wants to see.
  struct Filter {
    /// Null: of all windows, and those that belong to none.
    HWND window = nullptr;
    /// Both 0: of all kinds.
    UINT first = 0;
    UINT last = 0;

    bool Admits(const MSG& message) const;
  };

  /// The calling thread's queue, made when it is first asked for.
  static const std::shared_ptr<MessageQueue>& OfThisThread();

  void Post(const MSG& message);
  void PostQuit(int exitCode);

  /// Forgets the messages of a window that is gone.
  void DropWindow(HWND window);

  /// First message that the filter admits; WM_QUIT, whatever the filter, once nothing else is left
  /// for it.
  std::optional<MSG> Take(const Filter& filter, bool remove);

  /// Waits for such a message and removes it.
  MSG AwaitAndTake(const Filter& filter);

  /// Waits until there is a message: any, or with `onlyUnseen` one posted since the thread last
  /// looked. False when the deadline came first.
  bool Await(bool onlyUnseen, Deadline deadline);

 private:
  std::optional<MSG> TakeLocked(const Filter& filter, bool remove);

  std::mutex mutex;
  std::condition_variable arrival;
  std::deque<MSG> messages;
  std::optional<int> quitCode;
  bool hasUnseen = false;
};

}  // namespace handheld
