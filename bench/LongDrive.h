#pragma once

#include <cmath>
#include <cstdint>
#include <numbers>
#include <random>
#include <vector>

#include "track/TrackPoint.h"

namespace ferolin {

/// Positions, one a second, of a driver who goes out and home again over a dozen roads of up to 40
/// km, or `times` as long: the same roads over and over, with bends, stops at crossings and rests at
/// the far end. The drive is the same in every run.
class LongDrive {
 public:
  explicit LongDrive(double times = 1) {
    for (int number = 0; number < ROUTES; ++number) {
      routes.push_back(MakeRoute((2000.0 + 3500.0 * number) * times));
    }
  }

  TrackPoint Next() {
    Advance();
    const Place place = routes[route].At(outward ? travelled : routes[route].length - travelled);
    const double latitude = 55.75 + (place.north + noise(random)) / METRES_PER_DEGREE;
    const double longitude =
        37.62 + (place.east + noise(random)) /
                    (METRES_PER_DEGREE * std::cos(55.75 * std::numbers::pi / 180));
    ++second;
    SYSTEMTIME time = {2024, 3, 0, 1, 0, 0, 0, 0};
    time.wDay = static_cast<WORD>(1 + second / 86400 % 28);
    time.wHour = static_cast<WORD>(second / 3600 % 24);
    time.wMinute = static_cast<WORD>(second / 60 % 60);
    time.wSecond = static_cast<WORD>(second % 60);
    return {
        150, NmeaForm(longitude), NmeaForm(latitude), 0, static_cast<float>(metresPerSecond * 3.6),
        time};
  }

 private:
  static constexpr int ROUTES = 12;
  static constexpr double METRES_PER_DEGREE = 111'200;
  static constexpr double STEP = 50;  // metres

  struct Place {
    double east;
    double north;
  };
  struct Route {
    Place At(double metres) const {
      const double step = std::min(metres / STEP, static_cast<double>(places.size() - 2));
      const auto index = static_cast<std::size_t>(step);
      const double part = step - static_cast<double>(index);
      const Place& from = places[index];
      const Place& to = places[index + 1];
      return {from.east + part * (to.east - from.east),
              from.north + part * (to.north - from.north)};
    }
    std::vector<Place> places;
    double length;
  };

  Route MakeRoute(double metresLong) {
    Route made = {{{0, 0}}, metresLong};
    double heading = std::uniform_real_distribution(0.0, 2 * std::numbers::pi)(random);
    std::normal_distribution bend(0.0, 0.06);
    for (double metres = 0; metres < metresLong + STEP; metres += STEP) {
      heading += bend(random);
      const Place last = made.places.back();
      made.places.push_back(
          {last.east + STEP * std::cos(heading), last.north + STEP * std::sin(heading)});
    }
    return made;
  }

  void Advance() {
    if (rest > 0) {
      metresPerSecond = 0;
      --rest;
      return;
    }
    if (random() % 200 == 0) {
      rest = 10 + static_cast<int>(random() % 60);
    }
    const double wanted = 8 + routes[route].length / 2500;
    metresPerSecond += 0.15 * (wanted - metresPerSecond);
    travelled += metresPerSecond;
    if (travelled >= routes[route].length) {
      travelled = 0;
      outward = !outward;
      rest = 120 + static_cast<int>(random() % 600);
      if (outward) {
        route = random() % ROUTES;
      }
    }
  }

  static float NmeaForm(double degrees) {
    const double whole = std::floor(degrees);
    return static_cast<float>(whole * 100 + (degrees - whole) * 60);
  }

  std::mt19937 random{4711};
  std::normal_distribution<double> noise{0, 2.5};
  std::vector<Route> routes;
  std::size_t route = 0;
  bool outward = true;
  double travelled = 0;
  double metresPerSecond = 0;
  int rest = 0;
  std::int64_t second = 0;
};

}  // namespace ferolin
