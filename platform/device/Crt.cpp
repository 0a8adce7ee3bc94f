// The C run-time calls of crt.h on the device, whose run-time knows no locales. Printing is in
// Edge.cpp.

#include <crt.h>

#include <cstdlib>

extern "C" {

std::int64_t _atoi64(const char* text);
std::size_t _msize(void* block);

double CrtParseDouble(const char* text) {
  return std::atof(text);
}

std::int64_t CrtParseInt64(const char* text) {
  return _atoi64(text);
}

std::size_t CrtBlockSize(void* block) {
  return _msize(block);
}

}  // extern "C"
