#include "time/TimeZone.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>

#include "handheld.h"
#include "time/Calendar.h"

namespace handheld {

namespace {

constexpr std::int64_t SECONDS_PER_DAY = 86'400;
using Calendar::UNITS_PER_SECOND;

int YearOf(std::int64_t moment) {
  const std::chrono::sys_seconds time{std::chrono::seconds(moment)};
  const std::chrono::year_month_day date(std::chrono::floor<std::chrono::days>(time));
  return static_cast<int>(date.year());
}

std::int64_t DaysBefore(std::chrono::sys_days day) {
  return day.time_since_epoch().count();
}

}  // namespace

// POSIX rules.

/// Reads such a rule from left to right; every step is false at the first thing it does not
/// understand.
class PosixZoneParser {
 public:
  explicit PosixZoneParser(const std::string& text) : next(text.c_str()) {}

  bool Parse(PosixZone& zone) {
    int west;
    if (!Name() || !Offset(west)) {
      return false;
    }
    zone.standard = -west;
    if (*next == 0) {
      return true;
    }
    return Name() && SummerOffset(zone) && Rules(zone) && *next == 0;
  }

 private:
  bool Accept(char wanted) {
    if (*next != wanted) {
      return false;
    }
    ++next;
    return true;
  }

  /// At least three letters, or anything in angle brackets.
  bool Name() {
    const char* start = next;
    if (Accept('<')) {
      while (*next != 0 && *next != '>') {
        ++next;
      }
      return Accept('>');
    }
    while ((*next >= 'a' && *next <= 'z') || (*next >= 'A' && *next <= 'Z')) {
      ++next;
    }
    return next - start >= 3;
  }

  bool Number(int& value, int largest) {
    const char* start = next;
    value = 0;
    while (*next >= '0' && *next <= '9' && value <= largest) {
      value = value * 10 + (*next++ - '0');
    }
    return next > start && value <= largest;
  }

  /// Hours, minutes and seconds, in seconds. Hours up to a week, as the tz database's rules need
  /// them.
  bool Offset(int& seconds) {
    const bool negative = Accept('-');
    if (!negative) {
      Accept('+');
    }
    int hours;
    int minutes = 0;
    int rest = 0;
    if (!Number(hours, 167)) {
      return false;
    }
    if (Accept(':') && !Number(minutes, 59)) {
      return false;
    }
    if (Accept(':') && !Number(rest, 59)) {
      return false;
    }
    seconds = (hours * 60 + minutes) * 60 + rest;
    if (negative) {
      seconds = -seconds;
    }
    return true;
  }

  bool SummerOffset(PosixZone& zone) {
    zone.hasSummer = true;
    zone.summer = zone.standard + 3600;
    if (*next == 0 || *next == ',') {
      return true;
    }
    int west;
    if (!Offset(west)) {
      return false;
    }
    zone.summer = -west;
    return true;
  }

  bool Rules(PosixZone& zone) {
    static const std::string USUAL_RULES = ",M3.2.0,M11.1.0";
    if (*next == 0) {
      next = USUAL_RULES.c_str();
    }
    return Accept(',') && Rule(zone.toSummer) && Accept(',') && Rule(zone.toStandard);
  }

  bool Rule(PosixZone::Change& change) {
    using Kind = PosixZone::Change::Kind;
    if (Accept('M')) {
      change.kind = Kind::MONTH_WEEK_DAY;
      if (!Number(change.month, 12) || !Accept('.') || !Number(change.week, 5) || !Accept('.') ||
          !Number(change.day, 6) || change.month == 0 || change.week == 0) {
        return false;
      }
    } else {
      change.kind = Accept('J') ? Kind::DAY_WITHOUT_LEAP : Kind::DAY_OF_YEAR;
      if (!Number(change.day, 365)) {
        return false;
      }
    }
    return !Accept('/') || Offset(change.second);
  }

