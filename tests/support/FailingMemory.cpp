#include "support/FailingMemory.h"

namespace failing_memory {

namespace {

std::size_t refusedMallocSize = 0;
bool refusesRealloc = false;
int reallocs = 0;
std::size_t lastReallocSize = 0;

}  // namespace

void RefuseMallocOf(std::size_t size) {
  refusedMallocSize = size;
}

void RefuseRealloc(bool refuse) {
  refusesRealloc = refuse;
}

int CountReallocs() {
  return reallocs;
}

std::size_t LastReallocSize() {
  return lastReallocSize;
}

void ForgetReallocs() {
  reallocs = 0;
  lastReallocSize = 0;
}

// The names are the linker's.
extern "C" {

void* __real_malloc(std::size_t size);
void* __real_realloc(void* block, std::size_t size);

void* __wrap_malloc(std::size_t size) {
  return size != 0 && size == refusedMallocSize ? nullptr : __real_malloc(size);
}

void* __wrap_realloc(void* block, std::size_t size) {
  ++reallocs;
  lastReallocSize = size;
  return refusesRealloc ? nullptr : __real_realloc(block, size);
}
}

}  // namespace failing_memory
