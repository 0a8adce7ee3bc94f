// States that wait on the disk until a broker has taken them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "drives/Database.h"

namespace host {

/// Lies in the file of the drives and survives the end of the program and a power cut. Numbers
/// count from 1 and are never used again. For one thread at a time. All methods throw HostError
/// when the file cannot be used.
class StateQueue {
 public:
  /// About 14 hours of driving at a state every 5 s; some 10 MB.
  static constexpr std::int64_t MOST_KEPT = 10000;

  struct State {
    std::int64_t number = 0;
    std::string text;
  };

  explicit StateQueue(const std::string& folder, std::int64_t mostKept = MOST_KEPT);

  /// Name of the count of numbers: another one stands in every new file.
  const std::string& GetSeries() const { return series; }

  /// Removes the states up to the number `taken`, then adds these, all or nothing. Returns how many
  /// of the oldest states were given up because there were too many.
  std::int64_t Add(const std::vector<std::string>& states, std::int64_t taken);

  /// The oldest states behind the number `behind`, at most so many.
  std::vector<State> Read(std::int64_t behind, std::size_t most);

  std::int64_t Count();

 private:
  Database database;
  const std::int64_t mostKept;
  std::string series;
};

}  // namespace host
