#include "mqtt/MqttPublisher.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/HostError.h"
#include "mqtt/Discovery.h"

namespace host {

namespace {

/// Longest time until a new state is noticed.
constexpr std::chrono::milliseconds TURN(250);
// The time between two attempts to connect doubles from the first to the second.
constexpr std::chrono::milliseconds SHORTEST_DELAY(1000);
constexpr std::chrono::milliseconds LONGEST_DELAY(30000);
/// Messages that wait for their acknowledgement at a time.
constexpr std::size_t MOST_UNCONFIRMED = 20;
/// States held in memory while the disk takes nothing: an hour at one every 5 s.
constexpr std::size_t MOST_HELD = 720;

/// The library's own preparations, once in a process.
void PrepareLibrary() {
  [[maybe_unused]] static const int result = mosquitto_lib_init();
}

}  // namespace

MqttPublisher::MqttPublisher(Broker broker, std::unique_ptr<StateQueue> queue)
    : broker(std::move(broker)),
      address(DescribeAddress(this->broker)),
      topics(this->broker.id),
      queue(std::move(queue)),
      delay(SHORTEST_DELAY) {
  PrepareLibrary();
  thread = std::thread([this] { Run(); });
}

MqttPublisher::~MqttPublisher() {
  Finish();
}

void MqttPublisher::Take(std::string state, Keeping keeping) {
  {
    const std::lock_guard lock(mutex);
    if (keeping == Keeping::HISTORY) {
      waitingHistory.push_back(state);
    }
    waitingLatest = std::move(state);
  }
  changed.notify_all();
}

void MqttPublisher::Finish() {
  {
    const std::lock_guard lock(mutex);
    stopped = true;
  }
  changed.notify_all();
  if (thread.joinable()) {
    thread.join();
  }
}

std::vector<std::string> MqttPublisher::TakeNews() {
  const std::lock_guard lock(mutex);
  return std::exchange(news, {});
}

void MqttPublisher::Run() {
  do {
    TakeStates();
    if (connection) {
      connection->Work(TURN);
      FollowConnection();
    } else {
      ConnectOrWait();
    }
  } while (!IsDone());
  SendGoodbye();
  connection.reset();
  KeepHistory();
}

/// A broker that cannot be reached at the end is not waited for.
bool MqttPublisher::IsDone() {
  const std::lock_guard lock(mutex);
  if (!stopped || waitingLatest) {
    return false;
  }
  const Clock::time_point now = Clock::now();
  if (!deadline) {
    deadline = now + LONGEST_FAREWELL;
  }
  const bool isAllSent = isAnnounced && isLatestSent && !hasHistory && unconfirmed.empty();
  return isAllSent || now >= *deadline || (!connection && !trouble.empty());
}

void MqttPublisher::TakeStates() {
  {
    const std::lock_guard lock(mutex);
    if (waitingLatest) {
      latest = std::exchange(waitingLatest, {});
      isLatestSent = false;
    }
    std::move(waitingHistory.begin(), waitingHistory.end(), std::back_inserter(history));
    waitingHistory.clear();
  }
  if (!history.empty()) {
    KeepHistory();
  }
}

/// What was taken is removed together with the next addition: each commit wears the memory card,
/// and a state that is sent twice has the same number.
void MqttPublisher::KeepHistory() {
  try {
    TellLoss(queue->Add(history, taken));
    hasHistory = hasHistory || !history.empty();
    history.clear();
    hasProblem = false;
  } catch (const HostError& error) {
    TellProblem(error.what());
  }
  if (history.size() > MOST_HELD) {
    const std::size_t excess = history.size() - MOST_HELD;
    history.erase(history.begin(), history.begin() + static_cast<std::ptrdiff_t>(excess));
    TellLoss(static_cast<std::int64_t>(excess));
  }
}

void MqttPublisher::ConnectOrWait() {
  {
    std::unique_lock lock(mutex);
    changed.wait_until(lock, nextAttempt, [this] { return stopped || waitingLatest; });
  }
  if (Clock::now() < nextAttempt) {
    return;
  }
  const MqttMessage lastWill = {topics.status, Topics::OFFLINE};
  connection = std::make_unique<MqttConnection>(broker, lastWill);
  FollowConnection();
}

void MqttPublisher::FollowConnection() {
  if (connection->IsConnected() && !isAnnounced) {
    Announce();
  }
  TakeConfirmations();
  if (isAnnounced) {
    SendLatest();
    SendHistory();
  }
  if (!connection->GetTrouble().empty()) {
    OnTrouble();
  }
}

void MqttPublisher::OnTrouble() {
  const std::string why = std::exchange(trouble, connection->GetTrouble());
  if (why != trouble) {
    Tell((isAnnounced ? "the MQTT broker " + address + " is gone: "
                      : "cannot reach the MQTT broker " + address + ": ") +
         trouble + "; states wait on the disk");
  }
  connection.reset();
  unconfirmed.clear();
  isAnnounced = false;
  isLatestSent = !latest;
  nextAttempt = Clock::now() + delay;
  delay = std::min(2 * delay, LONGEST_DELAY);
}

void MqttPublisher::Announce() {
  isAnnounced = true;
  trouble.clear();
  delay = SHORTEST_DELAY;
  sent = taken;
  hasHistory = true;
  Tell("the MQTT broker " + address + " is connected; states go to " + topics.state);
  for (const MqttMessage& message : MakeDiscovery(broker.id)) {
    Send(message);
  }
  Send({topics.status, Topics::ONLINE});
}

/// Brokers acknowledge in the order of the messages.
void MqttPublisher::TakeConfirmations() {
  for (const int id : connection->TakeAcknowledged()) {
    const auto found = std::find_if(unconfirmed.begin(), unconfirmed.end(),
                                    [id](const Unconfirmed& each) { return each.id == id; });
    if (found == unconfirmed.end()) {
      continue;
    }
    for (auto each = unconfirmed.begin(); each <= found; ++each) {
      taken = std::max(taken, each->number);
    }
    unconfirmed.erase(unconfirmed.begin(), found + 1);
  }
}

void MqttPublisher::SendLatest() {
  if (!isLatestSent) {
    Send({topics.state, *latest});
    isLatestSent = true;
  }
}

void MqttPublisher::SendHistory() {
  if (!hasHistory || unconfirmed.size() >= MOST_UNCONFIRMED) {
    return;
  }
  try {
    const std::size_t most = MOST_UNCONFIRMED - unconfirmed.size();
    const std::vector<StateQueue::State> states = queue->Read(sent, most);
    for (const StateQueue::State& state : states) {
      Send({topics.history, Number(state), MqttMessage::Use::ONCE}, state.number);
      sent = state.number;
    }
    hasHistory = states.size() == most;
  } catch (const HostError& error) {
    TellProblem(error.what());
  }
}

/// The goodbye of the connection itself keeps the broker from publishing the last will.
void MqttPublisher::SendGoodbye() {
  if (!isAnnounced) {
    return;
  }
  Send({topics.status, Topics::OFFLINE});
  while (!unconfirmed.empty() && connection->GetTrouble().empty() && Clock::now() < *deadline) {
    connection->Work(TURN);
    TakeConfirmations();
  }
}

void MqttPublisher::Send(const MqttMessage& message, std::int64_t number) {
  if (connection->GetTrouble().empty()) {
    unconfirmed.push_back({connection->Publish(message), number});
  }
}

/// {"series":"9f3c11aa","number":1042,...}
std::string MqttPublisher::Number(const StateQueue::State& state) const {
  return R"({"series":")" + queue->GetSeries() + R"(","number":)" + std::to_string(state.number) +
         "," + state.text.substr(1);
}

void MqttPublisher::Tell(const std::string& text) {
  const std::lock_guard lock(mutex);
  news.push_back(text);
}

void MqttPublisher::TellProblem(const std::string& text) {
  if (!std::exchange(hasProblem, true)) {
    Tell("states for the MQTT broker cannot be kept at present: " + text);
  }
}

void MqttPublisher::TellLoss(std::int64_t count) {
  if (count > 0 && !std::exchange(hasLoss, true)) {
    Tell("too many states wait for the MQTT broker: the oldest ones are given up");
  }
}

}  // namespace host
