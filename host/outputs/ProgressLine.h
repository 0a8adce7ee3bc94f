// How far a long recording is, as a line on the terminal.
#pragma once

#include <chrono>
#include <string>

#include "base/Messages.h"
#include "engine/Readout.h"

namespace host {

/// Shows "[####....]  45 %  0:12 left" below the messages, once the time left is known. For the
/// host's thread.
class ProgressLine {
 public:
  /// The messages outlive it.
  explicit ProgressLine(Messages& messages) : messages(messages) {}
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;
  ~ProgressLine() { Clear(); }

  void Show(const Update& update);
  void Clear() { messages.ShowStatus({}); }

 private:
  Messages& messages;
  std::chrono::steady_clock::time_point nextShow;
};

}  // namespace host
