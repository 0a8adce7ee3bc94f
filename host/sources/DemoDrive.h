// A drive that takes place in the computer only.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

namespace host {

/// A car with a good engine goes through a town, over a hill, through a tunnel and along a
/// motorway, and back into town; its receiver tells once a second where it is. One lap takes about
/// 20 minutes and begins and ends at rest. The same start gives the same drive.
class DemoDrive {
 public:
  /// What the car and its receiver do at one moment.
  struct State {
    /// Seconds since the start of the drive.
    std::int64_t second = 0;
    double latitude = 55.7512;   // degrees north
    double longitude = 37.5984;  // degrees east
    double altitude = 148.0;     // metres
    double course = 40.0;        // degrees from north, 0 to below 360
    double speed = 0.0;          // metres per second
    bool hasFix = true;          // false in the tunnel
    /// How much of the sky is seen: 0 (none) to 1 (all).
    double sky = 1.0;
  };

  explicit DemoDrive(std::chrono::sys_seconds startTime);

  const State& GetState() const { return state; }

  /// Goes on by one second; after a lap the next one begins where the car stands.
  void Advance();

  /// Sentences of the present moment, GGA, GSA, GSV and at the end RMC, each with CR LF.
  std::string GetSentences() const;

  /// Seconds that a lap takes.
  static int GetLapSeconds();

 private:
  std::string GetGga() const;
  std::string GetGsa() const;
  std::string GetGsv(int message) const;
  std::string GetRmc() const;

  /// Signal of the satellite in dB, 0 when it is not received.
  int GetSignal(std::size_t satellite) const;
  int CountReceived() const;
  double GetHdop() const;

  std::chrono::sys_seconds start;
  State state;
  std::size_t leg = 0;
  int secondOfLeg = 0;
};

}  // namespace host
