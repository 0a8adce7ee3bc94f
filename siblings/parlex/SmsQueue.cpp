#include "parlex/SmsQueue.h"

#include <exception>
#include <utility>

namespace parlex {

SmsQueue::SmsQueue(Send sendOne, Report reportOne, std::chrono::milliseconds timeToDrain)
    : send(std::move(sendOne)), report(std::move(reportOne)), drainTime(timeToDrain) {}

SmsQueue::~SmsQueue() {
  {
    const std::lock_guard lock(mutex);
    closing = true;
    changed.notify_all();
  }
  patience.EndIn(drainTime);
  if (thread.joinable()) {
    thread.join();
  }
}

void SmsQueue::Push(Sms sms) {
  {
    const std::lock_guard lock(mutex);
    if (waiting.size() < CAPACITY) {
      if (!thread.joinable()) {
        thread = std::thread([this] { Run(); });
      }
      waiting.push_back(std::move(sms));
      changed.notify_all();
      return;
    }
  }
  report({Outcome::QUEUE_FULL, {}});
}

void SmsQueue::Run() noexcept {
  Sms sms;
  while (AwaitNext(sms)) {
    report(Deliver(sms));
  }
}

/// Waits for the next message. False when the queue is empty and closing.
bool SmsQueue::AwaitNext(Sms& sms) {
  std::unique_lock lock(mutex);
  changed.wait(lock, [this] { return closing || !waiting.empty(); });
  if (waiting.empty()) {
    return false;
  }
  sms = std::move(waiting.front());
  waiting.pop_front();
  return true;
}

Result SmsQueue::Deliver(const Sms& sms) {
  Result result = {Outcome::UNLOADED, {}};
  if (patience.IsOver()) {
    return result;
  }
  try {
    result = send(sms, patience);
  } catch (const std::exception&) {
    return {Outcome::NO_RESOURCES, {}};
  }
  // The unloading has cut the wait short.
  if (result.outcome == Outcome::NO_ANSWER && patience.IsOver()) {
    result.outcome = Outcome::UNLOADED;
  }
  return result;
}

}  // namespace parlex
