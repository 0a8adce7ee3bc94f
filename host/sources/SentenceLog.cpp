#include "sources/SentenceLog.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <ctime>
#include <utility>

#include "base/HostError.h"
#include "base/UtcText.h"

namespace host {

namespace {

constexpr std::chrono::seconds SYNC_INTERVAL(2);
constexpr std::chrono::seconds STAMP_INTERVAL(1);
constexpr std::size_t LONGEST_LINE = 4096;
constexpr mode_t OWNER_ONLY = 0600;

/// "-2026-11-22" in the user's time zone.
std::string DayOf(std::time_t moment) {
  std::tm local = {};
  localtime_r(&moment, &local);
  char text[16];
  std::strftime(text, sizeof text, "-%Y-%m-%d", &local);
  return text;
}

std::string StampOf(SentenceLog::Clock::time_point moment) {
  const auto ms = std::chrono::floor<std::chrono::milliseconds>(moment.time_since_epoch());
  return "# " + UtcText(ms.count()) + "\r\n";
}

/// A power cut may have cut the last line off.
bool EndsInsideLine(int file) {
  char last = '\n';
  return lseek(file, -1, SEEK_END) >= 0 && read(file, &last, 1) == 1 && last != '\n';
}

}  // namespace

SentenceLog::SentenceLog(std::string path, std::function<Clock::time_point()> now)
    : path(std::move(path)), now(std::move(now)) {
  if (!Open(NameOf(this->now()))) {
    throw HostError("cannot record to " + NameOf(this->now()) + ": " + std::strerror(errno));
  }
  thread = std::thread([this] { Run(); });
}

std::string SentenceLog::NameOf(Clock::time_point moment) const {
  const std::size_t slash = path.rfind('/');
  const std::size_t nameStart = slash == std::string::npos ? 0 : slash + 1;
  const std::size_t dot = path.rfind('.');
  const bool hasEnding = dot != std::string::npos && dot > nameStart;
  std::string name = path;
  return name.insert(hasEnding ? dot : path.size(), DayOf(Clock::to_time_t(moment)));
}

void SentenceLog::Take(std::string_view bytes) {
  const Clock::time_point moment = now();
  std::string text;
  for (const char character : bytes) {
    line += character;
    if (character != '\n' && line.size() < LONGEST_LINE) {
      continue;
    }
    const auto passed = moment - stamped;
    if (passed >= STAMP_INTERVAL || passed < Clock::duration::zero()) {
      text += StampOf(moment);
      stamped = moment;
    }
    text += std::exchange(line, {});
  }
  if (text.empty()) {
    return;
  }
  {
    const std::lock_guard lock(mutex);
    if (waiting.text.size() + text.size() > MOST_HELD) {
      lost += text.size();
      return;
    }
    if (waiting.text.empty()) {
      waiting.file = NameOf(moment);
    }
    waiting.text += text;
  }
  changed.notify_all();
}

void SentenceLog::Finish() {
  {
    const std::lock_guard lock(mutex);
    stopped = true;
  }
  changed.notify_all();
  if (thread.joinable()) {
    thread.join();
  }
}

void SentenceLog::Run() {
  bool isLast = false;
  while (!isLast) {
    std::unique_lock lock(mutex);
    changed.wait_for(lock, SYNC_INTERVAL,
                     [this] { return stopped || waiting.text.size() > MOST_HELD / 2; });
    isLast = stopped;
    Batch batch = std::exchange(waiting, {});
    lock.unlock();
    if (batch.text.empty()) {
      continue;
    }
    batch.text.erase(0, Write(batch));
    lock.lock();
    if (!batch.text.empty()) {
      batch.text += waiting.text;
      waiting = std::move(batch);
    }
  }
  const std::lock_guard lock(mutex);
  lost += waiting.text.size();
}

std::size_t SentenceLog::Write(const Batch& batch) {
  if (batch.file != openName && !Open(batch.file)) {
    SetProblem(batch.file, errno);
    return 0;
  }
  const ssize_t count = write(file.Get(), batch.text.data(), batch.text.size());
  const bool isWhole = count == static_cast<ssize_t>(batch.text.size());
  const int error = isWhole ? fdatasync(file.Get()) == 0 ? 0 : errno : count < 0 ? errno : ENOSPC;
  SetProblem(batch.file, error == EINVAL ? 0 : error);  // a pipe cannot be synced
  return count < 0 ? 0 : static_cast<std::size_t>(count);
}

bool SentenceLog::Open(const std::string& name) {
  FileDescriptor opened(open(name.c_str(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, OWNER_ONLY));
  if (!opened.IsOpen()) {
    return false;
  }
  const std::string_view lineEnd = "\r\n";
  if (EndsInsideLine(opened.Get()) &&
      write(opened.Get(), lineEnd.data(), lineEnd.size()) != static_cast<ssize_t>(lineEnd.size())) {
    return false;
  }
  file = std::move(opened);
  openName = name;
  return true;
}

/// `error` is an errno value, 0 for none.
void SentenceLog::SetProblem(const std::string& name, int error) {
  const std::lock_guard lock(mutex);
  if (error != 0 && !hasProblem) {
    problem = "cannot record to " + name + " at present: " + std::strerror(error);
  }
  hasProblem = error != 0;
}

std::optional<std::string> SentenceLog::TakeProblem() {
  const std::lock_guard lock(mutex);
  return std::exchange(problem, std::nullopt);
}

std::uint64_t SentenceLog::CountLost() const {
  const std::lock_guard lock(mutex);
  return lost;
}

}  // namespace host
