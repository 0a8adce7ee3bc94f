// The sentences of the receivers that a gpsd knows.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "common/GpsdConnection.h"
#include "common/WakeEvent.h"
#include "sources/NmeaSource.h"

namespace host {

/// Asks gpsd for sentences instead of its own reports: receivers that speak NMEA are passed on as
/// they are, at their own rate, and gpsd writes sentences for all others. Connects again about once
/// a second while gpsd is missing.
class GpsdSource : public NmeaSource {
 public:
  /// What gpsd is asked for sentences with.
  static constexpr std::string_view REQUEST = "?WATCH={\"enable\":true,\"nmea\":true};\n";

  /// `address` is a text for siblings::GpsdAddress::FromText; empty for the usual one.
  explicit GpsdSource(const std::string& address);

  /// One sentence at a time; gpsd's answers in JSON are left out.
  std::optional<std::string> Read() override;
  void Stop() override { stop.Raise(); }
  std::optional<std::uint64_t> GetSize() const override { return std::nullopt; }
  std::string GetTrouble() const override;
  bool IsLive() const override { return true; }

 private:
  bool Connect();
  void SetTrouble(const std::string& text);

  const siblings::GpsdAddress address;
  siblings::WakeEvent stop;
  /// Null while gpsd is missing.
  std::unique_ptr<siblings::GpsdConnection> connection;
  mutable std::mutex mutex;
  std::string trouble;
};

}  // namespace host
