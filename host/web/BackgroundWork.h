// Replies that take long to make.
#pragma once

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

#include "web/Reply.h"

namespace host {

/// Makes one reply after the other on a thread of its own, while the server goes on.
class BackgroundWork {
 public:
  /// Requests that may wait; each holds a connection.
  static constexpr std::size_t MOST_WAITING = 4;

  class Job {
   public:
    explicit Job(std::function<Reply()> work) : work(std::move(work)) {}

    bool IsDone() const { return isDone; }
    /// Once it is done.
    const Reply& GetReply() const { return reply; }

   private:
    friend class BackgroundWork;

    std::function<Reply()> work;
    Reply reply;
    std::atomic<bool> isDone = false;
  };

  /// `tellDone` is called on the thread after each job.
  explicit BackgroundWork(std::function<void()> tellDone);
  BackgroundWork(const BackgroundWork&) = delete;
  BackgroundWork& operator=(const BackgroundWork&) = delete;
  /// Waits for the job that is being done.
  ~BackgroundWork();

  /// Null when too many wait.
  std::shared_ptr<Job> Start(std::function<Reply()> work);

 private:
  void Run();

  const std::function<void()> tellDone;
  std::mutex mutex;
  std::condition_variable changed;
  // Guarded by the mutex.
  std::deque<std::shared_ptr<Job>> waiting;
  bool isStopping = false;
  std::thread thread;
};

}  // namespace host
