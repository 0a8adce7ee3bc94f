#include "web/Exchange.h"

#include <sys/eventfd.h>

#include <utility>

namespace host {

namespace {

/// A second of a finger that is dragged, while the host is busy.
constexpr std::size_t MOST_INPUTS = 64;

bool IsFix(const Update& update) {
  return update.fix && update.fix->hasFix;
}

}  // namespace

Exchange::Exchange(std::function<void()> tellHost)
    : tellHost(std::move(tellHost)), wake(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  auto first = std::make_shared<Snapshot>();
  first->lastHeard = std::chrono::steady_clock::now();
  snapshot = std::move(first);
}

void Exchange::PutUpdate(const Update& update, const Figures& figures) {
  const WebTime now = std::chrono::steady_clock::now();
  auto next = std::make_shared<Snapshot>(Snapshot{update, figures, {}, {}});
  {
    const std::lock_guard lock(mutex);
    next->lastFix = IsFix(update) ? now : snapshot->lastFix;
    next->lastHeard = update.notice.empty() ? now : snapshot->lastHeard;
    snapshot = std::move(next);
  }
  if (listeners > 0) {
    Wake();
  }
}

void Exchange::PutFacts(const WebFacts& newFacts) {
  {
    const std::lock_guard lock(mutex);
    if (facts == newFacts) {
      return;
    }
    facts = newFacts;
  }
  if (listeners > 0) {
    Wake();
  }
}

std::vector<RemoteInput> Exchange::TakeInputs() {
  const std::lock_guard lock(mutex);
  return std::exchange(inputs, {});
}

void Exchange::TellLeft(std::uint64_t stream) {
  {
    const std::lock_guard lock(mutex);
    left.push_back(stream);
  }
  Wake();
}

void Exchange::Wake() const {
  eventfd_write(wake.Get(), 1);
}

std::shared_ptr<const Snapshot> Exchange::GetSnapshot() const {
  const std::lock_guard lock(mutex);
  return snapshot;
}

WebFacts Exchange::GetFacts() const {
  const std::lock_guard lock(mutex);
  return facts;
}

std::vector<std::uint64_t> Exchange::TakeLeft() {
  const std::lock_guard lock(mutex);
  return std::exchange(left, {});
}

/// Of a dragged finger only the newest place counts.
void Exchange::PutInput(const RemoteInput& input) {
  {
    const std::lock_guard lock(mutex);
    const bool goesOn = input.kind == RemoteInput::Kind::MOVE && !inputs.empty() &&
                        inputs.back().kind == RemoteInput::Kind::MOVE;
    if (goesOn) {
      inputs.back() = input;
    } else if (inputs.size() < MOST_INPUTS) {
      inputs.push_back(input);
    }
  }
  tellHost();
}

void Exchange::SetViewers(std::size_t count) {
  const bool changes = (viewers.exchange(count) > 0) != (count > 0);
  if (changes) {
    tellHost();
  }
}

}  // namespace host