  const char* next;
};

std::optional<PosixZone> PosixZone::Parse(const std::string& text) {
  PosixZone zone;
  if (!PosixZoneParser(text).Parse(zone)) {
    return std::nullopt;
  }
  return zone;
}

std::int64_t PosixZone::Change::In(int year) const {
  using namespace std::chrono;
  const std::chrono::year inYear(year);
  sys_days date = sys_days(inYear / 1 / 1);
  if (kind == Kind::DAY_OF_YEAR) {
    date += days(day);
  } else if (kind == Kind::DAY_WITHOUT_LEAP) {
    constexpr int LAST_BEFORE_LEAP_DAY = 59;
    date += days(day - 1 + (inYear.is_leap() && day > LAST_BEFORE_LEAP_DAY ? 1 : 0));
  } else {
    const std::chrono::month inMonth(static_cast<unsigned>(month));
    const weekday onDay(static_cast<unsigned>(day));
    date = week == 5 ? sys_days(inYear / inMonth / onDay[last])
                     : sys_days(inYear / inMonth / onDay[static_cast<unsigned>(week)]);
  }
  return DaysBefore(date) * SECONDS_PER_DAY + second;
}

std::int64_t PosixZone::GetOffsetAt(std::int64_t moment) const {
  if (!hasSummer) {
    return standard;
  }
  const int year = YearOf(moment + standard);
  const std::int64_t start = toSummer.In(year) - standard;
  const std::int64_t end = toStandard.In(year) - summer;
  const bool isSummer =
      start < end ? moment >= start && moment < end : moment >= start || moment < end;
  return isSummer ? summer : standard;
}

// Files of the tz database.

namespace {

constexpr char DATABASE_FOLDER[] = "/usr/share/zoneinfo/";
constexpr char MACHINE_ZONE[] = "/etc/localtime";
constexpr std::size_t HEADER_SIZE = 44;
constexpr std::size_t TYPE_SIZE = 6;
constexpr std::size_t FIRST_COUNT = 20;

std::int64_t BigEndian(const char* bytes, int size) {
  std::uint64_t value = 0;
  for (int i = 0; i < size; ++i) {
    value = value << 8 | static_cast<unsigned char>(bytes[i]);
  }
  // Four bytes have their sign in the middle.
  return size == 4 ? static_cast<std::int32_t>(value) : static_cast<std::int64_t>(value);
}

/// Layout of one data block: a header with six counts, then the tables they count.
class DatabaseBlock {
 public:
  /// `sizeOfTime` is 4 in a file's first block and 8 in its second.
  DatabaseBlock(const std::string& file, std::size_t blockStart, std::size_t sizeOfTime)
      : content(file), start(blockStart), timeSize(sizeOfTime) {
    if (content.size() < start + HEADER_SIZE || content.compare(start, 4, "TZif") != 0) {
      return;
    }
    for (std::size_t i = 0; i < 6; ++i) {
      const std::int64_t count = BigEndian(content.data() + start + FIRST_COUNT + 4 * i, 4);
      if (count < 0 || static_cast<std::size_t>(count) > content.size()) {
        return;
      }
      counts[i] = static_cast<std::size_t>(count);
    }
    valid = Types() > 0 && End() <= content.size();
  }

  bool IsValid() const { return valid; }
  char Version() const { return content[start + 4]; }
  std::size_t Times() const { return counts[3]; }
  std::size_t Types() const { return counts[4]; }

  std::int64_t Time(std::size_t index) const {
    return BigEndian(content.data() + Body() + index * timeSize, static_cast<int>(timeSize));
  }
  /// Offset that holds from this change on.
  std::int64_t OffsetAfter(std::size_t index) const {
    const auto type = static_cast<unsigned char>(content[Body() + Times() * timeSize + index]);
    return OffsetOfType(std::min<std::size_t>(type, Types() - 1));
  }
  std::int64_t OffsetOfType(std::size_t type) const {
    return BigEndian(content.data() + Body() + Times() * (timeSize + 1) + type * TYPE_SIZE, 4);
  }
  std::size_t End() const {
    return Body() + Times() * (timeSize + 1) + Types() * TYPE_SIZE + counts[5] +
           counts[2] * (timeSize + 4) + counts[1] + counts[0];
  }

