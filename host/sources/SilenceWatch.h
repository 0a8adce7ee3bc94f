// Notices that a receiver has fallen silent.
#pragma once

#include <chrono>

namespace host {

class SilenceWatch {
 public:
  using Time = std::chrono::steady_clock::time_point;

  /// Receivers send at least once a second; some need two while they look for satellites.
  static constexpr std::chrono::seconds LONGEST_PAUSE{3};

  /// The silence begins at `start`.
  explicit SilenceWatch(Time start) : lastSentence(start) {}

  void OnSentence(Time now);
  /// For bytes that made no sentence.
  void OnNoise(Time now);

  /// Whole seconds without a sentence; 0 below LONGEST_PAUSE.
  int CountSilentSeconds(Time now) const;

  /// True when bytes came at the end of such a pause, and no sentence.
  bool HasNoise(Time now) const;

 private:
  Time lastSentence;
  Time lastNoise;
};

}  // namespace host
