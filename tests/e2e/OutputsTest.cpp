// What leaves the engine: track files, messages and sounds.

#include <chrono>
#include <future>
#include <thread>

#include "EngineTest.h"

namespace e2e {

namespace {

using namespace std::chrono_literals;

class Outputs : public EngineTest {
 protected:
  /// One epoch at the given second of 12:00, somewhat further along for each, higher by a metre.
  void Drive(int second, const std::string& knots) {
    const std::string number = std::to_string(10 + second);
    ASSERT_EQ(1U, Send(Sentence("GPGGA,1200" + number + ",4807." + number + ",N,01131." + number +
                                ",E,1,08,0.9,5" + number + ".4,M,46.9,M,,") +
                       Sentence("GPRMC,1200" + number + ",A,4807." + number + ",N,01131." + number +
                                ",E," + knots + ",084.4,230324,,")));
  }

  void InstallSounds() {
    for (const char* name : {"Limit", "LimitDown", "Zero"}) {
      device->WriteFile(std::string("Wav/") + name + ".wav", "");
    }
  }
};

TEST_F(Outputs, WriteTheTrackAtUnloadWhenChosen) {
  Start();
  engine->SetWriteKML(1);
  // Binary fractions, so that single precision is exact: 7.5 and 31.5 minutes.
  EXPECT_EQ(1U, Send(Sentence("GPGGA,120000,4807.5,N,01131.5,E,1,08,0.9,545.5,M,46.9,M,,") +
                     Sentence("GPRMC,120000,A,4807.5,N,01131.5,E,10,084.4,230324,,")));
  Unload();
  // 48 + 7.5/60 = 48.125, 11 + 31.5/60 = 11.525 (11.524999618 or 11.525 as single: printed with six
  // decimals).
  EXPECT_EQ(
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<kml "
      "xmlns=\"http://earth.google.com/kml/2.1\">\n"
      "<Placemark>\n\t<name>Tachymo track</name>\n\t<LineString>\n\t\t<extrude>0</extrude>\n"
      "\t\t<tessellate>1</tessellate>\n\t\t<altitudeMode>clampToGround</altitudeMode>\n"
      "\t\t<coordinates>\n\t\t\t11.525000,48.125000,545.500000\n\t\t</coordinates>\n"
      "\t</LineString>\n</Placemark>\n</kml>",
      device->ReadFile("Tracks/Track0001.kml"));
}

TEST_F(Outputs, WriteTheTrackForAnyFlagWhoseLowByteIsNotZero) {
  int tracks = 0;
  for (const int flag : {1, 2, 0x80, 0x1FF, -1}) {
    Start();
    engine->SetWriteKML(flag);
    EXPECT_EQ(flag & 0xFF, engine->IsWriteKML()) << flag;
    Drive(1, "10");
    Unload();
    const std::string name = "Tracks/Track000" + std::to_string(++tracks) + ".kml";
    EXPECT_TRUE(device->Exists(name)) << flag;
  }
}

TEST_F(Outputs, WriteNoTrackForAFlagWhoseLowByteIsZero) {
  for (const int flag : {0, 0x100, 0x7F00}) {
    Start();
    engine->SetWriteKML(1);
    engine->SetWriteKML(flag);
    EXPECT_EQ(0, engine->IsWriteKML()) << flag;
    Drive(1, "10");
    Unload();
    EXPECT_FALSE(device->Exists("Tracks")) << flag;
  }
}

TEST_F(Outputs, NumberTracksByTheFirstFreeNumber) {
  device->WriteFile("Tracks/Track0001.kml", "mine");
  device->WriteFile("Tracks/Track0003.kml", "mine");
  Start();
  engine->SetWriteKML(1);
  Drive(1, "10");
  Unload();
  EXPECT_EQ("mine", device->ReadFile("Tracks/Track0001.kml"));
  EXPECT_EQ(0U, device->ReadFile("Tracks/Track0002.kml").find("<?xml"));
  EXPECT_EQ("mine", device->ReadFile("Tracks/Track0003.kml"));
}

TEST_F(Outputs, MakeTheTrackFolderButNoFileForAnEmptyTrack) {
  Load();
  engine->SetWriteKML(1);
  Unload();
  EXPECT_TRUE(device->Exists("Tracks"));
  EXPECT_FALSE(device->Exists("Tracks/Track0001.kml"));
}

TEST_F(Outputs, WriteNoTrackUnlessChosen) {
  Start();
  Drive(1, "10");
  Unload();
  EXPECT_FALSE(device->Exists("Tracks"));
}

TEST_F(Outputs, WithoutTheSmsLibraryNothingIsSent) {
  Load();
  EXPECT_EQ(0, engine->IsSMSExist());
  engine->SetSMSParams(TEXT("111"), TEXT("here"), 1, 1, 0);
  engine->SendSMS();
  EXPECT_EQ(0U, device->GetSmsSent().size());
}

TEST_F(Outputs, SmsGoesToEveryRecipientInOrder) {
  device->InstallSmsLibrary();
  Start();
  EXPECT_EQ(1, engine->IsSMSExist());
  engine->SetSMSParams(TEXT(" 111 ,, 222"), TEXT("%Latitude% %Latitude% %Speed% %Time%"), 5, 0, 1);
  EXPECT_EQ("111,222", engine->SmsAddress());
  EXPECT_EQ("%Latitude% %Latitude% %Speed% %Time%", engine->SmsText());
  EXPECT_EQ(5, engine->GetSMSInterval());
  EXPECT_EQ(0, engine->IsSMSEnabled());
  EXPECT_EQ(1, engine->IsSMSSendIfChanged());
  EXPECT_EQ(1U, Send(Sentence("GPRMC,120305,A,5530.5,N,03745.0,E,10,084.4,230324,,")));
  engine->SendSMS();
  const auto sent = device->GetSmsSent();
  ASSERT_EQ(2U, sent.size());
  EXPECT_EQ("111", sent[0].recipient);
  EXPECT_EQ("222", sent[1].recipient);
  EXPECT_EQ("55.305000 55.305000 18.5 12:3:5", sent[0].text);
  EXPECT_EQ(sent[0].text, sent[1].text);
}

TEST_F(Outputs, SmsGoesOutByItselfOnlyAfterAGap) {
  device->InstallSmsLibrary();
  Start();
  engine->SetSMSParams(TEXT("111"), TEXT("%Time%"), 2, 1, 0);
  EXPECT_EQ(4U, Send(Rmc("120000", "A", "1") + Rmc("120001", "A", "1") + Rmc("120159", "A", "1") +
                         Rmc("120300", "A", "1"),
                     4));
  EXPECT_EQ(0U, device->GetSmsSent().size());
  EXPECT_EQ(1U, Send(Rmc("120500", "A", "1")));
  ASSERT_EQ(1U, device->GetSmsSent().size());
  EXPECT_EQ("12:5:0", device->GetSmsSent()[0].text);
}

TEST_F(Outputs, HostIsAnsweredWhileAnSmsIsOnItsWay) {
  device->InstallSmsLibrary();
  Start();
  engine->SetSMSParams(TEXT("111,222"), TEXT("%Time%"), 2, 1, 0);
  EXPECT_EQ(1U, Send(Rmc("120000", "A", "1")));
  device->MakeSmsBusy(true);
  receiver->Send(Rmc("120500", "A", "2"));
  const auto patience = std::chrono::steady_clock::now() + 10s;
  while (device->GetSmsSent().empty() && std::chrono::steady_clock::now() < patience) {
    std::this_thread::sleep_for(1ms);
  }
  EXPECT_EQ(1U, device->GetSmsSent().size());
  auto speed =
      std::async(std::launch::async, [this] { return engine->SensorValue(FEROLIN_SENSOR_SPEED); });
  const bool isAnswered = speed.wait_for(10s) == std::future_status::ready;
  EXPECT_TRUE(isAnswered);
  EXPECT_EQ(0U, host->Take(engine->GetWndMessageID()).size());
  device->MakeSmsBusy(false);
  EXPECT_EQ(1U, host->WaitFor(engine->GetWndMessageID(), 1).size());
  EXPECT_EQ(2U, device->GetSmsSent().size());
  // 2 knots.
  EXPECT_EQ("3.7 km/h", speed.get());
}

TEST_F(Outputs, SmsSettingsLastFromRunToRun) {
  Load();
  engine->SetSMSParams(TEXT("111,222"), TEXT("I am here"), 7, 1, 1);
  Unload();
  Load();
  EXPECT_EQ("111,222", engine->SmsAddress());
  EXPECT_EQ("I am here", engine->SmsText());
  EXPECT_EQ(7, engine->GetSMSInterval());
  EXPECT_EQ(1, engine->IsSMSEnabled());
  EXPECT_EQ(1, engine->IsSMSSendIfChanged());
}

TEST_F(Outputs, SoundsWarnAtALimitWithinItsBandAndBelowItAgain) {
  InstallSounds();
  Start();
  engine->SetSpeedEvent(0, 60, 10, 1);
  // 55, 61, 65, 72 and 58 km/h in knots.
  const char* const speeds[] = {"29.7", "32.94", "35.1", "38.88", "31.3"};
  for (int second = 0; second < 5; ++second) {
    Drive(second, speeds[second]);
  }
  EXPECT_EQ((std::vector<std::string>{"Limit.wav", "Limit.wav", "LimitDown.wav"}),
            device->GetSounds());
}

TEST_F(Outputs, SoundTellsOfAStopOnce) {
  InstallSounds();
  Start();
  engine->SetBeepOnZero(1);
  const char* const speeds[] = {"2.7", "0", "0"};
  for (int second = 0; second < 3; ++second) {
    Drive(second, speeds[second]);
  }
  EXPECT_EQ(std::vector<std::string>{"Zero.wav"}, device->GetSounds());
}

TEST_F(Outputs, SpeedLimitsAreKeptAndAFourthIsNotReadBack) {
  Load();
  EXPECT_EQ(3, engine->GetSpeedEventsCount());
  EXPECT_EQ(100, engine->GetEventSpeedLimit(1));
  EXPECT_EQ(10, engine->GetEventSpeedInter(1));
  EXPECT_EQ(0, engine->GetUseEventSound(1));
  engine->SetSpeedEvent(-1, 1, 1, 1);
  EXPECT_EQ(3, engine->GetSpeedEventsCount());
  engine->SetSpeedEvent(1, 80, 5, 1);
  engine->SetSpeedEvent(99, 130, 20, 1);
  EXPECT_EQ(4, engine->GetSpeedEventsCount());
  EXPECT_EQ(130, engine->GetEventSpeedLimit(3));
  engine->SetBeepOnZero(1);
  Unload();
  EXPECT_NE(std::string::npos, device->ReadFile("TachyMo.ini").find(" Limit4=130\n"));
  Load();
  EXPECT_EQ(3, engine->GetSpeedEventsCount());
  EXPECT_EQ(80, engine->GetEventSpeedLimit(1));
  EXPECT_EQ(5, engine->GetEventSpeedInter(1));
  EXPECT_EQ(1, engine->GetUseEventSound(1));
  EXPECT_EQ(1, engine->GetBeepOnZero());
}

}  // namespace

}  // namespace e2e
