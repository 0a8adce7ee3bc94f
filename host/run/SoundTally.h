// Counts the sounds that the engine plays.
#pragma once

#include <map>
#include <string>

namespace host {

class SoundTally {
 public:
  /// Counts the sounds started since the last call.
  void Collect();

  /// "Limit.wav: 3, Zero.wav: 1"; empty when there were none.
  std::string Describe() const;

 private:
  std::map<std::string, int> times;
};

}  // namespace host
