#include "sources/SideReader.h"

#include <optional>
#include <string>
#include <utility>

#include "handheld.h"

namespace host {

SideReader::SideReader(std::unique_ptr<NmeaSource> source)
    : source(std::move(source)),
      takeFix([](const Fix&) {}),
      fixReader([this](const Fix& complete) { takeFix(complete); }),
      // The engine knows no other sentences at its serial port than the splitter without a bridge.
      splitter(this->source ? &bridge : nullptr,
               [this](const Epoch& epoch) { fix = epoch.updates > 0 ? epoch.fix : fix; }),
      silence(Clock::now()) {
  splitter.ReadFixesWith(fixReader);
  if (!this->source) {
    handheld::ObserveSerialReads([this](std::string_view bytes) { Add(bytes); });
  }
}

void SideReader::TellFixes(std::function<void(const Fix&)> take) {
  takeFix = std::move(take);
}

void SideReader::Start() {
  const std::lock_guard lock(mutex);
  silence = SilenceWatch(Clock::now());
  if (source) {
    thread = std::thread([this] {
      while (const std::optional<std::string> bytes = source->Read()) {
        Add(*bytes);
      }
    });
  }
}

void SideReader::Stop() {
  if (source) {
    source->Stop();
  } else {
    handheld::ObserveSerialReads({});
  }
  if (thread.joinable()) {
    thread.join();
  }
  splitter.Finish();
}

Fix SideReader::GetFix() const {
  const bool isHeard = Describe(GetReception()).empty();
  const std::lock_guard lock(mutex);
  return isHeard ? fix : Fix();
}

Reception SideReader::GetReception() const {
  const std::lock_guard lock(mutex);
  const Clock::time_point now = Clock::now();
  return {source ? source->GetTrouble() : std::string(), silence.CountSilentSeconds(now),
          silence.HasNoise(now)};
}

void SideReader::Add(std::string_view bytes) {
  const std::lock_guard lock(mutex);
  const Clock::time_point now = Clock::now();
  if (silence.CountSilentSeconds(now) > 0) {
    TellSilence();
  }
  const std::uint64_t sentencesBefore = splitter.GetSentences();
  splitter.Add(bytes);
  if (splitter.GetSentences() > sentencesBefore) {
    silence.OnSentence(now);
    isSilenceTold = false;
  } else {
    silence.OnNoise(now);
  }
}

void SideReader::TellSilence() {
  if (!std::exchange(isSilenceTold, true)) {
    fixReader.Finish();
    takeFix(Fix());
  }
}

}  // namespace host
