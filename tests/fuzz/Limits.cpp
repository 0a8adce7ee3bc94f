// Tries each input within the limits that are promised: a second and 200 MB.
#include <sanitizer/allocator_interface.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "TryInput.h"

namespace {

/// Of all threads, which a busy machine does not lengthen. The sanitizers double the second.
constexpr double MOST_CPU_SECONDS = 2;
/// Beyond what was allocated before the input.
constexpr std::size_t MOST_BYTES = 200 << 20;
/// Bytes allocated from one look at the sum to the next; looking takes time.
constexpr std::size_t LOOK_INTERVAL = 1 << 20;

std::atomic<std::size_t> allocatedSinceLook;
std::atomic<std::size_t> mostAllocated;

void OnAllocation(const volatile void*, std::size_t size) {
  if (allocatedSinceLook.fetch_add(size) + size >= LOOK_INTERVAL) {
    allocatedSinceLook = 0;
    mostAllocated = std::max(mostAllocated.load(), __sanitizer_get_current_allocated_bytes());
  }
}

void OnRelease(const volatile void*) {}

double CountCpuSeconds() {
  timespec time = {};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

void Require(double value, double most, const char* unit) {
  if (value > most) {
    std::fprintf(stderr, "the input takes %.1f %s; %.1f are allowed\n", value, unit, most);
    std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  static const int installed = __sanitizer_install_malloc_and_free_hooks(OnAllocation, OnRelease);
  static_cast<void>(installed);
  const std::size_t before = __sanitizer_get_current_allocated_bytes();
  mostAllocated = before;
  const double start = CountCpuSeconds();
  TryInput(data, size);
  Require(CountCpuSeconds() - start, MOST_CPU_SECONDS, "s");
  Require(static_cast<double>(mostAllocated - before) / (1 << 20), MOST_BYTES >> 20, "MB");
  return 0;
}
