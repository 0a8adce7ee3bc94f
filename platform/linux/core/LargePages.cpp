#include "core/LargePages.h"

#include <sys/mman.h>

#include <memory>

namespace handheld {

namespace {

constexpr std::size_t LARGE_PAGE = std::size_t{1} << 21;

}  // namespace

/// A wish: a system without large pages refuses, and nothing else changes.
void PreferLargePages(void* memory, std::size_t size) {
  if (std::align(LARGE_PAGE, LARGE_PAGE, memory, size) != nullptr) {
    madvise(memory, size / LARGE_PAGE * LARGE_PAGE, MADV_HUGEPAGE);
  }
}

}  // namespace handheld
