#include "run/MqttStates.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <utility>

#include "base/HostError.h"
#include "engine/Figures.h"
#include "mqtt/BoxId.h"
#include "outputs/JsonWriter.h"

namespace host {

namespace {

std::string ReadFirstLine(const std::string& path) {
  std::ifstream file(path);
  std::string line;
  if (!std::getline(file, line)) {
    throw HostError("cannot read " + path + ": " +
                    (file.is_open() ? "it is empty" : std::strerror(errno)));
  }
  return line;
}

Broker MakeBroker(const Options::Mqtt& options) {
  Broker broker;
  broker.host = options.host;
  broker.port =
      options.port.value_or(options.hasTls ? Broker::USUAL_PORT_WITH_TLS : Broker::USUAL_PORT);
  broker.user = options.user;
  if (!options.passwordFile.empty()) {
    broker.password = ReadFirstLine(options.passwordFile);
  }
  if (options.hasTls) {
    broker.trusted = options.trusted;
  }
  if (!options.trusted.empty()) {
    ReadFirstLine(options.trusted);
  }
  return broker;
}

}  // namespace

MqttStates::MqttStates(const EngineLibrary& engine, const Options& options, const HomeFolder& home,
                       Messages& messages)
    : engine(engine), messages(messages) {
  if (options.mqtt.host.empty()) {
    return;
  }
  Broker broker = MakeBroker(options.mqtt);
  try {
    broker.id = ChooseBoxId(options.mqtt.id, home.GetPath());
    publisher = std::make_unique<MqttPublisher>(std::move(broker),
                                                std::make_unique<StateQueue>(home.GetPath()));
  } catch (const HostError& error) {
    messages.SayLoss(std::string("no states go to the MQTT broker: ") + error.what());
  }
}

void MqttStates::OnUpdate(const Update& update) {
  const auto now = std::chrono::steady_clock::now();
  if (publisher && now >= next) {
    next = now + INTERVAL;
    Publish(update);
  }
}

void MqttStates::Publish(const Update& update) {
  std::string state = JsonState(update, ReadFigures(engine));
  if (state == latest) {
    return;
  }
  latest = state;
  const bool hasFix = update.fix && update.fix->hasFix;
  const bool isHistory = std::exchange(hadFix, hasFix) || hasFix;
  publisher->Take(std::move(state),
                  isHistory ? MqttPublisher::Keeping::HISTORY : MqttPublisher::Keeping::LATEST);
}

void MqttStates::SayNews() {
  if (publisher) {
    for (const std::string& news : publisher->TakeNews()) {
      messages.Say(news);
    }
  }
}

void MqttStates::Finish(const Update& last) {
  if (publisher) {
    Publish(last);
    publisher->Finish();
    SayNews();
  }
}

}  // namespace host
