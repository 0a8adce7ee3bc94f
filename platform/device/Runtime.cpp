// Run-time functions that compiled code calls: memory, and the end of the process on a fatal fault.

#include <windows.h>

#include <cstdlib>
#include <new>

extern "C" {

void WINAPI RaiseException(DWORD code, DWORD flags, DWORD count, const ULONG_PTR* arguments);

/// Ends the process with the device's own fault report.
[[noreturn]] void abort() {
  constexpr DWORD STATUS_NONCONTINUABLE_EXCEPTION = 0xC0000025;
  constexpr DWORD EXCEPTION_NONCONTINUABLE = 1;
  for (;;) {
    RaiseException(STATUS_NONCONTINUABLE_EXCEPTION, EXCEPTION_NONCONTINUABLE, 0, nullptr);
  }
}

/// Called by the compiler's division helpers for a divisor of zero.
int raise(int) {
  abort();
}

void __cxa_pure_virtual() {
  abort();
}

}  // extern "C"

const std::nothrow_t std::nothrow{};

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return std::malloc(size != 0 ? size : 1);
}

void* operator new(std::size_t size) {
  void* block = operator new(size, std::nothrow);
  if (block == nullptr) {
    abort();
  }
  return block;
}

void* operator new[](std::size_t size, const std::nothrow_t& nothrow) noexcept {
  return operator new(size, nothrow);
}

void* operator new[](std::size_t size) {
  return operator new(size);
}

void operator delete(void* block) noexcept {
  std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}

void operator delete[](void* block) noexcept {
  std::free(block);
}

void operator delete[](void* block, std::size_t) noexcept {
  std::free(block);
}

// The standard library's templates call these where they would throw.
namespace std {

void __throw_bad_alloc() {
  abort();
}

void __throw_bad_array_new_length() {
  abort();
}

void __throw_length_error(const char*) {
  abort();
}

void __throw_logic_error(const char*) {
  abort();
}

void __throw_out_of_range_fmt(const char*, ...) {
  abort();
}

}  // namespace std
