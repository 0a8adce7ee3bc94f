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
#include <vector>

#include "windows/Timers.h"

namespace handheld {

/// Exists for each thread that has windows or reads messages. Any thread posts, only its own thread
/// takes.
class MessageQueue {
 public:
  using Deadline = std::optional<std::chrono::steady_clock::time_point>;

  /// Messages that a caller wants.
  struct Filter {
    /// Null admits messages of all windows and of none.
    HWND window = nullptr;
    /// Range of message numbers; both 0 admit all.
    UINT first = 0;
    UINT last = 0;

    bool Admits(const MSG& message) const;
  };

  /// Waits in place of the queue while its thread has something else to look after, such as a
  /// display.
  class Waiter {
   public:
    Waiter() = default;
    Waiter(const Waiter&) = delete;
    Waiter& operator=(const Waiter&) = delete;

    /// Waits until Wake is called or the deadline passes; may return earlier. May post messages.
    /// Called by the queue's thread.
    virtual void Wait(Deadline deadline) = 0;
    /// Ends the present wait or, without one, the next. Called by any thread; must not wait for the
    /// queue's.
    virtual void Wake() = 0;

   protected:
    ~Waiter() = default;
  };

  /// The calling thread's queue, made on first use.
  static const std::shared_ptr<MessageQueue>& OfThisThread();

  void Post(const MSG& message);
  void PostQuit(int exitCode);

  /// WM_PAINT for the window comes behind all posted messages, again and again until cancelled.
  void RequestPaint(HWND window);
  void CancelPaint(HWND window);

  /// WM_TIMER comes behind all other messages.
  void SetTimer(HWND window, UINT_PTR number, DWORD periodMs);
  /// False when there is no such timer.
  bool KillTimer(HWND window, UINT_PTR number);

  /// Null: the queue waits by itself. Once this returns, the former waiter is not called any more.
  void SetWaiter(Waiter* newWaiter);
  /// Tells the waiter, if there is one, that there is something to look after.
  void WakeWaiter();

  /// Drops the messages and timers of a destroyed window.
  void DropWindow(HWND window);

  /// First message that the filter admits. WM_QUIT passes every filter, after all other messages.
  std::optional<MSG> Take(const Filter& filter, bool remove);

  /// Waits for such a message and removes it.
  MSG AwaitAndTake(const Filter& filter);

  /// Waits for a message; with `onlyUnseen` for one posted since the thread last looked. False when
  /// the deadline passes.
  bool Await(bool onlyUnseen, Deadline deadline);

 private:
  /// Ends the thread's wait.
  void Announce(std::unique_lock<std::mutex> lock);
  std::optional<MSG> TakeLocked(const Filter& filter, bool remove);
  std::optional<MSG> TakePosted(const Filter& filter, bool remove);
  std::optional<MSG> TakeQuit(bool remove);
  std::optional<MSG> FindPaint(const Filter& filter) const;
  /// Waits until something arrives, a timer that the filter admits is due, or the deadline passes.
  void WaitForChange(std::unique_lock<std::mutex>& lock, const Filter& filter, Deadline deadline);

  std::mutex mutex;
  std::condition_variable arrival;
  Waiter* waiter = nullptr;
  std::deque<MSG> messages;
  std::optional<int> quitCode;
  /// Windows that are to be drawn.
  std::vector<HWND> paints;
  Timers timers;
  bool hasUnseen = false;
};

}  // namespace handheld
