// Memory in large pages.
#pragma once

#include <cstddef>

namespace handheld {

/// For memory of pictures, which is written from end to end with every frame: large pages spare the
/// processor looking up small ones. Call before its first use. Small pieces stay as they are.
void PreferLargePages(void* memory, std::size_t size);

}  // namespace handheld
