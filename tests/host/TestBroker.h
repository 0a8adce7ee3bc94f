// A broker of Debian's, and someone who reads there.
#pragma once

#include <arpa/inet.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "TestFolder.h"

namespace host {

/// Polls until `holds`; false when it does not within a minute.
inline bool Await(const std::function<bool()>& holds) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
  while (!holds()) {
    if (std::chrono::steady_clock::now() > end) {
      return false;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return true;
}

/// A program that is killed at the end.
class Child {
 public:
  /// `output` is the file that gets what the program prints.
  Child(std::vector<std::string> command, const std::string& output) {
    std::vector<char*> arguments;
    for (std::string& word : command) {
      arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    process = fork();
    if (process == 0) {
      const int file = open(output.c_str(), O_CREAT | O_APPEND | O_WRONLY, 0600);
      dup2(file, STDOUT_FILENO);
      dup2(file, STDERR_FILENO);
      execvp(arguments[0], arguments.data());
      _exit(127);
    }
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;
  ~Child() { End(SIGKILL); }

  void Signal(int signal) const { kill(process, signal); }

  void End(int signal) {
    if (process > 0) {
      Signal(signal);
      waitpid(process, nullptr, 0);
      process = -1;
    }
  }

 private:
  pid_t process = -1;
};

/// Listens at a free port of the loopback interface, and keeps on the disk what its readers have
/// not got yet.
class TestBroker {
 public:
  static constexpr const char* PROGRAM = "/usr/sbin/mosquitto";

  static bool IsInstalled() {
    return access(PROGRAM, X_OK) == 0 && access("/usr/bin/mosquitto_sub", X_OK) == 0;
  }

  TestBroker() : port(FindPort()) {
    // Started by root, it would become a user who may not write here.
    std::ofstream(Path("mosquitto.conf"))
        << "listener " << port << " 127.0.0.1\nallow_anonymous true\nuser root\n"
        << "persistence true\npersistence_location " << folder.GetPath() << "/\nlog_type all\n";
  }

  int GetPort() const { return port; }

  void Start() {
    program.emplace(std::vector<std::string>{PROGRAM, "-c", Path("mosquitto.conf")}, Path("log"));
    ASSERT_TRUE(Await([this] { return Answers(); })) << "mosquitto does not start";
  }

  /// A socket that listens in the broker's place.
  int Listen() const {
    const int listener = socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in address = Address(port);
    EXPECT_EQ(0, bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address));
    EXPECT_EQ(0, listen(listener, 1));
    return listener;
  }

  /// Ends it; it saves what its readers have not got.
  void Stop() { program->End(SIGTERM); }

  /// From now on it takes no message.
  void Freeze() {
    // Its list of readers must outlive its end.
    program->Signal(SIGUSR1);
    ASSERT_TRUE(Await([this] { return std::filesystem::exists(Path("mosquitto.db")); }));
    program->Signal(SIGSTOP);
  }

  void Kill() { program->End(SIGKILL); }

  /// Gets the messages of some topics, also those of the time between two connections.
  class Reader {
   public:
    /// Has subscribed when it returns.
    Reader(const TestBroker& broker, const std::string& name, const std::string& topics)
        : file(broker.Path(name)),
          program({"mosquitto_sub", "-p", std::to_string(broker.port), "-c", "-i", name, "-q", "1",
                   "-v", "-t", topics},
                  file) {
      EXPECT_TRUE(Await([&] {
        const std::vector<std::string> log = ReadLines(broker.Path("log"));
        return std::any_of(log.begin(), log.end(), [&name](const std::string& line) {
          return line.ends_with("Sending SUBACK to " + name);
        });
      }));
    }

    /// "topic payload" of each message so far.
    std::vector<std::string> GetLines() const { return ReadLines(file); }

    bool AwaitLine(const std::string& line) const {
      return Await([&] {
        const std::vector<std::string> lines = GetLines();
        return std::find(lines.begin(), lines.end(), line) != lines.end();
      });
    }

   private:
    std::string file;
    Child program;
  };

 private:
  std::string Path(const std::string& name) const { return folder.GetPath() + "/" + name; }

  static std::vector<std::string> ReadLines(const std::string& file) {
    std::ifstream stream(file);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
      lines.push_back(line);
    }
    return lines;
  }

  static sockaddr_in Address(int port) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    return address;
  }

  static int FindPort() {
    const int free = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = Address(0);
    socklen_t size = sizeof address;
    bind(free, reinterpret_cast<sockaddr*>(&address), size);
    getsockname(free, reinterpret_cast<sockaddr*>(&address), &size);
    close(free);
    return ntohs(address.sin_port);
  }

  bool Answers() const {
    const int client = socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in address = Address(port);
    const bool answers =
        connect(client, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(client);
    return answers;
  }

  TestFolder folder;
  int port;
  std::optional<Child> program;
};

}  // namespace host
