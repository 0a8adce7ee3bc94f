#include <gtest/gtest.h>
#include <poll.h>

#include "web/Exchange.h"

namespace host {
namespace {

using Kind = RemoteInput::Kind;

class ExchangeTest : public testing::Test {
 protected:
  void Put(Kind kind, int x = 0) {
    RemoteInput input;
    input.kind = kind;
    input.x = x;
    exchange.PutInput(input);
  }

  /// Whether the server's wait would end.
  bool IsAwake() const {
    pollfd wait = {exchange.GetWakeDescriptor(), POLLIN, 0};
    return poll(&wait, 1, 0) == 1;
  }

  static Update MakeUpdate(bool hasFix, const std::string& notice = "") {
    Update update;
    update.fix.emplace().hasFix = hasFix;
    update.notice = notice;
    return update;
  }

  int told = 0;
  Exchange exchange{[this] { ++told; }};
};

/// Of a dragged finger only the newest place counts.
TEST_F(ExchangeTest, KeepsTheNewestOfMovesInARow) {
  Put(Kind::DOWN, 1);
  Put(Kind::MOVE, 2);
  Put(Kind::MOVE, 3);
  Put(Kind::UP, 4);
  Put(Kind::MOVE, 5);
  std::vector<int> places;
  for (const RemoteInput& input : exchange.TakeInputs()) {
    places.push_back(input.x);
  }
  EXPECT_EQ((std::vector<int>{1, 3, 4, 5}), places);
  EXPECT_TRUE(exchange.TakeInputs().empty());
  EXPECT_EQ(5, told);
}

TEST_F(ExchangeTest, DropsInputThatABusyHostDoesNotTake) {
  for (int i = 0; i < 1000; ++i) {
    Put(Kind::KEY);
  }
  EXPECT_EQ(64u, exchange.TakeInputs().size());
}

TEST_F(ExchangeTest, RemembersTheLastFixAndTheLastWordOfTheReceiver) {
  EXPECT_FALSE(exchange.GetSnapshot()->lastFix);
  exchange.PutUpdate(MakeUpdate(false), {});
  EXPECT_FALSE(exchange.GetSnapshot()->lastFix);
  exchange.PutUpdate(MakeUpdate(true), {});
  const auto fixed = exchange.GetSnapshot();
  ASSERT_TRUE(fixed->lastFix);
  EXPECT_EQ(fixed->lastHeard, *fixed->lastFix);
  exchange.PutUpdate(MakeUpdate(false, "no data for 3 s"), {});
  EXPECT_EQ(fixed->lastFix, exchange.GetSnapshot()->lastFix);
  EXPECT_EQ(fixed->lastHeard, exchange.GetSnapshot()->lastHeard);
}

TEST_F(ExchangeTest, WakesTheServerForListenersOnly) {
  WebFacts facts;
  facts.isRussian = true;
  exchange.PutUpdate({}, {});
  exchange.PutFacts(facts);
  EXPECT_FALSE(IsAwake());
  exchange.SetListeners(1);
  exchange.PutFacts(facts);
  EXPECT_FALSE(IsAwake());
  facts.dpi = 96;
  exchange.PutFacts(facts);
  EXPECT_TRUE(IsAwake());
}

TEST_F(ExchangeTest, TellsTheHostWhenTheFirstViewerComesAndTheLastOneGoes) {
  exchange.SetViewers(1);
  exchange.SetViewers(2);
  EXPECT_TRUE(exchange.HasViewers());
  EXPECT_EQ(1, told);
  exchange.SetViewers(0);
  EXPECT_FALSE(exchange.HasViewers());
  EXPECT_EQ(2, told);
}

}  // namespace
}  // namespace host
