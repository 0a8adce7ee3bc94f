// One connection to a broker.
#pragma once

#include <mosquitto.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "mqtt/Broker.h"

namespace host {

/// From the attempt to connect to the end: a new attempt is a new connection, which knows nothing
/// of messages of the one before. For one thread, on which everything happens within Work.
class MqttConnection {
 public:
  /// Begins to connect; the look-up of a name blocks. The broker publishes `lastWill` for a
  /// connection that ends without goodbye.
  MqttConnection(const Broker& broker, const MqttMessage& lastWill);
  MqttConnection(const MqttConnection&) = delete;
  MqttConnection& operator=(const MqttConnection&) = delete;
  /// Says goodbye to a broker that is connected.
  ~MqttConnection();

  /// Sends and receives; returns after something has happened, or after this time.
  void Work(std::chrono::milliseconds longest);

  /// Whether the broker has let us in.
  bool IsConnected() const { return isConnected; }

  /// Why the connection has ended or never came about, such as "Connection refused"; empty until
  /// then. No method but the destructor may follow.
  const std::string& GetTrouble() const { return trouble; }

  /// Hands a message over, to be delivered at least once (QoS 1). Returns its id.
  int Publish(const MqttMessage& message);

  /// Ids of the messages that the broker has acknowledged since the last call.
  std::vector<int> TakeAcknowledged();

 private:
  using Clock = std::chrono::steady_clock;

  struct Destroy {
    void operator()(mosquitto* client) const { mosquitto_destroy(client); }
  };

  void SetUp(const Broker& broker, const MqttMessage& lastWill);
  void SetTrust(const std::string& file);
  void AwaitOpen(std::chrono::milliseconds longest);
  void OnAnswer(int code);
  void Check(int result);
  std::string Explain(int result) const;

  std::unique_ptr<mosquitto, Destroy> client;
  const Clock::time_point begin = Clock::now();
  /// The broker's machine has taken the connection.
  bool isOpen = false;
  bool isConnected = false;
  std::string trouble;
  /// What the encryption complains about.
  std::string complaint;
  std::vector<int> acknowledged;
};

}  // namespace host
