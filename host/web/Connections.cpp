#include "web/Connections.h"

#include <netinet/in.h>
#include <netinet/tcp.h>

#include <algorithm>

namespace host {

namespace {

/// A few updates; a client that takes nothing is found soon.
constexpr int SEND_BUFFER_BYTES = 128 * 1024;

template <class Value>
void SetOption(int descriptor, int level, int option, Value value) {
  setsockopt(descriptor, level, option, &value, sizeof value);
}

}  // namespace

bool Connections::MayConnect(const sockaddr* address) const {
  const Client next = DescribeClient(address);
  const auto count = std::ranges::count_if(
      clients, [&next](const auto& entry) { return entry.second->name == next.name; });
  return next.isLocal || static_cast<std::size_t>(count) < MOST_OF_CLIENT;
}

/// A client that vanished without a word leaves bytes that nobody acknowledges.
Client* Connections::Add(const sockaddr* address, int descriptor, WebTime now) {
  auto client = std::make_unique<Client>(DescribeClient(address));
  client->descriptor = descriptor;
  client->awaitedSince = now;
  SetOption<int>(descriptor, SOL_SOCKET, SO_SNDBUF, SEND_BUFFER_BYTES);
  SetOption<unsigned>(descriptor, IPPROTO_TCP, TCP_USER_TIMEOUT,
                      std::chrono::milliseconds(PATIENCE).count());
  Client* const added = client.get();
  clients.emplace(added, std::move(client));
  return added;
}

void Connections::Remove(const Client* client) {
  clients.erase(client);
}

/// The library sees the end and closes the connection.
void Connections::EndLate(WebTime now) const {
  for (const auto& [client, owned] : clients) {
    if (now > client->awaitedSince && now - client->awaitedSince > PATIENCE) {
      shutdown(client->descriptor, SHUT_RDWR);
    }
  }
}

}  // namespace host
