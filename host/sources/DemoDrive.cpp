#include "sources/DemoDrive.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>
#include <string_view>

#include "sources/NmeaSentence.h"

namespace host {

namespace {

enum class Sky { OPEN, STREETS, FOREST, TUNNEL };

/// A stretch of the drive: for some seconds the car goes for a speed, turns and climbs.
struct Leg {
  int seconds;
  double targetKmh;
  /// Share of the engine's power or of the full brake that the driver uses.
  double effort;
  /// Degrees a second, to the right.
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

/// A satellite of the demo's sky. It rises or sinks slowly and wanders around.
struct Satellite {
  int number;
  double elevation;
  double azimuth;
  double elevationPerHour;
  double azimuthPerHour;
};

constexpr std::array<Satellite, 12> SATELLITES = {{
    {2, 12, 48, 9, 4},
    {5, 34, 96, 14, -9},
    {7, 61, 171, -11, 16},
    {9, 23, 318, 6, 5},
    {13, 78, 262, -13, 21},
    {15, 41, 222, 12, -7},
    {18, 18, 141, -7, 3},
    {20, 55, 62, 10, 11},
    {24, 9, 276, 5, -4},
    {27, 47, 297, -12, -8},
    {29, 67, 18, 8, 19},
    {30, 28, 195, -10, 6},
}};

constexpr std::size_t SATELLITES_IN_MESSAGE = 4;
constexpr int MESSAGES = static_cast<int>(SATELLITES.size() / SATELLITES_IN_MESSAGE);

constexpr double KMH_OF_MS = 3.6;
constexpr double KNOTS_OF_MS = 3600.0 / 1852.0;
constexpr double METRES_OF_DEGREE = 111194.93;
/// What the engine gives at rest, in m/s², and where its power is used up by the wind, in m/s.
constexpr double FULL_ACCELERATION = 3.55;
constexpr double TOP_SPEED = 57.0;
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

double SkyOf(Sky sky) {
  constexpr std::array<double, 4> SEEN = {1.0, 0.65, 0.8, 0.0};
  return SEEN[static_cast<std::size_t>(sky)];
}

/// -1 to 1, the same for the same arguments, without a pattern that one sees.
double Noise(std::uint64_t a, std::uint64_t b) {
  std::uint64_t x = a * 0x9E3779B97F4A7C15ULL + b * 0xC2B2AE3D27D4EB4FULL + 1;
  x ^= x >> 31;
  x *= 0xBF58476D1CE4E5B9ULL;
  x ^= x >> 29;
  return static_cast<double>(x >> 11) / 4503599627370496.0 - 1;
}

/// Degrees above the horizon: up and down between the lowest and the highest of this sky.
double Elevation(const Satellite& satellite, std::int64_t second) {
  constexpr double LOWEST = 5;
  constexpr double SPAN = 80;
  const double way = satellite.elevation - LOWEST +
                     satellite.elevationPerHour * static_cast<double>(second) / 3600;
  const double place = std::abs(std::remainder(way, 2 * SPAN));
  return LOWEST + place;
}

/// Printed independently of the process's locale.
std::string Fixed(double value, int decimals) {
  std::array<char, 64> text;
  const auto result = std::to_chars(text.data(), text.data() + text.size(), value,
                                    std::chars_format::fixed, decimals);
  return {text.data(), result.ptr};
}

std::string Padded(double value, int width, int decimals) {
  const std::string text = Fixed(value, decimals);
  const std::size_t size = static_cast<std::size_t>(width);
  return text.size() < size ? std::string(size - text.size(), '0') + text : text;
}

std::string Whole(long long value, int width) {
  const std::string text = std::to_string(value);
  const std::size_t size = static_cast<std::size_t>(width);
  return text.size() < size ? std::string(size - text.size(), '0') + text : text;
}

/// ddmm.mmmmm with `degreeDigits` digits for the degrees.
std::string Coordinate(double degrees, int degreeDigits) {
  constexpr double PARTS = 100000;  // of a minute
  const auto parts = static_cast<std::int64_t>(std::llround(std::abs(degrees) * 60 * PARTS));
  const std::int64_t whole = parts / static_cast<std::int64_t>(60 * PARTS);
  const double minutes = static_cast<double>(parts % static_cast<std::int64_t>(60 * PARTS)) / PARTS;
  return Whole(whole, degreeDigits) + Padded(minutes, 8, 5);
}

struct Moment {
  std::string time;
  std::string date;
};

Moment FormatMoment(std::chrono::sys_seconds moment) {
  const auto day = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(moment - day);
  return {Whole(time.hours().count(), 2) + Whole(time.minutes().count(), 2) +
              Whole(time.seconds().count(), 2),
          Whole(static_cast<unsigned>(date.day()), 2) +
              Whole(static_cast<unsigned>(date.month()), 2) +
              Whole(static_cast<int>(date.year()) % 100, 2)};
}

std::string Finish(NmeaSentence& sentence) {
  return sentence.GetText() + "\r\n";
}

}  // namespace

DemoDrive::DemoDrive(std::chrono::sys_seconds startTime) : start(startTime) {}

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
  state.sky = SkyOf(now.sky);
  ++state.second;
  if (++secondOfLeg == now.seconds) {
    secondOfLeg = 0;
    leg = (leg + 1) % LEGS.size();
  }
}

int DemoDrive::GetSignal(std::size_t satellite) const {
  const double elevation = Elevation(SATELLITES[satellite], state.second);
  // Low satellites hide behind houses and trees.
  if (!state.hasFix || elevation < 65 * (1 - state.sky)) {
    return 0;
  }
  const double wobble = 2.5 * Noise(satellite, static_cast<std::uint64_t>(state.second) / 3);
  return static_cast<int>(std::lround(29 + 17 * std::sin(Radians(elevation)) + wobble));
}

int DemoDrive::CountReceived() const {
  int received = 0;
  for (std::size_t i = 0; i < SATELLITES.size(); ++i) {
    received += GetSignal(i) > 0 ? 1 : 0;
  }
  return received;
}

double DemoDrive::GetHdop() const {
  const double spread = 8.2 / std::max(CountReceived(), 4);
  return spread + 0.06 * Noise(77, static_cast<std::uint64_t>(state.second) / 5);
}

std::string DemoDrive::GetSentences() const {
  std::string text = GetGga() + GetGsa();
  for (int message = 0; message < MESSAGES; ++message) {
    text += GetGsv(message);
  }
  return text + GetRmc();
}

std::string DemoDrive::GetGga() const {
  const Moment moment = FormatMoment(start + std::chrono::seconds(state.second));
  NmeaSentence sentence;
  sentence.name = "GPGGA";
  if (state.hasFix) {
    sentence.fields = {moment.time,
                       Coordinate(state.latitude, 2),
                       "N",
                       Coordinate(state.longitude, 3),
                       "E",
                       "1",
                       Whole(CountReceived(), 2),
                       Fixed(GetHdop(), 1),
                       Fixed(state.altitude, 1),
                       "M",
                       "14.4",
                       "M",
                       "",
                       ""};
  } else {
    sentence.fields = {moment.time, "", "", "", "", "0", "00", "", "", "M", "", "M", "", ""};
  }
  return Finish(sentence);
}

std::string DemoDrive::GetGsa() const {
  NmeaSentence sentence;
  sentence.name = "GPGSA";
  sentence.fields = {"A", state.hasFix ? "3" : "1"};
  for (std::size_t i = 0; i < SATELLITES.size(); ++i) {
    if (GetSignal(i) > 0) {
      sentence.fields.push_back(Whole(SATELLITES[i].number, 2));
    }
  }
  sentence.fields.resize(2 + SATELLITES.size());
  if (state.hasFix) {
    const double hdop = GetHdop();
    const double vdop = hdop * 1.45;
    sentence.fields.insert(sentence.fields.end(),
                           {Fixed(std::hypot(hdop, vdop), 1), Fixed(hdop, 1), Fixed(vdop, 1)});
  } else {
    sentence.fields.resize(sentence.fields.size() + 3);
  }
  return Finish(sentence);
}

std::string DemoDrive::GetGsv(int message) const {
  NmeaSentence sentence;
  sentence.name = "GPGSV";
  sentence.fields = {std::to_string(MESSAGES), std::to_string(message + 1),
                     Whole(static_cast<long long>(SATELLITES.size()), 2)};
  const double hours = static_cast<double>(state.second) / 3600;
  const std::size_t first = static_cast<std::size_t>(message) * SATELLITES_IN_MESSAGE;
  for (std::size_t i = first; i < first + SATELLITES_IN_MESSAGE; ++i) {
    const Satellite& each = SATELLITES[i];
    const double elevation = Elevation(each, state.second);
    const double azimuth = std::fmod(each.azimuth + hours * each.azimuthPerHour + 3600, 360);
    const int signal = GetSignal(i);
    sentence.fields.insert(
        sentence.fields.end(),
        {Whole(each.number, 2), Whole(std::lround(elevation), 2),
         Whole(std::lround(azimuth) % 360, 3), signal > 0 ? Whole(signal, 2) : std::string()});
  }
  return Finish(sentence);
}

std::string DemoDrive::GetRmc() const {
  const Moment moment = FormatMoment(start + std::chrono::seconds(state.second));
  NmeaSentence sentence;
  sentence.name = "GPRMC";
  if (state.hasFix) {
    sentence.fields = {moment.time,
                       "A",
                       Coordinate(state.latitude, 2),
                       "N",
                       Coordinate(state.longitude, 3),
                       "E",
                       Padded(state.speed * KNOTS_OF_MS, 6, 2),
                       Padded(state.course, 5, 1),
                       moment.date,
                       "",
                       "",
                       "A"};
  } else {
    sentence.fields = {moment.time, "V", "", "", "", "", "", "", moment.date, "", "", "N"};
  }
  return Finish(sentence);
}

}  // namespace host
