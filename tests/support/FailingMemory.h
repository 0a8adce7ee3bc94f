// Memory that runs out on demand. The linker sends the program's malloc and realloc through here.
#pragma once

#include <cstddef>

namespace failing_memory {

/// The next blocks of exactly this size cannot be had; 0: all can.
void RefuseMallocOf(std::size_t size);

/// No block can grow (true), or all can.
void RefuseRealloc(bool refuse);

/// Calls of realloc since the last `ForgetReallocs`, and the size that the last one asked for.
int CountReallocs();
std::size_t LastReallocSize();
void ForgetReallocs();

}  // namespace failing_memory
