// The simulated drive as a source of sentences.
#pragma once

#include <atomic>

#include "sources/DemoDrive.h"
#include "sources/NmeaSource.h"

namespace host {

class DemoSource : public NmeaSource {
 public:
  enum class Laps { ONE, ENDLESS };

  /// The size is known for one lap only.
  DemoSource(std::chrono::sys_seconds start, Laps laps);

  /// The sentences of one second.
  std::optional<std::string> Read() override;
  void Stop() override { stopped = true; }
  std::optional<std::uint64_t> GetSize() const override { return size; }
  bool IsLive() const override { return false; }

 private:
  DemoDrive drive;
  std::optional<std::uint64_t> size;
  std::atomic<bool> stopped = false;
};

}  // namespace host
