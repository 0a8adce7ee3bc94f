#include "sources/SilenceWatch.h"

namespace host {

void SilenceWatch::OnSentence(Time now) {
  lastSentence = now;
}

void SilenceWatch::OnNoise(Time now) {
  lastNoise = now;
}

int SilenceWatch::CountSilentSeconds(Time now) const {
  const auto silence = now - lastSentence;
  return silence < LONGEST_PAUSE
             ? 0
             : static_cast<int>(std::chrono::floor<std::chrono::seconds>(silence).count());
}

bool SilenceWatch::HasNoise(Time now) const {
  return CountSilentSeconds(now) > 0 && lastNoise > lastSentence && now - lastNoise < LONGEST_PAUSE;
}

}  // namespace host