 private:
  std::size_t Body() const { return start + HEADER_SIZE; }

  const std::string& content;
  const std::size_t start;
  const std::size_t timeSize;
  /// Universal/local marks, standard/wall marks, leap seconds, changes, types, characters of the
  /// names.
  std::size_t counts[6] = {};
  bool valid = false;
};

std::string ReadFileContent(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

std::optional<TimeZone> TimeZone::FromDatabase(const std::string& content) {
  const DatabaseBlock narrow(content, 0, 4);
  if (!narrow.IsValid() || narrow.Version() < '2') {
    return std::nullopt;
  }
  const DatabaseBlock block(content, narrow.End(), 8);
  if (!block.IsValid()) {
    return std::nullopt;
  }

  TimeZone zone;
  zone.offsetBeforeChanges = block.OffsetOfType(0);
  for (std::size_t i = 0; i < block.Times(); ++i) {
    zone.changes.push_back({block.Time(i), block.OffsetAfter(i)});
  }

  // The rule stands between two line feeds at the very end; without one the last offset holds for
  // ever.
  const std::size_t ruleEnd = content.find('\n', block.End() + 1);
  const auto rule =
      ruleEnd == std::string::npos
          ? std::nullopt
          : PosixZone::Parse(content.substr(block.End() + 1, ruleEnd - block.End() - 1));
  if (rule) {
    zone.rule = *rule;
  }
  zone.hasRule = rule.has_value();
  return zone;
}

TimeZone TimeZone::FromName(const std::string& name) {
  const std::string plain = name.starts_with(':') ? name.substr(1) : name;
  const std::string path = plain.starts_with('/') ? plain : DATABASE_FOLDER + plain;
  const bool staysInFolder = plain.find("..") == std::string::npos;
  if (!plain.empty() && staysInFolder) {
    if (auto zone = FromDatabase(ReadFileContent(path))) {
      return *std::move(zone);
    }
  }
  TimeZone zone;
  if (const auto rule = PosixZone::Parse(plain)) {
    zone.rule = *rule;
  }
  zone.hasRule = true;
  return zone;
}

TimeZone TimeZone::OfProcess() {
  const char* name = std::getenv("TZ");
  return FromName(name == nullptr ? MACHINE_ZONE : name);
}

std::int64_t TimeZone::GetOffsetAt(std::int64_t moment) const {
  if (hasRule && (changes.empty() || moment >= changes.back().moment)) {
    return rule.GetOffsetAt(moment);
  }
  const auto later = std::upper_bound(
      changes.begin(), changes.end(), moment,
      [](std::int64_t wanted, const Change& change) { return wanted < change.moment; });
  return later == changes.begin() ? offsetBeforeChanges : std::prev(later)->offset;
}

TimeZones& TimeZones::Instance() {
  static TimeZones& zones = *new TimeZones;
  return zones;
}

TimeZones::TimeZones() : zone(std::make_shared<const TimeZone>(TimeZone::OfProcess())) {}

void TimeZones::Set(const std::string& name) {
  auto newZone = std::make_shared<const TimeZone>(TimeZone::FromName(name));
  const std::lock_guard lock(mutex);
  zone = std::move(newZone);
}

std::int64_t TimeZones::GetOffsetAt(std::int64_t fileTime) const {
  std::shared_ptr<const TimeZone> current;
  {
    const std::lock_guard lock(mutex);
    current = zone;
  }
  return current->GetOffsetAt((fileTime - Calendar::UNIX_EPOCH) / UNITS_PER_SECOND);
}

void SetTimeZone(const char* zone) {
  TimeZones::Instance().Set(zone == nullptr ? "" : zone);
}

}  // namespace handheld
