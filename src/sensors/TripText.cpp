#include "sensors/TripText.h"

#include "base/Format.h"
#include "gps/FixRecord.h"
#include "sensors/LocalizedText.h"

namespace ferolin {

bool FixCounts(const FixRecord& fix) {
  return fix.IsFixValid() && !IsMissing(fix.GetSpeedKmh());
}

std::string TimeText(double seconds) {
  const char* format = seconds < 10     ? "%.3f %s"
                       : seconds < 100  ? "%.2f %s"
                       : seconds < 1000 ? "%.1f %s"
                                        : "%.0f %s";
  return Format(format, seconds, GetText(Word::SECOND));
}

}  // namespace ferolin
