#include "base/Units.h"

#include "base/NumberText.h"

namespace host {

namespace {

constexpr double METRES_PER_KM = 1000;
constexpr double METRES_PER_FOOT = 0.3048;

struct Names {
  double kmPerUnit;
  const char* distance;
  const char* speed;
};

Names NamesOf(Units units) {
  switch (units) {
    case Units::MI:
      return {1.609344, " mi", " mph"};
    case Units::NM:
      return {1.852, " NM", " kn"};
    case Units::KM:
      break;
  }
  return {1, " km", " km/h"};
}

}  // namespace

std::string DescribeSpeed(double kmh, Units units, int decimals) {
  const Names names = NamesOf(units);
  return DescribeNumber(kmh / names.kmPerUnit, decimals) + names.speed;
}

std::string DescribeDistance(double km, Units units) {
  constexpr double ONE_DECIMAL_FROM = 10;
  if (units == Units::KM && km < 1) {
    return DescribeNumber(km * METRES_PER_KM, 0) + " m";
  }
  const Names names = NamesOf(units);
  const double distance = km / names.kmPerUnit;
  return DescribeNumber(distance, distance < ONE_DECIMAL_FROM ? 2 : 1) + names.distance;
}

std::string DescribeHeight(double metres, Units units) {
  return units == Units::KM ? DescribeNumber(metres, 1) + " m"
                            : DescribeNumber(metres / METRES_PER_FOOT, 0) + " ft";
}

}  // namespace host
