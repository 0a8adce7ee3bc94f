#include <gtest/gtest.h>
#include <windows.h>

namespace {

TEST(NamedMutexes, TellWhetherTheyWereThere) {
  const HANDLE first = CreateMutexW(nullptr, FALSE, TEXT("FerolinApiMutex"));
  ASSERT_NE(nullptr, first);
  EXPECT_EQ(static_cast<DWORD>(ERROR_SUCCESS), GetLastError());
  const HANDLE second = CreateMutexW(nullptr, FALSE, TEXT("FerolinApiMutex"));
  EXPECT_EQ(static_cast<DWORD>(ERROR_ALREADY_EXISTS), GetLastError());
  ASSERT_NE(nullptr, second);
  EXPECT_NE(first, second);
  EXPECT_TRUE(CloseHandle(first));
  EXPECT_TRUE(CloseHandle(second));
}

TEST(NamedMutexes, DifferByName) {
  const HANDLE one = CreateMutexW(nullptr, FALSE, TEXT("FerolinApiMutexOne"));
  const HANDLE other = CreateMutexW(nullptr, FALSE, TEXT("FerolinApiMutexOther"));
  EXPECT_EQ(static_cast<DWORD>(ERROR_SUCCESS), GetLastError());
  CloseHandle(one);
  CloseHandle(other);
}

TEST(NamedMutexes, LastUntilTheirLastHandleIsClosed) {
  const HANDLE first = CreateMutexW(nullptr, FALSE, TEXT("FerolinApiMutex"));
  const HANDLE second = CreateMutexW(nullptr, FALSE, TEXT("FerolinApiMutex"));
  CloseHandle(first);
  const HANDLE third = CreateMutexW(nullptr, FALSE, TEXT("FerolinApiMutex"));
  EXPECT_EQ(static_cast<DWORD>(ERROR_ALREADY_EXISTS), GetLastError());
  CloseHandle(second);
  CloseHandle(third);
  const HANDLE fresh = CreateMutexW(nullptr, FALSE, TEXT("FerolinApiMutex"));
  EXPECT_EQ(static_cast<DWORD>(ERROR_SUCCESS), GetLastError());
  CloseHandle(fresh);
}

}  // namespace
