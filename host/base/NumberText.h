// Numbers as text.
#pragma once

#include <string>

namespace host {

/// With a point and so many decimals, in any locale.
std::string DescribeNumber(double value, int decimals);

}  // namespace host
