#include "BaudRate.linux.h"

// The C library's termios.h, which cannot be had beside this one, does not know arbitrary rates.
#include <asm/termbits.h>
#include <sys/ioctl.h>

namespace e2e {

int BaudRateOf(int descriptor) {
  termios2 settings = {};
  return ioctl(descriptor, TCGETS2, &settings) == 0 ? static_cast<int>(settings.c_ospeed) : -1;
}

}  // namespace e2e
