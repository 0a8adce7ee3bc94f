#include "common/WakeEvent.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace siblings {

WakeEvent::WakeEvent() : descriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  if (descriptor < 0) {
    throw std::system_error(errno, std::generic_category(), "eventfd");
  }
}

WakeEvent::~WakeEvent() {
  close(descriptor);
}

void WakeEvent::Raise() {
  raised = true;
  // Fails only when the counter is full; the event is readable then, too.
  eventfd_write(descriptor, 1);
}

void WakeEvent::Clear() {
  eventfd_t count;
  eventfd_read(descriptor, &count);
  raised = false;
}

bool WakeEvent::WaitFor(int timeoutMs) const {
  pollfd wanted = {descriptor, POLLIN, 0};
  poll(&wanted, 1, timeoutMs);
  return raised;
}

}  // namespace siblings
