#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <atomic>

#include "sources/Feeder.h"

namespace host {
namespace {

const std::string RMC_LINE = "$GPRMC,120000,A,1,N,2,E,3,4,010120,,\r\n";
const std::string GGA_LINE = "$GPGGA,120000,1,N\r\n";

/// A source of one text.
class TextSource : public NmeaSource {
 public:
  TextSource(std::string text, bool isLive) : text(std::move(text)), isLive(isLive) {}

  std::optional<std::string> Read() override {
    if (given.exchange(true)) {
      return std::nullopt;
    }
    return text;
  }
  void Stop() override { given = true; }
  std::optional<std::uint64_t> GetSize() const override { return text.size(); }
  bool IsLive() const override { return isLive; }

 private:
  const std::string text;
  const bool isLive;
  std::atomic<bool> given = false;
};

/// A receiver that sends nothing until it is stopped.
class SilentSource : public NmeaSource {
 public:
  std::optional<std::string> Read() override {
    while (!stopped) {
      usleep(1000);
    }
    return std::nullopt;
  }
  void Stop() override { stopped = true; }
  std::optional<std::uint64_t> GetSize() const override { return std::nullopt; }
  bool IsLive() const override { return true; }

 private:
  std::atomic<bool> stopped = false;
};

class FeederTest : public testing::Test {
 protected:
  void Feed(const std::string& text, bool live = false) {
    source = std::make_unique<TextSource>(text, live);
    feeder = std::make_unique<Feeder>(*source, line, bridge, 0, [this] { ended = true; });
    feeder->TellFixes([this](const Fix&) { ++fixes; });
    feeder->Start();
  }

  void Answer() { feeder->Answer(++updates); }

  /// Reads `count` bytes at the engine's end; fewer when no more come.
  std::string Receive(std::size_t count) {
    std::string bytes;
    pollfd wait = {engineEnd.Get(), POLLIN, 0};
    while (bytes.size() < count && poll(&wait, 1, 5000) > 0) {
      std::array<char, 4096> buffer;
      const ssize_t read = ::read(engineEnd.Get(), buffer.data(), count - bytes.size());
      bytes.append(buffer.data(), read > 0 ? static_cast<std::size_t>(read) : 0);
    }
    return bytes;
  }

  bool IsSilent() {
    pollfd wait = {engineEnd.Get(), POLLIN, 0};
    return poll(&wait, 1, 100) == 0;
  }

  void WaitForEnd() {
    for (int i = 0; i < 5000 && !ended; ++i) {
      usleep(1000);
    }
    EXPECT_TRUE(ended);
  }

