#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <condition_variable>
#include <future>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <thread>

#include "sources/RecordingFeed.h"

namespace host {
namespace {

using namespace std::chrono_literals;

const std::string NEXT_GGA = "$GPGGA,120000,1,N\r\n";

/// One second later with each number.
std::string Rmc(int second, const std::string& date = "010120") {
  return "$GPRMC,12" + std::string(second < 600 ? "0" : "") + std::to_string(second / 60) +
         std::string(second % 60 < 10 ? "0" : "") + std::to_string(second % 60) +
         ",A,1,N,2,E,3,4," + date + ",,\r\n";
}

class RecordedText : public NmeaSource {
 public:
  explicit RecordedText(std::string text) : text(std::move(text)) {}

  std::optional<std::string> Read() override {
    return given.exchange(true) ? std::nullopt : std::optional(text);
  }
  void Stop() override { given = true; }
  std::optional<std::uint64_t> GetSize() const override { return text.size(); }
  bool IsLive() const override { return false; }

 private:
  const std::string text;
  std::atomic<bool> given = false;
};

/// Plays the engine's reader on a thread of its own and the host on the test's.
class RecordingFeedTest : public testing::Test {
 protected:
  ~RecordingFeedTest() override {
    if (engine.joinable()) {
      feed->Stop();
      engine.join();
    }
  }

  void Feed(const std::string& text) {
    source = std::make_unique<RecordedText>(text);
    feed = std::make_unique<RecordingFeed>(
        *source, EpochQueue::Bridge::ON, [this] { Tell(turns); }, [this] { Tell(ends); });
    feed->TellFixes([this](const Fix&) { ++fixes; });
  }

  void StartEngine() {
    engine = std::thread([this] {
      std::array<char, EpochSplitter::MAX_BYTES> buffer = {};
      while (const std::size_t count = feed->Read(buffer.data(), buffer.size())) {
        const std::lock_guard lock(mutex);
        reads.emplace_back(buffer.data(), count);
      }
    });
  }

  void Tell(int& counter) {
    {
      const std::lock_guard lock(mutex);
      ++counter;
    }
    changed.notify_all();
  }

  /// True when the counter reaches the number within the limit.
  bool Await(const int& counter, int number, std::chrono::seconds limit = 60s) {
    std::unique_lock lock(mutex);
    return changed.wait_for(lock, limit, [&] { return counter >= number; });
  }

  std::vector<std::string> GetReads() {
    const std::lock_guard lock(mutex);
    return reads;
  }

