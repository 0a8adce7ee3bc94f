// Makes the sentences of today's receivers out as the ones that the engine takes.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "sources/NmeaSentence.h"

namespace host {

/// The engine knows $GPRMC, $GPGGA, $GPGSA, $GPGSV, $GPGLL and $GPVTG in the forms of its day. What
/// differs is rewritten, with a new checksum:
///   talkers     "GN", "GL", "GA", "GB", ... of these six types become "GP".
///   satellites  A GSV of another system gets numbers that do not meet those of GPS: GLONASS 65 to
///               96, QZSS 193 on, Galileo 301 on, BeiDou 401 on, NavIC 501 on. The engine reads four
///               satellites from every GSV, so a signal number behind the last satellite goes, and
///               a GSV with fewer than four is filled up with empty ones; else these places would
///               be taken for satellites.
///   time        RMC times lose their fraction (hhmmss.ss becomes hhmmss); else the engine would
///               take its own clock's.
///   speed       The engine reads knots from the third field of a VTG, where they stood before the
///               units got fields of their own ("course,T,course,M,knots,N,km/h,K"). Such a VTG is
///               put back into that form, and one without a speed is dropped, since it would wipe
///               out the speed of the RMC.
///
/// All other sentences pass unchanged. So does one whose checksum is wrong: it must not be made to
/// look sound.
class ReceiverBridge {
 public:
  struct Counts {
    std::uint64_t talkers = 0;
    std::uint64_t satellites = 0;
    std::uint64_t times = 0;
    std::uint64_t speeds = 0;
    std::uint64_t speedsDropped = 0;
    std::uint64_t damaged = 0;

    bool operator==(const Counts&) const = default;
  };

  /// `text` is a sentence: it starts with "$" and has no line end; so has the result. Nothing when
  /// the sentence is dropped.
  std::optional<std::string> Rewrite(std::string_view text);

  const Counts& GetCounts() const { return counts; }

  /// Talkers that were renamed so far, such as "GN".
  const std::set<std::string>& GetTalkers() const { return talkers; }

 private:
  bool RenameTalker(NmeaSentence& sentence);
  bool CutTime(NmeaSentence& sentence);

  Counts counts;
  std::set<std::string> talkers;
};

}  // namespace host
