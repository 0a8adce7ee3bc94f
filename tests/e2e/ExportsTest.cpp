// How texts, indexes and options behave at the library's edge.

#include <climits>
#include <cstring>
#include <string>

#include "EngineTest.h"

namespace e2e {

namespace {

class Exports : public EngineTest {
 protected:
  Exports() { Load(); }
};

TEST_F(Exports, PortNameIsCopiedOnlyWhenItFitsAndMeasuredAlways) {
  engine->SetComPortName(TEXT("COM1"));
  char buffer[5] = "????";
  EXPECT_EQ(4, engine->GetComPortName(buffer, 4));
  EXPECT_STREQ("????", buffer);
  EXPECT_EQ(4, engine->GetComPortName(buffer, 5));
  EXPECT_STREQ("COM1", buffer);
  EXPECT_EQ(4, engine->GetComPortName(nullptr, 0));
}

TEST_F(Exports, PortNameIsCutToItsBuffer) {
  const std::basic_string<WCHAR> name(1000, 'x');
  engine->SetComPortName(name.c_str());
  EXPECT_EQ(std::string(259, 'x'), engine->PortName());
}

TEST_F(Exports, LogFolderIsCutToItsBuffer) {
  const std::basic_string<WCHAR> path(1000, 'y');
  engine->SetLogFolder(path.c_str());
  EXPECT_EQ(std::string(259, 'y'), engine->LogFolder());
}

TEST_F(Exports, LogFolderThatDoesNotFitLeavesAnEmptyText) {
  engine->SetLogFolder(TEXT("\\Routes"));
  char buffer[] = "untouched";
  engine->GetLogFolder(buffer, 0);
  EXPECT_STREQ("untouched", buffer);
  engine->GetLogFolder(buffer, 7);
  EXPECT_STREQ("", buffer);
  engine->GetLogFolder(buffer, 8);
  EXPECT_STREQ("\\Routes", buffer);
}

TEST_F(Exports, SensorNameIsCopiedOnlyWhenItFits) {
  char buffer[] = "untouched";
  EXPECT_EQ(0, engine->GetSensorName(FEROLIN_SENSOR_SPEED, buffer, 5));
  EXPECT_STREQ("untouched", buffer);
  EXPECT_EQ(5, engine->GetSensorName(FEROLIN_SENSOR_SPEED, buffer, 6));
  EXPECT_STREQ("Speed", buffer);
}

TEST_F(Exports, SensorValueIsCopiedWheneverTheNameFits) {
  ASSERT_EQ(1, engine->SetSensorRegistryString(FEROLIN_SENSOR_ELAPSED, TEXT("90061")));
  char buffer[32] = "untouched";
  EXPECT_EQ(0, engine->GetSensorValue(FEROLIN_SENSOR_ELAPSED, buffer, 7));
  EXPECT_STREQ("untouched", buffer);
  // "1days1:1:1" is longer than "Elapsed".
  EXPECT_EQ(10, engine->GetSensorValue(FEROLIN_SENSOR_ELAPSED, buffer, 8));
  EXPECT_STREQ("1days1:1:1", buffer);
}

TEST_F(Exports, UnknownIndexesGiveZeroAndLeaveTheBufferAlone) {
  for (const int index : {-1, engine->GetSensorsCount(), 50, 1 << 30}) {
    char buffer[] = "untouched";
    EXPECT_EQ(0, engine->GetSensorName(index, buffer, sizeof buffer));
    EXPECT_EQ(0, engine->GetSensorValue(index, buffer, sizeof buffer));
    EXPECT_EQ(0, engine->GetSensorRegistryString(index, buffer, sizeof buffer));
    EXPECT_STREQ("untouched", buffer);
    EXPECT_EQ(0, engine->ResetSensorValue(index));
    EXPECT_EQ(0, engine->IsSensorSaveable(index));
    EXPECT_EQ(0, engine->SetSensorRegistryString(index, TEXT("1")));
    EXPECT_EQ(0, engine->GetUseEventSound(index));
    EXPECT_EQ(0, engine->GetEventSpeedLimit(index));
    EXPECT_EQ(0, engine->GetEventSpeedInter(index));
    EXPECT_EQ(0, engine->GetWidgetName(index, buffer, sizeof buffer));
    EXPECT_STREQ("untouched", buffer);
  }
}

TEST_F(Exports, RegistryStringOfASensorWithoutStateIsWhatTheBufferHeld) {
  char buffer[256] = "previous";
  EXPECT_EQ(8, engine->GetSensorRegistryString(FEROLIN_SENSOR_SPEED, buffer, sizeof buffer));
  EXPECT_STREQ("previous", buffer);
}

TEST_F(Exports, RegistryStringIsNeverCutShort) {
  ASSERT_EQ(1, engine->SetSensorRegistryString(FEROLIN_SENSOR_ELAPSED, TEXT("90061")));
  for (const int size : {INT_MIN, -1, 0, 3, 256}) {
    char buffer[256] = "previous";
    EXPECT_EQ(5, engine->GetSensorRegistryString(FEROLIN_SENSOR_ELAPSED, buffer, size)) << size;
    EXPECT_STREQ("90061", buffer) << size;
  }
}

TEST_F(Exports, NegativeSizesLeaveTheBufferAlone) {
  engine->SetComPortName(TEXT("COM1"));
  engine->SetLogFolder(TEXT("\\Routes"));
  engine->SetSMSParams(TEXT("111"), TEXT("here"), 1, 0, 0);
  engine->SetIniFileValue(TEXT("Host"), TEXT("Port"), TEXT("COM5"), TEXT(""));
  for (const int size : {-1, -512, INT_MIN}) {
    char buffer[16] = "untouched";
    EXPECT_EQ(4, engine->GetComPortName(buffer, size)) << size;
    EXPECT_EQ(0, engine->GetSensorName(FEROLIN_SENSOR_SPEED, buffer, size)) << size;
    EXPECT_EQ(0, engine->GetSensorValue(FEROLIN_SENSOR_GPS_STATUS, buffer, size)) << size;
    EXPECT_EQ(0, engine->GetWidgetName(FEROLIN_VIEW_PATH, buffer, size)) << size;
    EXPECT_EQ(0, engine->GetIniFileValue(buffer, size, TEXT("Host"), TEXT("Port"), TEXT("")))
        << size;
    engine->GetLogFolder(buffer, size);
    engine->GetSMSText(buffer, size);
    engine->GetSMSAddress(buffer, size);
    EXPECT_STREQ("untouched", buffer) << size;
  }
}

TEST_F(Exports, OverlongRegistryTextIsCut) {
  // 255 characters are kept: "7" and 254 blanks, then the digits that no longer count.
  std::basic_string<WCHAR> text(300, ' ');
  text[0] = '7';
  text[299] = '9';
  EXPECT_EQ(1, engine->SetSensorRegistryString(FEROLIN_SENSOR_ELAPSED, text.c_str()));
  EXPECT_EQ("7 s", engine->SensorValue(FEROLIN_SENSOR_ELAPSED));
}

TEST_F(Exports, FlagsKeepTheirLowByteOrBecomeOne) {
  engine->SetWriteKML(0x100);
  EXPECT_EQ(0, engine->IsWriteKML());
  engine->SetWriteKML(1);
  EXPECT_EQ(1, engine->IsWriteKML());
  engine->SetWriteKML(0);
  engine->SetAlwaysTurnOn(7);
  EXPECT_EQ(1, engine->IsAlwaysTurnOn());
  engine->SetUseGPSAPI(0);
  EXPECT_EQ(0, engine->IsUseGPSAPI());
  engine->SetInvertHorz(0x101);
  EXPECT_EQ(1, engine->GetInvertHorz());
  engine->SetInvertVert(2);
  EXPECT_EQ(2, engine->GetInvertVert());
  engine->SetInvertColor(0x100);
  EXPECT_EQ(0, engine->GetInvertColor());
  engine->SetInvertOrient(1);
  EXPECT_EQ(1, engine->GetInvertOrient());
}

TEST_F(Exports, CurrentViewAndWindowAreKeptUnchecked) {
  engine->SetCurRenderWidget(77);
  EXPECT_EQ(77, engine->GetCurRenderWidget());
  engine->SetRenderWindow(host->Get());
  EXPECT_EQ(host->Get(), engine->GetRenderWindow());
  engine->OnMouseDown(host->Get(), 1, 1);
  engine->OnMouseMove(host->Get(), 2, 2);
  engine->OnMouseUp(host->Get(), 3, 3);
  engine->OnDoubleClick();
  engine->OnClick(host->Get(), 4, 4);
}

TEST_F(Exports, IniValuesAreSetAndFoundBySectionAndKey) {
  char buffer[] = "untouched";
  EXPECT_EQ(0,
            engine->GetIniFileValue(buffer, sizeof buffer, TEXT("Host"), TEXT("Port"), TEXT("")));
  EXPECT_STREQ("", buffer);
  EXPECT_EQ(1,
            engine->SetIniFileValue(TEXT("Host"), TEXT("Port"), TEXT("COM5"), TEXT("other.ini")));
  EXPECT_EQ(4, engine->GetIniFileValue(buffer, 5, TEXT("Host"), TEXT("Port"), TEXT("")));
  EXPECT_STREQ("COM5", buffer);
  std::strcpy(buffer, "kept");
  EXPECT_EQ(0, engine->GetIniFileValue(buffer, 4, TEXT("Host"), TEXT("Port"), TEXT("")));
  EXPECT_STREQ("kept", buffer);
  EXPECT_EQ("", engine->IniValue(TEXT("host"), TEXT("Port")));
  EXPECT_EQ("", engine->IniValue(TEXT("Host"), TEXT("port")));
}

TEST_F(Exports, IniValuesReachTheFileWhenTheLibraryIsUnloaded) {
  engine->SetIniFileValue(TEXT("Host"), TEXT("First"), TEXT("1"), TEXT(""));
  engine->SetIniFileValue(TEXT("Host"), TEXT("Second"), TEXT("2"), TEXT(""));
  EXPECT_EQ("", device->ReadFile("TachyMo.ini"));
  Unload();
  // A key that is new in its section goes right below the header.
  EXPECT_EQ(0U, device->ReadFile("TachyMo.ini").find(" [Host]\n Second=2\n First=1\n"));
  Load();
  EXPECT_EQ("2", engine->IniValue(TEXT("Host"), TEXT("Second")));
}

TEST_F(Exports, NullTextsCountAsEmpty) {
  engine->SetComPortName(nullptr);
  engine->SetLogFolder(nullptr);
  engine->SetSMSParams(nullptr, nullptr, 0, 0, 0);
  EXPECT_EQ(0, engine->SetSensorRegistryString(FEROLIN_SENSOR_DISTANCE, nullptr));
  EXPECT_EQ(1, engine->SetIniFileValue(TEXT("S"), TEXT("K"), nullptr, nullptr));
  EXPECT_EQ("", engine->IniValue(TEXT("S"), TEXT("K")));
  EXPECT_EQ(0, engine->GetSensorName(FEROLIN_SENSOR_SPEED, nullptr, 256));
}

}  // namespace

}  // namespace e2e
