// From bytes on the serial line to the notification of the host.

#include <chrono>

#include "EngineTest.h"

namespace e2e {

namespace {

/// A new source takes over at once from a running reader and only then: the calls of the GPS API
/// tell whether the reader ran.
class Serial : public EngineTest {
 protected:
  std::vector<std::string> GpsCallsAfterSwitch() {
    engine->SetUseGPSAPI(1);
    return device->GetGpsCalls();
  }
};

TEST_F(Serial, EveryAcceptedSentenceNotifiesOnceWithBothParametersZero) {
  Start();
  receiver->Send(Rmc("120000", "A", "10.0"));
  EXPECT_EQ((std::vector<Notification>{{0, 0}}), host->WaitFor(engine->GetWndMessageID(), 1));
  EXPECT_EQ("18.5 km/h", engine->SensorValue(FEROLIN_SENSOR_SPEED));
  EXPECT_EQ("12:00:00", engine->SensorValue(FEROLIN_SENSOR_CURRENT_TIME));
}

TEST_F(Serial, TwoSentencesInOneReadAreBothTakenInOrder) {
  Start();
  EXPECT_EQ(2U, Send(Rmc("120000", "A", "10.0") + Rmc("120001", "A", "20.0"), 2));
  EXPECT_EQ("12:00:01", engine->SensorValue(FEROLIN_SENSOR_CURRENT_TIME));
}

TEST_F(Serial, SentencesThatCompleteNoEpochNotifyNobody) {
  Start();
  receiver->Send(Sentence("GPGGA,120000,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,") +
                 Sentence("GPZDA,120000,23,03,2024,00,00") + Sentence("GNRMC,120000,A") +
                 Sentence("GPRMC,120000,A,4807.038,N,01131.000,E"));
  EXPECT_EQ(0U, CountUpdatesUntilMarker());
  EXPECT_EQ("545.4 m", engine->SensorValue(FEROLIN_SENSOR_ALTITUDE));
}

TEST_F(Serial, ALineEndedByALineFeedAloneIsNeverTaken) {
  Start();
  std::string line = Rmc("120000", "A", "10.0");
  line.erase(line.find('\r'), 1);
  receiver->Send(line);
  EXPECT_EQ(0U, CountUpdatesUntilMarker());
}

TEST_F(Serial, ASentenceSplitOverTwoReadsIsLostAndTheNextOneTaken) {
  Start();
  const std::string sentence = Rmc("120000", "A", "10.0");
  // The update of the sentence in front tells that the first half has been read.
  EXPECT_EQ(1U, Send(Rmc("115959", "A", "10.0") + sentence.substr(0, 30)));
  receiver->Send(sentence.substr(30));
  // The first sentences behind it may be lost as well, depending on how the line delivers them.
  std::string time;
  for (int second = 10; second < 60 && time.empty(); ++second) {
    receiver->Send(Rmc("1300" + std::to_string(second), "A", "10.0"));
    if (!host->WaitFor(engine->GetWndMessageID(), 1, 200).empty()) {
      time = engine->SensorValue(FEROLIN_SENSOR_CURRENT_TIME);
    }
  }
  EXPECT_EQ("13:00:", time.substr(0, 6));
}

TEST_F(Serial, BytesBeforeTheDollarSignAreDropped) {
  Start();
  EXPECT_EQ(1U, Send("noise\r\n\r\n,,*" + Rmc("120000", "A", "10.0")));
  EXPECT_EQ("18.5 km/h", engine->SensorValue(FEROLIN_SENSOR_SPEED));
}

TEST_F(Serial, AStartedReaderOnlyGetsANewWindow) {
  Start();
  HostWindow second;
  const int before = receiver->GetBaudRate();
  engine->SetComPortSpeed(9600);
  EXPECT_EQ(1, engine->StartCallBack(second.Get()));
  EXPECT_EQ(before, receiver->GetBaudRate()) << "the port was opened again";
  receiver->Send(Rmc("120000", "A", "10.0"));
  EXPECT_EQ(1U, second.WaitFor(engine->GetWndMessageID(), 1).size());
  EXPECT_EQ(0U, host->Take(engine->GetWndMessageID()).size());
}

TEST_F(Serial, NoNotificationComesAfterAStop) {
  Start();
  EXPECT_EQ(1U, Send(Rmc("120000", "A", "10.0")));
  EXPECT_EQ(1, engine->StopCallBack());
  receiver->Send(Rmc("120001", "A", "30.0"));
  // Many times as long as a running reader needs.
  EXPECT_EQ(0U, host->WaitFor(engine->GetWndMessageID(), 1, 500).size());
  EXPECT_EQ("18.5 km/h", engine->SensorValue(FEROLIN_SENSOR_SPEED));
}

TEST_F(Serial, ANullWindowStops) {
  device->InstallGpsLibrary();
  Start();
  EXPECT_EQ(1U, Send(Rmc("120000", "A", "10.0")));
  EXPECT_EQ(1, engine->StartCallBack(nullptr));
  EXPECT_EQ(std::vector<std::string>{}, GpsCallsAfterSwitch());
  Start();
  EXPECT_EQ(1U, Send(Rmc("120001", "A", "20.0")));
  EXPECT_EQ(std::vector<std::string>{"StartGPSAPI"}, GpsCallsAfterSwitch());
}

TEST_F(Serial, AStopEndsAPendingRead) {
  device->InstallGpsLibrary();
  Start();
  EXPECT_EQ(1, engine->StopCallBack());
  EXPECT_EQ(std::vector<std::string>{}, GpsCallsAfterSwitch());
}

TEST_F(Serial, ANewPortNameRestartsTheRunningReaderOnIt) {
  Start();
  EXPECT_EQ(1U, Send(Rmc("120000", "A", "10.0")));
  const auto second = device->Connect("COM2");
  EXPECT_EQ(1, engine->SetComPortName(TEXT("COM2")));
  second->Send(Rmc("120001", "A", "20.0"));
  EXPECT_EQ(1U, host->WaitFor(engine->GetWndMessageID(), 1).size());
  EXPECT_EQ("37.0 km/h", engine->SensorValue(FEROLIN_SENSOR_SPEED));
}

TEST_F(Serial, ANewSpeedWaitsForTheNextStart) {
  Start();
  const int before = receiver->GetBaudRate();
  engine->SetComPortSpeed(9600);
  EXPECT_EQ(before, receiver->GetBaudRate());
  EXPECT_EQ(9600, engine->GetComPortSpeed());
  engine->SetComPortName(TEXT("COM1"));
  EXPECT_EQ(9600, receiver->GetBaudRate());
}

TEST_F(Serial, OddSpeedsLeaveThePortAsItIs) {
  Start();
  engine->SetComPortSpeed(19200);
  engine->SetComPortName(TEXT("COM1"));
  EXPECT_EQ(19200, receiver->GetBaudRate());
  for (const int speed : {14400, -9999, 0, 110}) {
    engine->SetComPortSpeed(speed);
    engine->SetComPortName(TEXT("COM1"));
    EXPECT_EQ(19200, receiver->GetBaudRate()) << speed;
  }
}

TEST_F(Serial, AMissingPortIsNoErrorAndAnotherStartFindsIt) {
  Load();
  engine->SetUseGPSAPI(0);
  engine->SetComPortName(TEXT("COM1"));
  EXPECT_EQ(1, engine->StartCallBack(host->Get()));
  receiver = device->Connect("COM1");
  EXPECT_EQ(1, engine->StopCallBack());
  EXPECT_EQ(1, engine->StartCallBack(host->Get()));
  EXPECT_EQ(1U, Send(Rmc("120000", "A", "10.0")));
}

TEST_F(Serial, ThePortIsReadTenTimesASecondAtMost) {
  using namespace std::chrono_literals;
  device->SetTimeRate(1);
  Start();
  const auto start = std::chrono::steady_clock::now();
  // Each one is sent when the one before has been read.
  for (int second = 10; second < 16; ++second) {
    EXPECT_EQ(1U, Send(Rmc("1200" + std::to_string(second), "A", "10.0")));
  }
  // Five pauses of 100 ms, as a coarse clock may cut them short.
  EXPECT_LE(400ms, std::chrono::steady_clock::now() - start);
}

TEST_F(Serial, AHostWindowThatIsGoneDoesNotStopTheUpdates) {
  Start();
  host->Destroy();
  receiver->Send(Rmc("120000", "A", "10.0"));
  for (int tries = 0; tries < 1000 && engine->SensorValue(FEROLIN_SENSOR_SPEED).empty(); ++tries) {
    Sleep(500);
  }
  EXPECT_EQ("18.5 km/h", engine->SensorValue(FEROLIN_SENSOR_SPEED));
  host = std::make_unique<HostWindow>();
  engine->StartCallBack(host->Get());
  EXPECT_EQ(1U, Send(Rmc("120002", "A", "20.0")));
}

TEST_F(Serial, SwitchingToTheGpsApiRestartsTheReaderThere) {
  Start();
  EXPECT_EQ(1U, Send(Rmc("120000", "A", "10.0")));
  // There is no GPS API on this device: once a second it yields nothing, which is an update without
  // a position.
  EXPECT_EQ(1, engine->SetUseGPSAPI(1));
  EXPECT_LE(1U, host->WaitFor(engine->GetWndMessageID(), 1).size());
  EXPECT_EQ("N/A", engine->SensorValue(FEROLIN_SENSOR_LATITUDE));
  EXPECT_EQ("OK", engine->SensorValue(FEROLIN_SENSOR_GPS_STATUS))
      << "nothing is not the same as a position without a fix";
  EXPECT_EQ(1, engine->SetUseGPSAPI(0));
  host->Take(engine->GetWndMessageID());
  EXPECT_EQ(1U, Send(Rmc("120001", "A", "10.0")));
  EXPECT_EQ("18.5 km/h", engine->SensorValue(FEROLIN_SENSOR_SPEED));
}

TEST_F(Serial, BacklightIsHeldOnceAndTheIdleTimerResetAtEveryUpdate) {
  Start();
  engine->SetAlwaysTurnOn(1);
  EXPECT_EQ(0, device->GetPowerRequirementsHeld());
  EXPECT_EQ(3U,
            Send(Rmc("120000", "A", "1") + Rmc("120001", "A", "2") + Rmc("120002", "A", "3"), 3));
  engine->StopCallBack();
  EXPECT_EQ(1, device->GetPowerRequirementsHeld());
  EXPECT_EQ(1, device->GetPowerRequirementsTaken());
  EXPECT_EQ(3, device->GetIdleTimerResets());

  engine->SetAlwaysTurnOn(0);
  EXPECT_EQ(1, device->GetPowerRequirementsHeld());
  Start();
  EXPECT_EQ(1U, Send(Rmc("120003", "A", "4")));
  engine->StopCallBack();
  EXPECT_EQ(0, device->GetPowerRequirementsHeld());
  EXPECT_EQ(3, device->GetIdleTimerResets());
}

TEST_F(Serial, TheBacklightIsReleasedAtUnload) {
  Start();
  engine->SetAlwaysTurnOn(1);
  EXPECT_EQ(1U, Send(Rmc("120000", "A", "1")));
  Unload();
  EXPECT_EQ(0, device->GetPowerRequirementsHeld());
}

TEST_F(Serial, FractionalSecondsAreAnsweredWithTheDeviceClock) {
  SYSTEMTIME noon = {};
  noon.wYear = 2024;
  noon.wMonth = 6;
  noon.wDay = 1;
  noon.wHour = 10;
  noon.wMinute = 11;
  noon.wSecond = 12;
  device->StopClockAt(noon);
  device->SetZone(3);
  Start();
  EXPECT_EQ(1U, Send(Rmc("235960.00", "A", "1")));
  EXPECT_EQ("13:11:12", engine->SensorValue(FEROLIN_SENSOR_CURRENT_TIME));
}

TEST_F(Serial, ReceivedTimesAreShownInTheDevicesZone) {
  device->SetZone(3);
  Start();
  EXPECT_EQ(1U, Send(Rmc("223015", "A", "1")));
  EXPECT_EQ("1:30:15", engine->SensorValue(FEROLIN_SENSOR_CURRENT_TIME));
}

}  // namespace

}  // namespace e2e
