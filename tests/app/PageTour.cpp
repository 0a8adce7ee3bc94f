#include "PageTour.h"

namespace app {

PageTour::PageTour() {
  device->InstallSmsLibrary();
  device->SetZone(0);
}

void PageTour::StartWithPort(int width, int height) {
  pageWidth = width;
  device->WriteFile("TachyMo.ini",
                    "[Application]\r\nUseGpsApi=0\r\nPort=COM1\r\nBaudRate=4800\r\n"
                    "[SMS]\r\n");
  Start(width, height);
}

void PageTour::SendFirstPosition() {
  SendPosition("120000", "12:00:00");
  ASSERT_TRUE(WaitUntil([&] { return GetEngine().GetCurRenderWidget() != FEROLIN_VIEW_NONE; }));
}

void PageTour::SetValues() {
  GetEngine().SetSMSParams(TEXT("+79161234567,+79031112233"),
                           TEXT("I am at %Latitude% %Longitude%, %Speed% km/h: %GoogleMaps%"), 10,
                           1, 1);
  GetEngine().SetSpeedEvent(0, 60, 5, 1);
  GetEngine().SetSpeedEvent(1, 90, 10, 1);
  GetEngine().SetSpeedEvent(2, 110, 10, 0);
  EXPECT_TRUE(WaitUntil([&] { return GetEngine().GetSpeedEventsCount() == 3; }));
}

void PageTour::OpenRow(int steps) {
  ForgetFocus();
  for (int step = 0; step < steps; ++step) {
    Key(VK_DOWN);
  }
  Key(VK_RETURN);
}

void PageTour::TakePage(const char* page, int steps) {
  OpenRow(steps);
  Take(page);
  Key(VK_ESCAPE);
}

void PageTour::GoThroughPages() {
  SetValues();
  ForgetFocus();
  Take("waiting");
  SendFirstPosition();
  OpenSettings();
  Take("settings");
  Key(VK_UP);  // to the last row, with the focus
  Take("settings, last rows");
  TakePage("speed limits", rows::LIMITS + 1);
  TakePage("read-outs", rows::READOUTS + 1);
  TakePage("reset", rows::RESET + 1);
  OpenRow(rows::RESET + 1);
  OpenRow(1);
  Take("reset, before the second tap");
  Key(VK_ESCAPE);
  OpenRow(rows::RECEIVER + 1);
  Take("receiver");
  TakePage("ports", 3);
  TakePage("baud rates", 4);
  Key(VK_ESCAPE);
  OpenRow(rows::PICTURE + 1);
  Take("picture");
  Key(VK_UP);
  Take("picture, last rows");
  Key(VK_ESCAPE);
  OpenRow(rows::SMS + 1);
  Take("messages");
  Key(VK_UP);
  Take("messages, last rows");
  TakePage("keypad", 1);
  Key(VK_ESCAPE);
  TakePage("about", rows::ABOUT + 1);
  OpenRow(rows::THEME + 1);
  ForgetFocus();
  Take("settings, light");
  TakePage("speed limits, light", rows::LIMITS + 1);
  OpenRow(rows::SMS + 1);
  TakePage("keypad, light", 1);
}

}  // namespace app
