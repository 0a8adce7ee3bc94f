#include <gtest/gtest.h>

#include <sstream>

#include "web/Metrics.h"

namespace host {
namespace {

using namespace std::chrono_literals;

const WebTime MEASURED_AT(1h);

Snapshot Moving() {
  Snapshot snapshot;
  snapshot.update.number = 7;
  Fix& fix = snapshot.update.fix.emplace();
  fix.hasFix = true;
  fix.latitude = 55.75;
  fix.longitude = -37.6;
  fix.speedKmh = 36;
  fix.satellites = 8;
  snapshot.figures.distanceKm = 1.25;
  snapshot.figures.elapsedSeconds = 90;
  snapshot.lastFix = MEASURED_AT;
  snapshot.lastHeard = MEASURED_AT;
  return snapshot;
}

/// The figures, without the lines that explain them and the version.
std::string FiguresOf(const Snapshot& snapshot, WebTime now) {
  const ServerCounts counts = {.replies = {{200, 5}, {404, 2}}, .connections = 3, .streams = 1};
  std::istringstream page(DescribeMetrics(snapshot, counts, now));
  std::string figures;
  for (std::string line; std::getline(page, line);) {
    if (!line.starts_with('#') && !line.starts_with("ferolin_info{")) {
      figures += line + "\n";
    }
  }
  return figures;
}

/// All of them: the position is not among them.
TEST(Metrics, TellTripReceiverAndServer) {
  EXPECT_EQ(
      "ferolin_updates_total 7\n"
      "ferolin_receiver_silent 0.000\n"
      "ferolin_fix 1.000\n"
      "ferolin_fix_age_seconds 1.500\n"
      "ferolin_speed_metres_per_second 10.000\n"
      "ferolin_satellites 8.000\n"
      "ferolin_trip_distance_metres 1250.000\n"
      "ferolin_trip_seconds 90.000\n"
      "ferolin_web_connections 3\n"
      "ferolin_web_streams 1\n"
      "ferolin_web_replies_total{status=\"200\"} 5\n"
      "ferolin_web_replies_total{status=\"404\"} 2\n",
      FiguresOf(Moving(), MEASURED_AT + 1500ms));
}

TEST(Metrics, HaveNothingOldOfASilentReceiver) {
  const std::string figures = FiguresOf(Moving(), MEASURED_AT + 4s);
  EXPECT_NE(std::string::npos, figures.find("ferolin_receiver_silent 1.000\nferolin_fix 0.000\n"
                                            "ferolin_fix_age_seconds 4.000\n"
                                            "ferolin_trip_distance_metres 1250.000\n"))
      << figures;
}

TEST(Metrics, HaveNoAgeBeforeTheFirstFix) {
  Snapshot snapshot;
  snapshot.lastHeard = MEASURED_AT;
  const std::string figures = FiguresOf(snapshot, MEASURED_AT);
  EXPECT_NE(std::string::npos, figures.find("ferolin_fix 0.000\nferolin_trip_distance_metres "))
      << figures;
}

}  // namespace
}  // namespace host
