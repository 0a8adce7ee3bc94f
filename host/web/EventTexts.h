// The events of a stream as text.
#pragma once

#include <memory>
#include <string>

#include "web/Exchange.h"
#include "web/Role.h"
#include "web/ViewFrames.h"

namespace host {

/// Writes Server-Sent Events. For the server's thread.
class EventTexts {
 public:
  /// All arguments outlive the texts.
  EventTexts(const Exchange& exchange, const ViewFrames& frames)
      : exchange(exchange), frames(frames) {}

  /// What a page must know before all else. `drives` is the number of kept drives.
  std::string DescribeHello(std::uint64_t stream, Role role, std::size_t drives) const;
  std::string DescribeView() const;
  static std::string DescribeLeft();
  /// The same text for all who ask about the same moment.
  const std::string& DescribeUpdate();

 private:
  const Exchange& exchange;
  const ViewFrames& frames;
  std::shared_ptr<const Snapshot> described;
  WebTime describedAt;
  std::string update;
};

}  // namespace host
