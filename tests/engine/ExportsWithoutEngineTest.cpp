// The exports before the library has an engine, as when its memory could not be had.

#include <ferolin.h>
#include <gtest/gtest.h>

#include <climits>

#include "engine/Engine.h"

namespace {

TEST(ExportsWithoutEngine, NumbersAreTheDocumentedDefaults) {
  ASSERT_EQ(nullptr, ferolin::theEngine);
  EXPECT_EQ(-1, GetCurRenderWidget());
  EXPECT_EQ(-9999, GetComPortSpeed());
  EXPECT_EQ(nullptr, GetRenderWindow());
  EXPECT_EQ(0U, GetWndMessageID());
  for (const auto getter :
       {&StopCallBack, &IsUseGPSAPI, &GetSensorsCount, &GetWidgetsCount, &IsAlwaysTurnOn,
        &IsWriteKML, &IsRussianLocale, &IsSMSEnabled, &IsSMSSendIfChanged, &GetSMSInterval,
        &IsSMSExist, &GetSpeedEventsCount, &GetBeepOnZero}) {
    EXPECT_EQ(0, getter());
  }
  for (const auto getter : {&ResetSensorValue, &IsSensorSaveable, &GetUseEventSound,
                            &GetEventSpeedLimit, &GetEventSpeedInter}) {
    EXPECT_EQ(0, getter(0));
  }
}

TEST(ExportsWithoutEngine, CallsDoNothing) {
  EXPECT_EQ(0, StartCallBack(nullptr));
  EXPECT_EQ(0, SetComPortName(TEXT("COM1")));
  EXPECT_EQ(0, SetUseGPSAPI(1));
  EXPECT_EQ(0, SetSensorRegistryString(0, TEXT("1")));
  EXPECT_EQ(0, SetIniFileValue(TEXT("a"), TEXT("b"), TEXT("c"), TEXT("d")));
  SetComPortSpeed(9600);
  SetCurRenderWidget(1);
  SetRenderWindow(nullptr);
  SetAlwaysTurnOn(1);
  SetWriteKML(1);
  SetLogFolder(TEXT("x"));
  SendSMS();
  SetSMSParams(TEXT("1"), TEXT("2"), 3, 4, 5);
  SetBeepOnZero(1);
  SetSpeedEvent(0, 1, 2, 3);
  OnClick(nullptr, 0, 0);
  OnDoubleClick();
  OnMouseDown(nullptr, 0, 0);
  OnMouseMove(nullptr, 0, 0);
  OnMouseUp(nullptr, 0, 0);
  EXPECT_EQ(-9999, GetComPortSpeed());
}

TEST(ExportsWithoutEngine, TextsBecomeEmpty) {
  using IndexedText = int(WINAPI*)(int, char*, int);
  for (const IndexedText getter :
       {&GetSensorName, &GetSensorValue, &GetSensorRegistryString, &GetWidgetName}) {
    char buffer[] = "old";
    EXPECT_EQ(0, getter(0, buffer, sizeof buffer));
    EXPECT_STREQ("", buffer);
  }
  char port[] = "old";
  EXPECT_EQ(0, GetComPortName(port, sizeof port));
  EXPECT_STREQ("", port);
  for (const auto getter : {&GetLogFolder, &GetSMSText, &GetSMSAddress}) {
    char buffer[] = "old";
    getter(buffer, 0);
    EXPECT_STREQ("old", buffer);
    getter(buffer, sizeof buffer);
    EXPECT_STREQ("", buffer);
  }
}

TEST(ExportsWithoutEngine, NegativeSizesLeaveTheBufferAlone) {
  for (const int size : {-1, INT_MIN}) {
    char buffer[] = "old";
    EXPECT_EQ(0, GetSensorName(0, buffer, size));
    EXPECT_EQ(0, GetSensorValue(0, buffer, size));
    EXPECT_EQ(0, GetSensorRegistryString(0, buffer, size));
    EXPECT_EQ(0, GetWidgetName(0, buffer, size));
    EXPECT_EQ(0, GetComPortName(buffer, size));
    EXPECT_EQ(0, GetIniFileValue(buffer, size, TEXT("a"), TEXT("b"), TEXT("")));
    GetLogFolder(buffer, size);
    GetSMSText(buffer, size);
    GetSMSAddress(buffer, size);
    EXPECT_STREQ("old", buffer) << size;
  }
}

TEST(ExportsWithoutEngine, IniValueLeavesTheBufferAlone) {
  char buffer[] = "old";
  EXPECT_EQ(0, GetIniFileValue(buffer, sizeof buffer, TEXT("a"), TEXT("b"), TEXT("")));
  EXPECT_STREQ("old", buffer);
}

TEST(ExportsWithoutEngine, InvertFlagsNeedNone) {
  SetInvertVert(1);
  EXPECT_EQ(1, GetInvertVert());
  SetInvertVert(0);
}

}  // namespace
