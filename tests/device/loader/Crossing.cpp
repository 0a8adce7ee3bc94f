#include "Crossing.h"

#include <sys/mman.h>

#include <cstdio>
#include <cstdlib>
#include <deque>
#include <mutex>
#include <stdexcept>

extern "C" {

/// Looked at by CrossOut.
struct WayOut {
  void* function;
  std::string name;
};

void CrossOut();

[[noreturn, gnu::visibility("hidden")]] void ReportSpoiltRegister() {
  std::fputs("The device's library did not keep a register that belongs to its caller\n", stderr);
  std::abort();
}

[[noreturn, gnu::visibility("hidden")]] void ReportMisalignedStack(const WayOut* way) {
  std::fprintf(stderr, "The device's library calls %s with a misaligned stack\n",
               way->name.c_str());
  std::abort();
}
}

namespace {

/// ip = the WayOut; go to CrossOut.
struct Code {
  std::uint32_t loadWay = 0xE59FC000;         // ldr ip, [pc, #0]
  std::uint32_t jumpToCrossOut = 0xE59FF000;  // ldr pc, [pc, #0]
  const WayOut* way;
  void (*crossOut)() = CrossOut;
};

constexpr std::size_t CODE_SIZE = 64 * 1024;

}  // namespace

void* MakeWayOut(const std::string& name, void* function) {
  static std::mutex mutex;
  static std::deque<WayOut> ways;
  static auto* next = static_cast<Code*>(mmap(
      nullptr, CODE_SIZE, PROT_READ | PROT_WRITE | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
  static Code* const end = next + CODE_SIZE / sizeof(Code);
  const std::lock_guard lock(mutex);
  if (next == end) {
    throw std::runtime_error("too many ways out");
  }
  ways.push_back({function, name});
  *next = Code{.way = &ways.back()};
  __builtin___clear_cache(reinterpret_cast<char*>(next), reinterpret_cast<char*>(next + 1));
  return next++;
}
