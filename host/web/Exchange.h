// The seam between the host's thread and the server's.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "base/FileDescriptor.h"
#include "web/Snapshot.h"
#include "window/RemoteInput.h"

namespace host {

/// Each thread leaves here what the other one takes; no call waits for the other thread's work.
class Exchange {
 public:
  /// `tellHost` is called on the server's thread when inputs wait or the number of viewers has
  /// become zero or one.
  explicit Exchange(std::function<void()> tellHost);

  // For the host's thread.

  void PutUpdate(const Update& update, const Figures& figures);
  void PutFacts(const WebFacts& facts);
  std::vector<RemoteInput> TakeInputs();
  /// Tells the browser behind this stream that its user has left the views.
  void TellLeft(std::uint64_t stream);
  /// Whether anybody looks at the picture of the views.
  bool HasViewers() const { return viewers > 0; }
  /// Ends the server's wait.
  void Wake() const;

  // For the server's thread.

  /// Becomes readable when there is news for listeners. Reading clears it.
  int GetWakeDescriptor() const { return wake.Get(); }
  /// The latest update; never null.
  std::shared_ptr<const Snapshot> GetSnapshot() const;
  WebFacts GetFacts() const;
  std::vector<std::uint64_t> TakeLeft();
  /// Drops the input when the host has not taken many.
  void PutInput(const RemoteInput& input);
  /// Without listeners updates wake nobody.
  void SetListeners(std::size_t count) { listeners = count; }
  void SetViewers(std::size_t count);

 private:
  const std::function<void()> tellHost;
  const FileDescriptor wake;
  std::atomic<std::size_t> listeners = 0;
  std::atomic<std::size_t> viewers = 0;
  mutable std::mutex mutex;
  // Guarded by the mutex.
  std::shared_ptr<const Snapshot> snapshot;
  WebFacts facts;
  std::vector<RemoteInput> inputs;
  std::vector<std::uint64_t> left;
};

}  // namespace host
