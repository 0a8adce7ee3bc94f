#include <gtest/gtest.h>

#include <vector>

#include "web/EventStreams.h"

namespace host {
namespace {

using namespace std::chrono_literals;
using News = EventStream::News;

/// Streams whose events are single letters.
class EventStreamsTest : public testing::Test {
 protected:
  static std::string Describe(const EventStream& /*stream*/, News news) {
    return std::string(1, "HLVU"[static_cast<int>(news)]);
  }

  std::shared_ptr<EventStream> Add(const std::string& client, bool wantsViews = false) {
    return streams.Add({client, Role::LOOK, wantsViews}, client == "127.0.0.1", HAS_PICTURE);
  }

  /// The events that wait. Leaves at least one unread, so that no connection is needed.
  static std::string Read(EventStream& stream, std::size_t count) {
    std::string text;
    for (char letter = 0; text.size() < count && stream.Read(nullptr, &letter, 1) == 1;) {
      text += letter;
    }
    return text;
  }

  static constexpr bool HAS_PICTURE = true;
  EventStreams streams{Describe};
};

TEST_F(EventStreamsTest, AClientHasEightOfThem) {
  for (int i = 0; i < 8; ++i) {
    EXPECT_NE(nullptr, Add("192.168.1.2"));
  }
  EXPECT_EQ(nullptr, Add("192.168.1.2"));
  const auto other = Add("192.168.1.3");
  EXPECT_NE(nullptr, other);
  streams.Remove(other);
  EXPECT_EQ(8u, streams.Count());
}

TEST_F(EventStreamsTest, ThisMachineHasAllThatAreLeft) {
  for (int i = 0; i < 8; ++i) {
    Add("192.168.1.2");
  }
  for (int i = 8; i < 32; ++i) {
    EXPECT_NE(nullptr, Add("127.0.0.1"));
  }
  EXPECT_EQ(nullptr, Add("127.0.0.1"));
}

TEST_F(EventStreamsTest, BeginsWithHelloPictureAndUpdate) {
  EXPECT_EQ("HVU", Read(*Add("a", true), 3));
  EXPECT_EQ("HU", Read(*Add("a", false), 2));
}

/// However long a browser takes nothing: it gets each kind of news once.
TEST_F(EventStreamsTest, KeepsOnlyThatSomethingIsNew) {
  const auto stream = Add("a", true);
  EXPECT_EQ("HV", Read(*stream, 2));
  for (int i = 0; i < 1000; ++i) {
    streams.Tell(News::UPDATE);
    streams.Tell(News::VIEW);
  }
  streams.Tell(stream->GetNumber(), News::LEFT);
  stream->End();
  EXPECT_EQ("LVU", Read(*stream, 4));
}

TEST_F(EventStreamsTest, TellsOthersNothingThatIsForOne) {
  const auto one = Add("a");
  const auto other = Add("a");
  streams.Tell(one->GetNumber(), News::LEFT);
  streams.End();
  EXPECT_EQ("HLU", Read(*one, 9));
  EXPECT_EQ("HU", Read(*other, 9));
}

TEST_F(EventStreamsTest, TellsPicturesToThoseWhoLookAtThem) {
  const auto reader = Add("a");
  const auto viewer = Add("a", true);
  EXPECT_EQ("HU", Read(*reader, 2));
  EXPECT_EQ("HVU", Read(*viewer, 3));
  streams.Tell(News::VIEW);
  streams.End();
  EXPECT_EQ("", Read(*reader, 9));
  EXPECT_EQ("V", Read(*viewer, 9));
}

TEST_F(EventStreamsTest, BeatsWhenNothingWasSent) {
  const auto stream = Add("a");
  const auto before = std::chrono::steady_clock::now();
  EXPECT_EQ("HU", Read(*stream, 2));
  streams.Beat(before + 2s);
  stream->End();
  EXPECT_EQ("", Read(*stream, 9));
  const auto after = std::chrono::steady_clock::now();
  streams.Beat(after + 2001ms);
  streams.Beat(after + 2001ms);
  EXPECT_EQ("U", Read(*stream, 9));
}

TEST_F(EventStreamsTest, CountsWhoLooksAtThePicture) {
  Add("a");
  const auto viewer = Add("a", true);
  EXPECT_EQ(1u, streams.CountViewers());
  streams.Remove(viewer);
  EXPECT_EQ(0u, streams.CountViewers());
}

}  // namespace
}  // namespace host
