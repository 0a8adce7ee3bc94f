#include <gtest/gtest.h>

#include <deque>

#include "sources/SourceReader.h"

namespace host {
namespace {

using namespace std::chrono_literals;

/// Gives its pieces one by one; behind the last one waits for Stop, or ends.
class PieceSource : public NmeaSource {
 public:
  enum class End { WAITS, COMES };

  PieceSource(std::deque<std::string> pieces, End end) : pieces(std::move(pieces)), end(end) {}

  std::optional<std::string> Read() override {
    std::unique_lock lock(mutex);
    if (pieces.empty() && end == End::WAITS) {
      changed.wait(lock, [this] { return isStopped; });
    }
    if (pieces.empty() || isStopped) {
      return std::nullopt;
    }
    std::string piece = std::move(pieces.front());
    pieces.pop_front();
    return piece;
  }
  void Stop() override {
    const std::lock_guard lock(mutex);
    isStopped = true;
    changed.notify_all();
  }
  std::optional<std::uint64_t> GetSize() const override { return std::nullopt; }
  bool IsLive() const override { return true; }

 private:
  std::mutex mutex;
  std::condition_variable changed;
  std::deque<std::string> pieces;
  const End end;
  bool isStopped = false;
};

TEST(SourceReaderTest, GivesEverythingInOrderAndThenTheEnd) {
  PieceSource source({"a", "bc", "d"}, PieceSource::End::COMES);
  SourceReader reader(source);
  reader.Start();
  std::string all;
  while (const std::optional<std::string> bytes = reader.Read(10s)) {
    all += *bytes;
  }
  EXPECT_EQ("abcd", all);
  EXPECT_EQ(std::nullopt, reader.Read(10s));
}

TEST(SourceReaderTest, TellsThatNothingHasCome) {
  PieceSource source({}, PieceSource::End::WAITS);
  SourceReader reader(source);
  reader.Start();
  EXPECT_EQ("", reader.Read(1ms));
}

TEST(SourceReaderTest, KeepsAFloodWaiting) {
  const std::string block(50000, 'x');
  PieceSource source({block, block, block, block}, PieceSource::End::COMES);
  SourceReader reader(source);
  reader.Start();
  std::size_t size = 0;
  while (const std::optional<std::string> bytes = reader.Read(10s)) {
    // The second block goes beyond what may wait.
    EXPECT_LE(bytes->size(), 100000u);
    size += bytes->size();
    std::this_thread::sleep_for(20ms);
  }
  EXPECT_EQ(200000u, size);
}

TEST(SourceReaderTest, StopsWhileTheSourceWaits) {
  PieceSource source({}, PieceSource::End::WAITS);
  SourceReader reader(source);
  reader.Start();
  reader.Stop();
  EXPECT_EQ(std::nullopt, reader.Read(10s));
}

}  // namespace
}  // namespace host
