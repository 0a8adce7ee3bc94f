#include <gtest/gtest.h>
#include <pm.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "Backlight.h"
#include "handheld.h"
#include "power/IdleInhibitor.h"

namespace {

/// A message bus for this test alone.
class PrivateBus {
 public:
  PrivateBus() {
    int output[2];
    if (pipe(output) != 0) {
      return;
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, output[0]);
    char program[] = "dbus-daemon";
    char session[] = "--session";
    char print[] = "--print-address";
    char noFork[] = "--nofork";
    char* arguments[] = {program, session, print, noFork, nullptr};
    isRunning = posix_spawnp(&process, program, &actions, nullptr, arguments, environ) == 0;
    posix_spawn_file_actions_destroy(&actions);
    close(output[1]);
    char letter;
    while (isRunning && read(output[0], &letter, 1) == 1 && letter != '\n') {
      address += letter;
    }
    close(output[0]);
  }
  ~PrivateBus() {
    if (!isRunning) {
      return;
    }
    kill(process, SIGTERM);
    waitpid(process, nullptr, 0);
  }
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;

  /// Empty when this machine has no message bus program.
  const std::string& Address() const { return address; }

 private:
  pid_t process = 0;
  bool isRunning = false;
  std::string address;
};

/// Stand-in for logind: hands out one inhibitor and notices when it is given back.
class Logind {
 public:
  explicit Logind(const std::string& address) {
    setenv("DBUS_SYSTEM_BUS_ADDRESS", address.c_str(), 1);
    if (pipe(inhibitor) != 0 || sd_bus_open_system(&bus) < 0) {
      return;
    }
    static const sd_bus_vtable METHODS[] = {
        SD_BUS_VTABLE_START(0),
        SD_BUS_METHOD("Inhibit", "ssss", "h", HandleInhibit, SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_VTABLE_END,
    };
    sd_bus_add_object_vtable(bus, nullptr, "/org/freedesktop/login1",
                             "org.freedesktop.login1.Manager", METHODS, this);
    isReady = sd_bus_request_name(bus, "org.freedesktop.login1", 0) >= 0;
  }
  ~Logind() {
    sd_bus_flush_close_unref(bus);
    close(inhibitor[0]);
    if (inhibitor[1] >= 0) {
      close(inhibitor[1]);
    }
  }
  Logind(const Logind&) = delete;
  Logind& operator=(const Logind&) = delete;

  bool IsReady() const { return isReady; }
  /// Waits for a request and returns what it inhibits.
  std::string AwaitInhibit() {
    while (what.empty()) {
      while (sd_bus_process(bus, nullptr) > 0) {
      }
      if (what.empty()) {
        sd_bus_wait(bus, UINT64_MAX);
      }
    }
    sd_bus_flush(bus);
    // From here on only the copy that was sent keeps the pipe open.
    close(inhibitor[1]);
    inhibitor[1] = -1;
    return what;
  }
  /// Waits until the inhibitor is released.
  void AwaitRelease() const {
    char byte;
    EXPECT_EQ(0, read(inhibitor[0], &byte, 1));
  }

 private:
  static int HandleInhibit(sd_bus_message* call, void* data, sd_bus_error*) {
    auto& self = *static_cast<Logind*>(data);
    const char* asked = "";
    sd_bus_message_read(call, "s", &asked);
    self.what = asked;
    return sd_bus_reply_method_return(call, "h", self.inhibitor[1]);
  }

  sd_bus* bus = nullptr;
  int inhibitor[2] = {-1, -1};
  bool isReady = false;
  std::string what;
};

TEST(IdleInhibitorTest, IsHeldWhileAPowerRequirementIs) {
  const PrivateBus bus;
  if (bus.Address().empty()) {
    GTEST_SKIP() << "no dbus-daemon on this machine";
  }
  Logind logind(bus.Address());
  ASSERT_TRUE(logind.IsReady());

  const HANDLE first = HoldBacklight();
  EXPECT_NE(std::string::npos, logind.AwaitInhibit().find("idle"));
  const HANDLE second = HoldBacklight();
  ReleasePowerRequirement(first);
  ReleasePowerRequirement(second);
  logind.AwaitRelease();
}

TEST(IdleInhibitorTest, IsGivenBackWhenTheAnswerComesTooLate) {
  const PrivateBus bus;
  if (bus.Address().empty()) {
    GTEST_SKIP() << "no dbus-daemon on this machine";
  }
  Logind logind(bus.Address());
  ASSERT_TRUE(logind.IsReady());

  // Released before logind has read the request.
  ReleasePowerRequirement(HoldBacklight());
  logind.AwaitInhibit();
  logind.AwaitRelease();
}

TEST(IdleInhibitorTest, WithoutABusNothingWaits) {
  setenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/none", 1);
  const HANDLE requirement = HoldBacklight();
  EXPECT_NE(nullptr, requirement);
  EXPECT_EQ(ERROR_SUCCESS, ReleasePowerRequirement(requirement));
}

}  // namespace
