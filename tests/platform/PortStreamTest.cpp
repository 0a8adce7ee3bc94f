#include <asm/termbits.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>

#include <atomic>
#include <filesystem>
#include <future>
#include <string>
#include <thread>

#include "PseudoTerminal.h"
#include "handheld.h"
#include "serial/PortStream.h"
#include "support/TempFolder.h"

namespace {

using testing_support::TempFolder;

constexpr DWORD BUFFER_SIZE = 2048;

HANDLE OpenPort(const char16_t* name = u"COM1:") {
  return CreateFileW(name, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                     FILE_ATTRIBUTE_NORMAL, nullptr);
}

struct Reading {
  BOOL result = FALSE;
  DWORD error = 0;
  std::string bytes;
};

Reading ReadOnce(HANDLE port, DWORD size = BUFFER_SIZE) {
  std::string buffer(size, '?');
  DWORD count = 0;
  Reading reading;
  reading.result = ReadFile(port, buffer.data(), size, &count, nullptr);
  reading.error = GetLastError();
  reading.bytes = buffer.substr(0, count);
  return reading;
}

/// Reads until this many bytes have come.
std::string ReadAll(HANDLE port, std::size_t size) {
  std::string bytes;
  while (bytes.size() < size) {
    bytes += ReadOnce(port).bytes;
  }
  return bytes;
}

termios2 SettingsOf(const PseudoTerminal& terminal) {
  termios2 settings = {};
  ioctl(terminal.Master(), TCGETS2, &settings);
  return settings;
}

class Serial : public testing::Test {
 protected:
  Serial() { handheld::MapSerialPort("COM1:", receiver.DevicePath()); }
  ~Serial() override {
    if (port != INVALID_HANDLE_VALUE) {
      CloseHandle(port);
    }
    handheld::MapSerialPort("COM1:", "");
    handheld::SetTimeRate(1);
  }

  PseudoTerminal receiver;
  HANDLE port = INVALID_HANDLE_VALUE;
};

TEST_F(Serial, UnknownPortsAreNotFound) {
  EXPECT_EQ(INVALID_HANDLE_VALUE, OpenPort(u"COM7:"));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, GetLastError());
}

TEST_F(Serial, PortsWithoutTheirDeviceAreNotFound) {
  handheld::MapSerialPort("COM2:", "/dev/none");
  EXPECT_EQ(INVALID_HANDLE_VALUE, OpenPort(u"COM2:"));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, GetLastError());
}

TEST_F(Serial, PlainFilesAreNoPorts) {
  const TempFolder folder;
  folder.Write("recording", "$GPRMC\r\n");
  handheld::MapSerialPort("COM2:", folder.Path("recording"));
  EXPECT_EQ(INVALID_HANDLE_VALUE, OpenPort(u"COM2:"));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, GetLastError());
}

TEST_F(Serial, RemovedPortsAreNotFound) {
  handheld::MapSerialPort("COM1:", "");
  EXPECT_EQ(INVALID_HANDLE_VALUE, OpenPort());
}

TEST_F(Serial, NamesDoNotDependOnCase) {
  port = OpenPort(u"com1:");
  EXPECT_NE(INVALID_HANDLE_VALUE, port);
}

TEST_F(Serial, ShowsWhatIsReadToAnObserver) {
  port = OpenPort();
  std::string seen;
  handheld::ObserveSerialReads([&seen](std::string_view bytes) { seen += bytes; });
  receiver.Send("$GPRMC\r\n");
  EXPECT_EQ("$GPRMC\r\n", ReadOnce(port).bytes);
  EXPECT_EQ("$GPRMC\r\n", seen);
  handheld::ObserveSerialReads({});
  receiver.Send("more\r\n");
  EXPECT_EQ("more\r\n", ReadOnce(port).bytes);
  EXPECT_EQ("$GPRMC\r\n", seen);
}

