#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <cstring>

namespace ferolin {

/// Cuts what a serial port delivers into sentences: from a "$" to the carriage return, which
/// becomes the terminator.
///
/// Bytes are read to GetReadPosition, at most GetReadSpace of them; then Scan. A "$" whose carriage
/// return has not come is moved to the front, and the next read goes behind it, one place further
/// than the "$" stood in the buffer. Each scan covers as many bytes as its read returned, counted
/// from the front of the buffer.
class SentenceSplitter {
 public:
  static constexpr std::size_t BUFFER_SIZE = 2048;

  char* GetReadPosition() { return buffer.data() + carryOffset; }
  DWORD GetReadSpace() const { return static_cast<DWORD>(BUFFER_SIZE - carryOffset); }

  /// Calls `deliver(const char*)` for every sentence among the `bytesRead` bytes now at the front;
  /// the text lasts for the call.
  template <class Deliver>
  void Scan(std::size_t bytesRead, Deliver deliver) {
    char* sentence = nullptr;
    for (std::size_t position = 0; position < bytesRead; ++position) {
      char& character = buffer[position];
      if (character == '$') {
        sentence = &character;
      } else if (character == '\r' && sentence != nullptr) {
        character = '\0';
        deliver(static_cast<const char*>(sentence));
        sentence = nullptr;
        if (position + 1 < bytesRead && buffer[position + 1] == '\n') {
          ++position;
        }
      }
    }
    if (sentence != nullptr) {
      Carry(static_cast<std::size_t>(sentence - buffer.data()), bytesRead);
    }
  }

 private:
  void Carry(std::size_t start, std::size_t end);

  std::array<char, BUFFER_SIZE> buffer = {};
  std::size_t carryOffset = 0;
};

}  // namespace ferolin
