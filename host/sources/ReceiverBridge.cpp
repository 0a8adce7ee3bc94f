#include "sources/ReceiverBridge.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace host {

namespace {

/// The star and two digits.
constexpr std::size_t CHECKSUM_LENGTH = 3;

constexpr std::array<std::string_view, 6> KNOWN_TYPES = {"RMC", "GGA", "GSA", "GSV", "GLL", "VTG"};

/// `offset` is added to the satellite numbers 1 to `ownLast` of this system.
struct SatelliteSystem {
  std::string_view talker;
  int ownLast;
  int offset;
};

constexpr std::array<SatelliteSystem, 8> SATELLITE_SYSTEMS = {{
    {"GL", 32, 64},
    {"GA", 64, 300},
    {"GB", 64, 400},
    {"BD", 64, 400},
    {"GQ", 10, 192},
    {"QZ", 10, 192},
    {"GI", 32, 500},
    {"IR", 32, 500},
}};

// Indices in NmeaSentence::fields.
constexpr std::size_t GSV_SATELLITES = 3;
constexpr std::size_t GSV_SATELLITE_FIELDS = 4;
constexpr std::size_t GSV_FIELDS = GSV_SATELLITES + 4 * GSV_SATELLITE_FIELDS;
constexpr std::size_t VTG_TRUE_COURSE = 0;
constexpr std::size_t VTG_TRUE_UNIT = 1;
constexpr std::size_t VTG_MAGNETIC_COURSE = 2;
constexpr std::size_t VTG_KNOTS = 4;
constexpr std::size_t VTG_KMH = 6;

bool IsKnown(const NmeaSentence& sentence) {
  // Names of proprietary sentences start with "P".
  return sentence.GetTalker().size() == 2 && sentence.name[0] != 'P' &&
         std::find(KNOWN_TYPES.begin(), KNOWN_TYPES.end(), sentence.GetType()) != KNOWN_TYPES.end();
}

int ParseInteger(std::string_view text) {
  int value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

/// Completes or cuts a GSV to exactly four satellites. True when that changed it.
bool FillSatellites(NmeaSentence& sentence) {
  auto& fields = sentence.fields;
  if (fields.size() < GSV_SATELLITES || fields.size() == GSV_FIELDS) {
    return false;
  }
  const std::size_t satelliteFields = fields.size() - GSV_SATELLITES;
  const std::size_t whole = satelliteFields - satelliteFields % GSV_SATELLITE_FIELDS;
  fields.resize(std::min(GSV_SATELLITES + whole, GSV_FIELDS));
  fields.resize(GSV_FIELDS);
  return true;
}

/// Separates the satellite numbers of another system from those of GPS. True when a number changed.
bool RenumberSatellites(NmeaSentence& sentence) {
  const auto* system = std::find_if(
      SATELLITE_SYSTEMS.begin(), SATELLITE_SYSTEMS.end(),
      [&sentence](const SatelliteSystem& each) { return each.talker == sentence.GetTalker(); });
  if (system == SATELLITE_SYSTEMS.end()) {
    return false;
  }
  bool changed = false;
  for (std::size_t i = GSV_SATELLITES; i < sentence.fields.size(); i += GSV_SATELLITE_FIELDS) {
    const int number = ParseInteger(sentence.fields[i]);
    if (number >= 1 && number <= system->ownLast) {
      sentence.fields[i] = std::to_string(number + system->offset);
      changed = true;
    }
  }
  return changed;
}

/// The sentence up to its checksum, if it has one.
std::string_view WithoutTail(std::string_view text) {
  const std::size_t star = text.find('*');
  return star == std::string_view::npos ? text : text.substr(0, star + CHECKSUM_LENGTH);
}

bool HasUnits(const NmeaSentence& vtg) {
  return vtg.fields.size() > VTG_KNOTS && vtg.fields[VTG_TRUE_UNIT] == "T";
}

bool IsVtgWithoutSpeed(const NmeaSentence& sentence) {
  return sentence.GetType() == "VTG" && HasUnits(sentence) && sentence.fields[VTG_KNOTS].empty();
}

void RemoveUnits(NmeaSentence& vtg) {
  vtg.fields.resize(std::max(vtg.fields.size(), VTG_KMH + 1));
  vtg.fields = {vtg.fields[VTG_TRUE_COURSE], vtg.fields[VTG_MAGNETIC_COURSE], vtg.fields[VTG_KNOTS],
                vtg.fields[VTG_KMH]};
}

}  // namespace

std::optional<std::string> ReceiverBridge::Rewrite(std::string_view text) {
  NmeaSentence sentence(text);
  if (const std::optional<Damage> damage = SentenceCheck::Find(text, sentence)) {
    ++counts.damaged[static_cast<std::size_t>(*damage)];
    return std::nullopt;
  }
  text = WithoutTail(text);
  if (!IsKnown(sentence)) {
    return std::string(text);
  }
  if (IsVtgWithoutSpeed(sentence)) {
    ++counts.speedsDropped;
    return std::nullopt;
  }
  const bool hasNewFields = RewriteFields(sentence);
  const bool hasNewName = RenameTalker(sentence);
  return hasNewFields || hasNewName ? sentence.GetText() : std::string(text);
}

bool ReceiverBridge::RewriteFields(NmeaSentence& sentence) {
  if (sentence.GetType() == "GSV") {
    return RewriteSatellites(sentence);
  }
  if (sentence.GetType() == "VTG") {
    return MoveSpeed(sentence);
  }
  return sentence.GetType() == "RMC" && CutTime(sentence);
}

bool ReceiverBridge::RewriteSatellites(NmeaSentence& sentence) {
  const bool isFilled = FillSatellites(sentence);
  const bool isRenumbered = RenumberSatellites(sentence);
  counts.satellites += isFilled || isRenumbered ? 1 : 0;
  return isFilled || isRenumbered;
}

bool ReceiverBridge::MoveSpeed(NmeaSentence& sentence) {
  if (!HasUnits(sentence)) {
    return false;
  }
  RemoveUnits(sentence);
  ++counts.speeds;
  return true;
}

bool ReceiverBridge::RenameTalker(NmeaSentence& sentence) {
  if (sentence.GetTalker() == "GP") {
    return false;
  }
  talkers.emplace(sentence.GetTalker());
  sentence.name.replace(0, 2, "GP");
  ++counts.talkers;
  return true;
}

bool ReceiverBridge::CutTime(NmeaSentence& sentence) {
  if (sentence.fields.size() <= RMC_TIME) {
    return false;
  }
  std::string& time = sentence.fields[RMC_TIME];
  const std::size_t point = time.find('.');
  if (point == std::string::npos) {
    return false;
  }
  time.resize(point);
  ++counts.times;
  return true;
}

}  // namespace host
