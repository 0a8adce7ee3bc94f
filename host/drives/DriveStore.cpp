#include "drives/DriveStore.h"

#include <chrono>
#include <sstream>

#include "drives/DriveSchema.h"
#include "drives/DriveTexts.h"
#include "drives/DriveTotals.h"

namespace host {

namespace {

Database& Migrate(Database& database) {
  MigrateDrives(database);
  return database;
}

/// The row's columns from `column` on.
Fix ReadFix(const Statement& row) {
  Fix fix;
  int column = 0;
  fix.timeMs = row.GetInteger(column++);
  fix.hasFix = row.GetInteger(column++).value_or(0) != 0;
  fix.latitude = row.GetReal(column++);
  fix.longitude = row.GetReal(column++);
  fix.altitude = row.GetReal(column++);
  fix.speedKmh = row.GetReal(column++);
  fix.course = row.GetReal(column++);
  fix.hdop = row.GetReal(column++);
  if (const std::optional<std::int64_t> satellites = row.GetInteger(column)) {
    fix.satellites = static_cast<int>(*satellites);
  }
  return fix;
}

/// Zeros for what an older version kept.
MovingTime::Sums ReadMoving(const Statement& row, int column) {
  return {row.GetReal(column).value_or(0), row.GetInteger(column + 1).value_or(0),
          row.GetInteger(column + 2).value_or(0)};
}

}  // namespace

DriveStore::DriveStore(const std::string& folder, Database::Missing missing)
    : database(folder, FILE_NAME, missing),
      addPosition(Migrate(database),
                  "INSERT INTO positions VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)") {}

std::string DriveStore::PutAside(const std::string& folder) {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  std::string aside =
      "drives-damaged-" +
      DescribeFileTime(std::chrono::duration_cast<std::chrono::milliseconds>(now).count()) + ".db";
  Database::Rename(folder, FILE_NAME, aside);
  return aside;
}

std::int64_t DriveStore::Begin(const std::string& source, std::int64_t startMs) {
  Statement(database, "INSERT INTO drives (source, start_ms) VALUES (?, ?)")
      .With(source, startMs)
      .Run();
  return sqlite3_last_insert_rowid(database.Get());
}

void DriveStore::Add(std::int64_t drive, std::int64_t number, const Fix& fix) {
  addPosition
      .With(drive, number, fix.timeMs, fix.hasFix, fix.latitude, fix.longitude, fix.altitude,
            fix.speedKmh, fix.course, fix.hdop, fix.satellites)
      .Run();
}

void DriveStore::End(const Drive& drive) {
  const MovingTime::Sums moving = drive.moving.value_or(MovingTime::Sums());
  Statement(database,
            "UPDATE drives SET start_ms = ?, end_ms = ?, distance_km = ?, highest_kmh = ?, "
            "moving_km = ?, moving_ms = ?, stopped_ms = ? WHERE number = ?")
      .With(drive.startMs, drive.endMs, drive.distanceKm, drive.highestKmh, moving.movingKm,
            moving.movingMs, moving.stoppedMs, drive.number)
      .Run();
}

std::vector<Drive> DriveStore::EndOpenDrives() {
  std::vector<Drive> open;
  InTransaction([this, &open] {
    open = Read("SELECT * FROM drives WHERE end_ms IS NULL ORDER BY number");
    for (const Drive& drive : open) {
      End(drive);
    }
  });
  return open;
}

std::vector<Drive> DriveStore::List() {
  return Read("SELECT * FROM drives ORDER BY number");
}

std::size_t DriveStore::Count() {
  Statement row(database, "SELECT COUNT(*) FROM drives");
  return row.Next() ? static_cast<std::size_t>(row.GetInteger(0).value_or(0)) : 0;
}

std::vector<Drive> DriveStore::Read(const char* sql) {
  std::vector<Drive> drives;
  Statement row(database, sql);
  while (row.Next()) {
    Drive drive;
    drive.number = row.GetInteger(0).value_or(0);
    drive.source = row.GetText(1);
    drive.startMs = row.GetInteger(2).value_or(0);
    drive.isEnded = row.GetInteger(3).has_value();
    drive.endMs = row.GetInteger(3).value_or(drive.startMs);
    drive.distanceKm = row.GetReal(4).value_or(0);
    drive.highestKmh = row.GetReal(5).value_or(0);
    if (row.GetReal(6)) {
      drive.moving = ReadMoving(row, 6);
    }
    if (!drive.isEnded) {
      AddUp(drive);
    }
    drives.push_back(drive);
  }
  return drives;
}

void DriveStore::AddUp(Drive& drive) {
  DriveTotals totals;
  ForEachPosition(drive.number, [&totals](const Fix& fix) { totals.Add(fix); });
  totals.PutInto(drive);
}

void DriveStore::ForEachPosition(std::int64_t drive, const std::function<void(const Fix&)>& take) {
  Statement row(database,
                "SELECT time_ms, has_fix, latitude, longitude, altitude, speed_kmh, course, hdop, "
                "satellites FROM positions WHERE drive = ? ORDER BY number");
  row.With(drive);
  while (row.Next()) {
    take(ReadFix(row));
  }
}

void DriveStore::Delete(std::int64_t drive) {
  Statement(database, "DELETE FROM drives WHERE number = ?").With(drive).Run();
}

void DriveStore::KeepTrip(const KeptTrip& trip) {
  std::string states;
  for (const auto& [sensor, state] : trip.states) {
    states += std::to_string(sensor) + " " + state + "\n";
  }
  Statement(database, "INSERT OR REPLACE INTO trips VALUES (?, ?, ?, ?, ?, ?, ?)")
      .With(trip.name, trip.run, states, trip.moving.movingKm, trip.moving.movingMs,
            trip.moving.stoppedMs, trip.day)
      .Run();
}

std::optional<KeptTrip> DriveStore::GetTrip(const std::string& name) {
  Statement row(
      database,
      "SELECT run, states, moving_km, moving_ms, stopped_ms, day FROM trips WHERE name = ?");
  if (!row.With(name).Next()) {
    return std::nullopt;
  }
  KeptTrip trip;
  trip.name = name;
  trip.run = row.GetInteger(0).value_or(0);
  trip.moving = ReadMoving(row, 2);
  trip.day = row.GetText(5);
  std::istringstream states(row.GetText(1));
  int sensor = 0;
  std::string state;
  while (states >> sensor && states.ignore(1) && std::getline(states, state)) {
    trip.states[sensor] = state;
  }
  return trip;
}

}  // namespace host
