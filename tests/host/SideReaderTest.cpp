#include <gtest/gtest.h>
#include <handheld.h>

#include <array>
#include <condition_variable>
#include <vector>

#include "sources/PseudoTerminal.h"
#include "sources/SideReader.h"

namespace host {
namespace {

using namespace std::chrono_literals;

constexpr auto PATIENCE = 60s;
const std::string FIRST_RMC = "$GPRMC,120000,A,5530.0,N,03730.0,E,3,4,010124,,\r\n";
/// Of several systems, as gpsd passes it on.
const std::string MODERN_RMC = "$GNRMC,120000.00,A,5530.0,N,03730.0,E,3,4,010124,,,A\r\n";
const std::string SECOND_GGA = "$GPGGA,120001,5530.0,N,03730.0,E,1\r\n";
/// 12:00:00 on 1 January 2024, day 19,723 after 1970.
constexpr std::int64_t FIRST_MS = (19723LL * 24 + 12) * 3600 * 1000;

/// Gives one text and then waits for Stop.
class SideText : public NmeaSource {
 public:
  explicit SideText(std::string text, std::string trouble = "")
      : text(std::move(text)), trouble(std::move(trouble)) {}

  std::optional<std::string> Read() override {
    std::unique_lock lock(mutex);
    if (!text.empty()) {
      return std::exchange(text, {});
    }
    changed.wait(lock, [this] { return isStopped; });
    return std::nullopt;
  }
  void Stop() override {
    const std::lock_guard lock(mutex);
    isStopped = true;
    changed.notify_all();
  }
  std::optional<std::uint64_t> GetSize() const override { return std::nullopt; }
  std::string GetTrouble() const override { return trouble; }
  bool IsLive() const override { return true; }

 private:
  std::mutex mutex;
  std::condition_variable changed;
  std::string text;
  const std::string trouble;
  bool isStopped = false;
};

class SideReaderTest : public testing::Test {
 protected:
  void Take(const Fix& fix) {
    const std::lock_guard lock(mutex);
    fixes.push_back(fix);
    changed.notify_all();
  }

  bool AwaitFixes(std::size_t count) {
    std::unique_lock lock(mutex);
    return changed.wait_for(lock, PATIENCE, [&] { return fixes.size() >= count; });
  }

  std::mutex mutex;
  std::condition_variable changed;
  std::vector<Fix> fixes;
};

TEST_F(SideReaderTest, TellsTheFixesOfASourceAndAtTheEndTheLastOne) {
  SideReader reader(std::make_unique<SideText>(FIRST_RMC + SECOND_GGA));
  reader.TellFixes([this](const Fix& fix) { Take(fix); });
  reader.Start();
  ASSERT_TRUE(AwaitFixes(1));
  reader.Stop();
  ASSERT_EQ(2U, fixes.size());
  EXPECT_EQ(FIRST_MS, fixes[0].timeMs);
  EXPECT_EQ(FIRST_MS + 1000, fixes[1].timeMs);
}

TEST_F(SideReaderTest, KnowsTheMomentOfTheLastRmc) {
  SideReader reader(std::make_unique<SideText>(MODERN_RMC + SECOND_GGA));
  EXPECT_EQ(Fix(), reader.GetFix());
  reader.TellFixes([this](const Fix& fix) { Take(fix); });
  reader.Start();
  ASSERT_TRUE(AwaitFixes(1));
  EXPECT_EQ(FIRST_MS, reader.GetFix().timeMs);
  EXPECT_EQ(55.5, reader.GetFix().latitude);
}

TEST_F(SideReaderTest, TellsTheTroubleOfASourceAndNoPosition) {
  SideReader reader(std::make_unique<SideText>(FIRST_RMC + SECOND_GGA, "cannot reach it"));
  reader.TellFixes([this](const Fix& fix) { Take(fix); });
  reader.Start();
  ASSERT_TRUE(AwaitFixes(1));
  EXPECT_EQ("cannot reach it", reader.GetReception().trouble);
  EXPECT_EQ(Fix(), reader.GetFix());
}

TEST_F(SideReaderTest, ReadsAlongAtTheSerialPort) {
  const PseudoTerminal line;
  handheld::MapSerialPort("COM1:", line.GetDevice());
  const HANDLE port = CreateFileW(TEXT("COM1:"), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  SideReader reader(nullptr);
  reader.TellFixes([this](const Fix& fix) { Take(fix); });
  reader.Start();
  for (const std::string& text : {FIRST_RMC, SECOND_GGA}) {
    line.Write(text);
    std::array<char, 2048> bytes = {};
    DWORD count = 0;
    ReadFile(port, bytes.data(), bytes.size(), &count, nullptr);
    EXPECT_EQ(text, std::string(bytes.data(), count));
  }
  EXPECT_EQ(1U, fixes.size());
  EXPECT_EQ(FIRST_MS, reader.GetFix().timeMs);
  reader.Stop();
  EXPECT_EQ(2U, fixes.size());
  CloseHandle(port);
  handheld::MapSerialPort("COM1:", "");
}

}  // namespace
}  // namespace host
