#pragma once

namespace ferolin {

/// Marks every number of GPS origin that is not known. Readers test for it before use.
constexpr int MISSING_VALUE = -9999;
constexpr float MISSING_FLOAT = -9999.0F;

inline bool IsMissing(float value) {
  return value == MISSING_FLOAT;
}

}  // namespace ferolin
