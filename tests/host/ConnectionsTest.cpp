#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <array>
#include <string>

#include "base/FileDescriptor.h"
#include "web/Connections.h"

namespace host {
namespace {

using namespace std::chrono_literals;

class Address {
 public:
  explicit Address(const std::string& text) {
    if (inet_pton(AF_INET, text.c_str(), &ipv4.sin_addr) == 1) {
      ipv4.sin_family = AF_INET;
    } else {
      ipv6.sin6_family = AF_INET6;
      inet_pton(AF_INET6, text.c_str(), &ipv6.sin6_addr);
    }
  }

  const sockaddr* Get() const {
    return ipv4.sin_family == AF_INET ? reinterpret_cast<const sockaddr*>(&ipv4)
                                      : reinterpret_cast<const sockaddr*>(&ipv6);
  }

 private:
  sockaddr_in ipv4 = {};
  sockaddr_in6 ipv6 = {};
};

TEST(Connections, KnowsThisMachine) {
  for (const char* local : {"127.0.0.1", "127.9.9.9", "::1", "::ffff:127.0.0.1"}) {
    EXPECT_TRUE(DescribeClient(Address(local).Get()).isLocal) << local;
  }
  for (const char* other : {"128.0.0.1", "192.168.1.2", "fe80::1", "::2", "::ffff:10.0.0.1"}) {
    EXPECT_FALSE(DescribeClient(Address(other).Get()).isLocal) << other;
  }
}

/// A client of IPv6 has 64 bits of addresses of its own.
TEST(Connections, NamesClientsByWhatTheyCannotChange) {
  const auto name = [](const char* address) { return DescribeClient(Address(address).Get()).name; };
  EXPECT_EQ("192.168.1.2", name("192.168.1.2"));
  EXPECT_EQ(name("192.168.1.2"), name("::ffff:192.168.1.2"));
  EXPECT_EQ(name("2001:db8:1:2::3"), name("2001:db8:1:2:ffff::4"));
  EXPECT_NE(name("2001:db8:1:2::3"), name("2001:db8:1:3::3"));
}

TEST(Connections, AClientHasSixteenOfThem) {
  Connections connections;
  const Address client("192.168.1.2");
  const Client* last = nullptr;
  for (int i = 0; i < 16; ++i) {
    EXPECT_TRUE(connections.MayConnect(client.Get()));
    last = connections.Add(client.Get(), -1, {});
  }
  EXPECT_FALSE(connections.MayConnect(client.Get()));
  EXPECT_TRUE(connections.MayConnect(Address("192.168.1.3").Get()));
  connections.Remove(last);
  EXPECT_TRUE(connections.MayConnect(client.Get()));
}

TEST(Connections, ThisMachineHasAnyNumber) {
  Connections connections;
  const Address local("127.0.0.1");
  for (int i = 0; i < 17; ++i) {
    connections.Add(local.Get(), -1, {});
  }
  EXPECT_TRUE(connections.MayConnect(local.Get()));
}

/// What was sent to a client that vanished is given up after ten seconds.
TEST(Connections, WaitsTenSecondsForWhatWasSent) {
  const FileDescriptor connection(socket(AF_INET, SOCK_STREAM, 0));
  Connections connections;
  connections.Add(Address("192.168.1.2").Get(), connection.Get(), {});
  const auto get = [&](int level, int option) {
    int value = 0;
    socklen_t size = sizeof value;
    EXPECT_EQ(0, getsockopt(connection.Get(), level, option, &value, &size));
    return value;
  };
  EXPECT_EQ(10000, get(IPPROTO_TCP, TCP_USER_TIMEOUT));
  // The system doubles it, for what it needs itself, and grows other buffers to megabytes.
  EXPECT_EQ(2 * 128 * 1024, get(SOL_SOCKET, SO_SNDBUF));
}

TEST(Connections, EndsThoseThatSayNothing) {
  Connections connections;
  const WebTime start;
  std::array<int, 2> ends = {};
  ASSERT_EQ(0, socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()));
  const FileDescriptor ours(ends[0]);
  const FileDescriptor theirs(ends[1]);
  Client* const client = connections.Add(Address("192.168.1.2").Get(), ours.Get(), start);
  connections.EndLate(start + 9s);
  char byte = 'x';
  EXPECT_EQ(-1, recv(theirs.Get(), &byte, 1, MSG_DONTWAIT));
  client->awaitedSince = WebTime::max();
  connections.EndLate(start + 1h);
  EXPECT_EQ(-1, recv(theirs.Get(), &byte, 1, MSG_DONTWAIT));
  client->awaitedSince = start;
  connections.EndLate(start + 11s);
  EXPECT_EQ(0, recv(theirs.Get(), &byte, 1, MSG_DONTWAIT));
}

}  // namespace
}  // namespace host