TEST_F(Serial, PortsOpenOnceAtATime) {
  port = OpenPort();
  ASSERT_NE(INVALID_HANDLE_VALUE, port);
  EXPECT_EQ(INVALID_HANDLE_VALUE, OpenPort());
  EXPECT_EQ(ERROR_ACCESS_DENIED, GetLastError());
  handheld::MapSerialPort("COM2:", receiver.DevicePath());
  EXPECT_EQ(INVALID_HANDLE_VALUE, OpenPort(u"COM2:"));
  handheld::MapSerialPort("COM2:", "");

  EXPECT_TRUE(CloseHandle(port));
  port = OpenPort();
  EXPECT_NE(INVALID_HANDLE_VALUE, port);
}

TEST_F(Serial, BytesPassUntouched) {
  port = OpenPort();
  // Line ends, control characters and bytes above 127 all mean something to a terminal that is not
  // raw.
  const std::string bytes("\r\n\n\x03\x04\x11\x13\x1a\x7f\x80\xff\0$", 13);
  receiver.Send(bytes);
  EXPECT_EQ(bytes, ReadAll(port, bytes.size()));
  DWORD count = 0;
  EXPECT_TRUE(WriteFile(port, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr));
  EXPECT_EQ(bytes.size(), count);
  EXPECT_EQ(bytes, receiver.Receive(bytes.size()));
  EXPECT_TRUE(FlushFileBuffers(port));
}

TEST_F(Serial, ABurstArrivesWhole) {
  port = OpenPort();
  std::string epoch;
  for (int i = 0; i < 20; ++i) {
    epoch += "$GPGSV,3,1,12,01,40,083,46,02,17,308,41*75\r\n";
  }
  receiver.Send(epoch);
  EXPECT_EQ(epoch, ReadOnce(port).bytes);
}

TEST_F(Serial, ABurstArrivesWholeWhenTimeRunsFaster) {
  handheld::SetTimeRate(1000);
  port = OpenPort();
  for (int i = 0; i < 50; ++i) {
    const std::string epoch = "$GPGGA," + std::to_string(i) + "\r\n$GPRMC\r\n";
    receiver.Send(epoch);
    EXPECT_EQ(epoch, ReadAll(port, epoch.size()));
  }
}

TEST_F(Serial, ReadsWaitForData) {
  port = OpenPort();
  auto reading = std::async(std::launch::async, [this] { return ReadOnce(port); });
  receiver.Send("late\n");
  EXPECT_EQ("late\n", reading.get().bytes);
}

TEST_F(Serial, AFullBufferEndsTheRead) {
  port = OpenPort();
  receiver.Send("0123456789");
  EXPECT_EQ("0123", ReadOnce(port, 4).bytes);
  EXPECT_EQ("4567", ReadOnce(port, 4).bytes);
  EXPECT_EQ("89", ReadOnce(port, 4).bytes);
}

TEST_F(Serial, ReadingNothingSucceedsAtOnce) {
  port = OpenPort();
  const Reading reading = ReadOnce(port, 0);
  EXPECT_TRUE(reading.result);
  EXPECT_EQ("", reading.bytes);
}

TEST_F(Serial, ALineThatNeverPausesIsCutAfterALineFeed) {
  port = OpenPort();
  std::atomic<bool> isEnough{false};
  std::atomic<bool> hasPaused{false};
  std::thread sender([&] {
    auto sent = std::chrono::steady_clock::now();
    for (int i = 0; !isEnough; ++i) {
      receiver.Send(i % 4 == 3 ? "\n" : "x");
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
      const auto now = std::chrono::steady_clock::now();
      // A busy machine lets the line rest, which may complete a burst.
      hasPaused = hasPaused || now - sent > std::chrono::milliseconds(10);
      sent = now;
    }
    receiver.Send("end");
  });
  // Far larger than what the sender can send.
  std::string bytes = ReadOnce(port, 1'000'000).bytes;
  isEnough = true;
  sender.join();
  EXPECT_FALSE(bytes.empty());
  if (!hasPaused) {
    EXPECT_EQ('\n', bytes.back());
  }
  // No byte is lost at the cut.
  while (!bytes.ends_with("end")) {
    bytes += ReadOnce(port).bytes;
  }
  for (std::size_t i = 0; i + 3 < bytes.size(); ++i) {
    EXPECT_EQ(i % 4 == 3 ? '\n' : 'x', bytes[i]);
  }
}

