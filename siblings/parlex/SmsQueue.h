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

/// Sends messages one after the other, in the order given, on a thread of its own that begins with
/// the first message.
class SmsQueue {
 public:
  /// Sends one message and waits for its fate, not longer than `patience` lasts.
  using Send = std::function<Result(const Sms& sms, Patience& patience)>;
  /// Told the result of each message: on the sending thread, or on the caller's for one that finds
  /// the queue full.
  using Report = std::function<void(const Result& result)>;

  /// Messages that may wait; further ones are dropped.
  static constexpr std::size_t CAPACITY = 64;

  /// What waits when the queue is destroyed still gets `timeToDrain`.
  SmsQueue(Send sendOne, Report reportOne, std::chrono::milliseconds timeToDrain);
  ~SmsQueue();
  SmsQueue(const SmsQueue&) = delete;
  SmsQueue& operator=(const SmsQueue&) = delete;

  /// Queues a message and returns at once. From any thread. May throw for want of memory or
  /// threads.
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
