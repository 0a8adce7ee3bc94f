// States of the drive for a broker.
#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "base/Messages.h"
#include "commandline/Options.h"
#include "engine/EngineLibrary.h"
#include "engine/Readout.h"
#include "mqtt/MqttPublisher.h"
#include "run/HomeFolder.h"

namespace host {

/// Gives a state to the publisher every few seconds, and the last one at the end. The history has
/// every state with a position, and the first one without. For the host's thread.
class MqttStates {
 public:
  /// Shortest time between two states.
  static constexpr std::chrono::seconds INTERVAL{5};

  /// Does nothing unless the user names a broker. Throws HostError when a file that the user names
  /// cannot be read. Engine and messages outlive this object.
  MqttStates(const EngineLibrary& engine, const Options& options, const HomeFolder& home,
             Messages& messages);

  void OnUpdate(const Update& update);

  /// Tells whether the broker is connected.
  void SayNews();

  void Finish(const Update& last);

 private:
  void Publish(const Update& update);

  const EngineLibrary& engine;
  Messages& messages;
  /// Null without a broker.
  std::unique_ptr<MqttPublisher> publisher;
  std::chrono::steady_clock::time_point next;
  std::string latest;
  bool hadFix = false;
};

}  // namespace host
