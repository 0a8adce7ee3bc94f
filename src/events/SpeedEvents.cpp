#include "events/SpeedEvents.h"

#include <mmsystem.h>
#include <windows.h>

#include <string>

#include "base/Format.h"
#include "base/Number.h"
#include "gps/FixRecord.h"
#include "settings/IniFlag.h"
#include "settings/IniStore.h"

namespace ferolin {

namespace {

constexpr const char* SECTION = "Events";
constexpr int LOADED_EVENTS = 3;

constexpr const WCHAR* LIMIT_SOUND = TEXT("Limit.wav");
constexpr const WCHAR* LIMIT_DOWN_SOUND = TEXT("LimitDown.wav");
constexpr const WCHAR* ZERO_SOUND = TEXT("Zero.wav");

bool ReadFlag(const IniStore& store, const std::string& key) {
  return FlagFrom(store.GetValue(key, SECTION));
}

int ReadNumber(const IniStore& store, const std::string& key) {
  return ParseInt(store.GetValue(key, SECTION).c_str());
}

}  // namespace

SpeedEvents::SpeedEvents() : events{{false, 60, 10}, {false, 100, 10}, {false, 150, 10}} {}

const SpeedEvent* SpeedEvents::GetEvent(int index) const {
  return index >= 0 && index < GetCount() ? &events[static_cast<std::size_t>(index)] : nullptr;
}

void SpeedEvents::SetEvent(int index, const SpeedEvent& event) {
  if (index < 0) {
    return;
  }
  if (index < GetCount()) {
    events[static_cast<std::size_t>(index)] = event;
  } else {
    events.push_back(event);
  }
}

void SpeedEvents::LoadSettings(const WideString& directory, const IniStore& store) {
  if (!directory.empty()) {
    soundDir = directory;
  }
  beepOnZero = ReadFlag(store, "BeepOnZero");
  for (int number = 1; number <= LOADED_EVENTS; ++number) {
    const SpeedEvent event{ReadFlag(store, Format("UseSound%i", number)),
                           ReadNumber(store, Format("Limit%i", number)),
                           ReadNumber(store, Format("LimitInter%i", number))};
    if (event.limit >= 1 && event.limitInter >= 1) {
      SetEvent(number - 1, event);
    }
  }
}

void SpeedEvents::SaveSettings(IniStore& store) const {
  const auto save = [&](const std::string& key, std::string_view value) {
    store.SetValue(key, value, SECTION);
  };
  save("BeepOnZero", FlagText(beepOnZero));
  for (int number = 1; number <= GetCount(); ++number) {
    const SpeedEvent& event = *GetEvent(number - 1);
    save(Format("Limit%i", number), Format("%i", event.limit));
    save(Format("LimitInter%i", number), Format("%i", event.limitInter));
    save(Format("UseSound%i", number), FlagText(event.useSound));
  }
}

void SpeedEvents::Check(const FixRecord& fix) {
  const float speed = fix.GetSpeedKmh();
  if (IsMissing(speed)) {
    return;
  }
  const float previous = previousSpeed;
  previousSpeed = speed;
  const bool first = IsMissing(previous);
  if (speed == 0 && beepOnZero && (first || previous > 0)) {
    Play(ZERO_SOUND);
  }
  if (!first) {
    PlayLimitSound(previous, speed);
  }
}

void SpeedEvents::PlayLimitSound(float previous, float speed) const {
  for (const SpeedEvent& event : events) {
    const float limit = static_cast<float>(event.limit);
    if (!event.useSound || !(limit > 0)) {
      continue;
    }
    const bool reached = previous < limit && speed >= limit;
    const bool inBand = previous >= limit && speed >= limit &&
                        speed <= limit + static_cast<float>(event.limitInter);
    if (reached || inBand) {
      Play(LIMIT_SOUND);
      return;
    }
    if (previous >= limit && speed < limit) {
      Play(LIMIT_DOWN_SOUND);
      return;
    }
  }
}

/// Returns at once; a busy device or a missing file means no sound.
void SpeedEvents::Play(const WCHAR* fileName) const {
  const WideString path = soundDir + TEXT("\\Wav\\") + fileName;
  PlaySoundW(path.c_str(), nullptr, SND_FILENAME | SND_NOWAIT | SND_ASYNC);
}

}  // namespace ferolin
