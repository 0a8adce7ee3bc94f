// Puts the sentences of one moment together.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "sources/Fix.h"
#include "sources/NmeaSentence.h"

namespace host {

/// Reads the RMC, GGA, VTG and GSA sentences of all talkers, in any order. A moment ends with the
/// kind of sentence that ended the moment before. At first, and when that one failed to come, it
/// ends when the next moment begins: with another time, or with an RMC or GGA of which the moment
/// already has one.
class FixReader {
 public:
  using Deliver = std::function<void(const Fix&)>;

  /// `deliver` gets each moment, in calls from Add and Finish.
  explicit FixReader(Deliver deliver) : deliver(std::move(deliver)) {}

  /// `text` is a sound sentence: it starts with "$" and has no line end.
  void Add(std::string_view text);

  /// What is known of the present moment so far. Height, HDOP and satellites that it lacks are those
  /// of the moment before: many receivers send them behind the RMC.
  Fix GetPresent() const;

  /// Delivers what is left at the end of the source.
  void Finish();

 private:
  enum class Kind { RMC, GGA, VTG, GSA, NONE };

  static Kind KindOf(std::string_view text);
  bool Begins(Kind kind, std::string_view time) const;
  void Take(Kind kind, const NmeaSentence& sentence);
  void TakeRmc(const NmeaSentence& rmc);
  void TakeGga(const NmeaSentence& gga);
  void TakeVtg(const NmeaSentence& vtg);
  void TakeGsa(const NmeaSentence& gsa);
  void TakePosition(const NmeaSentence& sentence, std::size_t index);
  void DeliverMoment();
  std::optional<std::int64_t> GetTimeMs() const;
  void Forget();

  Deliver deliver;
  Fix fix;
  /// The moment before.
  Fix previous;
  /// Time field of the present moment; empty before a sentence with one.
  std::string time;
  /// Date field of the last RMC.
  std::string date;
  bool hasRmc = false;
  bool hasGga = false;
  bool isDelivered = false;
  Kind latest = Kind::NONE;
  /// Last kind of the moment before; NONE when that is not certain.
  Kind ender = Kind::NONE;
};

}  // namespace host
