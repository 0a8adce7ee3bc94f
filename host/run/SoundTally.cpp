#include "run/SoundTally.h"

#include "handheld.h"

namespace host {

void SoundTally::Collect() {
  const std::vector<handheld::Sound> sounds = handheld::SoundsStarted();
  if (sounds.empty()) {
    return;
  }
  handheld::ForgetSoundsStarted();
  for (const handheld::Sound& each : sounds) {
    ++times[handheld::Utf8FromWide(each.path.substr(each.path.rfind(u'\\') + 1))];
  }
}

std::string SoundTally::Describe() const {
  std::string text;
  for (const auto& [name, count] : times) {
    text += text.empty() ? "" : ", ";
    text += name + ": " + std::to_string(count);
  }
  return text;
}

}  // namespace host
