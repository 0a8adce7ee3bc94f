#include "web/Client.h"

#include <arpa/inet.h>
#include <netinet/in.h>

#include <array>
#include <cstring>

namespace host {

namespace {

constexpr std::size_t MAPPED_PREFIX = 12;
constexpr std::size_t NETWORK_BYTES = 8;

Client DescribeIpv4(const in_addr& address) {
  std::array<char, INET_ADDRSTRLEN> text = {};
  inet_ntop(AF_INET, &address, text.data(), text.size());
  Client client;
  client.name = text.data();
  client.isLocal = (ntohl(address.s_addr) >> 24) == IN_LOOPBACKNET;
  return client;
}

}  // namespace

Client DescribeClient(const sockaddr* address) {
  if (address->sa_family == AF_INET) {
    sockaddr_in ipv4 = {};
    std::memcpy(&ipv4, address, sizeof ipv4);
    return DescribeIpv4(ipv4.sin_addr);
  }
  sockaddr_in6 ipv6 = {};
  std::memcpy(&ipv6, address, sizeof ipv6);
  if (IN6_IS_ADDR_V4MAPPED(&ipv6.sin6_addr)) {
    in_addr ipv4 = {};
    std::memcpy(&ipv4, ipv6.sin6_addr.s6_addr + MAPPED_PREFIX, sizeof ipv4);
    return DescribeIpv4(ipv4);
  }
  Client client;
  client.isLocal = IN6_IS_ADDR_LOOPBACK(&ipv6.sin6_addr);
  std::memset(ipv6.sin6_addr.s6_addr + NETWORK_BYTES, 0,
              sizeof ipv6.sin6_addr.s6_addr - NETWORK_BYTES);
  std::array<char, INET6_ADDRSTRLEN> text = {};
  inet_ntop(AF_INET6, &ipv6.sin6_addr, text.data(), text.size());
  client.name = text.data();
  return client;
}

}  // namespace host
