#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <future>
#include <string>
#include <thread>

#include "handheld.h"

namespace {

HANDLE OpenCom5() {
  return CreateFileW(TEXT("COM5:"), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0,
                     nullptr);
}

/// Gives a text, then nothing more.
handheld::PortReader TextReader(std::string text) {
  return [rest = std::move(text)](char* buffer, std::size_t size) mutable {
    const std::size_t count = rest.copy(buffer, size);
    rest.erase(0, count);
    return count;
  };
}

class FedPortTest : public testing::Test {
 protected:
  void TearDown() override { handheld::FeedSerialPort("COM5:", {}); }

  /// What one read of at most `size` bytes brings.
  static std::string Read(HANDLE port, DWORD size) {
    std::string bytes(size, '\0');
    DWORD count = 0;
    EXPECT_TRUE(ReadFile(port, bytes.data(), size, &count, nullptr));
    bytes.resize(count);
    return bytes;
  }
};

TEST_F(FedPortTest, ReadsWhatTheHostGives) {
  handheld::FeedSerialPort("COM5", TextReader("abcde"));
  const HANDLE port = OpenCom5();
  ASSERT_NE(INVALID_HANDLE_VALUE, port);
  EXPECT_EQ("abc", Read(port, 3));
  EXPECT_EQ("de", Read(port, 3));
  CloseHandle(port);
}

TEST_F(FedPortTest, AsksNobodyForNothing) {
  int calls = 0;
  handheld::FeedSerialPort("COM5:", [&calls](char*, std::size_t) {
    ++calls;
    return std::size_t(0);
  });
  const HANDLE port = OpenCom5();
  EXPECT_EQ("", Read(port, 0));
  EXPECT_EQ(0, calls);
  CloseHandle(port);
}

TEST_F(FedPortTest, WaitsAtTheEndUntilThePortIsClosed) {
  std::promise<void> asked;
  handheld::FeedSerialPort("COM5:", [&asked](char*, std::size_t) {
    asked.set_value();
    return std::size_t(0);
  });
  const HANDLE port = OpenCom5();
  DWORD error = ERROR_SUCCESS;
  std::thread reader([port, &error] {
    char byte = 0;
    DWORD count = 0;
    EXPECT_FALSE(ReadFile(port, &byte, 1, &count, nullptr));
    EXPECT_EQ(0u, count);
    error = GetLastError();
  });
  asked.get_future().wait();
  CloseHandle(port);
  reader.join();
  EXPECT_EQ(static_cast<DWORD>(ERROR_OPERATION_ABORTED), error);
}

TEST_F(FedPortTest, IsOpenedOnceAtATime) {
  handheld::FeedSerialPort("COM5:", TextReader("a"));
  const HANDLE port = OpenCom5();
  EXPECT_EQ(INVALID_HANDLE_VALUE, OpenCom5());
  EXPECT_EQ(static_cast<DWORD>(ERROR_ACCESS_DENIED), GetLastError());
  CloseHandle(port);
  const HANDLE again = OpenCom5();
  EXPECT_NE(INVALID_HANDLE_VALUE, again);
  CloseHandle(again);
}

TEST_F(FedPortTest, TakesWhatIsWritten) {
  handheld::FeedSerialPort("COM5:", TextReader("a"));
  const HANDLE port = OpenCom5();
  DWORD count = 0;
  EXPECT_TRUE(WriteFile(port, "xyz", 3, &count, nullptr));
  EXPECT_EQ(3u, count);
  EXPECT_TRUE(FlushFileBuffers(port));
  CloseHandle(port);
}

TEST_F(FedPortTest, HasNoBaudRate) {
  handheld::FeedSerialPort("COM5:", TextReader("a"));
  const HANDLE port = OpenCom5();
  DCB settings = {};
  EXPECT_FALSE(GetCommState(port, &settings));
  CloseHandle(port);
}

TEST_F(FedPortTest, IsGoneWithoutAReaderOrWithADevice) {
  handheld::FeedSerialPort("COM5:", TextReader("a"));
  handheld::FeedSerialPort("COM5:", {});
  EXPECT_EQ(INVALID_HANDLE_VALUE, OpenCom5());
  EXPECT_EQ(static_cast<DWORD>(ERROR_FILE_NOT_FOUND), GetLastError());

  handheld::FeedSerialPort("COM5:", TextReader("a"));
  handheld::MapSerialPort("COM5:", "/nonexistent");
  EXPECT_EQ(INVALID_HANDLE_VALUE, OpenCom5());
  handheld::MapSerialPort("COM5:", "");
}

}  // namespace
