#include "sources/Reception.h"

namespace host {

std::string Describe(const Reception& reception) {
  if (!reception.trouble.empty()) {
    return reception.trouble;
  }
  if (reception.silentSeconds == 0) {
    return {};
  }
  return reception.hasNoise ? "bytes but no sentences: is the baud rate right? (--baud)"
                            : "no data for " + std::to_string(reception.silentSeconds) + " s";
}

}  // namespace host
