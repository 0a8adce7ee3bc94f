#include "common/GpsdConnection.h"

#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <memory>
#include <string_view>

namespace siblings {
namespace {

constexpr int CONNECT_TIMEOUT_MS = 5000;
/// The longest reports of gpsd have about 10 KB; longer lines come from another service.
constexpr std::size_t LONGEST_LINE = 256 * 1024;

using AddressList = std::unique_ptr<addrinfo, decltype(&freeaddrinfo)>;

AddressList LookUp(const char* host, const char* port, int flags) {
  addrinfo wanted = {};
  wanted.ai_socktype = SOCK_STREAM;
  wanted.ai_flags = AI_NUMERICSERV | flags;
  addrinfo* found = nullptr;
  if (getaddrinfo(host, port, &wanted, &found) != 0) {
    found = nullptr;
  }
  return {found, &freeaddrinfo};
}

/// Asks the system's resolver, which may take long, for real names only. "localhost" gives both
/// loopback addresses: gpsd may listen on either.
AddressList Candidates(const GpsdAddress& address) {
  const char* host = address.host == "localhost" ? nullptr : address.host.c_str();
  AddressList numeric = LookUp(host, address.port.c_str(), AI_NUMERICHOST);
  return numeric ? std::move(numeric) : LookUp(host, address.port.c_str(), 0);
}

void SetOption(int descriptor, int level, int option, int value) {
  setsockopt(descriptor, level, option, &value, sizeof value);
}

/// Detects a computer that was switched off and has not closed its connection.
void KeepAlive(int descriptor) {
  SetOption(descriptor, SOL_SOCKET, SO_KEEPALIVE, 1);
  SetOption(descriptor, IPPROTO_TCP, TCP_KEEPIDLE, 10);
  SetOption(descriptor, IPPROTO_TCP, TCP_KEEPINTVL, 5);
  SetOption(descriptor, IPPROTO_TCP, TCP_KEEPCNT, 3);
}

int PendingError(int descriptor) {
  int error = 0;
  socklen_t size = sizeof error;
  getsockopt(descriptor, SOL_SOCKET, SO_ERROR, &error, &size);
  return error;
}

}  // namespace

GpsdConnection::~GpsdConnection() {
  if (descriptor >= 0) {
    close(descriptor);
  }
}

bool GpsdConnection::Open(const GpsdAddress& address, std::string_view request) {
  const AddressList candidates = Candidates(address);
  error = "unknown host";
  for (const addrinfo* candidate = candidates.get(); candidate && !stop.IsRaised();
       candidate = candidate->ai_next) {
    if (ConnectTo(*candidate)) {
      KeepAlive(descriptor);
      return Send(request);
    }
  }
  return false;
}

bool GpsdConnection::ReadLine(std::string& line, int patienceMs) {
  std::array<char, 16384> block;
  std::size_t searched = 0;
  for (;;) {
    const auto end = received.find('\n', searched);
    if (end != std::string::npos) {
      line.assign(received, 0, end + 1);
      received.erase(0, end + 1);
      return !stop.IsRaised();
    }
    searched = received.size();
    if (searched > LONGEST_LINE || !Await(POLLIN, patienceMs)) {
      return false;
    }
    const ssize_t count = recv(descriptor, block.data(), block.size(), 0);
    if (count > 0) {
      received.append(block.data(), static_cast<std::size_t>(count));
    } else if (count == 0 || (errno != EAGAIN && errno != EINTR)) {
      return false;
    }
  }
}

bool GpsdConnection::ConnectTo(const addrinfo& candidate) {
  descriptor = socket(candidate.ai_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  if (descriptor < 0) {
    error = std::strerror(errno);
    return false;
  }
  int failure = connect(descriptor, candidate.ai_addr, candidate.ai_addrlen) == 0 ? 0 : errno;
  if (failure == EINPROGRESS) {
    failure = Await(POLLOUT, CONNECT_TIMEOUT_MS) ? PendingError(descriptor) : ETIMEDOUT;
  }
  if (failure == 0) {
    return true;
  }
  error = std::strerror(failure);
  close(descriptor);
  descriptor = -1;
  return false;
}

/// True when the socket is ready, or broken; the next call on it then fails.
bool GpsdConnection::Await(short events, int timeoutMs) const {
  std::array<pollfd, 2> wanted = {
      {{descriptor, events, 0}, {stop.GetDescriptor(), POLLIN, 0}},
  };
  int ready;
  do {
    ready = poll(wanted.data(), wanted.size(), timeoutMs);
  } while (ready < 0 && errno == EINTR);
  return ready > 0 && !stop.IsRaised();
}

bool GpsdConnection::Send(std::string_view request) const {
  // So few bytes fit into the buffer of a fresh connection.
  const ssize_t sent = send(descriptor, request.data(), request.size(), MSG_NOSIGNAL);
  return sent == static_cast<ssize_t>(request.size());
}

}  // namespace siblings
