// The units that the user wants to read.
#pragma once

#include <string>

namespace host {

/// Kilometres, statute miles or nautical miles, with the speeds and heights that go with them.
enum class Units { KM, MI, NM };

/// "62.0 km/h", "38.5 mph" or "33.5 kn".
std::string DescribeSpeed(double kmh, Units units, int decimals = 1);

/// "47.2 km", "4.72 km" or "472 m", as the engine shows the trip's distance; "29.3 mi" and "2.93
/// mi", or "25.5 NM" and "2.55 NM".
std::string DescribeDistance(double km, Units units);

/// "201.9 m" or "662 ft".
std::string DescribeHeight(double metres, Units units);

}  // namespace host
