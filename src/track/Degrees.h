#pragma once

namespace ferolin {

/// Decimal degrees of a coordinate kept as degrees x 100 + minutes (4807.038 is 48 degrees 7.038
/// minutes); negative stays negative. Single precision throughout.
float DegreesFromNmea(float coordinate);

}  // namespace ferolin
