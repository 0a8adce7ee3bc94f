// Tells damaged sentences from sound ones.
#pragma once

#include <optional>
#include <string_view>

#include "sources/NmeaSentence.h"

namespace host {

enum class Damage { CHECKSUM, CHARACTERS, DATE, TIME, SPEED, POSITION };
constexpr std::size_t DAMAGE_KINDS = 6;

/// What is wrong with a sentence, by its checksum, its characters and the values that it holds:
///   checksum    It is there, and wrong. Sentences without one are accepted.
///   characters  Control characters, or characters beyond ASCII.
///   date, time  They do not exist, such as 31 February, month 0 or 25:61:61.
///   speed       It is negative, above 2,000 km/h or no number.
///   position    It lies beyond a pole or the date line, has 60 minutes or more, an unknown
///               hemisphere, or is no number.
/// Values are looked at in RMC, GGA, GLL and VTG sentences of all talkers; empty ones are accepted.
class SentenceCheck {
 public:
  /// `text` starts with "$" and has no line end; `sentence` is the same one in its parts. Nothing
  /// for a sound sentence.
  static std::optional<Damage> Find(std::string_view text, const NmeaSentence& sentence);
};

}  // namespace host
