#include "outputs/JsonWriter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>
#include <string_view>
#include <utility>

#include "base/UtcText.h"

namespace host {

namespace {

constexpr double METRES_PER_KM = 1000;
constexpr double KMH_PER_METRE_PER_SECOND = 3.6;
constexpr double MS_PER_SECOND = 1000;

// Parts of a unit that are written.
constexpr double DEGREE_PARTS = 1e8;
constexpr double THOUSANDTHS = 1e3;

// Values as JSON.

constexpr const char* MISSING = "null";

/// Rounded, so that no digits are written that the receiver did not give.
std::string Number(const std::optional<double>& value, double parts) {
  if (!value || !std::isfinite(*value)) {
    return MISSING;
  }
  std::array<char, 400> buffer;  // holds every double
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                 std::round(*value * parts) / parts, std::chars_format::fixed);
  std::string text(buffer.data(), end.ptr);
  return text.find('.') == std::string::npos ? text + ".0" : text;
}

std::string Speed(const std::optional<double>& kmh) {
  return Number(kmh ? std::optional(*kmh / KMH_PER_METRE_PER_SECOND) : std::nullopt, THOUSANDTHS);
}

std::string Seconds(std::int64_t durationMs) {
  return Number(static_cast<double>(durationMs) / MS_PER_SECOND, THOUSANDTHS);
}

std::string Flag(bool value) {
  return value ? "true" : "false";
}

bool NeedsEscapes(const std::string& text) {
  return !std::all_of(text.begin(), text.end(), [](char each) {
    return each >= ' ' && each <= '~' && each != '"' && each != '\\';
  });
}

std::string Text(const std::string& text) {
  using Json = nlohmann::json;
  constexpr int ONE_LINE = -1;
  constexpr bool AS_UTF8 = false;
  return NeedsEscapes(text)
             ? Json(text).dump(ONE_LINE, ' ', AS_UTF8, Json::error_handler_t::replace)
             : '"' + text + '"';
}

/// A line, written from front to back: objects of the JSON library would take most of the time of
/// a recording that is played fast.
class Line {
 public:
  Line() {
    constexpr std::size_t USUAL_LENGTH = 2000;
    text.reserve(USUAL_LENGTH);
    text = "{";
  }

  /// The key needs no escapes.
  void Add(std::string_view key, std::string_view value) {
    Separate();
    AddPlain(key);
    text += ':';
    text += value;
  }

  void Add(std::string_view key, const Readouts& readouts) {
    Add(key, "{");
    for (const Readout& each : readouts) {
      Separate();
      AddText(each.name);
      text += ':';
      AddText(each.value);
    }
    text += '}';
  }

  /// {"0-100_kmh":9.5,...}
  void Add(std::string_view key, const std::vector<BestTime>& times, const std::string& before,
           const char* behind) {
    Add(key, "{");
    for (const BestTime& each : times) {
      Add(before + std::to_string(std::llround(each.target)) + behind,
          Number(each.seconds, THOUSANDTHS));
    }
    text += '}';
  }

  std::string Finish() { return std::move(text) + "}"; }

 private:
  void Separate() {
    if (text.back() != '{') {
      text += ',';
    }
  }

  void AddText(const std::string& value) {
    if (NeedsEscapes(value)) {
      text += Text(value);
    } else {
      AddPlain(value);
    }
  }

  void AddPlain(std::string_view value) {
    text += '"';
    text += value;
    text += '"';
  }

  std::string text;
};

void AddMoment(Line& line, const std::optional<Fix>& moment) {
  const Fix nothing;
  const Fix& known = moment ? *moment : nothing;
  const Fix& fix = known.hasFix ? known : nothing;
  line.Add("time", known.timeMs ? Text(UtcText(*known.timeMs)) : MISSING);
  line.Add("fix", moment ? Flag(known.hasFix) : MISSING);
  line.Add("lat", Number(fix.latitude, DEGREE_PARTS));
  line.Add("lon", Number(fix.longitude, DEGREE_PARTS));
  line.Add("alt_m", Number(fix.altitude, THOUSANDTHS));
  line.Add("speed_mps", Speed(fix.speedKmh));
  line.Add("course_deg", Number(fix.course, THOUSANDTHS));
  line.Add("satellites", known.satellites ? std::to_string(*known.satellites) : MISSING);
  line.Add("hdop", Number(known.hdop, THOUSANDTHS));
}

void AddTrip(Line& line, const Update& update, const Figures& figures) {
  line.Add("distance_m", Number(figures.distanceKm * METRES_PER_KM, THOUSANDTHS));
  line.Add("elapsed_s", std::to_string(figures.elapsedSeconds));
  line.Add("moving_s", Seconds(update.moving.movingMs));
  line.Add("stopped_s", Seconds(update.moving.stoppedMs));
  line.Add("average_speed_mps", Speed(figures.averageKmh));
  line.Add("moving_average_speed_mps", Speed(update.moving.GetAverageKmh()));
  line.Add("max_speed_mps", Speed(figures.highestKmh));
  line.Add("accelerations_s", figures.accelerations, "0-", "_kmh");
  line.Add("fastest_s", figures.fastest, "", "_m");
}

Line StateLine(const Update& update, const Figures& figures) {
  Line line;
  line.Add("update", std::to_string(update.number));
  if (!update.notice.empty()) {
    line.Add("notice", Text(update.notice));
  }
  AddMoment(line, update.fix);
  AddTrip(line, update, figures);
  return line;
}

}  // namespace

std::string JsonUpdate(const Update& update, const Figures& figures) {
  Line line = StateLine(update, figures);
  line.Add("text", update.readouts);
  return line.Finish() + "\n";
}

std::string JsonState(const Update& update, const Figures& figures) {
  return StateLine(update, figures).Finish();
}

std::string JsonEnd(const Update& last, const Figures& figures, const Readouts& registry) {
  Line line;
  line.Add("end", Flag(true));
  line.Add("updates", std::to_string(last.number));
  AddTrip(line, last, figures);
  line.Add("registry", registry);
  return line.Finish() + "\n";
}

}  // namespace host
