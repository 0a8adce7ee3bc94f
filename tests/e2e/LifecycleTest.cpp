// Loading and unloading the library, and what it leaves behind.

#include <chrono>
#include <thread>

#include "EngineTest.h"

namespace e2e {

namespace {

class Lifecycle : public EngineTest {};

TEST_F(Lifecycle, CreatesAnEmptySettingsFileWhenThereIsNone) {
  Load();
  EXPECT_TRUE(device->Exists("Tachymo.ini"));
  EXPECT_EQ("", device->ReadFile("Tachymo.ini"));
}

TEST_F(Lifecycle, StartsWithTheDocumentedDefaults) {
  Load();
  EXPECT_EQ(1, engine->IsUseGPSAPI());
  EXPECT_EQ(-9999, engine->GetComPortSpeed());
  EXPECT_EQ("", engine->PortName());
  EXPECT_EQ(-1, engine->GetCurRenderWidget());
  EXPECT_EQ(nullptr, engine->GetRenderWindow());
  EXPECT_EQ(0, engine->IsAlwaysTurnOn());
  EXPECT_EQ(0, engine->IsWriteKML());
  EXPECT_EQ(0, engine->IsRussianLocale());
  EXPECT_EQ(0, engine->GetInvertVert());
  EXPECT_EQ(0, engine->GetInvertHorz());
  EXPECT_EQ(0, engine->GetInvertColor());
  EXPECT_EQ(0, engine->GetInvertOrient());
  EXPECT_NE(0U, engine->GetWndMessageID());
}

TEST_F(Lifecycle, NotifiesThroughTheRegisteredMessageUpdateGps) {
  Load();
  EXPECT_EQ(RegisterWindowMessageW(TEXT("UpdateGPS")), engine->GetWndMessageID());
}

TEST_F(Lifecycle, LogsToTracksInItsFolderUnlessToldOtherwise) {
  Load();
  EXPECT_EQ(device->GetProgramFolder() + "\\Tracks", engine->LogFolder());
  engine->SetLogFolder(TEXT(""));
  EXPECT_EQ(device->GetProgramFolder() + "\\Tracks", engine->LogFolder());
  engine->SetLogFolder(TEXT("\\Storage Card\\Routes"));
  EXPECT_EQ("\\Storage Card\\Routes", engine->LogFolder());
}

TEST_F(Lifecycle, KeepsTheLogFolderWhenGivenAnEmptyOne) {
  Load();
  engine->SetLogFolder(TEXT("\\Storage Card\\Routes"));
  engine->SetLogFolder(TEXT(""));
  EXPECT_EQ("\\Storage Card\\Routes", engine->LogFolder());
}

TEST_F(Lifecycle, SavesSmsAndEventSettingsWithoutEverBeingStarted) {
  Load();
  Unload();
  const std::string saved = device->ReadFile("TachyMo.ini");
  EXPECT_NE(std::string::npos, saved.find(" [SMS]\n")) << saved;
  EXPECT_NE(std::string::npos, saved.find(" [Events]\n")) << saved;
  EXPECT_NE(std::string::npos, saved.find(" Limit1=60\n")) << saved;
  EXPECT_NE(std::string::npos, saved.find(" Interval=0\n")) << saved;
}

TEST_F(Lifecycle, KeepsOneSettingsFileWhateverItsLetterCase) {
  device->WriteFile("TACHYMO.INI", " [Host]\n Greeting=Hello\n");
  Load();
  EXPECT_EQ("Hello", engine->IniValue(TEXT("Host"), TEXT("Greeting")));
  Unload();
  const std::string saved = device->ReadFile("TachyMo.ini");
  EXPECT_NE(std::string::npos, saved.find(" Greeting=Hello\n")) << saved;
  EXPECT_NE(std::string::npos, saved.find(" Limit1=60\n")) << saved;
  device->WriteFile("TachyMo.ini", " [Host]\n Greeting=Bye\n");
  Load();
  EXPECT_EQ("Bye", engine->IniValue(TEXT("Host"), TEXT("Greeting")));
}

TEST_F(Lifecycle, CanBeLoadedAgainAndStartsAfresh) {
  Load();
  engine->SetComPortName(TEXT("COM7"));
  engine->SetUseGPSAPI(0);
  Unload();
  Load();
  EXPECT_EQ("", engine->PortName());
  EXPECT_EQ(1, engine->IsUseGPSAPI());
}

TEST_F(Lifecycle, DetachesWithARunningReader) {
  Start();
  EXPECT_EQ(1U, Send(Rmc("120000", "A", "10.0")));
  Unload();
  EXPECT_TRUE(device->Exists("TachyMo.ini"));
}

/// The first update loads the pictures, for which the system may load libraries of its own.
TEST_F(Lifecycle, DetachesDuringTheFirstUpdate) {
  for (int moment = 0; moment < 20; ++moment) {
    Load();
    engine->SetUseGPSAPI(1);
    ASSERT_EQ(1, engine->StartCallBack(host->Get()));
    std::this_thread::sleep_for(std::chrono::microseconds(50 * moment));
    Unload();
  }
}

TEST_F(Lifecycle, LeavesNoHandleOpen) {
  const int before = device->GetHandlesAlive();
  for (int round = 0; round < 3; ++round) {
    engine.reset();
    Start();
    EXPECT_EQ(1U, Send(Rmc("120000", "A", "10.0")));
    engine->SetComPortName(TEXT("COM9"));  // does not exist, so the reader ends by itself
    // Each of these readers ends by itself as well; the next start or the unload closes its handle.
    for (int start = 0; start < 5; ++start) {
      Sleep(100);
      EXPECT_EQ(1, engine->StartCallBack(host->Get()));
    }
    engine->SetComPortName(TEXT("COM1"));
    Unload();
  }
  EXPECT_EQ(before, device->GetHandlesAlive());
}

TEST_F(Lifecycle, SurvivesASettingsFileFullOfRubbish) {
  std::string rubbish;
  for (int byte = 0; byte < 4096; ++byte) {
    rubbish += static_cast<char>(byte * 7 + byte / 256);
  }
  device->WriteFile("Tachymo.ini", rubbish);
  Load();
  EXPECT_EQ(34, engine->GetSensorsCount());
}

}  // namespace

}  // namespace e2e
