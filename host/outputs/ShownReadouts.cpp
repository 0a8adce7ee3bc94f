#include "outputs/ShownReadouts.h"

#include <windows.h>

#include <array>

#include "base/NumberText.h"

namespace host {

namespace {

/// 1e-6 degrees are 11 cm.
constexpr int DEGREE_DECIMALS = 6;

bool IsRussian() {
  std::array<WCHAR, 10> language = {};
  GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SABBREVLANGNAME, language.data(),
                 static_cast<int>(language.size()));
  return std::u16string(language.data()) == u"RUS";
}

/// Leaves a missing value missing.
void Replace(Readouts& readouts, std::size_t sensor, const std::string& text) {
  if (sensor < readouts.size() && !readouts[sensor].value.empty()) {
    readouts[sensor].value = text;
  }
}

std::string DescribeMovingAverage(const Update& update, Units units, bool isRussian) {
  const std::optional<double> kmh = update.moving.GetAverageKmh();
  if (!kmh) {
    return {};
  }
  return units == Units::KM && isRussian ? DescribeNumber(*kmh, 2) + " км/ч"
                                         : DescribeSpeed(*kmh, units, 2);
}

std::string TwoDigits(std::int64_t number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

}  // namespace

void ConvertUnits(Readouts& readouts, const std::optional<Fix>& fix, const Figures& figures,
                  Units units) {
  if (fix && fix->speedKmh) {
    Replace(readouts, FEROLIN_SENSOR_SPEED, DescribeSpeed(*fix->speedKmh, units));
  }
  if (fix && fix->altitude) {
    Replace(readouts, FEROLIN_SENSOR_ALTITUDE, DescribeHeight(*fix->altitude, units));
  }
  if (figures.highestKmh) {
    Replace(readouts, FEROLIN_SENSOR_MAX_SPEED, DescribeSpeed(*figures.highestKmh, units));
  }
  if (figures.averageKmh) {
    Replace(readouts, FEROLIN_SENSOR_AVERAGE_SPEED, DescribeSpeed(*figures.averageKmh, units, 2));
  }
  Replace(readouts, FEROLIN_SENSOR_DISTANCE, DescribeDistance(figures.distanceKm, units));
}

void ConvertAngles(Readouts& readouts, const std::optional<Fix>& fix) {
  if (fix && fix->latitude && fix->longitude) {
    Replace(readouts, FEROLIN_SENSOR_LATITUDE, DescribeNumber(*fix->latitude, DEGREE_DECIMALS));
    Replace(readouts, FEROLIN_SENSOR_LONGITUDE, DescribeNumber(*fix->longitude, DEGREE_DECIMALS));
  }
}

std::string DescribeStopped(std::int64_t stoppedMs, bool isRussian) {
  const std::int64_t seconds = stoppedMs / 1000;
  const std::string second = TwoDigits(seconds % 60);
  if (seconds < 60) {
    return std::to_string(seconds) + (isRussian ? " с" : " s");
  }
  if (seconds < 3600) {
    return std::to_string(seconds / 60) + ":" + second;
  }
  return std::to_string(seconds / 3600) + ":" + TwoDigits(seconds / 60 % 60) + ":" + second;
}

ShownReadouts::ShownReadouts(const EngineLibrary& engine, Units units, Angles angles)
    : engine(engine), units(units), angles(angles), isRussian(IsRussian()) {}

Readouts ShownReadouts::Make(const Update& update) const {
  Readouts shown = update.readouts;
  if (units != Units::KM) {
    ConvertUnits(shown, update.fix, ReadFigures(engine), units);
  }
  if (angles == Angles::DECIMAL_DEGREES) {
    ConvertAngles(shown, update.fix);
  }
  shown.push_back({isRussian ? "Средняя в движении" : "Moving average",
                   DescribeMovingAverage(update, units, isRussian)});
  shown.push_back(
      {isRussian ? "Стоянка" : "Stopped", DescribeStopped(update.moving.stoppedMs, isRussian)});
  return shown;
}

}  // namespace host
