// Positions that come through the platform's GPS API instead of the serial port.

#include <chrono>

#include "EngineTest.h"

namespace e2e {

namespace {

using namespace std::chrono_literals;

/// 48.125 degrees north, 11.5 west, 10 knots, heading 84, 545.4 m, from 8 satellites at 12:35:19.
GPS_POSITION MakePosition() {
  GPS_POSITION position = {};
  position.dwVersion = GPS_VERSION_1;
  position.dwSize = sizeof position;
  position.dwValidFields = GPS_VALID_UTC_TIME | GPS_VALID_LATITUDE | GPS_VALID_LONGITUDE |
                           GPS_VALID_SPEED | GPS_VALID_HEADING | GPS_VALID_ALTITUDE_WRT_SEA_LEVEL |
                           GPS_VALID_HORIZONTAL_DILUTION_OF_PRECISION | GPS_VALID_SATELLITE_COUNT;
  position.stUTCTime.wYear = 2024;
  position.stUTCTime.wMonth = 3;
  position.stUTCTime.wDay = 23;
  position.stUTCTime.wHour = 12;
  position.stUTCTime.wMinute = 35;
  position.stUTCTime.wSecond = 19;
  position.dblLatitude = 48.125;
  position.dblLongitude = -11.5;
  position.flSpeed = 10;
  position.flHeading = 84;
  position.flAltitudeWRTSeaLevel = 545.4F;
  position.flHorizontalDilutionOfPrecision = 1.3F;
  position.dwSatelliteCount = 8;
  position.FixQuality = GPS_FIX_QUALITY_GPS;
  position.FixType = GPS_FIX_3D;
  return position;
}

class GpsApi : public EngineTest {
 protected:
  void StartApi() {
    Load();
    engine->SetUseGPSAPI(1);
    ASSERT_EQ(1, engine->StartCallBack(host->Get()));
  }

  /// Updates go on coming by themselves: there may be more than asked for.
  void WaitForUpdates(std::size_t atLeast) {
    EXPECT_LE(atLeast, host->WaitFor(engine->GetWndMessageID(), atLeast).size());
  }

  /// Waits until an update makes the read-out show this text.
  void WaitForValue(int sensor, const std::string& text) {
    const auto deadline = std::chrono::steady_clock::now() + 10s;
    while (engine->SensorValue(sensor) != text && std::chrono::steady_clock::now() < deadline) {
      host->WaitFor(engine->GetWndMessageID(), 1);
    }
    EXPECT_EQ(text, engine->SensorValue(sensor));
  }
};

TEST_F(GpsApi, APositionUpdatesTheSensors) {
  device->InstallGpsLibrary();
  device->SetGpsPosition(MakePosition());
  StartApi();
  WaitForValue(FEROLIN_SENSOR_GPS_STATUS, "OK");
  EXPECT_EQ("8", engine->SensorValue(FEROLIN_SENSOR_SATELLITES_USED));
  EXPECT_EQ("12:35:19", engine->SensorValue(FEROLIN_SENSOR_CURRENT_TIME));
  EXPECT_EQ("18.5 km/h", engine->SensorValue(FEROLIN_SENSOR_SPEED));
  EXPECT_EQ(
      "48\xB0"
      "7'30'' NL",
      engine->SensorValue(FEROLIN_SENSOR_LATITUDE));
  EXPECT_EQ(
      "11\xB0"
      "30'0'' WL",
      engine->SensorValue(FEROLIN_SENSOR_LONGITUDE));
  EXPECT_EQ("545.4 m", engine->SensorValue(FEROLIN_SENSOR_ALTITUDE));
  EXPECT_EQ("84", engine->SensorValue(FEROLIN_SENSOR_AZIMUTH));
  EXPECT_EQ("1.3", engine->SensorValue(FEROLIN_SENSOR_HDOP));
}

TEST_F(GpsApi, PositionsAreAskedForAgainAndAgain) {
  device->InstallGpsLibrary();
  device->SetGpsPosition(MakePosition());
  StartApi();
  WaitForValue(FEROLIN_SENSOR_SPEED, "18.5 km/h");
  GPS_POSITION next = MakePosition();
  next.flSpeed = 20;
  device->SetGpsPosition(next);
  WaitForValue(FEROLIN_SENSOR_SPEED, "37.0 km/h");
}

TEST_F(GpsApi, APositionIsAskedForOnceASecondAtMost) {
  device->InstallGpsLibrary();
  device->SetGpsPosition(MakePosition());
  device->SetTimeRate(10);
  const auto start = std::chrono::steady_clock::now();
  StartApi();
  WaitForUpdates(6);
  // Five pauses of a second, ten times as fast, as a coarse clock may cut them short.
  EXPECT_LE(400ms, std::chrono::steady_clock::now() - start);
}

TEST_F(GpsApi, APositionIsForgottenWithTheFix) {
  device->InstallGpsLibrary();
  GPS_POSITION position = MakePosition();
  device->SetGpsPosition(position);
  StartApi();
  WaitForValue(FEROLIN_SENSOR_GPS_STATUS, "OK");
  position.FixType = GPS_FIX_UNKNOWN;
  device->SetGpsPosition(position);
  WaitForValue(FEROLIN_SENSOR_GPS_STATUS, "No signal");
  EXPECT_EQ("N/A", engine->SensorValue(FEROLIN_SENSOR_LATITUDE));
}

TEST_F(GpsApi, ALibraryWithoutAPositionYieldsUpdatesAllTheSame) {
  device->InstallGpsLibrary();
  StartApi();
  WaitForUpdates(2);
  EXPECT_EQ("N/A", engine->SensorValue(FEROLIN_SENSOR_LATITUDE));
}

TEST_F(GpsApi, EveryRunStartsAndStopsTheLibrary) {
  device->InstallGpsLibrary();
  StartApi();
  EXPECT_EQ(std::vector<std::string>{"StartGPSAPI"}, device->GetGpsCalls());
  EXPECT_EQ(1, engine->StopCallBack());
  EXPECT_EQ((std::vector<std::string>{"StartGPSAPI", "StopGPSAPI"}), device->GetGpsCalls());
  EXPECT_EQ(1, engine->StartCallBack(host->Get()));
  Unload();
  EXPECT_EQ((std::vector<std::string>{"StartGPSAPI", "StopGPSAPI", "StartGPSAPI", "StopGPSAPI"}),
            device->GetGpsCalls());
}

TEST_F(GpsApi, AStartedReaderOnlyGetsANewWindow) {
  device->InstallGpsLibrary();
  StartApi();
  HostWindow second;
  EXPECT_EQ(1, engine->StartCallBack(second.Get()));
  EXPECT_LE(1U, second.WaitFor(engine->GetWndMessageID(), 1).size());
  EXPECT_EQ(std::vector<std::string>{"StartGPSAPI"}, device->GetGpsCalls());
}

TEST_F(GpsApi, AChoiceForAStoppedEngineStartsNoReader) {
  device->InstallGpsLibrary();
  Load();
  EXPECT_EQ(1, engine->SetComPortName(TEXT("COM1")));
  EXPECT_EQ(1, engine->SetUseGPSAPI(1));
  EXPECT_EQ(std::vector<std::string>{}, device->GetGpsCalls());
  StartApi();
  engine->StopCallBack();
  const std::vector<std::string> calls = device->GetGpsCalls();
  EXPECT_EQ(1, engine->SetComPortName(TEXT("COM2")));
  EXPECT_EQ(1, engine->SetUseGPSAPI(1));
  EXPECT_EQ(calls, device->GetGpsCalls());
}

}  // namespace

}  // namespace e2e
