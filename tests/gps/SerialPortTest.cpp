#include "gps/SerialPort.h"

// The kernel's own terminal structure tells rates as numbers; <termios.h> cannot be had beside it.
#include <asm/termbits.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <string>

#include "handheld.h"
#include "support/TempFolder.h"

namespace ferolin {
namespace {

/// A pseudo-terminal of 4800 baud stands behind "COM7".
class SerialPortTest : public testing::Test {
 protected:
  void SetUp() override {
    char name[128];
    receiver = posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_EQ(0, grantpt(receiver));
    ASSERT_EQ(0, unlockpt(receiver));
    ASSERT_EQ(0, ptsname_r(receiver, name, sizeof name));
    line = open(name, O_RDWR | O_NOCTTY);
    termios2 settings = LineSettings();
    settings.c_lflag = 0;
    settings.c_iflag = 0;
    settings.c_oflag = 0;
    settings.c_cflag = CS8 | CREAD | CLOCAL | BOTHER;
    settings.c_ispeed = 4800;
    settings.c_ospeed = 4800;
    ASSERT_EQ(0, ioctl(line, TCSETS2, &settings));
    ASSERT_EQ(4800U, LineSpeed());
    handheld::MapSerialPort("COM7", name);
  }

  void TearDown() override {
    if (port != INVALID_HANDLE_VALUE) {
      CloseHandle(port);
    }
    handheld::MapSerialPort("COM7", "");
    close(line);
    close(receiver);
  }

  void Open() {
    port = OpenSerialPort("COM7");
    ASSERT_NE(INVALID_HANDLE_VALUE, port);
  }

  termios2 LineSettings() const {
    termios2 settings = {};
    ioctl(line, TCGETS2, &settings);
    return settings;
  }

  speed_t LineSpeed() const { return LineSettings().c_ospeed; }

  int receiver = -1;
  int line = -1;
  HANDLE port = INVALID_HANDLE_VALUE;
};

TEST_F(SerialPortTest, PortIsNamedWithoutItsColon) {
  Open();
}

TEST_F(SerialPortTest, MissingPortIsInvalid) {
  EXPECT_EQ(INVALID_HANDLE_VALUE, OpenSerialPort("COM99"));
  EXPECT_EQ(INVALID_HANDLE_VALUE, OpenSerialPort(""));
}

TEST_F(SerialPortTest, OpenPortIsNotShared) {
  Open();
  EXPECT_EQ(INVALID_HANDLE_VALUE, OpenSerialPort("COM7"));
}

TEST_F(SerialPortTest, OpenPortIsNotLentToReadersEither) {
  const testing_support::TempFolder folder;
  // This home shares no port, whatever the share mode says. A plain file with a port's name obeys
  // the share mode.
  folder.Write("file:", "");
  port = OpenSerialPort(handheld::Utf8FromWide(folder.DevicePath("file")));
  ASSERT_NE(INVALID_HANDLE_VALUE, port);
  constexpr DWORD FILE_SHARE_WRITE = 2;
  EXPECT_EQ(INVALID_HANDLE_VALUE, CreateFileW(folder.DevicePath("file:").c_str(), GENERIC_READ,
                                              FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

TEST_F(SerialPortTest, OpenPortIsRead) {
  Open();
  ASSERT_EQ(4, write(receiver, "$A\r\n", 4));
  char bytes[16];
  DWORD count = 0;
  ASSERT_TRUE(ReadFile(port, bytes, sizeof bytes, &count, nullptr));
  EXPECT_EQ("$A\r\n", std::string(bytes, count));
}

TEST_F(SerialPortTest, EveryRateOfReceiversIsSet) {
  Open();
  for (const int rate : {300, 2400, 4800, 9600, 19200, 38400, 57600, 115200}) {
    EXPECT_TRUE(ApplyBaudRate(port, rate)) << rate;
    EXPECT_EQ(static_cast<speed_t>(rate), LineSpeed());
  }
}

TEST_F(SerialPortTest, OtherRatesLeaveThePortAsItIs) {
  Open();
  for (const int rate : {14400, 1200, 600, 110, 230400, 1, 0, -1, -9999, -9600}) {
    EXPECT_TRUE(ApplyBaudRate(port, rate)) << rate;
    EXPECT_EQ(4800U, LineSpeed()) << rate;
  }
}

TEST_F(SerialPortTest, NothingButTheRateIsTouched) {
  Open();
  const termios2 before = LineSettings();
  ASSERT_TRUE(ApplyBaudRate(port, 9600));
  const termios2 after = LineSettings();
  EXPECT_EQ(before.c_iflag, after.c_iflag);
  EXPECT_EQ(before.c_oflag, after.c_oflag);
  EXPECT_EQ(before.c_lflag, after.c_lflag);
  constexpr tcflag_t RATE_BITS = CBAUD | CBAUD << IBSHIFT;
  EXPECT_EQ(before.c_cflag & ~RATE_BITS, after.c_cflag & ~RATE_BITS);
}

TEST_F(SerialPortTest, SettingsThatCannotBeReadAreAnErrorOnlyForAKnownRate) {
  const testing_support::TempFolder folder;
  folder.Write("file", "no port");
  const HANDLE file = CreateFileW(folder.DevicePath("file").c_str(), GENERIC_READ, 0, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(INVALID_HANDLE_VALUE, file);
  EXPECT_FALSE(ApplyBaudRate(file, 9600));
  EXPECT_TRUE(ApplyBaudRate(file, 14400));
  EXPECT_TRUE(ApplyBaudRate(file, -9999));
  CloseHandle(file);
}

}  // namespace
}  // namespace ferolin
