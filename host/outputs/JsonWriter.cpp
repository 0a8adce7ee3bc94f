#include "outputs/JsonWriter.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "base/UtcText.h"

namespace host {

namespace {

using Json = nlohmann::ordered_json;

constexpr double METRES_PER_KM = 1000;
constexpr double KMH_PER_METRE_PER_SECOND = 3.6;
constexpr double MS_PER_SECOND = 1000;

// Decimals.
constexpr int DEGREES = 8;
constexpr int THOUSANDTHS = 3;

/// Rounded, so that no digits are written that the receiver did not give.
Json Number(const std::optional<double>& value, int decimals) {
  if (!value || !std::isfinite(*value)) {
    return nullptr;
  }
  const double scale = std::pow(10, decimals);
  return std::round(*value * scale) / scale;
}

Json Speed(const std::optional<double>& kmh) {
  return Number(kmh ? std::optional(*kmh / KMH_PER_METRE_PER_SECOND) : std::nullopt, THOUSANDTHS);
}

Json Seconds(std::int64_t durationMs) {
  return Number(static_cast<double>(durationMs) / MS_PER_SECOND, THOUSANDTHS);
}

Json ObjectOf(const Readouts& readouts) {
  Json object = Json::object();
  // No two read-outs share a name: nothing is looked for.
  auto& members = object.get_ref<Json::object_t&>();
  members.reserve(readouts.size());
  for (const Readout& each : readouts) {
    members.emplace_back(each.name, each.value);
  }
  return object;
}

/// {"0-100_kmh":9.5,...}
Json ObjectOf(const std::vector<BestTime>& times, const std::string& before,
              const std::string& behind) {
  Json object = Json::object();
  for (const BestTime& each : times) {
    std::string key = before;
    key += std::to_string(std::llround(each.target));
    key += behind;
    object[key] = Number(each.seconds, THOUSANDTHS);
  }
  return object;
}

void AddMoment(Json& line, const std::optional<Fix>& moment) {
  const Fix nothing;
  const Fix& known = moment ? *moment : nothing;
  const Fix& fix = known.hasFix ? known : nothing;
  line["time"] = known.timeMs ? Json(UtcText(*known.timeMs)) : Json();
  line["fix"] = moment ? Json(known.hasFix) : Json();
  line["lat"] = Number(fix.latitude, DEGREES);
  line["lon"] = Number(fix.longitude, DEGREES);
  line["alt_m"] = Number(fix.altitude, THOUSANDTHS);
  line["speed_mps"] = Speed(fix.speedKmh);
  line["course_deg"] = Number(fix.course, THOUSANDTHS);
  line["satellites"] = known.satellites ? Json(*known.satellites) : Json();
  line["hdop"] = Number(known.hdop, THOUSANDTHS);
}

void AddTrip(Json& line, const Update& update, const Figures& figures) {
  line["distance_m"] = Number(figures.distanceKm * METRES_PER_KM, THOUSANDTHS);
  line["elapsed_s"] = figures.elapsedSeconds;
  line["moving_s"] = Seconds(update.moving.movingMs);
  line["stopped_s"] = Seconds(update.moving.stoppedMs);
  line["average_speed_mps"] = Speed(figures.averageKmh);
  line["moving_average_speed_mps"] = Speed(update.moving.GetAverageKmh());
  line["max_speed_mps"] = Speed(figures.highestKmh);
  line["accelerations_s"] = ObjectOf(figures.accelerations, "0-", "_kmh");
  line["fastest_s"] = ObjectOf(figures.fastest, "", "_m");
}

std::string LineOf(const Json& json) {
  constexpr int ONE_LINE = -1;
  constexpr bool AS_UTF8 = false;
  return json.dump(ONE_LINE, ' ', AS_UTF8, Json::error_handler_t::replace) + "\n";
}

}  // namespace

std::string JsonUpdate(const Update& update, const Figures& figures) {
  Json line = {{"update", update.number}};
  if (!update.notice.empty()) {
    line["notice"] = update.notice;
  }
  AddMoment(line, update.fix);
  AddTrip(line, update, figures);
  line["text"] = ObjectOf(update.readouts);
  return LineOf(line);
}

std::string JsonEnd(const Update& last, const Figures& figures, const Readouts& registry) {
  Json line = {{"end", true}, {"updates", last.number}};
  AddTrip(line, last, figures);
  line["registry"] = ObjectOf(registry);
  return LineOf(line);
}

}  // namespace host
