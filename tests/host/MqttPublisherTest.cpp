#include <gtest/gtest.h>

#include <array>
#include <regex>

#include "TestBroker.h"
#include "TestFolder.h"
#include "base/FileDescriptor.h"
#include "drives/DriveStore.h"
#include "mqtt/MqttPublisher.h"

namespace host {
namespace {

using Keeping = MqttPublisher::Keeping;

class MqttPublisherTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!TestBroker::IsInstalled()) {
      GTEST_SKIP() << "mosquitto is not installed";
    }
  }

  std::unique_ptr<MqttPublisher> Start(std::int64_t mostKept = StateQueue::MOST_KEPT) const {
    return Start(mostKept, folder.GetPath());
  }

  std::unique_ptr<MqttPublisher> Start(std::int64_t mostKept, const std::string& home) const {
    Broker broker;
    broker.host = "127.0.0.1";
    broker.port = server.GetPort();
    broker.id = "box";
    return std::make_unique<MqttPublisher>(broker, std::make_unique<StateQueue>(home, mostKept));
  }

  /// Gives {"n":first} to {"n":last} to the history.
  static void Take(MqttPublisher& publisher, int first, int last) {
    for (int n = first; n <= last; ++n) {
      publisher.Take(StateOf(n), Keeping::HISTORY);
    }
  }

  static std::string StateOf(int n) { return R"({"n":)" + std::to_string(n) + "}"; }

  /// The message of the history with this number, whose state is n.
  std::string HistoryOf(int number, int n) const {
    return R"(ferolin/box/history {"series":")" + StateQueue(folder.GetPath()).GetSeries() +
           R"(","number":)" + std::to_string(number) + R"(,"n":)" + std::to_string(n) + "}";
  }

  /// Numbers of the history as a reader counts them: one that is not greater than the one before
  /// has been there already.
  static std::vector<int> CountNumbers(const TestBroker::Reader& reader) {
    std::vector<int> numbers = {0};
    for (const std::string& line : reader.GetLines()) {
      std::smatch match;
      const bool isHistory =
          std::regex_search(line, match, std::regex(R"("number":(\d+),"n":(\d+))"));
      if (isHistory && std::stoi(match[1]) > numbers.back()) {
        EXPECT_EQ(match[1], match[2]);
        numbers.push_back(std::stoi(match[1]));
      }
    }
    numbers.erase(numbers.begin());
    return numbers;
  }

  static std::vector<int> FromOneTo(int last) {
    std::vector<int> numbers;
    for (int number = 1; number <= last; ++number) {
      numbers.push_back(number);
    }
    return numbers;
  }

  /// Changes the file of the states behind the publisher's back.
  void ChangeFile(const char* sql) const {
    Database(folder.GetPath(), DriveStore::FILE_NAME, Database::Missing::REFUSE).Execute(sql);
  }

  static bool AwaitNews(MqttPublisher& publisher, const std::string& part) {
    return Await([&] {
      const std::vector<std::string> news = publisher.TakeNews();
      return std::any_of(news.begin(), news.end(), [&part](const std::string& text) {
        return text.find(part) != std::string::npos;
      });
    });
  }

  TestBroker server;
  TestFolder folder;
};

TEST_F(MqttPublisherTest, SendsTheHistoryOnceAndInItsOrder) {
  server.Start();
  const TestBroker::Reader reader(server, "reader", "ferolin/#");
  const auto publisher = Start();
  Take(*publisher, 1, 100);
  publisher->Finish();
  ASSERT_TRUE(reader.AwaitLine(HistoryOf(100, 100)));
  std::vector<std::string> history;
  for (const std::string& line : reader.GetLines()) {
    if (line.starts_with("ferolin/box/history")) {
      history.push_back(line);
    }
  }
  ASSERT_EQ(100u, history.size());
  for (int n = 1; n <= 100; ++n) {
    EXPECT_EQ(HistoryOf(n, n), history[static_cast<std::size_t>(n - 1)]);
  }
  EXPECT_EQ(0, StateQueue(folder.GetPath()).Count());
}