TEST_F(Serial, ClosingEndsAPendingRead) {
  port = OpenPort();
  const auto object = handheld::HandleTable::Instance().Find<handheld::PortStream>(port);
  auto result = std::async(std::launch::async, [object] {
    char buffer[16];
    DWORD count = 0;
    return object->Read(buffer, sizeof(buffer), count);
  });
  CloseHandle(port);
  EXPECT_EQ(ERROR_OPERATION_ABORTED, result.get());
}

TEST_F(Serial, ReadingsEndWhenTheHandleIsClosedByAnotherThread) {
  for (int i = 0; i < 20; ++i) {
    port = OpenPort();
    ASSERT_NE(INVALID_HANDLE_VALUE, port);
    auto reading = std::async(std::launch::async, [this] { return ReadOnce(port); });
    if (i % 2 == 0) {
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    EXPECT_TRUE(CloseHandle(port));
    const Reading ended = reading.get();
    EXPECT_FALSE(ended.result);
    // ERROR_INVALID_HANDLE: closed before the read started.
    EXPECT_TRUE(ended.error == ERROR_OPERATION_ABORTED || ended.error == ERROR_INVALID_HANDLE);
  }
  port = INVALID_HANDLE_VALUE;
}

TEST_F(Serial, AReadOnAClosedPortLeavesTheLineToTheNextOne) {
  port = OpenPort();
  const auto old = handheld::HandleTable::Instance().Find<handheld::PortStream>(port);
  CloseHandle(port);
  port = OpenPort();
  receiver.Send("new\n");
  char buffer[16];
  DWORD count = 0;
  EXPECT_EQ(ERROR_OPERATION_ABORTED, old->Read(buffer, sizeof(buffer), count));
  EXPECT_EQ("new\n", ReadOnce(port).bytes);
}

TEST_F(Serial, ClosingEndsAPendingWrite) {
  port = OpenPort();
  auto written = std::async(std::launch::async, [this] {
    // More than any terminal buffers while nobody reads.
    const std::string much(1 << 20, 'x');
    DWORD count = 0;
    const BOOL result =
        WriteFile(port, much.data(), static_cast<DWORD>(much.size()), &count, nullptr);
    return std::pair(result, count);
  });
  receiver.Receive(1);
  CloseHandle(port);
  const auto [result, count] = written.get();
  EXPECT_FALSE(result);
  EXPECT_LT(count, 1u << 20);
  port = INVALID_HANDLE_VALUE;
}

TEST_F(Serial, OpeningKeepsTheBaudRate) {
  termios2 settings = SettingsOf(receiver);
  settings.c_cflag = (settings.c_cflag & ~static_cast<tcflag_t>(CBAUD)) | BOTHER;
  settings.c_ospeed = 19200;
  ioctl(receiver.Master(), TCSETS2, &settings);
  port = OpenPort();
  EXPECT_EQ(19200u, SettingsOf(receiver).c_ospeed);
}

TEST_F(Serial, SettingsTellTheBaudRateAndEightBits) {
  port = OpenPort();
  const DWORD before = SettingsOf(receiver).c_ospeed;
  DCB settings = {};
  settings.DCBlength = sizeof(settings);
  ASSERT_TRUE(GetCommState(port, &settings));
  EXPECT_EQ(before, settings.BaudRate);
  EXPECT_EQ(28u, settings.DCBlength);
  EXPECT_EQ(8, settings.ByteSize);
  EXPECT_EQ(0, settings.Parity);
  EXPECT_EQ(0, settings.StopBits);
}

TEST_F(Serial, BaudRatesAreApplied) {
  port = OpenPort();
  DCB settings = {};
  ASSERT_TRUE(GetCommState(port, &settings));
  for (const DWORD baud : {300u, 4800u, 9600u, 57600u, 115200u, 12345u}) {
    settings.BaudRate = baud;
    EXPECT_TRUE(SetCommState(port, &settings));
    EXPECT_EQ(baud, SettingsOf(receiver).c_ospeed);
    DCB applied = {};
    ASSERT_TRUE(GetCommState(port, &applied));
    EXPECT_EQ(baud, applied.BaudRate);
  }
}

TEST_F(Serial, TheBaudRateOutlivesTheHandle) {
  port = OpenPort();
  DCB settings = {};
  GetCommState(port, &settings);
  settings.BaudRate = 4800;
  SetCommState(port, &settings);
  CloseHandle(port);
  port = OpenPort();
  EXPECT_EQ(4800u, SettingsOf(receiver).c_ospeed);
}

TEST_F(Serial, UnsupportedSettingsAreRefused) {
  port = OpenPort();
  DCB settings = {};
  GetCommState(port, &settings);
  DCB sevenBits = settings;
  sevenBits.ByteSize = 7;
  EXPECT_FALSE(SetCommState(port, &sevenBits));
  EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
  DCB noRate = settings;
  noRate.BaudRate = 0;
  EXPECT_FALSE(SetCommState(port, &noRate));
  EXPECT_FALSE(SetCommState(port, nullptr));
  EXPECT_FALSE(GetCommState(port, nullptr));
}

TEST_F(Serial, OnlyPortsHaveSettings) {
  const TempFolder folder;
  folder.Write("a.txt", "");
  const HANDLE file = CreateFileW(folder.DevicePath("a.txt").c_str(), GENERIC_READ, 0, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
  DCB settings = {};
  EXPECT_FALSE(GetCommState(file, &settings));
  EXPECT_EQ(ERROR_INVALID_HANDLE, GetLastError());
  EXPECT_FALSE(SetCommState(file, &settings));
  CloseHandle(file);
}

TEST_F(Serial, AReceiverThatWasUnpluggedFailsItsReads) {
  port = OpenPort();
  receiver.Send("last\n");
  EXPECT_EQ("last\n", ReadOnce(port).bytes);
  receiver.Close();
  const Reading reading = ReadOnce(port);
  EXPECT_FALSE(reading.result);
  EXPECT_EQ(ERROR_GEN_FAILURE, reading.error);
  DCB settings = {};
  EXPECT_FALSE(GetCommState(port, &settings));
  EXPECT_EQ(ERROR_GEN_FAILURE, GetLastError());
  DWORD count;
  EXPECT_FALSE(WriteFile(port, "x", 1, &count, nullptr));
}

TEST_F(Serial, ClosingEndsTheWaitForALostReceiver) {
  port = OpenPort();
  receiver.Close();
  const auto object = handheld::HandleTable::Instance().Find<handheld::PortStream>(port);
  auto result = std::async(std::launch::async, [object] {
    char buffer[16];
    DWORD count = 0;
    while (object->Read(buffer, sizeof(buffer), count) != ERROR_OPERATION_ABORTED) {
    }
  });
  CloseHandle(port);
  result.get();
  port = INVALID_HANDLE_VALUE;
}

TEST_F(Serial, AReceiverThatComesBackIsReadAgainAtItsBaudRate) {
  const TempFolder folder;
  std::filesystem::create_symlink(receiver.DevicePath(), folder.Path("gps"));
  handheld::MapSerialPort("COM1:", folder.Path("gps"));
  port = OpenPort();
  DCB settings = {};
  GetCommState(port, &settings);
  settings.BaudRate = 4800;
  SetCommState(port, &settings);

  const PseudoTerminal replacement;
  receiver.Close();
  std::filesystem::remove(folder.Path("gps"));
  std::filesystem::create_symlink(replacement.DevicePath(), folder.Path("gps"));
  replacement.Send("back\n");
  Reading reading;
  do {
    reading = ReadOnce(port);
  } while (!reading.result);
  EXPECT_EQ("back\n", reading.bytes);
  EXPECT_EQ(4800u, SettingsOf(replacement).c_ospeed);
}

}  // namespace
