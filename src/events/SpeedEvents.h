#pragma once

#include <cstdint>
#include <vector>

#include "base/MissingValue.h"
#include "base/WideString.h"

namespace ferolin {

class FixRecord;
class IniStore;

/// A speed limit with its sounds.
struct SpeedEvent {
  bool useSound;
  std::int32_t limit;  ///< km/h
  std::int32_t
      limitInter;  ///< km/h, width of the band above the limit in which the warning repeats
};

/// Warns by sound when the speed reaches a limit, stays little above it or falls below it again,
/// and when the vehicle stops. `Check` runs on the reader thread, everything else on the host's,
/// all under the engine's data lock.
class SpeedEvents {
 public:
  /// Limits of 60, 100 and 150 km/h with bands of 10, all silent.
  SpeedEvents();

  int GetCount() const { return static_cast<int>(events.size()); }
  /// Null for an index out of range.
  const SpeedEvent* GetEvent(int index) const;
  /// Overwrites an event, or appends one when `index` is not below the count. A negative index does
  /// nothing.
  void SetEvent(int index, const SpeedEvent& event);

  bool IsBeepOnZero() const { return beepOnZero; }
  void SetBeepOnZero(bool beep) { beepOnZero = beep; }

  /// `directory` is the folder that holds the "Wav" folder; an empty one keeps the folder set
  /// before. Reads the first three events; one whose limit or band is missing or below 1 keeps its
  /// default.
  void LoadSettings(const WideString& directory, const IniStore& store);

  /// Writes all events, also those beyond the third.
  void SaveSettings(IniStore& store) const;

  /// The step at each fix: plays at most one limit sound, that of the first event that fires.
  void Check(const FixRecord& fix);

 private:
  void Play(const WCHAR* fileName) const;
  void PlayLimitSound(float previous, float speed) const;

  WideString soundDir;
  std::vector<SpeedEvent> events;
  bool beepOnZero = false;
  float previousSpeed = MISSING_FLOAT;  ///< km/h
};

}  // namespace ferolin
