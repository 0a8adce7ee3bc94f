#pragma once

#include <array>
#include <cstdint>

#include "base/MissingValue.h"
#include "sensors/SaveableSensor.h"

namespace ferolin {

/// Best time over a target distance, from a sliding run of the newest segments between fixes. A
/// stop, a lost fix, a found record and more than 300 segments empty the run.
class FastestSensor : public SaveableSensor {
 public:
  explicit FastestSensor(float targetMetres);
  void GetRegistryString(char* out, int size) const override;
  int SetRegistryString(const char* text) override;
  void Update(const FixRecord& fix) override;
  void Reset() override;

 private:
  static constexpr int MAX_SEGMENTS = 300;

  void BreakRun();
  void ForgetSegments();
  bool IsOutOfReach(float newestMetres) const;
  void AddSegment(float metres, std::int64_t milliseconds);
  int FindStart(float newestMetres, float& sum, std::int64_t& time) const;
  void RecordRun(int start, float sum, std::int64_t time);
  void ShowBest();

  std::int64_t lastTime = 0;  ///< file time of the previous fix, 0 when it had none
  std::int64_t bestTime = 0;  ///< milliseconds, 0 when there is no record
  float lastSpeed = MISSING_FLOAT;
  float targetDistance;   ///< metres
  float totalLength = 0;  ///< metres, about the sum of all segments' lengths without their signs
  struct {
    std::array<float, MAX_SEGMENTS> length;           ///< metres
    std::array<std::int64_t, MAX_SEGMENTS> duration;  ///< milliseconds
  } segments = {};
  int count = 0;
};

}  // namespace ferolin
