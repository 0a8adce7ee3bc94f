#include "gps/SentenceSplitter.h"

namespace ferolin {

void SentenceSplitter::Carry(std::size_t start, std::size_t end) {
  std::memmove(buffer.data(), buffer.data() + start, end - start);
  carryOffset = start + 1;
  if (carryOffset == BUFFER_SIZE) {
    // A "$" in the very last place would leave no room to read into, and the reader would never
    // read again.
    carryOffset = 0;
  }
}

}  // namespace ferolin
