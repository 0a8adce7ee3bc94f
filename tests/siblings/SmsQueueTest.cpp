#include <gtest/gtest.h>

#include <algorithm>
#include <future>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "parlex/SmsQueue.h"

namespace parlex {
namespace {

using namespace std::chrono_literals;

/// Record of what the queue did. Read it after the queue is destroyed.
struct Record {
  std::vector<std::string> sent;
  std::vector<Outcome> outcomes;
};

SmsQueue::Report Into(Record& record) {
  return [&record](const Result& result) { record.outcomes.push_back(result.outcome); };
}

/// A modem that accepts every message.
SmsQueue::Send Willing(Record& record) {
  return [&record](const Sms& sms, Patience&) {
    record.sent.push_back(sms.number + ":" + sms.text);
    return Result{Outcome::SENT, {}};
  };
}

/// A modem that never answers; waits until the patience ends.
Result NeverAnswers(const Sms&, Patience& patience) {
  while (!patience.IsOver()) {
    patience.AwaitDescriptor(-1, 0, Patience::Clock::time_point::max());
  }
  return {Outcome::NO_ANSWER, {}};
}

TEST(SmsQueueTest, SendsInTheOrderGiven) {
  Record record;
  {
    SmsQueue queue(Willing(record), Into(record), 1h);
    queue.Push({"111", "a"});
    queue.Push({"222", "b"});
    queue.Push({"111", "c"});
  }
  EXPECT_EQ((std::vector<std::string>{"111:a", "222:b", "111:c"}), record.sent);
  EXPECT_EQ((std::vector<Outcome>(3, Outcome::SENT)), record.outcomes);
}

TEST(SmsQueueTest, CallerDoesNotWaitForTheModem) {
  Record record;
  std::promise<void> release;
  {
    SmsQueue queue(
        [released = release.get_future().share(), &record](const Sms& sms, Patience&) {
          released.wait();
          record.sent.push_back(sms.number);
          return Result{Outcome::SENT, {}};
        },
        Into(record), 1h);
    queue.Push({"111", ""});
    queue.Push({"222", ""});
    // Push has returned although no message can have been sent yet.
    release.set_value();
  }
  EXPECT_EQ((std::vector<std::string>{"111", "222"}), record.sent);
}

TEST(SmsQueueTest, UnusedQueueEndsAtOnce) {
  Record record;
  { SmsQueue queue(Willing(record), Into(record), 1h); }
  EXPECT_TRUE(record.outcomes.empty());
}

TEST(SmsQueueTest, ModemThatDoesNotAnswerIsGivenUpAtTheEnd) {
  Record record;
  {
    SmsQueue queue(NeverAnswers, Into(record), 50ms);
    queue.Push({"111", ""});
    queue.Push({"222", ""});
  }
  EXPECT_EQ((std::vector<Outcome>(2, Outcome::UNLOADED)), record.outcomes);
}

TEST(SmsQueueTest, ModemThatDoesNotAnswerInTimeIsJustThat) {
  Record record;
  {
    SmsQueue queue(
        [](const Sms&, Patience&) {
          return Result{Outcome::NO_ANSWER, {}};
        },
        Into(record), 1h);
    queue.Push({"111", ""});
  }
  EXPECT_EQ((std::vector<Outcome>{Outcome::NO_ANSWER}), record.outcomes);
}

TEST(SmsQueueTest, FailureDoesNotHoldUpTheNext) {
  Record record;
  {
    SmsQueue queue(
        [](const Sms& sms, Patience&) {
          if (sms.number == "111") {
            throw std::runtime_error("out of memory");
          }
          return Result{Outcome::SENT, {}};
        },
        Into(record), 1h);
    queue.Push({"111", ""});
    queue.Push({"222", ""});
  }
  EXPECT_EQ((std::vector<Outcome>{Outcome::NO_RESOURCES, Outcome::SENT}), record.outcomes);
}

TEST(SmsQueueTest, WhatFindsTheQueueFullIsDropped) {
  std::promise<void> begun;
  std::vector<Outcome> dropped;
  Record record;
  {
    SmsQueue queue(
        [&begun, &record](const Sms& sms, Patience& patience) {
          if (sms.number == "first") {
            begun.set_value();
          }
          record.sent.push_back(sms.number);
          return NeverAnswers(sms, patience);
        },
        [&dropped](const Result& result) {
          if (result.outcome == Outcome::QUEUE_FULL) {
            dropped.push_back(result.outcome);
          }
        },
        0ms);
    queue.Push({"first", ""});
    begun.get_future().wait();
    // The first message is being sent and does not wait.
    for (std::size_t i = 0; i < SmsQueue::CAPACITY + 2; i++) {
      queue.Push({"next", ""});
    }
    EXPECT_EQ(2u, dropped.size());
  }
  EXPECT_EQ((std::vector<std::string>{"first"}), record.sent);
}

TEST(PatienceTest, LastsWithoutEndUntilOneIsSet) {
  Patience patience;
  EXPECT_FALSE(patience.IsOver());
  EXPECT_EQ(patience.GetEnd(), Patience::Clock::time_point::max());
  patience.EndIn(1h);
  EXPECT_FALSE(patience.IsOver());
  patience.EndIn(0ms);
  EXPECT_TRUE(patience.IsOver());
}

TEST(PatienceTest, WaitIsCutShortWhenTheEndIsSet) {
  Patience patience;
  std::thread hurrier([&patience] { patience.EndIn(0ms); });
  while (!patience.IsOver()) {
    patience.AwaitDescriptor(-1, 0, Patience::Clock::time_point::max());
  }
  hurrier.join();
}

TEST(PatienceTest, WaitEndsAtTheDeadline) {
  Patience patience;
  const auto deadline = Patience::Clock::now() + 20ms;
  patience.AwaitDescriptor(-1, 0, deadline);
  EXPECT_GE(Patience::Clock::now(), deadline);
}

}  // namespace
}  // namespace parlex