TEST_F(MqttPublisherTest, LeavesTheLatestStateAndTheStatusForThoseWhoComeLater) {
  server.Start();
  {
    const auto publisher = Start();
    ASSERT_TRUE(AwaitNews(*publisher, "is connected; states go to ferolin/box/state"));
    const TestBroker::Reader early(server, "early", "ferolin/#");
    EXPECT_TRUE(early.AwaitLine("ferolin/box/status online"));
    publisher->Take(StateOf(1), Keeping::HISTORY);
    publisher->Take(StateOf(2), Keeping::LATEST);
    EXPECT_TRUE(early.AwaitLine("ferolin/box/state {\"n\":2}"));
  }
  const TestBroker::Reader late(server, "late", "ferolin/#");
  EXPECT_TRUE(late.AwaitLine("ferolin/box/status offline"));
  EXPECT_TRUE(late.AwaitLine("ferolin/box/state {\"n\":2}"));
  EXPECT_EQ(2u, late.GetLines().size());
}

/// The last will is for a box that vanishes.
TEST_F(MqttPublisherTest, SaysGoodbyeOnce) {
  server.Start();
  const TestBroker::Reader reader(server, "reader", "ferolin/box/status");
  Start()->Finish();
  const auto next = Start();
  const std::vector<std::string> expected = {
      "ferolin/box/status online", "ferolin/box/status offline", "ferolin/box/status online"};
  EXPECT_TRUE(Await([&reader] { return reader.GetLines().size() >= 3; }));
  EXPECT_EQ(expected, reader.GetLines());
}

TEST_F(MqttPublisherTest, LosesNothingWhenTheBrokerEndsAndComesBack) {
  server.Start();
  const TestBroker::Reader reader(server, "reader", "ferolin/#");
  const auto publisher = Start();
  Take(*publisher, 1, 30);
  server.Stop();
  Take(*publisher, 31, 60);
  ASSERT_TRUE(AwaitNews(*publisher, "; states wait on the disk"));
  server.Start();
  Take(*publisher, 61, 90);
  ASSERT_TRUE(reader.AwaitLine(HistoryOf(90, 90)));
  EXPECT_EQ(FromOneTo(90), CountNumbers(reader));
  EXPECT_TRUE(reader.AwaitLine("ferolin/box/state {\"n\":90}"));
}

TEST_F(MqttPublisherTest, SendsAgainWhatAKilledBrokerHasNotAcknowledged) {
  server.Start();
  const TestBroker::Reader reader(server, "reader", "ferolin/#");
  const auto publisher = Start();
  Take(*publisher, 1, 5);
  ASSERT_TRUE(reader.AwaitLine(HistoryOf(5, 5)));
  server.Freeze();
  // Fewer than may wait for their acknowledgement: all are sent.
  Take(*publisher, 6, 15);
  ASSERT_TRUE(Await([this] { return StateQueue(folder.GetPath()).Count() >= 10; }));
  server.Kill();
  server.Start();
  ASSERT_TRUE(reader.AwaitLine(HistoryOf(15, 15)));
  EXPECT_EQ(FromOneTo(15), CountNumbers(reader));
  EXPECT_TRUE(reader.AwaitLine("ferolin/box/state {\"n\":15}"));
}

TEST_F(MqttPublisherTest, ReachesABrokerThatStartsLater) {
  const auto publisher = Start();
  ASSERT_TRUE(AwaitNews(
      *publisher, "cannot reach the MQTT broker 127.0.0.1:" + std::to_string(server.GetPort()) +
                      ": Connection refused; states wait on the disk"));
  Take(*publisher, 1, 1);
  server.Start();
  EXPECT_TRUE(AwaitNews(*publisher, "is connected"));
}

TEST_F(MqttPublisherTest, SendsInTheNextRunWhatWasLeft) {
  {
    const auto publisher = Start();
    Take(*publisher, 1, 50);
  }
  EXPECT_EQ(50, StateQueue(folder.GetPath()).Count());
  server.Start();
  const TestBroker::Reader reader(server, "reader", "ferolin/#");
  Take(*Start(), 51, 60);
  ASSERT_TRUE(reader.AwaitLine(HistoryOf(60, 60)));
  EXPECT_EQ(FromOneTo(60), CountNumbers(reader));
}

