#include "web/Metrics.h"

#include <optional>

#include "base/NumberText.h"
#include "web/ReadoutText.h"

namespace host {

namespace {

constexpr double KMH_IN_METRE_PER_SECOND = 3.6;
constexpr double METRES_IN_KILOMETRE = 1000;

class Page {
 public:
  void Begin(const std::string& name, const char* type, const char* help) {
    text += "# HELP " + name + " " + help + "\n# TYPE " + name + " " + type + "\n";
  }
  void Add(const std::string& name, const std::string& value) { text += name + " " + value + "\n"; }
  void AddOne(const std::string& name, const char* type, const char* help,
              const std::string& value) {
    Begin(name, type, help);
    Add(name, value);
  }
  /// Without a value the figure is left out.
  void AddGauge(const std::string& name, const char* help, const std::optional<double>& value) {
    constexpr int DECIMALS = 3;
    if (value) {
      AddOne(name, "gauge", help, DescribeNumber(*value, DECIMALS));
    }
  }

  std::string text;
};

}  // namespace

std::string DescribeMetrics(const Snapshot& snapshot, const ServerCounts& counts, WebTime now) {
  Page page;
  const ReceiverState receiver = FindReceiverState(snapshot, now);
  const Fix fix = snapshot.update.fix.value_or(Fix());
  page.Begin("ferolin_info", "gauge", "Version of the program.");
  page.Add("ferolin_info{version=\"" FEROLIN_VERSION "\"}", "1");
  page.AddOne("ferolin_updates_total", "counter", "Updates since the start of the program.",
              std::to_string(snapshot.update.number));
  page.AddGauge("ferolin_receiver_silent", "1 while the receiver is silent.",
                receiver == ReceiverState::SILENT ? 1 : 0);
  page.AddGauge("ferolin_fix", "1 while there is a position.",
                receiver == ReceiverState::OK ? 1 : 0);
  page.AddGauge("ferolin_fix_age_seconds", "Time since the last position.",
                GetFixAge(snapshot, now));
  if (receiver == ReceiverState::OK && fix.speedKmh) {
    page.AddGauge("ferolin_speed_metres_per_second", "Speed over ground.",
                  *fix.speedKmh / KMH_IN_METRE_PER_SECOND);
  }
  if (receiver != ReceiverState::SILENT && fix.satellites) {
    page.AddGauge("ferolin_satellites", "Satellites used.", *fix.satellites);
  }
  page.AddGauge("ferolin_trip_distance_metres", "Length of the trip.",
                snapshot.figures.distanceKm * METRES_IN_KILOMETRE);
  page.AddGauge("ferolin_trip_seconds", "Time of the trip with a position.",
                static_cast<double>(snapshot.figures.elapsedSeconds));
  page.AddOne("ferolin_web_connections", "gauge", "Connections of browsers and programs.",
              std::to_string(counts.connections));
  page.AddOne("ferolin_web_streams", "gauge", "Streams of events.", std::to_string(counts.streams));
  const std::string replies = "ferolin_web_replies_total";
  page.Begin(replies, "counter", "Replies by their status.");
  for (const auto& [status, count] : counts.replies) {
    page.Add(replies + "{status=\"" + std::to_string(status) + "\"}", std::to_string(count));
  }
  return page.text;
}

}  // namespace host
