#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

#include "parlex/Patience.h"
#include "parlex/Sms.h"

namespace parlex {

/// Sends messages in order, one after the other, on a thread of its own that starts with the first
/// message.
class SmsQueue {
 public:
  /// Sends one message and waits for the result, not longer than `patience` lasts.
  using Send = std::function<Result(const Sms& sms, Patience& patience)>;
  /// Receives the result of each message: on the sending thread, or on the caller's when the queue
  /// is full.
  using Report = std::function<void(const Result& result)>;

  /// Messages that may wait; further ones are dropped.
  static constexpr std::size_t CAPACITY = 64;

  /// The destructor leaves waiting messages `timeToDrain`.
  SmsQueue(Send sendOne, Report reportOne, std::chrono::milliseconds timeToDrain);
  ~SmsQueue();
  SmsQueue(const SmsQueue&) = delete;
  SmsQueue& operator=(const SmsQueue&) = delete;

  /// Queues a message and returns at once. May be called from any thread. Throws without memory or
  /// threads left.
  void Push(Sms sms);

 private:
  void Run() noexcept;
  bool AwaitNext(Sms& sms);
  Result Deliver(const Sms& sms);

  const Send send;
  const Report report;
  const std::chrono::milliseconds drainTime;
  Patience patience;
  std::mutex mutex;
  std::condition_variable changed;
  std::deque<Sms> waiting;
  bool closing = false;
  std::thread thread;
};

}  // namespace parlex
