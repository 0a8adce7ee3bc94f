#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

#include "TestFolder.h"
#include "drives/DriveStore.h"

namespace host {
namespace {

Fix WholeFix(std::int64_t timeMs) {
  Fix fix;
  fix.timeMs = timeMs;
  fix.hasFix = true;
  fix.latitude = 48.1173;
  fix.longitude = -11.516667;
  fix.altitude = 545.4;
  fix.speedKmh = 36;
  fix.course = 84.4;
  fix.hdop = 0.9;
  fix.satellites = 8;
  return fix;
}

std::vector<Fix> ReadAll(DriveStore& store, std::int64_t drive) {
  std::vector<Fix> fixes;
  store.ForEachPosition(drive, [&fixes](const Fix& fix) { fixes.push_back(fix); });
  return fixes;
}

class DriveStoreTest : public testing::Test {
 protected:
  std::unique_ptr<DriveStore> Open() const {
    return std::make_unique<DriveStore>(folder.GetPath(), Database::Missing::CREATE);
  }

  std::string ErrorOfOpen() const {
    try {
      Open();
    } catch (const HostError& error) {
      return error.what();
    }
    return "(opened)";
  }

  /// Runs a statement on the file as it is.
  void Execute(const char* sql) const {
    Database(folder.GetPath(), DriveStore::FILE_NAME, Database::Missing::CREATE).Execute(sql);
  }

  std::string File() const { return folder.GetPath() + "/" + DriveStore::FILE_NAME; }

