#include "mqtt/MqttConnection.h"

#include <poll.h>
#include <sys/socket.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace host {

namespace {

constexpr int AT_LEAST_ONCE = 1;
/// After so long without a word, both sides ask whether the other one is still there.
constexpr int KEEP_ALIVE_SECONDS = 30;
/// Time for connecting, encrypting and being let in.
constexpr std::chrono::seconds PATIENCE(20);
/// Where Debian keeps the certificates of the system.
constexpr const char* SYSTEM_CERTIFICATES = "/etc/ssl/certs";

// Answers of a broker (MQTT 3.1.1, 3.2.2.3).
constexpr int ACCEPTED = 0;
constexpr int BAD_USER_OR_PASSWORD = 4;
constexpr int NOT_AUTHORIZED = 5;

bool IsRetained(const MqttMessage& message) {
  return message.use == MqttMessage::Use::RETAINED;
}

}  // namespace

MqttConnection::MqttConnection(const Broker& broker, const MqttMessage& lastWill)
    : client(mosquitto_new(("ferolin-" + broker.id).c_str(), true, this)) {
  if (!client) {
    trouble = std::strerror(errno);
    return;
  }
  SetUp(broker, lastWill);
  if (trouble.empty()) {
    Check(mosquitto_connect_async(client.get(), broker.host.c_str(), broker.port,
                                  KEEP_ALIVE_SECONDS));
  }
}

MqttConnection::~MqttConnection() {
  if (isConnected && trouble.empty()) {
    mosquitto_disconnect(client.get());
  }
}

void MqttConnection::SetUp(const Broker& broker, const MqttMessage& lastWill) {
  mosquitto_connect_callback_set(client.get(), [](mosquitto*, void* self, int code) {
    static_cast<MqttConnection*>(self)->OnAnswer(code);
  });
  mosquitto_publish_callback_set(client.get(), [](mosquitto*, void* self, int id) {
    static_cast<MqttConnection*>(self)->acknowledged.push_back(id);
  });
  mosquitto_log_callback_set(client.get(), [](mosquitto*, void* self, int level, const char* text) {
    if (level == MOSQ_LOG_ERR) {
      static_cast<MqttConnection*>(self)->complaint = text;
    }
  });
  mosquitto_will_set(client.get(), lastWill.topic.c_str(),
                     static_cast<int>(lastWill.payload.size()), lastWill.payload.data(),
                     AT_LEAST_ONCE, IsRetained(lastWill));
  if (!broker.user.empty()) {
    mosquitto_username_pw_set(client.get(), broker.user.c_str(), broker.password.c_str());
  }
  if (broker.trusted) {
    SetTrust(*broker.trusted);
  }
}

void MqttConnection::SetTrust(const std::string& file) {
  const char* const trustedFile = file.empty() ? nullptr : file.c_str();
  const char* const trustedFolder = file.empty() ? SYSTEM_CERTIFICATES : nullptr;
  const int result =
      mosquitto_tls_set(client.get(), trustedFile, trustedFolder, nullptr, nullptr, nullptr);
  if (result != MOSQ_ERR_SUCCESS) {
    trouble = "cannot use the certificates in " + (file.empty() ? SYSTEM_CERTIFICATES : file);
  }
}

void MqttConnection::OnAnswer(int code) {
  isConnected = code == ACCEPTED;
  if (code == BAD_USER_OR_PASSWORD || code == NOT_AUTHORIZED) {
    trouble = "it refuses the user name or the password";
  } else if (!isConnected) {
    trouble = mosquitto_connack_string(code);
  }
}

void MqttConnection::Work(std::chrono::milliseconds longest) {
  constexpr int PACKETS = 1;  // has no effect, but must not be less
  if (!isOpen) {
    AwaitOpen(longest);
  } else {
    Check(mosquitto_loop(client.get(), static_cast<int>(longest.count()), PACKETS));
  }
  if (!isConnected && trouble.empty() && Clock::now() - begin > PATIENCE) {
    trouble = "no answer";
  }
}

/// A library that encrypts takes a connection that is refused for a busy one, and tries without a
/// pause.
void MqttConnection::AwaitOpen(std::chrono::milliseconds longest) {
  pollfd wait = {mosquitto_socket(client.get()), POLLOUT, 0};
  if (poll(&wait, 1, static_cast<int>(longest.count())) <= 0) {
    return;
  }
  isOpen = (wait.revents & (POLLERR | POLLHUP)) == 0;
  if (!isOpen) {
    int error = 0;
    socklen_t size = sizeof error;
    getsockopt(wait.fd, SOL_SOCKET, SO_ERROR, &error, &size);
    // The library has taken the reason of a refusal that came at once.
    trouble = std::strerror(error == 0 ? ECONNREFUSED : error);
  }
}

int MqttConnection::Publish(const MqttMessage& message) {
  int id = 0;
  Check(mosquitto_publish(client.get(), &id, message.topic.c_str(),
                          static_cast<int>(message.payload.size()), message.payload.data(),
                          AT_LEAST_ONCE, IsRetained(message)));
  return id;
}

std::vector<int> MqttConnection::TakeAcknowledged() {
  return std::exchange(acknowledged, {});
}

void MqttConnection::Check(int result) {
  if (result != MOSQ_ERR_SUCCESS && trouble.empty()) {
    trouble = Explain(result);
  }
}

/// Call at once after the failure, before errno changes.
std::string MqttConnection::Explain(int result) const {
  switch (result) {
    case MOSQ_ERR_ERRNO:
      return std::strerror(errno);
    case MOSQ_ERR_EAI:
      return "its name is not known";
    case MOSQ_ERR_CONN_LOST:
      return "the connection is lost";
    case MOSQ_ERR_KEEPALIVE:
      return "no answer";
    case MOSQ_ERR_TLS:
      return complaint.empty() ? "TLS fails" : complaint;
    default:
      return mosquitto_strerror(result);
  }
}

}  // namespace host
