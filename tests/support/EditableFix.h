// A fix whose values tests set as they like.
#pragma once

#include "gps/FixRecord.h"

namespace testing_support {

class EditableFix : public ferolin::FixRecord {
 public:
  using FixRecord::altitude;
  using FixRecord::course;
  using FixRecord::fixValid;
  using FixRecord::ggaField10;
  using FixRecord::hdop;
  using FixRecord::latitude;
  using FixRecord::localTime;
  using FixRecord::longitude;
  using FixRecord::pdop;
  using FixRecord::reserved;
  using FixRecord::satellites;
  using FixRecord::satellitesUsed;
  using FixRecord::SetLocalTime;
  using FixRecord::speedKmh;
  using FixRecord::speedKnots;
  using FixRecord::track;
  using FixRecord::utcTime;
  using FixRecord::vdop;
};

}  // namespace testing_support
