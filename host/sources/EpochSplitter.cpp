#include "sources/EpochSplitter.h"

#include <algorithm>
#include <charconv>
#include <chrono>

#include "sources/NmeaSentence.h"

namespace host {

namespace {

constexpr std::string_view RMC_NAME = "$GPRMC";
/// Number of separators (commas and the star) that the engine needs in an RMC.
constexpr std::ptrdiff_t RMC_SEPARATORS = 10;
constexpr std::size_t RMC_TIME = 0;
constexpr std::size_t RMC_DATE = 8;

bool IsSeparator(char character) {
  return character == ',' || character == '*';
}

bool MakesUpdate(std::string_view sentence) {
  return sentence.starts_with(RMC_NAME) && sentence.size() > RMC_NAME.size() &&
         IsSeparator(sentence[RMC_NAME.size()]) &&
         std::count_if(sentence.begin(), sentence.end(), IsSeparator) >= RMC_SEPARATORS;
}

/// The line's sentence as the engine finds it: from the last "$" to the carriage return.
std::string_view FindSentence(std::string_view line) {
  const std::size_t end = line.find('\r');
  if (end == std::string_view::npos) {
    return {};
  }
  const std::size_t start = line.substr(0, end).rfind('$');
  return start == std::string_view::npos ? std::string_view() : line.substr(start, end - start);
}

bool IsPrintable(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char character) { return character >= ' ' && character <= '~'; });
}

/// The two digits at `position` as a number; -1 when they are no digits.
int TwoDigits(std::string_view text, std::size_t position) {
  int value = -1;
  if (text.size() >= position + 2) {
    const char* start = text.data() + position;
    if (std::from_chars(start, start + 2, value).ptr != start + 2) {
      return -1;
    }
  }
  return value;
}

std::optional<std::int64_t> TimeOfDayMs(std::string_view time) {
  const int hour = TwoDigits(time, 0);
  const int minute = TwoDigits(time, 2);
  const int second = TwoDigits(time, 4);
  if (hour < 0 || minute < 0 || second < 0) {
    return std::nullopt;
  }
  std::int64_t ms = ((hour * 60LL + minute) * 60 + second) * 1000;
  if (time.size() > 7 && time[6] == '.') {
    std::string fraction(time.substr(7, 3));
    fraction.resize(3, '0');
    int thousandths = 0;
    std::from_chars(fraction.data(), fraction.data() + fraction.size(), thousandths);
    ms += thousandths;
  }
  return ms;
}

std::int64_t DateMs(std::string_view date) {
  const int day = TwoDigits(date, 0);
  const int month = TwoDigits(date, 2);
  const int year = TwoDigits(date, 4);
  const std::chrono::year_month_day civil(std::chrono::year(2000 + year),
                                          std::chrono::month(static_cast<unsigned>(month)),
                                          std::chrono::day(static_cast<unsigned>(day)));
  if (day < 0 || month < 0 || year < 0 || !civil.ok()) {
    return 0;
  }
  return std::chrono::duration_cast<std::chrono::milliseconds>(
             std::chrono::sys_days(civil).time_since_epoch())
      .count();
}

std::optional<std::int64_t> TimeMs(std::string_view rmc) {
  const NmeaSentence sentence(rmc);
  if (sentence.fields.size() <= RMC_DATE) {
    return std::nullopt;
  }
  const std::optional<std::int64_t> time = TimeOfDayMs(sentence.fields[RMC_TIME]);
  return time ? std::optional(DateMs(sentence.fields[RMC_DATE]) + *time) : std::nullopt;
}

}  // namespace

EpochSplitter::EpochSplitter(ReceiverBridge* bridge, Deliver deliver)
    : bridge(bridge), deliver(std::move(deliver)) {}

void EpochSplitter::Add(std::string_view bytes) {
  for (const char character : bytes) {
    // A carriage return also ends a line, together with a line feed right behind it.
    if (!line.empty() && line.back() == '\r' && character != '\n') {
      TakeLine(line);
      line.clear();
    }
    ++offset;
    line += character;
    if (character == '\n' || line.size() == MAX_BYTES) {
      TakeLine(line);
      line.clear();
    }
  }
}

void EpochSplitter::Finish() {
  if (!line.empty()) {
    TakeLine(line);
    line.clear();
  }
  Flush();
}

void EpochSplitter::TakeLine(std::string_view bytes) {
  if (bridge == nullptr) {
    const std::string_view sentence = FindSentence(bytes);
    Append(bytes, sentence, sentence);
  } else {
    TakeBridged(bytes);
  }
}

void EpochSplitter::TakeBridged(std::string_view bytes) {
  const std::string_view text = bytes.substr(0, bytes.find_first_of("\r\n"));
  if (text.empty()) {
    return;
  }
  const std::size_t start = text.rfind('$');
  if (start == std::string_view::npos || text.size() - start > MAX_SENTENCE ||
      !IsPrintable(text.substr(start))) {
    ++linesDropped;
    return;
  }
  const std::string_view original = text.substr(start);
  if (const std::optional<std::string> sentence = bridge->Rewrite(original)) {
    Append(*sentence + "\r\n", *sentence, original);
  }
}

void EpochSplitter::Append(std::string_view bytes, std::string_view sentence,
                           std::string_view original) {
  if (epoch.bytes.size() + bytes.size() > MAX_BYTES) {
    Flush();
  }
  epoch.bytes += bytes;
  sentences += sentence.empty() ? 0 : 1;
  if (MakesUpdate(sentence)) {
    epoch.updates = 1;
    epoch.timeMs = TimeMs(original);
    Flush();
  }
}

void EpochSplitter::Flush() {
  if (!epoch.bytes.empty()) {
    epoch.sourceOffset = offset;
    deliver(std::move(epoch));
  }
  epoch = Epoch();
}

}  // namespace host