  TestFolder folder;
};

TEST_F(DriveStoreTest, GivesBackWhatItWasGiven) {
  Fix nothing;
  nothing.timeMs = 2000;
  const MovingTime::Sums moving = {12.5, 800, 200};
  {
    const auto store = Open();
    const std::int64_t drive = store->Begin("/dev/ttyUSB0", 1000);
    EXPECT_EQ(1, drive);
    store->Add(drive, 1, WholeFix(1000));
    store->Add(drive, 2, nothing);
    store->End({drive, "", true, 1000, 2000, 12.5, 36, moving});
  }
  const auto store = Open();
  EXPECT_EQ((std::vector<Fix>{WholeFix(1000), nothing}), ReadAll(*store, 1));
  const std::vector<Drive> drives = store->List();
  ASSERT_EQ(1u, drives.size());
  EXPECT_EQ(1, drives[0].number);
  EXPECT_EQ("/dev/ttyUSB0", drives[0].source);
  EXPECT_TRUE(drives[0].isEnded);
  EXPECT_EQ(1000, drives[0].startMs);
  EXPECT_EQ(2000, drives[0].endMs);
  EXPECT_EQ(12.5, drives[0].distanceKm);
  EXPECT_EQ(36, drives[0].highestKmh);
  EXPECT_EQ(moving, drives[0].moving);
}

TEST_F(DriveStoreTest, AddsUpAndEndsADriveThatWasLeftOpen) {
  const auto store = Open();
  const std::int64_t drive = store->Begin("gpsd", 1000);
  store->Add(drive, 1, WholeFix(1000));
  store->Add(drive, 2, WholeFix(3000));  // 36 km/h for 2 s: 20 m
  EXPECT_FALSE(store->List().at(0).isEnded);
  EXPECT_DOUBLE_EQ(0.020, store->List().at(0).distanceKm);
  const std::vector<Drive> ended = store->EndOpenDrives();
  ASSERT_EQ(1u, ended.size());
  EXPECT_DOUBLE_EQ(0.020, ended[0].distanceKm);
  EXPECT_EQ(3000, ended[0].endMs);
  EXPECT_TRUE(store->List().at(0).isEnded);
  EXPECT_DOUBLE_EQ(0.020, store->List().at(0).distanceKm);
  EXPECT_TRUE(store->EndOpenDrives().empty());
}

TEST_F(DriveStoreTest, DeletesADriveWithItsPositionsAndDoesNotUseItsNumberAgain) {
  const auto store = Open();
  for (int i = 1; i <= 2; ++i) {
    store->Add(store->Begin("gpsd", 0), 1, WholeFix(i));
  }
  store->Delete(2);
  EXPECT_EQ(1u, store->List().size());
  EXPECT_TRUE(ReadAll(*store, 2).empty());
  EXPECT_EQ(1u, ReadAll(*store, 1).size());
  EXPECT_EQ(3, store->Begin("gpsd", 0));
}

TEST_F(DriveStoreTest, ChangesNothingWhenATransactionFails) {
  const auto store = Open();
  EXPECT_THROW(store->InTransaction([&store] {
    store->Begin("gpsd", 0);
    throw HostError("no");
  }),
               HostError);
  EXPECT_TRUE(store->List().empty());
  store->InTransaction([&store] { store->Begin("gpsd", 0); });
  EXPECT_EQ(1u, store->List().size());
}

TEST_F(DriveStoreTest, RefusesPositionsOfADriveThatIsNotThere) {
  EXPECT_THROW(Open()->Add(5, 1, WholeFix(0)), HostError);
}

TEST_F(DriveStoreTest, KeepsATripInPlaceOfTheOneBefore) {
  const auto store = Open();
  EXPECT_FALSE(store->GetTrip("HostTrip"));
  const KeptTrip first = {"HostTrip", 1, {{6, "12.5"}}};
  const KeptTrip second = {
      "HostTrip", 2, {{6, "13"}, {7, ""}, {11, "10;-9999 x"}}, {12.5, 900, 100}};
  store->KeepTrip(first);
  EXPECT_EQ(first, store->GetTrip("HostTrip"));
  store->KeepTrip(second);
  EXPECT_EQ(second, store->GetTrip("HostTrip"));
  EXPECT_FALSE(store->GetTrip("HostDemoTrip"));
}

TEST_F(DriveStoreTest, TakesOverTheDrivesOfTheFirstVersion) {
  Execute(R"(
    CREATE TABLE drives (number INTEGER PRIMARY KEY AUTOINCREMENT, source TEXT NOT NULL,
      start_ms INTEGER NOT NULL, end_ms INTEGER, distance_km REAL, highest_kmh REAL);
    CREATE TABLE positions (drive INTEGER NOT NULL REFERENCES drives (number) ON DELETE CASCADE,
      number INTEGER NOT NULL, time_ms INTEGER NOT NULL, has_fix INTEGER NOT NULL, latitude REAL,
      longitude REAL, altitude REAL, speed_kmh REAL, course REAL, hdop REAL, satellites INTEGER,
      PRIMARY KEY (drive, number)) WITHOUT ROWID;
    INSERT INTO drives VALUES (4, 'gpsd', 1000, 2000, 12.5, 36);
    INSERT INTO positions VALUES (4, 1, 1000, 1, 48.1173, -11.516667, 545.4, 36, 84.4, 0.9, 8);
    PRAGMA user_version = 1;)");
  const auto store = Open();
  EXPECT_EQ(12.5, store->List().at(0).distanceKm);
  EXPECT_FALSE(store->List().at(0).moving);
  EXPECT_EQ(std::vector<Fix>{WholeFix(1000)}, ReadAll(*store, 4));
  store->KeepTrip({"HostTrip", 1, {}});
  EXPECT_TRUE(store->GetTrip("HostTrip"));
  EXPECT_EQ(5, store->Begin("gpsd", 0));
}

TEST_F(DriveStoreTest, RefusesADatabaseOfANewerVersion) {
  Open();
  Execute("PRAGMA user_version = 99");
  EXPECT_EQ(File() + " is of a newer version of this program", ErrorOfOpen());
}

TEST_F(DriveStoreTest, RefusesADamagedFileAndLeavesItAlone) {
  const std::string damaged(5000, 'x');
  std::ofstream(File()) << damaged;
  EXPECT_EQ(File() + " is damaged: file is not a database", ErrorOfOpen());
  std::ifstream file(File());
  EXPECT_EQ(damaged, std::string(std::istreambuf_iterator<char>(file), {}));
  EXPECT_THROW(Open(), DamagedDatabase);
}

TEST_F(DriveStoreTest, IsPutAsideWithItsLog) {
  std::ofstream(File()) << "database";
  std::ofstream(File() + "-wal") << "log";
  const std::string aside = folder.GetPath() + "/" + DriveStore::PutAside(folder.GetPath());
  EXPECT_TRUE(aside.starts_with(folder.GetPath() + "/drives-damaged-2"));
  EXPECT_TRUE(aside.ends_with(".db"));
  std::string word;
  std::ifstream(aside) >> word;
  EXPECT_EQ("database", word);
  std::ifstream(aside + "-wal") >> word;
  EXPECT_EQ("log", word);
  EXPECT_FALSE(std::filesystem::exists(File()));
  EXPECT_FALSE(std::filesystem::exists(File() + "-wal"));
}

TEST_F(DriveStoreTest, RefusesAFolderInItsPlace) {
  std::filesystem::create_directory(File());
  EXPECT_EQ(File() + ": unable to open database file", ErrorOfOpen());
}

TEST_F(DriveStoreTest, DoesNotMakeAFileThatIsOnlyRead) {
  EXPECT_THROW(DriveStore(folder.GetPath(), Database::Missing::REFUSE), HostError);
  EXPECT_FALSE(std::filesystem::exists(File()));
}

TEST_F(DriveStoreTest, IsForItsOwnerOnly) {
  Open();
  struct stat status = {};
  ASSERT_EQ(0, stat(File().c_str(), &status));
  EXPECT_EQ(0600u, status.st_mode & 0777);
}

TEST_F(DriveStoreTest, WorksInAFolderWithALongAndStrangePath) {
  std::string path = folder.GetPath();
  for (int i = 0; i < 5; ++i) {
    path += "/ż?#%41\\" + std::string(200, 'a');
  }
  std::filesystem::create_directories(path);
  DriveStore(path, Database::Missing::CREATE).Begin("gpsd", 0);
  EXPECT_EQ(1u, DriveStore(path, Database::Missing::REFUSE).List().size());
  EXPECT_TRUE(std::filesystem::exists(path + "/drives.db"));
}

}  // namespace
}  // namespace host
