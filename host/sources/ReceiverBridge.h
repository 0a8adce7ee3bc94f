// Converts the sentences of today's receivers to those that the engine understands.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "sources/NmeaSentence.h"
#include "sources/SentenceCheck.h"

namespace host {

/// The engine understands old forms of $GPRMC, $GPGGA, $GPGSA, $GPGSV, $GPGLL and $GPVTG. The
/// bridge rewrites newer forms, with a new checksum:
///   talkers     "GN", "GL", "GA", "GB", ... of these six types become "GP".
///   satellites  Satellites of other systems get numbers that differ from those of GPS: GLONASS 65
///               to 96, QZSS from 193, Galileo from 301, BeiDou from 401, NavIC from 501. The
///               engine always reads four satellites from a GSV: a signal number behind the last
///               satellite is removed, and a GSV with fewer than four is completed with empty ones.
///   time        RMC times lose their fraction (hhmmss.ss becomes hhmmss); with a fraction the
///               engine would use its own clock.
///   speed       The engine reads knots from the third field of a VTG, as in the form without
///               units. A VTG with units ("course,T,course,M,knots,N,km/h,K") is converted to that
///               form. A VTG without a speed is dropped, because it would erase the speed of the
///               RMC.
///
/// All other sentences pass unchanged. Damaged sentences of all types are dropped, and what stands
/// behind a checksum is cut.
class ReceiverBridge {
 public:
  struct Counts {
    std::uint64_t talkers = 0;
    std::uint64_t satellites = 0;
    std::uint64_t times = 0;
    std::uint64_t speeds = 0;
    std::uint64_t speedsDropped = 0;
    /// Damaged sentences dropped, by Damage.
    std::array<std::uint64_t, DAMAGE_KINDS> damaged = {};

    bool operator==(const Counts&) const = default;
  };

  /// `text` and the result start with "$" and have no line end. Nothing when the sentence is
  /// dropped.
  std::optional<std::string> Rewrite(std::string_view text);

  const Counts& GetCounts() const { return counts; }

  /// Talkers renamed so far, such as "GN".
  const std::set<std::string>& GetTalkers() const { return talkers; }

 private:
  // All of these return whether they changed the sentence.
  bool RewriteFields(NmeaSentence& sentence);
  bool RewriteSatellites(NmeaSentence& sentence);
  bool MoveSpeed(NmeaSentence& sentence);
  bool RenameTalker(NmeaSentence& sentence);
  bool CutTime(NmeaSentence& sentence);

  Counts counts;
  std::set<std::string> talkers;
};

}  // namespace host
