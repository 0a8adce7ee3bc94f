#include "sources/BridgeNotices.h"

#include <array>

namespace host {

namespace {

/// A kind of change with its announcement (null for none) and the label of its count.
struct Kind {
  std::uint64_t ReceiverBridge::Counts::*count;
  const char* news;
  const char* sum;
};

using Counts = ReceiverBridge::Counts;

constexpr std::array KINDS = {
    Kind{&Counts::talkers, nullptr, "sentences of other talkers read as GP"},
    Kind{&Counts::times, "fractions of seconds are cut", "times with their fractions cut"},
    Kind{&Counts::satellites,
         "satellite lists are completed to four satellites per sentence, with separate numbers for "
         "each system",
         "satellite lists completed or renumbered"},
    Kind{&Counts::speeds, "VTG speeds are moved to where the engine reads them",
         "VTG speeds moved"},
    Kind{&Counts::speedsDropped, nullptr, "VTG sentences without a speed left out"},
};

/// A kind of damage, by Damage: in the announcement, and in the sum behind "with".
struct DamageWords {
  const char* news;
  const char* sum;
};

constexpr std::array<DamageWords, DAMAGE_KINDS> DAMAGES = {{
    {"wrong checksum", "a wrong checksum"},
    {"characters that no sentence has", "characters that no sentence has"},
    {"a date that does not exist", "a date that does not exist"},
    {"a time that does not exist", "a time that does not exist"},
    {"a speed that cannot be", "a speed that cannot be"},
    {"a position that does not exist", "a position that does not exist"},
}};

std::string Sum(const char* what, std::uint64_t count) {
  return std::string(what) + ": " + std::to_string(count);
}

std::string Join(const std::set<std::string>& talkers) {
  std::string text;
  for (const std::string& each : talkers) {
    text += (text.empty() ? "" : ", ") + each;
  }
  return text;
}

/// "3 sentences were dropped: 2 with a wrong checksum, 1 with a date that does not exist"; empty
/// without any.
std::string SumUpDamaged(const Counts& counts) {
  std::uint64_t total = 0;
  std::string list;
  for (std::size_t kind = 0; kind < DAMAGE_KINDS; ++kind) {
    if (const std::uint64_t count = counts.damaged[kind]; count > 0) {
      total += count;
      list += (list.empty() ? "" : ", ") + std::to_string(count) + " with " + DAMAGES[kind].sum;
    }
  }
  const char* what = total == 1 ? " sentence was dropped: " : " sentences were dropped: ";
  return total == 0 ? "" : std::to_string(total) + what + list;
}

}  // namespace

std::vector<std::string> BridgeNotices::TakeNews(const PositionFeed::Report& report) {
  std::vector<std::string> news;
  if (report.bridge == last.bridge && report.clockJumps == last.clockJumps) {
    return news;
  }
  if (report.talkers != last.talkers) {
    news.push_back("the receiver sends sentences of " + Join(report.talkers) +
                   ": they are read as GP (--raw turns that off)");
  }
  for (const Kind& kind : KINDS) {
    const bool begins = report.bridge.*kind.count > 0 && last.bridge.*kind.count == 0;
    if (begins && kind.news != nullptr) {
      news.emplace_back(kind.news);
    }
  }
  for (std::size_t kind = 0; kind < DAMAGE_KINDS; ++kind) {
    if (report.bridge.damaged[kind] > 0 && last.bridge.damaged[kind] == 0) {
      news.push_back(std::string("a damaged sentence was dropped (") + DAMAGES[kind].news +
                     "); more are only counted");
    }
  }
  if (report.clockJumps > 0 && last.clockJumps == 0) {
    news.emplace_back(
        "the receiver's clock jumped: the trip goes on without the step; more are only counted");
  }
  last = report;
  return news;
}

std::vector<std::string> BridgeNotices::SumUp(const PositionFeed::Report& report) {
  std::vector<std::string> sums;
  for (const Kind& kind : KINDS) {
    if (report.bridge.*kind.count > 0) {
      sums.push_back(Sum(kind.sum, report.bridge.*kind.count));
    }
  }
  if (const std::string damaged = SumUpDamaged(report.bridge); !damaged.empty()) {
    sums.push_back(damaged);
  }
  if (report.linesDropped > 0) {
    sums.push_back(Sum("lines left out because they are no sentences", report.linesDropped));
  }
  if (report.clockJumps > 0) {
    sums.push_back(Sum("jumps of the receiver's clock", report.clockJumps));
  }
  if (report.updatesMissed > 0) {
    sums.push_back(Sum("positions that the engine did not take", report.updatesMissed));
  }
  return sums;
}

}  // namespace host
