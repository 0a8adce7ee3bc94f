#include "sources/DemoSentences.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "sources/DemoSky.h"
#include "sources/NmeaSentence.h"

namespace host {

namespace {

constexpr std::size_t SATELLITES_PER_GSV = 4;
constexpr std::size_t GSV_COUNT = DemoSky::SATELLITES / SATELLITES_PER_GSV;

constexpr double KNOTS_OF_MS = 3600.0 / 1852.0;

/// Does not depend on the process's locale.
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

NmeaSentence WriteGga(const Moment& moment, const DemoState& state, const DemoSky& sky) {
  NmeaSentence sentence;
  sentence.name = "GPGGA";
  if (!state.hasFix) {
    sentence.fields = {moment.time, "", "", "", "", "0", "00", "", "", "M", "", "M", "", ""};
    return sentence;
  }
  sentence.fields = {moment.time,
                     Coordinate(state.latitude, 2),
                     "N",
                     Coordinate(state.longitude, 3),
                     "E",
                     "1",
                     Whole(sky.CountReceived(), 2),
                     Fixed(sky.GetHdop(), 1),
                     Fixed(state.altitude, 1),
                     "M",
                     "14.4",
                     "M",
                     "",
                     ""};
  return sentence;
}

NmeaSentence WriteGsa(const DemoState& state, const DemoSky& sky) {
  constexpr std::size_t FIELDS_BEFORE_SATELLITES = 2;
  constexpr std::size_t FIELDS_OF_PRECISION = 3;
  NmeaSentence sentence;
  sentence.name = "GPGSA";
  std::vector<std::string>& fields = sentence.fields;
  fields = {"A", state.hasFix ? "3" : "1"};
  for (const DemoSatellite& each : sky.GetSatellites()) {
    if (each.signal > 0) {
      fields.push_back(Whole(each.number, 2));
    }
  }
  fields.resize(FIELDS_BEFORE_SATELLITES + DemoSky::SATELLITES);
  if (state.hasFix) {
    fields.insert(fields.end(),
                  {Fixed(sky.GetPdop(), 1), Fixed(sky.GetHdop(), 1), Fixed(sky.GetVdop(), 1)});
  } else {
    fields.resize(fields.size() + FIELDS_OF_PRECISION);
  }
  return sentence;
}

/// `index` from 0.
NmeaSentence WriteGsv(std::size_t index, const DemoSky& sky) {
  NmeaSentence sentence;
  sentence.name = "GPGSV";
  sentence.fields = {std::to_string(GSV_COUNT), std::to_string(index + 1),
                     Whole(static_cast<long long>(DemoSky::SATELLITES), 2)};
  const std::size_t first = index * SATELLITES_PER_GSV;
  for (std::size_t i = first; i < first + SATELLITES_PER_GSV; ++i) {
    const DemoSatellite& each = sky.GetSatellites()[i];
    sentence.fields.insert(sentence.fields.end(),
                           {Whole(each.number, 2), Whole(each.elevation, 2), Whole(each.azimuth, 3),
                            each.signal > 0 ? Whole(each.signal, 2) : std::string()});
  }
  return sentence;
}

NmeaSentence WriteRmc(const Moment& moment, const DemoState& state) {
  NmeaSentence sentence;
  sentence.name = "GPRMC";
  if (!state.hasFix) {
    sentence.fields = {moment.time, "V", "", "", "", "", "", "", moment.date, "", "", "N"};
    return sentence;
  }
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
  return sentence;
}

}  // namespace

std::string WriteDemoSentences(std::chrono::sys_seconds moment, const DemoState& state) {
  const Moment formatted = FormatMoment(moment);
  const DemoSky sky(state);
  std::vector<NmeaSentence> sentences = {WriteGga(formatted, state, sky), WriteGsa(state, sky)};
  for (std::size_t i = 0; i < GSV_COUNT; ++i) {
    sentences.push_back(WriteGsv(i, sky));
  }
  sentences.push_back(WriteRmc(formatted, state));
  std::string text;
  for (const NmeaSentence& each : sentences) {
    text += each.GetText() + "\r\n";
  }
  return text;
}

}  // namespace host
