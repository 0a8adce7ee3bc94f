// Sounds that the engine had played.
#pragma once

#include <map>
#include <string>

namespace host {

class SoundTally {
 public:
  /// Takes note of the sounds started since the last time.
  void Collect();

  /// "Limit.wav: 3, Zero.wav: 1"; empty when there were none.
  std::string Describe() const;

 private:
  std::map<std::string, int> times;
};

}  // namespace host
