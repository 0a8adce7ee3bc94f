// How long a recording still takes.
#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace host {

/// Takes the time that passed as a measure for the rest.
class TimeLeft {
 public:
  /// The recording begins at `start`.
  explicit TimeLeft(std::chrono::steady_clock::time_point start) : start(start) {}

  /// "0:12 left", in minutes and seconds. Empty in the first second, and where the progress, 0 to 1,
  /// is unknown.
  std::string Describe(std::optional<double> progress,
                       std::chrono::steady_clock::time_point now) const;

 private:
  std::chrono::steady_clock::time_point start;
};

}  // namespace host
