// One NMEA 0183 sentence in its parts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// XOR of all characters. `body` is the part of a sentence between "$" and "*".
std::uint8_t NmeaChecksum(std::string_view body);

/// "$GPGLL,3925.97,N*hh" has the name "GPGLL" and the fields "3925.97" and "N".
class NmeaSentence {
 public:
  enum class Checksum { RIGHT, WRONG, ABSENT };

  /// `text` starts with "$" and has no line end.
  explicit NmeaSentence(std::string_view text);
  NmeaSentence() = default;

  Checksum checksum = Checksum::ABSENT;
  std::string name;
  std::vector<std::string> fields;

  /// The sentence with its right checksum, without a line end.
  std::string GetText() const;

  /// Type and talker of the sentence: the last three letters of the name, such as "RMC", and those
  /// before them, such as "GP". A name of up to three letters is the type.
  std::string_view GetType() const;
  std::string_view GetTalker() const;
};

/// Empty when the sentence has no such field.
std::string_view Field(const NmeaSentence& sentence, std::size_t index);

// Fields of an RMC.
inline constexpr std::size_t RMC_TIME = 0;
inline constexpr std::size_t RMC_STATUS = 1;
inline constexpr std::size_t RMC_DATE = 8;

}  // namespace host
