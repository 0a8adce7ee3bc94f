// Figures for monitoring.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "web/Snapshot.h"

namespace host {

/// What the server has done and is doing.
struct ServerCounts {
  /// By the status of the reply.
  std::map<unsigned, std::uint64_t> replies;
  std::size_t connections = 0;
  std::size_t streams = 0;
};

/// In Prometheus' text format. Never the position.
std::string DescribeMetrics(const Snapshot& snapshot, const ServerCounts& counts, WebTime now);

}  // namespace host
