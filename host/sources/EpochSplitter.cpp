#include "sources/EpochSplitter.h"

#include <algorithm>

#include "sources/NmeaSentence.h"
#include "sources/NmeaTime.h"
#include "sources/SentenceCheck.h"

namespace host {

namespace {

/// Begins a line of a recording that says something about it.
constexpr char COMMENT = '#';
constexpr std::string_view RMC_NAME = "$GPRMC";
/// Number of separators (commas and the star) that the engine needs in an RMC.
constexpr std::ptrdiff_t RMC_SEPARATORS = 10;
constexpr std::size_t RMC_FIELDS = 11;

bool IsSeparator(char character) {
  return character == ',' || character == '*';
}

bool MakesUpdate(std::string_view sentence) {
  return sentence.starts_with(RMC_NAME) && sentence.size() > RMC_NAME.size() &&
         IsSeparator(sentence[RMC_NAME.size()]) &&
         std::count_if(sentence.begin(), sentence.end(), IsSeparator) >= RMC_SEPARATORS;
}

/// Length up to the end of the line: a line feed, or a carriage return with or without a line feed
/// right behind it. All of it when there is no end. `bytes` are not empty.
std::size_t FindLineEnd(std::string_view bytes) {
  const std::size_t feed = bytes.find('\n');
  const std::size_t carriageReturn = bytes.substr(0, feed).find('\r');
  if (carriageReturn == std::string_view::npos) {
    return std::min(feed, bytes.size() - 1) + 1;
  }
  return carriageReturn + (carriageReturn + 1 == feed ? 2 : 1);
}

/// The line without its end.
std::string_view WithoutEnd(std::string_view line) {
  while (line.ends_with('\n') || line.ends_with('\r')) {
    line.remove_suffix(1);
  }
  return line;
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

std::optional<std::int64_t> TimeMs(std::string_view rmc) {
  const NmeaSentence sentence(rmc);
  if (sentence.fields.size() <= RMC_DATE) {
    return std::nullopt;
  }
  const std::optional<std::int64_t> time = ParseNmeaTime(sentence.fields[RMC_TIME]);
  const std::int64_t date = ParseNmeaDate(sentence.fields[RMC_DATE]).value_or(0);
  return time ? std::optional(date + *time) : std::nullopt;
}

/// Milliseconds since 1970; nothing without a date.
std::optional<std::int64_t> FullTimeMs(const NmeaSentence& rmc) {
  const std::optional<std::int64_t> time = ParseNmeaTime(rmc.fields[RMC_TIME]);
  const std::optional<std::int64_t> date = ParseNmeaDate(rmc.fields[RMC_DATE]);
  return time && date ? std::optional(*date + *time) : std::nullopt;
}

bool IsSound(std::string_view sentence) {
  return !sentence.empty() && !SentenceCheck::Find(sentence, NmeaSentence(sentence));
}

/// An RMC of the same time that has no fix.
NmeaSentence WithoutFix(const NmeaSentence& rmc) {
  NmeaSentence result;
  result.name = rmc.name;
  result.fields.resize(RMC_FIELDS);
  result.fields[RMC_TIME] = rmc.fields[RMC_TIME];
  result.fields[RMC_STATUS] = 'V';
  result.fields[RMC_DATE] = rmc.fields[RMC_DATE];
  return result;
}

}  // namespace

EpochSplitter::EpochSplitter(ReceiverBridge* bridge, Deliver deliver)
    : bridge(bridge), deliver(std::move(deliver)) {}

void EpochSplitter::Add(std::string_view bytes) {
  while (!bytes.empty()) {
    const bool isEnded = line.ends_with('\r') && !bytes.starts_with('\n');
    const std::size_t length = isEnded ? 0 : FindLineEnd(bytes.substr(0, MAX_BYTES - line.size()));
    line += bytes.substr(0, length);
    offset += length;
    bytes.remove_prefix(length);
    if (isEnded || line.ends_with('\n') || line.size() == MAX_BYTES) {
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
  if (fixes != nullptr) {
    fixes->Finish();
  }
  Flush();
}

void EpochSplitter::TakeLine(std::string_view bytes) {
  if (bridge == nullptr) {
    TakeRaw(bytes);
  } else {
    TakeBridged(bytes);
  }
}

void EpochSplitter::TakeRaw(std::string_view bytes) {
  const std::string_view sentence = FindSentence(bytes);
  if (fixes != nullptr && IsSound(sentence)) {
    fixes->Add(sentence);
  }
  Append(bytes, sentence, sentence);
}

void EpochSplitter::TakeBridged(std::string_view bytes) {
  const std::string_view text = WithoutEnd(bytes);
  if (text.empty() || text.front() == COMMENT) {
    return;
  }
  const std::size_t start = text.rfind('$');
  if (start == std::string_view::npos || text.size() - start > MAX_SENTENCE) {
    ++linesDropped;
    return;
  }
  const std::string_view original = text.substr(start);
  if (std::optional<std::string> sentence = bridge->Rewrite(original)) {
    if (fixes != nullptr) {
      fixes->Add(original);
    }
    WatchClock(*sentence);
    const std::size_t length = sentence->size();
    *sentence += "\r\n";
    Append(*sentence, std::string_view(*sentence).substr(0, length), original);
  }
}

void EpochSplitter::WatchClock(const std::string& sentence) {
  const std::optional<std::int64_t> moment =
      MakesUpdate(sentence) ? FullTimeMs(NmeaSentence(sentence)) : std::nullopt;
  if (!moment || !clock.Jumps(*moment)) {
    return;
  }
  ++clockJumps;
  Flush();
  epoch.startsStretch = true;
  const std::string gap = WithoutFix(NmeaSentence(sentence)).GetText();
  Append(gap + "\r\n", gap, gap);
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
    if (fixes != nullptr && !epoch.startsStretch) {
      epoch.fix = fixes->GetPresent();
    }
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
