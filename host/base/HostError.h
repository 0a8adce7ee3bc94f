// Errors that end the program with one line for the user.
#pragma once

#include <stdexcept>
#include <string>

namespace host {

/// An error that the user can act upon, such as a missing file. what() is one line without the
/// program's name.
class HostError : public std::runtime_error {
 public:
  static constexpr int FAILURE = 1;
  static constexpr int USAGE = 2;

  explicit HostError(const std::string& text, int status = FAILURE)
      : std::runtime_error(text), exitStatus(status) {}

  int GetExitStatus() const { return exitStatus; }

 private:
  int exitStatus;
};

/// A wrong command line.
class UsageError : public HostError {
 public:
  explicit UsageError(const std::string& text) : HostError(text, USAGE) {}
};

}  // namespace host
