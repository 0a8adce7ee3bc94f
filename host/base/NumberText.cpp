#include "base/NumberText.h"

#include <array>
#include <charconv>

namespace host {

std::string DescribeNumber(double value, int decimals) {
  std::array<char, 400> buffer;  // holds every double
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                    std::chars_format::fixed, decimals);
  return {buffer.data(), result.ptr};
}

}  // namespace host
