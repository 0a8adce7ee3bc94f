#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <sstream>

#include "TestFolder.h"
#include "base/HostError.h"
#include "sources/SentenceLog.h"

namespace host {
namespace {

using namespace std::chrono_literals;

class SentenceLogTest : public testing::Test {
 protected:
  SentenceLogTest() {
    setenv("TZ", "UTC0", 1);
    tzset();
  }

  std::string Path(const std::string& name) const { return folder.GetPath() + "/" + name; }

  std::string Content(const std::string& name) const {
    std::ifstream file(Path(name), std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
  }

  TestFolder folder;
  // 22 November 2026, 23:59:59.
  SentenceLog::Clock::time_point now{std::chrono::seconds(20779LL * 86400 + 86399)};
  const std::function<SentenceLog::Clock::time_point()> clock = [this] { return now; };
};

TEST_F(SentenceLogTest, WritesSentencesWithTheTimeOncePerSecond) {
  SentenceLog log(Path("drive.nmea"), clock);
  log.Take("$GPGGA,1\r\n$GPR");
  log.Take("MC,1\r\n");
  now += 500ms;
  log.Take("$GPGGA,2\r\n");
  log.Finish();
  EXPECT_EQ("# 2026-11-22T23:59:59.000Z\r\n$GPGGA,1\r\n$GPRMC,1\r\n$GPGGA,2\r\n",
            Content("drive-2026-11-22.nmea"));
  EXPECT_EQ(0u, log.CountLost());
  EXPECT_EQ(std::nullopt, log.TakeProblem());
}

TEST_F(SentenceLogTest, BeginsAFileForEachDay) {
  {
    SentenceLog log(Path("drive.day.nmea"), clock);
    log.Take("$GPRMC,1\r\n");
  }
  now += 1s;
  {
    SentenceLog log(Path("drive.day.nmea"), clock);
    log.Take("$GPRMC,2\r\n");
    now += 1s;
    log.Take("$GPRMC,3\r\n");
  }
  EXPECT_EQ("# 2026-11-22T23:59:59.000Z\r\n$GPRMC,1\r\n", Content("drive.day-2026-11-22.nmea"));
  EXPECT_EQ("# 2026-11-23T00:00:00.000Z\r\n$GPRMC,2\r\n# 2026-11-23T00:00:01.000Z\r\n$GPRMC,3\r\n",
            Content("drive.day-2026-11-23.nmea"));
}

TEST_F(SentenceLogTest, ChangesTheFileWhileItRuns) {
  SentenceLog log(Path("drive"), clock);
  log.Take("$GPRMC,1\r\n");
  for (int i = 0; i < 10000 && Content("drive-2026-11-22").empty(); ++i) {
    std::this_thread::sleep_for(1ms);
  }
  now += 1s;
  log.Take("$GPRMC,2\r\n");
  log.Finish();
  EXPECT_EQ("# 2026-11-22T23:59:59.000Z\r\n$GPRMC,1\r\n", Content("drive-2026-11-22"));
  EXPECT_EQ("# 2026-11-23T00:00:00.000Z\r\n$GPRMC,2\r\n", Content("drive-2026-11-23"));
}

TEST_F(SentenceLogTest, GoesOnBehindALineThatWasCutOff) {
  std::ofstream(Path("a-2026-11-22.nmea")) << "$GPRMC,0\r\n$GPR";
  {
    SentenceLog log(Path("a.nmea"), clock);
    log.Take("$GPRMC,1\r\n");
  }
  EXPECT_EQ("$GPRMC,0\r\n$GPR\r\n# 2026-11-22T23:59:59.000Z\r\n$GPRMC,1\r\n",
            Content("a-2026-11-22.nmea"));
}

TEST_F(SentenceLogTest, IsForItsOwnerAlone) {
  SentenceLog log(Path("a.nmea"), clock);
  struct stat status = {};
  ASSERT_EQ(0, stat(Path("a-2026-11-22.nmea").c_str(), &status));
  EXPECT_EQ(0600u, status.st_mode & 0777u);
}

TEST_F(SentenceLogTest, RefusesAFileThatCannotBeWritten) {
  try {
    SentenceLog log(Path("none/a.nmea"), clock);
    FAIL();
  } catch (const HostError& error) {
    EXPECT_EQ("cannot record to " + Path("none/a-2026-11-22.nmea") + ": No such file or directory",
              std::string(error.what()));
  }
}

TEST_F(SentenceLogTest, TellsWhatIsLost) {
  SentenceLog log(Path("a.nmea"), clock);
  now += 1s;
  std::filesystem::create_directory(Path("a-2026-11-23.nmea"));
  log.Take("$GPRMC,2\r\n");
  log.Finish();
  EXPECT_EQ("cannot record to " + Path("a-2026-11-23.nmea") + " at present: Is a directory",
            log.TakeProblem());
  EXPECT_EQ(std::nullopt, log.TakeProblem());
  EXPECT_EQ(38u, log.CountLost());
}

}  // namespace
}  // namespace host
