// The emulator does not know the newer terminal calls, which carry the baud rate as a number. Linked
// before the C library's ioctl, this turns them into the older ones, which know the rates of the
// tests.

#include <asm/ioctls.h>
#include <asm/termbits.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdarg>
#include <cstring>

namespace {

constexpr struct {
  speed_t rate;
  tcflag_t code;
} RATES[] = {{300, B300},     {2400, B2400},   {4800, B4800},   {9600, B9600},
             {19200, B19200}, {38400, B38400}, {57600, B57600}, {115200, B115200}};

long Call(int descriptor, unsigned long request, void* argument) {
  return syscall(SYS_ioctl, descriptor, request, argument);
}

long GetSettings(int descriptor, termios2& settings) {
  termios older = {};
  const long result = Call(descriptor, TCGETS, &older);
  if (result == 0) {
    settings = {};
    std::memcpy(&settings, &older, sizeof older);
    for (const auto& [rate, code] : RATES) {
      if ((older.c_cflag & CBAUD) == code) {
        settings.c_ispeed = settings.c_ospeed = rate;
      }
    }
  }
  return result;
}

long SetSettings(int descriptor, const termios2& settings) {
  termios older = {};
  std::memcpy(&older, &settings, sizeof older);
  if ((settings.c_cflag & CBAUD) == BOTHER) {
    older.c_cflag &= ~static_cast<tcflag_t>(CBAUD | (CBAUD << IBSHIFT));
    for (const auto& [rate, code] : RATES) {
      older.c_cflag |= rate == settings.c_ospeed ? code : 0;
    }
  }
  return Call(descriptor, TCSETS, &older);
}

}  // namespace

extern "C" int ioctl(int descriptor, unsigned long request, ...) {
  va_list arguments;
  va_start(arguments, request);
  void* argument = va_arg(arguments, void*);
  va_end(arguments);
  switch (request) {
    case TCGETS2:
      return static_cast<int>(GetSettings(descriptor, *static_cast<termios2*>(argument)));
    case TCSETS2:
      return static_cast<int>(SetSettings(descriptor, *static_cast<termios2*>(argument)));
    default:
      return static_cast<int>(Call(descriptor, request, argument));
  }
}
