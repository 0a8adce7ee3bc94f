// The update cycle driven by hand, without a reader thread.

#include <gtest/gtest.h>
#include <handheld.h>
#include <sys/stat.h>

#include "engine/Engine.h"
#include "gdi/RegisteredFonts.h"
#include "support/TempFolder.h"

namespace ferolin {

namespace {

constexpr const char* ACCEPTED = "$GPRMC,120000,A,4807.038,N,01131.000,E,10.0,084.4,230324,,*00";

class UpdateCycle : public testing::Test {
 protected:
  ~UpdateCycle() override {
    handheld::SetPowerRequirementFailing(false);
    handheld::SetPowerReleaseFailing(false);
  }

  Engine engine;
};

TEST_F(UpdateCycle, HoldsTheBacklightAtFullPower) {
  const std::size_t before = handheld::PowerRequests().size();
  engine.GetPowerKeeper().SetAlwaysTurnOn(1);
  engine.OnUpdate(ACCEPTED);
  const std::vector<handheld::PowerRequest> requests = handheld::PowerRequests();
  ASSERT_EQ(before + 1, requests.size());
  EXPECT_EQ(u"BKL1:", requests[before].device);
  EXPECT_EQ(D0, requests[before].state);
  engine.GetPowerKeeper().SetAlwaysTurnOn(0);
  engine.OnUpdate(ACCEPTED);
}

TEST_F(UpdateCycle, AsksOnceForABacklightThatCannotBeHad) {
  const std::size_t before = handheld::PowerRequests().size();
  const int resets = handheld::IdleTimerResets();
  handheld::SetPowerRequirementFailing(true);
  engine.GetPowerKeeper().SetAlwaysTurnOn(1);
  engine.OnUpdate(ACCEPTED);
  handheld::SetPowerRequirementFailing(false);
  engine.OnUpdate(ACCEPTED);
  EXPECT_EQ(before + 1, handheld::PowerRequests().size());
  EXPECT_EQ(0, handheld::PowerRequirementsHeld());
  EXPECT_EQ(resets + 2, handheld::IdleTimerResets());
}

TEST_F(UpdateCycle, TriesAFailedBacklightReleaseAgainAtTheNextUpdate) {
  engine.GetPowerKeeper().SetAlwaysTurnOn(1);
  engine.OnUpdate(ACCEPTED);
  ASSERT_EQ(1, handheld::PowerRequirementsHeld());

  engine.GetPowerKeeper().SetAlwaysTurnOn(0);
  handheld::SetPowerReleaseFailing(true);
  engine.OnUpdate(ACCEPTED);
  EXPECT_EQ(1, handheld::PowerRequirementsHeld());
  handheld::SetPowerReleaseFailing(false);
  engine.OnUpdate(ACCEPTED);
  EXPECT_EQ(0, handheld::PowerRequirementsHeld());
}

TEST_F(UpdateCycle, KeepsTheBacklightAsItIsForARejectedSentence) {
  const int resets = handheld::IdleTimerResets();
  engine.GetPowerKeeper().SetAlwaysTurnOn(1);
  engine.OnUpdate("$GPZDA,120000,23,03,2024,00,00*00");
  engine.OnUpdate("");
  EXPECT_EQ(resets, handheld::IdleTimerResets());
  EXPECT_EQ(0, handheld::PowerRequirementsHeld());
}

TEST_F(UpdateCycle, AttachingANullModuleLoadsNothing) {
  engine.AttachModule(nullptr);
  EXPECT_TRUE(engine.GetModuleDir().empty());
}

TEST_F(UpdateCycle, HasTheDisplayFontFromAttachToShutdown) {
  const testing_support::TempFolder folder;
  folder.Write("lcd-u.ttf", "");
  handheld::SetModuleDirectory(folder.Path());
  // Any loaded library will do: it only has to lie in the folder.
  const HMODULE module = LoadLibraryW(handheld::DevicePath(ANY_LIBRARY).c_str());
  engine.AttachModule(module);
  EXPECT_EQ(std::vector<std::string>{folder.Path("lcd-u.ttf")}, handheld::RegisteredFonts());
  engine.Shutdown();
  EXPECT_EQ(std::vector<std::string>{}, handheld::RegisteredFonts());
  FreeLibrary(module);
  handheld::SetModuleDirectory("");
}

TEST_F(UpdateCycle, StartsNoReaderOnAPortWithoutSettings) {
  const testing_support::TempFolder folder;
  const int handles = handheld::HandlesAlive();
  ASSERT_EQ(0, mkfifo(folder.Path("pipe").c_str(), 0600));
  handheld::MapSerialPort("COM7", folder.Path("pipe"));
  engine.GetReader().SetUseGpsApi(0);
  engine.SetComPortName(TEXT("COM7"));
  engine.GetReader().SetComPortSpeed(9600);
  EXPECT_FALSE(engine.GetReader().Start());
  EXPECT_FALSE(engine.GetReader().IsRunning());
  EXPECT_EQ(handles + 1, handheld::HandlesAlive()) << "the port alone";

  // Keeping the port's own speed needs no settings. A start closes the port that a failed one left
  // open: it cannot be opened twice.
  engine.GetReader().SetComPortSpeed(Reader::KEEP_PORT_SPEED);
  EXPECT_TRUE(engine.GetReader().Start());
  EXPECT_TRUE(engine.GetReader().IsRunning());
  engine.GetReader().Stop();
  EXPECT_EQ(handles, handheld::HandlesAlive());
  handheld::MapSerialPort("COM7", "");
}

}  // namespace

}  // namespace ferolin
