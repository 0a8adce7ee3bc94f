#include "sources/SourceReader.h"

#include <utility>

namespace host {

namespace {

/// Bytes after which the source has to wait; bounds the memory that a flood takes.
constexpr std::size_t MOST_WAITING = 65536;

}  // namespace

void SourceReader::Start() {
  thread = std::thread([this] { Run(); });
}

void SourceReader::Stop() {
  if (!thread.joinable()) {
    return;
  }
  {
    const std::lock_guard lock(mutex);
    isStopped = true;
  }
  changed.notify_all();
  source.Stop();
  thread.join();
}

std::optional<std::string> SourceReader::Read(std::chrono::milliseconds patience) {
  std::unique_lock lock(mutex);
  changed.wait_for(lock, patience, [this] { return hasEnded || !waiting.empty(); });
  if (hasEnded && waiting.empty()) {
    return std::nullopt;
  }
  std::string bytes = std::exchange(waiting, {});
  changed.notify_all();
  return bytes;
}

void SourceReader::Run() {
  while (Take(source.Read())) {
  }
}

/// True when the reader goes on.
bool SourceReader::Take(std::optional<std::string> bytes) {
  std::unique_lock lock(mutex);
  hasEnded = !bytes.has_value();
  waiting += bytes.value_or("");
  changed.notify_all();
  changed.wait(lock, [this] { return isStopped || waiting.size() < MOST_WAITING; });
  return !hasEnded && !isStopped;
}

}  // namespace host
