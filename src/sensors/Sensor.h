#pragma once

#include <array>
#include <string>
#include <string_view>

#include "base/Format.h"

namespace ferolin {

class FixRecord;

/// Value text of a read-out whose value is missing.
inline constexpr const char* NOT_AVAILABLE = "N/A";

/// One named read-out. Names and texts are 8-bit text in the device's ANSI code page. Updated on
/// the reader thread, read and reset on the host's and the redraw thread, always under the engine's
/// data lock.
class Sensor {
 public:
  static constexpr std::size_t TEXT_SIZE = 256;

  explicit Sensor(std::string sensorName) : name(std::move(sensorName)) {}
  virtual ~Sensor() = default;
  Sensor(const Sensor&) = delete;
  Sensor& operator=(const Sensor&) = delete;

  /// 1 when the sensor has a state that is worth keeping between runs.
  virtual int IsSaveable() const { return 0; }

  /// Writes the state as text into `out`, which must hold 256 bytes: a state that is cut short
  /// would be another one, so `size` makes no difference. Sensors without state leave it alone.
  virtual void GetRegistryString(char* out, int size) const;

  /// Takes a state over; the value text shows it at once. Returns 1, or 0 when the text holds no
  /// state above zero: then nothing changes.
  virtual int SetRegistryString(const char* text);

  /// Empty until the first update. The address is valid until the next update or reset.
  virtual const char* GetValueText() const { return valueText.data(); }

  virtual const char* GetName() const { return name.c_str(); }

  virtual void Update(const FixRecord& fix) = 0;

  /// Starts afresh. Sensors without state only empty their text.
  virtual void Reset() { valueText[0] = '\0'; }

 protected:
  template <class... Values>
  void SetText(std::string_view format, const Values&... values) {
    FormatInto(valueText.data(), valueText.size(), format, values...);
  }

  void SetName(std::string newName) { name = std::move(newName); }

 private:
  std::array<char, TEXT_SIZE> valueText = {};
  std::string name;
};

}  // namespace ferolin
