#include "web/ListeningSocket.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <memory>

#include "base/HostError.h"
#include "web/Client.h"

namespace host {

namespace {

struct Place {
  sockaddr_storage address = {};
  socklen_t size = 0;

  const sockaddr* Get() const { return reinterpret_cast<const sockaddr*>(&address); }
};

Place MakePlace(const std::string& address, int port) {
  Place place;
  sockaddr_in ipv4 = {};
  sockaddr_in6 ipv6 = {};
  const auto portOnWire = htons(static_cast<std::uint16_t>(port));
  if (inet_pton(AF_INET, address.c_str(), &ipv4.sin_addr) == 1) {
    ipv4.sin_family = AF_INET;
    ipv4.sin_port = portOnWire;
    std::memcpy(&place.address, &ipv4, sizeof ipv4);
    place.size = sizeof ipv4;
  } else if (inet_pton(AF_INET6, address.c_str(), &ipv6.sin6_addr) == 1) {
    ipv6.sin6_family = AF_INET6;
    ipv6.sin6_port = portOnWire;
    std::memcpy(&place.address, &ipv6, sizeof ipv6);
    place.size = sizeof ipv6;
  }
  return place;
}

int FindPort(int descriptor) {
  sockaddr_storage bound = {};
  socklen_t size = sizeof bound;
  getsockname(descriptor, reinterpret_cast<sockaddr*>(&bound), &size);
  sockaddr_in6 address = {};
  std::memcpy(&address, &bound, sizeof address);
  return ntohs(address.sin6_port);  // lies where that of IPv4 does
}

/// First address of the machine in a network; its name in .local when there is none.
std::string FindAddressForOthers() {
  ifaddrs* found = nullptr;
  getifaddrs(&found);
  const std::unique_ptr<ifaddrs, void (*)(ifaddrs*)> list(found, freeifaddrs);
  for (const ifaddrs* each = list.get(); each != nullptr; each = each->ifa_next) {
    const bool isUp = (each->ifa_flags & IFF_UP) != 0 && (each->ifa_flags & IFF_LOOPBACK) == 0;
    if (isUp && each->ifa_addr != nullptr && each->ifa_addr->sa_family == AF_INET) {
      return DescribeClient(each->ifa_addr).name;
    }
  }
  constexpr std::size_t LONGEST_NAME = 256;
  std::array<char, LONGEST_NAME> name = {};
  gethostname(name.data(), name.size() - 1);
  return std::string(name.data()) + ".local";
}

}  // namespace

ListeningSocket::ListeningSocket(const std::string& address, int wantedPort) {
  const Place place = MakePlace(address, wantedPort);
  const int family = place.Get()->sa_family;
  descriptor = FileDescriptor(::socket(family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  constexpr int YES = 1;
  constexpr int NO = 0;
  setsockopt(descriptor.Get(), SOL_SOCKET, SO_REUSEADDR, &YES, sizeof YES);
  if (family == AF_INET6) {
    setsockopt(descriptor.Get(), IPPROTO_IPV6, IPV6_V6ONLY, &NO, sizeof NO);
  }
  if (!descriptor.IsOpen() || bind(descriptor.Get(), place.Get(), place.size) != 0 ||
      listen(descriptor.Get(), SOMAXCONN) != 0) {
    throw HostError("cannot serve browsers at " + address + ", port " + std::to_string(wantedPort) +
                    ": " + std::strerror(errno));
  }
  port = FindPort(descriptor.Get());
  isLocal = DescribeClient(place.Get()).isLocal;
  const bool isEverywhere = address == "0.0.0.0" || address == "::";
  const std::string literal = family == AF_INET6 ? "[" + address + "]" : address;
  host = isEverywhere ? FindAddressForOthers() : literal;
}

}  // namespace host
