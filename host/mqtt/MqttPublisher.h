// Brings states to a broker, now or when it can be reached again.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "drives/StateQueue.h"
#include "mqtt/Broker.h"
#include "mqtt/MqttConnection.h"
#include "mqtt/Topics.h"

namespace host {

/// Works on a thread of its own, so that neither a slow network nor a slow disk holds up the
/// engine. The latest state is retained by the broker. The states of the history lie in a queue on
/// the disk until the broker has acknowledged them; they are sent in their order and numbered, and
/// after a lost connection again from the oldest one that is not acknowledged.
class MqttPublisher {
 public:
  enum class Keeping { LATEST, HISTORY };

  /// Longest time for the rest at the end.
  static constexpr std::chrono::seconds LONGEST_FAREWELL{3};

  /// Begins to connect.
  MqttPublisher(Broker broker, std::unique_ptr<StateQueue> queue);
  MqttPublisher(const MqttPublisher&) = delete;
  MqttPublisher& operator=(const MqttPublisher&) = delete;
  ~MqttPublisher();

  /// Takes the state as it is now, a JSON object, on any thread.
  void Take(std::string state, Keeping keeping);

  /// Sends what is left as far as the broker takes it soon, and says goodbye to it. No state may
  /// come any more.
  void Finish();

  /// What to tell the user since the last call: that the broker is connected, or why it is not.
  std::vector<std::string> TakeNews();

 private:
  using Clock = std::chrono::steady_clock;

  /// A message that the broker has not acknowledged yet.
  struct Unconfirmed {
    int id = 0;
    /// Of a state of the history; 0 for other messages.
    std::int64_t number = 0;
  };

  void Run();
  bool IsDone();
  void TakeStates();
  void KeepHistory();
  void ConnectOrWait();
  void FollowConnection();
  void OnTrouble();
  void Announce();
  void TakeConfirmations();
  void SendLatest();
  void SendHistory();
  void SendGoodbye();
  void Send(const MqttMessage& message, std::int64_t number = 0);
  std::string Number(const StateQueue::State& state) const;
  void Tell(const std::string& text);
  void TellProblem(const std::string& text);
  void TellLoss(std::int64_t count);

  const Broker broker;
  const std::string address;
  const Topics topics;

  // For the thread only.
  const std::unique_ptr<StateQueue> queue;
  /// Null between two attempts.
  std::unique_ptr<MqttConnection> connection;
  bool isAnnounced = false;
  Clock::time_point nextAttempt;
  std::chrono::milliseconds delay;
  /// Told last; empty while the broker is connected.
  std::string trouble;
  std::optional<std::string> latest;
  bool isLatestSent = true;
  /// Not on the disk yet.
  std::vector<std::string> history;
  /// The disk may hold states behind `sent`.
  bool hasHistory = true;
  /// Number of the newest state that was sent in this connection, and of the newest that the broker
  /// has acknowledged.
  std::int64_t sent = 0;
  std::int64_t taken = 0;
  /// In the order in which they were sent.
  std::deque<Unconfirmed> unconfirmed;
  bool hasProblem = false;
  bool hasLoss = false;
  std::optional<Clock::time_point> deadline;

  std::mutex mutex;
  std::condition_variable changed;
  std::optional<std::string> waitingLatest;
  std::vector<std::string> waitingHistory;
  std::vector<std::string> news;
  bool stopped = false;
  std::thread thread;
};

}  // namespace host
