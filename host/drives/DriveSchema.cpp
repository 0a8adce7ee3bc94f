#include "drives/DriveSchema.h"

#include <array>

#include "drives/Statement.h"

namespace host {

namespace {

/// Times are UTC in milliseconds since 1970. `end_ms` and the sums are NULL while a drive goes on.
/// Positions of a drive count from 1; coordinates are in degrees, altitudes in metres.
constexpr const char* DRIVES = R"(
CREATE TABLE drives (
  number INTEGER PRIMARY KEY AUTOINCREMENT,
  source TEXT NOT NULL,
  start_ms INTEGER NOT NULL,
  end_ms INTEGER,
  distance_km REAL,
  highest_kmh REAL
);
CREATE TABLE positions (
  drive INTEGER NOT NULL REFERENCES drives (number) ON DELETE CASCADE,
  number INTEGER NOT NULL,
  time_ms INTEGER NOT NULL,
  has_fix INTEGER NOT NULL,
  latitude REAL,
  longitude REAL,
  altitude REAL,
  speed_kmh REAL,
  course REAL,
  hdop REAL,
  satellites INTEGER,
  PRIMARY KEY (drive, number)
) WITHOUT ROWID;
)";

/// `states` has a line "index state" for each read-out.
constexpr const char* TRIPS = R"(
CREATE TABLE trips (
  name TEXT PRIMARY KEY,
  run INTEGER NOT NULL,
  states TEXT NOT NULL
) WITHOUT ROWID;
)";

/// Kilometres and milliseconds in motion, milliseconds at a standstill, and the day of a trip's
/// latest run. NULL in what an older version kept.
constexpr const char* MOVING_TIMES = R"(
ALTER TABLE drives ADD COLUMN moving_km REAL;
ALTER TABLE drives ADD COLUMN moving_ms INTEGER;
ALTER TABLE drives ADD COLUMN stopped_ms INTEGER;
ALTER TABLE trips ADD COLUMN moving_km REAL;
ALTER TABLE trips ADD COLUMN moving_ms INTEGER;
ALTER TABLE trips ADD COLUMN stopped_ms INTEGER;
ALTER TABLE trips ADD COLUMN day TEXT;
)";

/// States that wait for a broker. The series is another one in every new file.
constexpr const char* STATES = R"(
CREATE TABLE states (
  number INTEGER PRIMARY KEY AUTOINCREMENT,
  state TEXT NOT NULL
);
CREATE TABLE state_series (name TEXT NOT NULL);
INSERT INTO state_series VALUES (lower(hex(randomblob(4))));
)";

/// The step at index 0 makes version 1.
constexpr std::array STEPS = {DRIVES, TRIPS, MOVING_TIMES, STATES};

std::size_t GetVersion(Database& database) {
  Statement statement(database, "PRAGMA user_version");
  statement.Next();
  return static_cast<std::size_t>(statement.GetInteger(0).value_or(0));
}

}  // namespace

void MigrateDrives(Database& database) {
  if (GetVersion(database) == STEPS.size()) {
    return;
  }
  database.InTransaction([&database] {
    std::size_t version = GetVersion(database);
    if (version > STEPS.size()) {
      throw HostError(database.GetPath() + " is of a newer version of this program");
    }
    for (; version < STEPS.size(); ++version) {
      database.Execute(STEPS[version]);
    }
    database.Execute(("PRAGMA user_version = " + std::to_string(version)).c_str());
  });
}

}  // namespace host
