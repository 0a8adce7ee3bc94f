#include "sources/DemoDrive.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "sources/DemoSentences.h"

namespace host {

namespace {

enum class Sky { OPEN, STREETS, FOREST, TUNNEL };

/// A stretch of the drive with constant steering and slope.
struct Leg {
  int seconds;
  /// The car accelerates or brakes towards this speed.
  double targetKmh;
  /// Share of full acceleration or full braking that the driver uses.
  double effort;
  /// Degrees per second, to the right.
  double turn;
  double gradePercent;
  Sky sky;
};

constexpr double GENTLE = 0.5;
constexpr double BRISK = 0.7;
constexpr double FULL = 1.0;

constexpr std::array LEGS = {
    // Out of the car park and through the town.
    Leg{6, 0, GENTLE, 0, 0, Sky::OPEN},
    Leg{24, 50, BRISK, 0, 0, Sky::STREETS},
    Leg{6, 24, GENTLE, 0, 0, Sky::STREETS},
    Leg{9, 24, GENTLE, 10, 0, Sky::STREETS},
    Leg{28, 52, BRISK, 0, 1, Sky::STREETS},
    Leg{10, 0, GENTLE, 0, 0, Sky::STREETS},
    Leg{22, 0, GENTLE, 0, 0, Sky::STREETS},  // red light
    Leg{30, 58, BRISK, 0, 0, Sky::STREETS},
    Leg{20, 48, GENTLE, -2, 0, Sky::STREETS},
    Leg{7, 20, GENTLE, 0, 0, Sky::STREETS},
    Leg{12, 20, GENTLE, -7.5, 0, Sky::STREETS},
    Leg{30, 50, BRISK, 0, 2, Sky::STREETS},
    Leg{11, 0, GENTLE, 0, 0, Sky::STREETS},
    Leg{16, 0, GENTLE, 0, 0, Sky::STREETS},  // red light
    // Over the hill.
    Leg{40, 70, BRISK, 0, 5, Sky::FOREST},
    Leg{30, 62, GENTLE, 2.5, 6, Sky::FOREST},
    Leg{26, 62, GENTLE, -3, 4, Sky::FOREST},
    Leg{34, 75, GENTLE, 0, -5, Sky::FOREST},
    Leg{24, 60, GENTLE, 2, -6, Sky::FOREST},
    Leg{12, 0, GENTLE, 0, -1, Sky::OPEN},
    Leg{14, 0, GENTLE, 0, 0, Sky::OPEN},  // light before the ramp
    // Onto the motorway.
    Leg{30, 153, FULL, 0, 0, Sky::OPEN},
    Leg{12, 128, GENTLE, 0, 0, Sky::OPEN},
    Leg{210, 132, BRISK, 0.1, 0.4, Sky::OPEN},
    Leg{14, 144, FULL, 0, 0, Sky::OPEN},  // overtaking
    Leg{12, 130, GENTLE, 0, 0, Sky::OPEN},
    Leg{130, 130, GENTLE, -0.2, -0.5, Sky::OPEN},
    Leg{14, 88, GENTLE, 0, 0, Sky::OPEN},
    Leg{34, 88, GENTLE, 0.5, -1, Sky::TUNNEL},
    Leg{30, 118, BRISK, 0, 1, Sky::OPEN},
    Leg{70, 118, GENTLE, 0.3, 0, Sky::OPEN},
    Leg{14, 40, GENTLE, 0, 0, Sky::OPEN},
    Leg{20, 40, GENTLE, 8, 0.5, Sky::OPEN},  // exit
    // Back into town.
    Leg{30, 60, BRISK, 0, 0, Sky::STREETS},
    Leg{11, 0, GENTLE, 0, 0, Sky::STREETS},
    Leg{25, 0, GENTLE, 0, 0, Sky::STREETS},  // red light
    Leg{26, 54, BRISK, -1.5, 0, Sky::STREETS},
    Leg{7, 22, GENTLE, 0, 0, Sky::STREETS},
    Leg{10, 22, GENTLE, -9, 0, Sky::STREETS},
    Leg{26, 46, BRISK, 1, 0, Sky::STREETS},
    Leg{8, 10, GENTLE, 0, 0, Sky::STREETS},
    Leg{12, 10, GENTLE, 6, 0, Sky::OPEN},
    Leg{5, 0, GENTLE, 0, 0, Sky::OPEN},
    Leg{20, 0, GENTLE, 0, 0, Sky::OPEN},
};

constexpr double KMH_OF_MS = 3.6;
constexpr double METRES_OF_DEGREE = 111194.93;
/// Acceleration from rest, in m/s².
constexpr double FULL_ACCELERATION = 3.55;
/// Speed at which the wind leaves no acceleration, in m/s.
constexpr double TOP_SPEED = 57.0;
/// Deceleration in m/s².
constexpr double FULL_BRAKE = 4.4;

double Radians(double degrees) {
  return degrees * std::numbers::pi / 180;
}

double ApproachSpeed(double speed, const Leg& leg) {
  const double target = leg.targetKmh / KMH_OF_MS;
  if (speed < target) {
    const double push = FULL_ACCELERATION * leg.effort * (1 - speed / TOP_SPEED);
    return std::min(target, speed + push);
  }
  return std::max(target, speed - FULL_BRAKE * leg.effort);
}

/// Visible share.
double ShareOf(Sky sky) {
  constexpr std::array<double, 4> SHARES = {1.0, 0.65, 0.8, 0.0};
  return SHARES[static_cast<std::size_t>(sky)];
}

}  // namespace

int DemoDrive::GetLapSeconds() {
  int seconds = 0;
  for (const Leg& each : LEGS) {
    seconds += each.seconds;
  }
  return seconds;
}

void DemoDrive::Advance() {
  const Leg& now = LEGS[leg];
  const double speed = ApproachSpeed(state.speed, now);
  const double distance = (state.speed + speed) / 2;
  const double turn = speed > 0 ? now.turn : 0;
  const double middleCourse = Radians(state.course + turn / 2);
  state.latitude += distance * std::cos(middleCourse) / METRES_OF_DEGREE;
  state.longitude +=
      distance * std::sin(middleCourse) / (METRES_OF_DEGREE * std::cos(Radians(state.latitude)));
  state.altitude += distance * now.gradePercent / 100;
  state.course = std::fmod(state.course + turn + 360, 360);
  state.speed = speed;
  state.hasFix = now.sky != Sky::TUNNEL;
  state.sky = ShareOf(now.sky);
  ++state.second;
  if (++secondOfLeg == now.seconds) {
    secondOfLeg = 0;
    leg = (leg + 1) % LEGS.size();
  }
}

std::string DemoDrive::GetSentences() const {
  return WriteDemoSentences(start + std::chrono::seconds(state.second), state);
}

}  // namespace host