  std::unique_ptr<RecordedText> source;
  std::unique_ptr<RecordingFeed> feed;
  std::mutex mutex;
  std::condition_variable changed;
  int turns = 0;
  int ends = 0;
  std::atomic<int> fixes = 0;
  std::vector<std::string> reads;
  std::thread engine;
};

using Texts = std::vector<std::string>;

TEST_F(RecordingFeedTest, GivesAnEpochOnlyAfterTheAnswerToTheOneBefore) {
  const std::string laterGga = "$GPGGA,120001,1,N\r\n";
  Feed(NEXT_GGA + Rmc(0) + laterGga + Rmc(1));
  StartEngine();
  ASSERT_TRUE(Await(turns, 1));
  EXPECT_EQ(Texts({NEXT_GGA + Rmc(0)}), GetReads());
  EXPECT_EQ(0.5, feed->GetReport().progress);
  EXPECT_EQ(0, fixes);
  feed->Answer(1);
  ASSERT_TRUE(Await(turns, 2));
  EXPECT_EQ(Texts({NEXT_GGA + Rmc(0), laterGga + Rmc(1)}), GetReads());
  EXPECT_EQ(1.0, feed->GetReport().progress);
  EXPECT_EQ(0, ends);
  feed->Answer(2);
  ASSERT_TRUE(Await(turns, 3));
  EXPECT_EQ(2, fixes);
  feed->Answer(2);
  ASSERT_TRUE(Await(ends, 1));
  EXPECT_EQ(4u, feed->GetReport().sentences);
  EXPECT_EQ(0u, feed->GetReport().updatesMissed);
}

TEST_F(RecordingFeedTest, GivesNoMoreThanTheReaderTakes) {
  Feed(Rmc(0));
  std::array<char, 30> buffer = {};
  EXPECT_EQ(30u, feed->Read(buffer.data(), 30));
  EXPECT_EQ(Rmc(0).substr(0, 30), std::string(buffer.data(), 30));
  const std::size_t rest = Rmc(0).size() - 30;
  EXPECT_EQ(rest, feed->Read(buffer.data(), 30));
  EXPECT_EQ(Rmc(0).substr(30), std::string(buffer.data(), rest));
}

TEST_F(RecordingFeedTest, CountsUpdatesThatDoNotCome) {
  Feed(Rmc(0) + Rmc(1));
  StartEngine();
  ASSERT_TRUE(Await(turns, 1));
  feed->Answer(1);
  ASSERT_TRUE(Await(turns, 2));
  feed->Answer(1);
  ASSERT_TRUE(Await(turns, 3));
  feed->Answer(1);
  ASSERT_TRUE(Await(ends, 1));
  EXPECT_EQ(1u, feed->GetReport().updatesMissed);
}

TEST_F(RecordingFeedTest, WaitsSeldomForAHostThatDoesNotNeedEachUpdate) {
  std::string text;
  for (int second = 0; second < 1000; ++second) {
    text += Rmc(second);
  }
  Feed(text);
  StartEngine();
  ASSERT_TRUE(Await(turns, 1));
  feed->LookSeldom();
  std::vector<std::optional<double>> progress;
  std::size_t takenFixes = 0;
  for (int turn = 1; ends == 0; ++turn) {
    progress.push_back(feed->GetReport().progress);
    takenFixes += feed->TakeFixes().size();
    feed->Answer(GetReads().size());
    std::unique_lock lock(mutex);
    ASSERT_TRUE(changed.wait_for(lock, 60s, [&] { return turns > turn || ends > 0; }));
  }
  EXPECT_EQ(1000u, GetReads().size());
  EXPECT_EQ(1000u, takenFixes);
  for (int tenth = 1; tenth <= 10; ++tenth) {
    const double first = tenth / 10.0;
    EXPECT_TRUE(std::find(progress.begin(), progress.end(), first) != progress.end()) << first;
  }
  // Beside the tenths there may be turns by time; on a slow machine some more.
  EXPECT_LT(progress.size(), 500u);
}

TEST_F(RecordingFeedTest, WaitsWhereTheClockJumped) {
  Feed(Rmc(0) + Rmc(1) + Rmc(2) + Rmc(2, "010121") + Rmc(3, "010121"));
  const std::string gap = NmeaSentence("$GPRMC,120002,V,,,,,,,010121,,").GetText() + "\r\n";
  StartEngine();
  ASSERT_TRUE(Await(turns, 1));
  feed->LookSeldom();
  for (int turn = 1; GetReads().back() != gap; ++turn) {
    EXPECT_FALSE(feed->TakeStretchStart());
    feed->Answer(GetReads().size());
    ASSERT_TRUE(Await(turns, turn + 1));
  }
  EXPECT_EQ(4u, GetReads().size());
  EXPECT_TRUE(feed->TakeStretchStart());
  EXPECT_FALSE(feed->TakeStretchStart());
  EXPECT_EQ(1u, feed->GetReport().clockJumps);
}

TEST_F(RecordingFeedTest, EndsWithoutAnyUpdate) {
  Feed("$GPGGA*00\r\n");
  StartEngine();
  ASSERT_TRUE(Await(turns, 1));
  feed->Answer(0);
  ASSERT_TRUE(Await(ends, 1));
  EXPECT_EQ(Texts(), GetReads());
  EXPECT_EQ(1u, feed->GetReport().bridge.damaged[static_cast<std::size_t>(Damage::CHECKSUM)]);
}

TEST_F(RecordingFeedTest, StopsWhileItWaitsForTheHost) {
  Feed(Rmc(0) + Rmc(1));
  StartEngine();
  ASSERT_TRUE(Await(turns, 1));
  feed->Stop();
  engine.join();
  EXPECT_EQ(Texts({Rmc(0)}), GetReads());
  EXPECT_EQ(0, ends);
}

TEST_F(RecordingFeedTest, RestsUntilTheHostsTurn) {
  Feed(Rmc(0));
  auto rest = std::async(std::launch::async, [this] { feed->Rest(60s); });
  StartEngine();
  ASSERT_EQ(std::future_status::ready, rest.wait_for(30s));
  EXPECT_EQ(1u, GetReads().size());
}

TEST_F(RecordingFeedTest, LendsTurnsOnlyWhileTheHostRests) {
  constexpr int EPOCHS = 300;
  std::string text;
  for (int second = 0; second < EPOCHS; ++second) {
    text += Rmc(second);
  }
  Feed(text);
  // Of the host's thread when it works, of the reader's in a turn.
  bool isHostResting = false;
  int lentTurns = 0;
  feed->LendTurns([&] {
    EXPECT_TRUE(isHostResting);
    feed->Answer(GetReads().size());
    std::this_thread::yield();
    EXPECT_TRUE(isHostResting);
    ++lentTurns;
  });
  StartEngine();
  for (int rests = 0; !Await(ends, 1, 0s); ++rests) {
    isHostResting = true;
    feed->Rest(rests % 2 == 0 ? 0ms : 1ms);
    isHostResting = false;
  }
  // And one at the end.
  EXPECT_EQ(EPOCHS + 1, lentTurns);
  EXPECT_EQ(0, turns);
  EXPECT_EQ(0u, feed->GetReport().updatesMissed);
}

TEST_F(RecordingFeedTest, EndsTheRestAtALentTurnWithoutAnAnswer) {
  Feed(Rmc(0) + Rmc(1) + Rmc(2));
  int lentTurns = 0;
  feed->LendTurns([&] {
    if (++lentTurns == 1) {
      feed->Answer(1);
    }
  });
  StartEngine();
  auto rest = std::async(std::launch::async, [this] { feed->Rest(120s); });
  ASSERT_EQ(std::future_status::ready, rest.wait_for(60s));
  feed->Stop();
  engine.join();
  EXPECT_EQ(2, lentTurns);
  EXPECT_EQ(2u, GetReads().size());
}

TEST_F(RecordingFeedTest, HandsTheHostWhatALentTurnThrows) {
  Feed(Rmc(0));
  feed->LendTurns([] { throw std::runtime_error("the disk is full"); });
  StartEngine();
  auto rest = std::async(std::launch::async, [this] { feed->Rest(120s); });
  ASSERT_EQ(std::future_status::ready, rest.wait_for(60s));
  EXPECT_THROW(rest.get(), std::runtime_error);
}

}  // namespace
}  // namespace host
