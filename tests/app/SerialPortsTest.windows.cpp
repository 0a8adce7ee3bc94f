// The system's list of ports.

#include "ApplicationTest.h"

namespace app {

namespace {

class ListedPorts : public ApplicationTest {
 protected:
  void OpenPorts() {
    Start();
    OpenPage(rows::RECEIVER);
    TapRow(rows::SERIAL);
    TapRow(rows::PORT, 1);
  }
};

TEST_F(ListedPorts, AreOfferedInTheOrderOfTheirNumbers) {
  const auto high = device->Connect("COM10");
  const auto highest = device->Connect("COM256");
  const auto low = device->Connect("COM9");
  OpenPorts();
  int row = 0;
  for (const char* name : {"COM1", "COM9", "COM10", "COM256"}) {
    TapRow(row++);
    EXPECT_EQ(name, GetPortName());
  }
}

TEST_F(ListedPorts, AreAllThatIsOffered) {
  OpenPorts();
  TapRow(0);
  TapRow(1);
  EXPECT_EQ("COM1", GetPortName());
}

}  // namespace

}  // namespace app
