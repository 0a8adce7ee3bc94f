#include "run/SignalWatcher.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>

#include <array>
#include <cstdint>

#include "outputs/Screen.h"

namespace host {

namespace {

constexpr int KILLED_STATUS = 130;

sigset_t Watched() {
  sigset_t set;
  sigemptyset(&set);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGWINCH}) {
    sigaddset(&set, signal);
  }
  return set;
}

FileDescriptor BlockAndOpen() {
  const sigset_t set = Watched();
  pthread_sigmask(SIG_BLOCK, &set, nullptr);
  // Writing reports a closed pipe instead.
  std::signal(SIGPIPE, SIG_IGN);
  return FileDescriptor(signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK));
}

}  // namespace

SignalWatcher::SignalWatcher()
    : signals(BlockAndOpen()), stopEvent(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

SignalWatcher::~SignalWatcher() {
  Stop();
}

void SignalWatcher::Start(std::function<void()> onStop, std::function<void()> onResize) {
  stop = std::move(onStop);
  resize = std::move(onResize);
  thread = std::thread([this] { Run(); });
}

void SignalWatcher::Stop() {
  if (thread.joinable()) {
    eventfd_write(stopEvent.Get(), 1);
    thread.join();
  }
}

void SignalWatcher::Run() {
  std::array<pollfd, 2> waits = {{{signals.Get(), POLLIN, 0}, {stopEvent.Get(), POLLIN, 0}}};
  while (waits[1].revents == 0) {
    poll(waits.data(), waits.size(), -1);
    signalfd_siginfo info = {};
    while (read(signals.Get(), &info, sizeof info) == sizeof info) {
      Take(static_cast<int>(info.ssi_signo));
    }
  }
}

void SignalWatcher::Take(int signal) {
  if (signal == SIGWINCH) {
    resize();
  } else if (isStopping) {
    Screen::Restore();
    _exit(KILLED_STATUS);
  } else {
    isStopping = true;
    stop();
  }
}

}  // namespace host
