// Before <windows.h>, which brings an older version of it.
#include <winsock2.h>
// clang-format off
#include "SerialLine.windows.h"
// clang-format on

#include <cstdlib>
#include <stdexcept>

namespace e2e {

SerialLine::SerialLine() {
  const char* const port = std::getenv("FEROLIN_TEST_LINES");
  WSADATA ignored;
  WSAStartup(MAKEWORD(2, 2), &ignored);
  connection = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<u_short>(port != nullptr ? std::atoi(port) : 0));
  if (connect(connection, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
    throw std::runtime_error("no serial lines: run this through tests/windows/in-wine");
  }
  const std::string path = ReadLine();
  nearEnd = L"\\\\?\\unix" + std::wstring(path.begin(), path.end());
}

SerialLine::~SerialLine() {
  closesocket(connection);
}

void SerialLine::Send(std::string_view bytes) {
  Write("send " + std::to_string(bytes.size()) + "\n" + std::string(bytes));
  if (ReadLine() != "ok") {
    throw std::runtime_error("the serial line does not take the bytes");
  }
}

int SerialLine::GetBaudRate() const {
  Write("baud\n");
  return std::atoi(ReadLine().c_str());
}

void SerialLine::Write(std::string_view bytes) const {
  send(connection, bytes.data(), static_cast<int>(bytes.size()), 0);
}

std::string SerialLine::ReadLine() const {
  std::string line;
  for (char character = 0; recv(connection, &character, 1, 0) == 1 && character != '\n';) {
    line += character;
  }
  return line;
}

}  // namespace e2e
