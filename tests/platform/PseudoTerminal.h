// Stand-in for a GPS receiver on a serial line.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

/// The test writes to and reads from the master side; the device under test opens the other one.
class PseudoTerminal {
 public:
  PseudoTerminal() : master(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    grantpt(master);
    unlockpt(master);
    path = ptsname(master);
  }
  ~PseudoTerminal() { Close(); }
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  const std::string& DevicePath() const { return path; }
  int Master() const { return master; }

  void Send(const std::string& bytes) const {
    ASSERT_EQ(static_cast<ssize_t>(bytes.size()), write(master, bytes.data(), bytes.size()));
  }
  std::string Receive(std::size_t size) const {
    std::string bytes;
    char byte;
    while (bytes.size() < size && read(master, &byte, 1) == 1) {
      bytes += byte;
    }
    return bytes;
  }

  /// Acts as if the receiver were unplugged.
  void Close() {
    if (master >= 0) {
      close(master);
    }
    master = -1;
  }

 private:
  int master;
  std::string path;
};