TEST_F(MqttPublisherTest, GivesTheOldestStatesUpWhenThereAreTooMany) {
  const auto publisher = Start(5);
  Take(*publisher, 1, 8);
  EXPECT_TRUE(AwaitNews(*publisher, "the oldest ones are given up"));
  publisher->Finish();
  EXPECT_EQ(5, StateQueue(folder.GetPath()).Count());
  server.Start();
  const TestBroker::Reader reader(server, "reader", "ferolin/#");
  const auto next = Start();
  ASSERT_TRUE(reader.AwaitLine(HistoryOf(8, 8)));
  EXPECT_EQ((std::vector<int>{4, 5, 6, 7, 8}), CountNumbers(reader));
}

TEST_F(MqttPublisherTest, HoldsStatesInMemoryWhileTheDiskTakesNone) {
  server.Start();
  const TestBroker::Reader reader(server, "reader", "ferolin/#");
  const auto publisher = Start();
  ASSERT_TRUE(AwaitNews(*publisher, "is connected"));
  ChangeFile("ALTER TABLE states RENAME TO away");
  Take(*publisher, 1, 1);
  EXPECT_TRUE(AwaitNews(*publisher, "states for the MQTT broker cannot be kept at present: "));
  Take(*publisher, 2, 2);
  EXPECT_TRUE(reader.AwaitLine("ferolin/box/state {\"n\":2}"));
  EXPECT_EQ((std::vector<std::string>{}), publisher->TakeNews());
  ChangeFile("ALTER TABLE away RENAME TO states");
  Take(*publisher, 3, 3);
  EXPECT_TRUE(reader.AwaitLine(HistoryOf(3, 3)));
  EXPECT_EQ(FromOneTo(3), CountNumbers(reader));
}

/// An hour of them.
TEST_F(MqttPublisherTest, HoldsNoMoreThanSevenHundredAndTwentyInMemory) {
  const auto publisher = Start();
  ChangeFile("ALTER TABLE states RENAME TO away");
  Take(*publisher, 1, 721);
  EXPECT_TRUE(AwaitNews(*publisher, "the oldest ones are given up"));
  ChangeFile("ALTER TABLE away RENAME TO states");
  Take(*publisher, 722, 722);
  publisher->Finish();
  StateQueue queue(folder.GetPath());
  EXPECT_EQ(721, queue.Count());
  EXPECT_EQ(StateOf(2), queue.Read(0, 1).front().text);
}

TEST_F(MqttPublisherTest, EndsSoonWhenTheBrokerSaysNothing) {
  server.Start();
  const auto publisher = Start();
  ASSERT_TRUE(AwaitNews(*publisher, "is connected"));
  server.Freeze();
  Take(*publisher, 1, 1);
  const auto start = std::chrono::steady_clock::now();
  publisher->Finish();
  const auto lasted = std::chrono::steady_clock::now() - start;
  EXPECT_GE(lasted, std::chrono::seconds(3));
  EXPECT_LT(lasted, std::chrono::seconds(30));
  EXPECT_EQ(1, StateQueue(folder.GetPath()).Count());
}

TEST_F(MqttPublisherTest, LeavesABrokerThatHangsUpAloneForASecondAndThenForTwo) {
  const FileDescriptor listener(server.Listen());
  const auto publisher = Start();
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 3; ++i) {
    const FileDescriptor connection(accept(listener.Get(), nullptr, nullptr));
    std::array<char, 1024> greeting;
    EXPECT_LT(0, recv(connection.Get(), greeting.data(), greeting.size(), 0));
  }
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
  EXPECT_EQ(1u, publisher->TakeNews().size());
}

TEST_F(MqttPublisherTest, IsThrownOutByABoxOfTheSameName) {
  server.Start();
  const auto publisher = Start();
  ASSERT_TRUE(AwaitNews(*publisher, "is connected"));
  const TestFolder other;
  const auto twin = Start(StateQueue::MOST_KEPT, other.GetPath());
  EXPECT_TRUE(AwaitNews(*publisher, "is gone: the connection is lost; states wait on the disk"));
}

}  // namespace
}  // namespace host