  PseudoTerminal line;
  FileDescriptor engineEnd{open(line.GetDevice().c_str(), O_RDWR | O_NOCTTY)};
  EpochQueue::Bridge bridge = EpochQueue::Bridge::ON;
  std::unique_ptr<NmeaSource> source;
  std::unique_ptr<Feeder> feeder;
  std::atomic<bool> ended = false;
  std::atomic<int> fixes = 0;
  std::uint64_t updates = 0;
};

TEST_F(FeederTest, WritesTheNextEpochOnlyAfterTheAnswerToTheOneBefore) {
  Feed(GGA_LINE + RMC_LINE + GGA_LINE + RMC_LINE);
  EXPECT_EQ(GGA_LINE + RMC_LINE, Receive(GGA_LINE.size() + RMC_LINE.size()));
  EXPECT_TRUE(IsSilent());
  EXPECT_FALSE(ended);
  Answer();
  EXPECT_EQ(GGA_LINE + RMC_LINE, Receive(GGA_LINE.size() + RMC_LINE.size()));
  Answer();
  WaitForEnd();
  EXPECT_EQ(1.0, feeder->GetReport().progress);
  EXPECT_EQ(4u, feeder->GetReport().sentences);
  EXPECT_EQ(0u, feeder->GetReport().updatesMissed);
}

TEST_F(FeederTest, DoesNotHangOnSentencesWithoutAnUpdate) {
  Feed(GGA_LINE + GGA_LINE);
  EXPECT_EQ(GGA_LINE + GGA_LINE, Receive(2 * GGA_LINE.size()));
  WaitForEnd();
}

TEST_F(FeederTest, CountsDamageEvenWhenNothingIsLeft) {
  Feed("$GPGGA*00\r\n");
  WaitForEnd();
  EXPECT_EQ(1u, feeder->GetReport().bridge.damaged[static_cast<std::size_t>(Damage::CHECKSUM)]);
}

TEST_F(FeederTest, DoesNotHangWhenAnUpdateDoesNotCome) {
  Feed(RMC_LINE);
  EXPECT_EQ(RMC_LINE, Receive(RMC_LINE.size()));
  WaitForEnd();
  EXPECT_EQ(1u, feeder->GetReport().updatesMissed);
}

TEST_F(FeederTest, WritesTogetherWhatAReceiverHasSentMeanwhile) {
  Feed(RMC_LINE + RMC_LINE + RMC_LINE, true);
  EXPECT_EQ(RMC_LINE + RMC_LINE + RMC_LINE, Receive(3 * RMC_LINE.size()));
  Answer();
  Answer();
  EXPECT_FALSE(ended);
  Answer();
  WaitForEnd();
}

TEST_F(FeederTest, WritesTheStartOfAStretchByItselfAndTellsItOnce) {
  const std::string late = "$GPRMC,120001,A,1,N,2,E,3,4,010121,,\r\n";
  const std::string gap = NmeaSentence("$GPRMC,120001,V,,,,,,,010121,,").GetText() + "\r\n";
  Feed(RMC_LINE + RMC_LINE + late + late, true);
  EXPECT_EQ(RMC_LINE + RMC_LINE, Receive(2 * RMC_LINE.size()));
  EXPECT_TRUE(IsSilent());
  EXPECT_FALSE(feeder->TakeStretchStart());
  Answer();
  Answer();
  EXPECT_EQ(gap, Receive(gap.size()));
  EXPECT_TRUE(IsSilent());
  EXPECT_TRUE(feeder->TakeStretchStart());
  EXPECT_FALSE(feeder->TakeStretchStart());
  Answer();
  EXPECT_EQ(late + late, Receive(2 * late.size()));
  EXPECT_FALSE(feeder->TakeStretchStart());
  EXPECT_EQ(1u, feeder->GetReport().clockJumps);
}

TEST_F(FeederTest, TellsTheFixesOfARecordingWhenTheyArePlayed) {
  Feed(GGA_LINE + RMC_LINE + GGA_LINE + RMC_LINE + GGA_LINE + RMC_LINE);
  EXPECT_EQ(GGA_LINE + RMC_LINE, Receive(GGA_LINE.size() + RMC_LINE.size()));
  EXPECT_EQ(0, fixes);
  Answer();
  EXPECT_EQ(GGA_LINE + RMC_LINE, Receive(GGA_LINE.size() + RMC_LINE.size()));
  EXPECT_LE(fixes, 1);
  Answer();
  EXPECT_EQ(GGA_LINE + RMC_LINE, Receive(GGA_LINE.size() + RMC_LINE.size()));
  Answer();
  WaitForEnd();
  EXPECT_EQ(3, fixes);
}

TEST_F(FeederTest, KnowsTheFixOfTheUpdateThatIsNotAnsweredYet) {
  const std::string later = "$GPRMC,120001,A,5545.0000,N,03736.0000,E,20.00,090.0,010120,,\r\n";
  Feed(RMC_LINE + later);
  EXPECT_EQ(RMC_LINE, Receive(RMC_LINE.size()));
  const std::optional<double> first = feeder->TakeFixes().back().speedKmh;
  Answer();
  EXPECT_EQ(later, Receive(later.size()));
  const std::optional<double> second = feeder->TakeFixes().back().speedKmh;
  EXPECT_NE(first, second);
  EXPECT_DOUBLE_EQ(37.04, second.value_or(0));
  Answer();
}

TEST_F(FeederTest, TellsTheFixesOfAReceiverAtOnce) {
  Feed(RMC_LINE + RMC_LINE + RMC_LINE, true);
  EXPECT_EQ(RMC_LINE + RMC_LINE + RMC_LINE, Receive(3 * RMC_LINE.size()));
  EXPECT_FALSE(ended);
  EXPECT_EQ(3, fixes);
}

TEST_F(FeederTest, TellsFixesWithoutABridgeToo) {
  bridge = EpochQueue::Bridge::OFF;
  Feed(RMC_LINE + RMC_LINE, true);
  EXPECT_EQ(RMC_LINE + RMC_LINE, Receive(2 * RMC_LINE.size()));
  EXPECT_EQ(2, fixes);
}

TEST_F(FeederTest, FillsTheSilenceOfAReceiverWithoutAFix) {
  const std::string gap = NmeaSentence("$GPRMC,,V,,,,,,,,,").GetText() + "\r\n";
  source = std::make_unique<SilentSource>();
  feeder =
      std::make_unique<Feeder>(*source, line, EpochQueue::Bridge::ON, 0, [this] { ended = true; });
  feeder->TellFixes([this](const Fix& fix) { fixes += fix == Fix() ? 1 : 100; });
  feeder->Start();
  EXPECT_EQ(gap, Receive(gap.size()));
  EXPECT_TRUE(feeder->TakeStretchStart());
  Answer();
  EXPECT_EQ(gap, Receive(gap.size()));
  EXPECT_EQ(1, fixes);
  EXPECT_FALSE(feeder->TakeStretchStart());
  EXPECT_LE(3, feeder->GetReport().reception.silentSeconds);
  Answer();
}

TEST_F(FeederTest, StopsWhileItWaitsForAnAnswer) {
  Feed(RMC_LINE + RMC_LINE);
  EXPECT_EQ(RMC_LINE, Receive(RMC_LINE.size()));
  feeder->Stop();
  EXPECT_TRUE(IsSilent());
}

TEST_F(FeederTest, StopsWhileNobodyReads) {
  std::string much;
  for (int i = 0; i < 5000; ++i) {
    much += GGA_LINE;
  }
  Feed(much);
  feeder->Stop();
}

}  // namespace
}  // namespace host
