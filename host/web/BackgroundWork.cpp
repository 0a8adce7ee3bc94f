#include "web/BackgroundWork.h"

#include <utility>

#include "base/HostError.h"

namespace host {

namespace {

Reply Try(const std::function<Reply()>& work) {
  constexpr unsigned SERVER_ERROR = 500;
  try {
    return work();
  } catch (const std::exception& error) {
    return TextReply(SERVER_ERROR, error.what());
  }
}

}  // namespace

BackgroundWork::BackgroundWork(std::function<void()> tellDone)
    : tellDone(std::move(tellDone)), thread([this] { Run(); }) {}

BackgroundWork::~BackgroundWork() {
  {
    const std::lock_guard lock(mutex);
    isStopping = true;
  }
  changed.notify_one();
  thread.join();
}

std::shared_ptr<BackgroundWork::Job> BackgroundWork::Start(std::function<Reply()> work) {
  auto job = std::make_shared<Job>(std::move(work));
  {
    const std::lock_guard lock(mutex);
    if (waiting.size() >= MOST_WAITING) {
      return nullptr;
    }
    waiting.push_back(job);
  }
  changed.notify_one();
  return job;
}

void BackgroundWork::Run() {
  std::unique_lock lock(mutex);
  while (true) {
    changed.wait(lock, [this] { return isStopping || !waiting.empty(); });
    if (isStopping) {
      return;
    }
    const std::shared_ptr<Job> job = std::move(waiting.front());
    waiting.pop_front();
    lock.unlock();
    job->reply = Try(job->work);
    job->isDone = true;
    tellDone();
    lock.lock();
  }
}

}  // namespace host
